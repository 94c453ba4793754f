// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/SystemFont.h"

#include "Quillbar/text/FontWeights.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>
#include <QList>
#include <QScreen>
#include <QString>
#include <QStringList>

#include <array>

namespace quillbar {

namespace {

constexpr double kTypographicPointsPerInch = 72;
constexpr double kUsualPixelsPerInch = 96;

/// Families with the shapes of mainland China, the most common first.
constexpr std::array<const char16_t*, 7> kChineseFamilies{u"Noto Sans CJK SC",
                                                          u"Noto Sans SC",
                                                          u"Source Han Sans SC",
                                                          u"Source Han Sans CN",
                                                          u"Sarasa UI SC",
                                                          u"WenQuanYi Micro Hei",
                                                          u"WenQuanYi Zen Hei"};

/// How the names of families end that share a design with one for mainland China.
constexpr std::array<const char16_t*, 4> kOtherRegions{u" JP", u" KR", u" TC", u" HK"};

/// The family of the same design with the shapes of mainland China; else the family itself. Letters
/// and digits look alike in both.
QString inMainlandShapes(const QString& family) {
    for (const char16_t* const name : kOtherRegions) {
        const QString region = QString::fromUtf16(name);
        if (family.endsWith(region)) {
            const QString sibling = family.chopped(region.size()) + QStringLiteral(" SC");
            return QFontDatabase::hasFamily(sibling) ? sibling : family;
        }
    }
    return family;
}

const QStringList& installedChineseFamilies() {
    static const QStringList installed = [] {
        QStringList families;
        for (const char16_t* const name : kChineseFamilies) {
            if (const QString family = QString::fromUtf16(name); QFontDatabase::hasFamily(family)) {
                families.append(family);
            }
        }
        return families;
    }();
    return installed;
}

/// Whether the family has the shapes of mainland China, and so can write everything by itself.
bool writesChinese(const QString& family) {
    return installedChineseFamilies().contains(family)
           || QFontDatabase::writingSystems(family).contains(QFontDatabase::SimplifiedChinese);
}

/// The weights that the family is installed in. The last answer is kept: nearly always one family
/// is asked for.
const QList<int>& weightsOf(const QString& family) {
    static QString asked;
    static QList<int> weights;
    if (family != asked) {
        asked = family;
        weights.clear();
        for (const QString& style : QFontDatabase::styles(family)) {
            weights.append(QFontDatabase::weight(family, style));
        }
    }
    return weights;
}

}  // namespace

QFont systemFont(double points, QFont::Weight weight) {
    // A size in pixels is a whole number in Qt, so the size goes through typographic points, which
    // Qt turns back into pixels with the resolution of the primary screen.
    const QScreen* const screen = QGuiApplication::primaryScreen();
    const double resolution =
        screen != nullptr ? screen->logicalDotsPerInchY() : kUsualPixelsPerInch;
    QFont font = withChineseFamilies(QGuiApplication::font());
    font.setPointSizeF(points * kTypographicPointsPerInch / resolution);
    font.setWeight(FontWeights::closest(weight, weightsOf(font.families().value(0))));
    return font;
}

QFont withChineseFamilies(QFont font) {
    // The last answer: nearly always the desktop's font is asked for.
    static QStringList asked;
    static QStringList answer;
    if (asked.isEmpty() || font.families() != asked) {
        asked = font.families();
        answer = asked;
        if (!installedChineseFamilies().isEmpty() && !answer.isEmpty()) {
            // By its real name: of several families Qt takes the first that it knows, and passes
            // over those that stand for others, like "Sans Serif".
            const QString own = inMainlandShapes(QFontInfo(font).family());
            answer.front() = own;
            if (!writesChinese(own)) {
                answer = installedChineseFamilies() + answer;
            } else {
                answer += installedChineseFamilies();
            }
            answer.removeDuplicates();
        }
    }
    font.setFamilies(answer);
    return font;
}

}  // namespace quillbar
