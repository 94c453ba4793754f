// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tests/qtsupport/SpinUntil.h"

#include <QByteArray>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

namespace quillbar {

/// An object on a bus, as a program sees it that calls whatever it likes with whatever it likes.
/// Needs a QCoreApplication. For one thread.
class BusGarbage final {
public:
    /// A method as the object itself describes it.
    struct Method final {
        QString interface;
        QString name;
        /// The signatures of what it takes.
        QStringList takes = {};
    };
    /// Values of a D-Bus type, by its signature.
    using Values = QHash<QString, QVariantList>;

    /// `bus` is the caller's connection. `more` are values of types that only this object knows.
    BusGarbage(QDBusConnection bus, QString service, QString path, const Values& more = {})
        : m_bus(std::move(bus))
        , m_service(std::move(service))
        , m_path(std::move(path))
        , m_values(values()) {
        m_values.insert(more);
    }

    /// All of the object's own methods; not those that every object has.
    [[nodiscard]] std::vector<Method> methods() {
        const QDBusMessage reply = call(
            {QStringLiteral("org.freedesktop.DBus.Introspectable"), QStringLiteral("Introspect")},
            {});
        std::vector<Method> found;
        QString interface;
        QXmlStreamReader description(reply.arguments().value(0).toString());
        while (!description.atEnd()) {
            if (description.readNext() != QXmlStreamReader::StartElement) {
                continue;
            }
            const auto attribute = [&description](const char* name) {
                return description.attributes().value(QLatin1String(name)).toString();
            };
            if (description.name() == QLatin1String("interface")) {
                interface = attribute("name");
            } else if (interface.startsWith(QStringLiteral("org.freedesktop.DBus."))) {
                continue;
            } else if (description.name() == QLatin1String("method")) {
                found.push_back({interface, attribute("name")});
            } else if (description.name() == QLatin1String("arg")
                       && attribute("direction") == QStringLiteral("in")) {
                found.back().takes << attribute("type");
            }
        }
        return found;
    }

    /// Calls the method and runs the event loop until it has answered.
    [[nodiscard]] QDBusMessage call(const Method& method, const QVariantList& arguments) {
        QDBusMessage question =
            QDBusMessage::createMethodCall(m_service, m_path, method.interface, method.name);
        question.setArguments(arguments);
        const QDBusPendingCallWatcher answer(m_bus.asyncCall(question));
        EXPECT_TRUE(spinUntil([&answer] { return answer.isFinished(); }))
            << method.name.toStdString();
        return answer.reply();
    }

    /// Calls every method with arguments that it does not take, and expects that each refuses.
    void callWithWrongTypes() {
        for (const Method& method : methods()) {
            for (const QVariantList& arguments : wrongArguments()) {
                if (method.takes.isEmpty() || signaturesOf(arguments) == method.takes) {
                    continue;
                }
                EXPECT_EQ(call(method, arguments).type(), QDBusMessage::ErrorMessage)
                    << method.name.toStdString() << " took "
                    << signaturesOf(arguments).join(u' ').toStdString();
            }
        }
    }

    /// Calls every method with the most awkward values of the types that it takes, and expects an
    /// answer to each, whatever it is.
    void callWithRightTypes() {
        for (const Method& method : methods()) {
            qsizetype most = 1;
            for (const QString& type : method.takes) {
                ASSERT_TRUE(m_values.contains(type)) << "no values of " << type.toStdString();
                most = std::max(most, m_values.value(type).size());
            }
            // Each value of each argument, beside different ones of the others.
            for (qsizetype round = 0; round < most; ++round) {
                for (qsizetype shift = 0; shift < 3; ++shift) {
                    QVariantList arguments;
                    for (qsizetype each = 0; each < method.takes.size(); ++each) {
                        const QVariantList choices = m_values.value(method.takes.at(each));
                        arguments << choices.at((round + each * shift) % choices.size());
                    }
                    const QDBusMessage answer = call(method, arguments);
                    EXPECT_TRUE(isOfTheObject(answer))
                        << method.name.toStdString() << ": " << answer.errorName().toStdString();
                }
            }
        }
    }

private:
    // The bus answers in the place of a program that has gone, and Qt in that of one that is
    // silent.
    static bool isOfTheObject(const QDBusMessage& answer) {
        return answer.type() == QDBusMessage::ReplyMessage
               || (answer.type() == QDBusMessage::ErrorMessage
                   && answer.errorName() != QStringLiteral("org.freedesktop.DBus.Error.NoReply")
                   && answer.errorName()
                          != QStringLiteral("org.freedesktop.DBus.Error.Disconnected"));
    }

    static QVariant nested(int depth) {
        QVariant value = std::numeric_limits<int>::min();
        for (int each = 0; each < depth; ++each) {
            value = QVariant::fromValue(QDBusVariant(value));
        }
        return value;
    }

    static Values values() {
        constexpr qsizetype kMany = 1000;
        constexpr int kDeep = 30;
        constexpr int kLowest = std::numeric_limits<int>::min();
        constexpr int kHighest = std::numeric_limits<int>::max();
        const QString longText(1'000'000, u'x');
        const QString oddText = QStringLiteral("\x1b[31m\u202e\n\u009b\ufffd");
        return {
            {QStringLiteral("i"), {0, 1, -1, kLowest, kHighest}},
            {QStringLiteral("u"), {0U, std::numeric_limits<uint>::max()}},
            {QStringLiteral("s"), {QString(), oddText, longText}},
            {QStringLiteral("as"), {QStringList(), QStringList(kMany, oddText)}},
            {QStringLiteral("ai"),
             {QVariant::fromValue(QList<int>()),
              QVariant::fromValue(QList<int>{kLowest, kHighest, 0, 0, -1}),
              QVariant::fromValue(QList<int>(kMany, 0)),
              QVariant::fromValue(QList<int>(kMany, kLowest))}},
            {QStringLiteral("v"), {nested(1), nested(kDeep)}},
            {QStringLiteral("av"),
             {QVariant(QVariantList()), QVariant(QVariantList(kMany, nested(kDeep)))}},
            {QStringLiteral("a{sv}"),
             {QVariantMap(),
              QVariantMap{{QStringLiteral("activation-token"), longText},
                          {QStringLiteral("desktop-startup-id"), oddText}},
              QVariantMap{{QStringLiteral("activation-token"), nested(kDeep)},
                          {QStringLiteral("desktop-startup-id"), QStringList(kMany, oddText)},
                          {longText, kLowest}}}},
        };
    }

    static std::vector<QVariantList> wrongArguments() {
        const QString text = QStringLiteral("x");
        return {{},
                {text},
                {0},
                {0U},
                {1.5},
                {true},
                {QByteArray("x")},
                {QStringList{text}},
                {QVariantMap()},
                {nested(1)},
                {QVariant::fromValue(QDBusObjectPath(QStringLiteral("/")))},
                {0, text},
                {text, 0, true},
                QVariantList(20, text)};
    }

    static QStringList signaturesOf(const QVariantList& arguments) {
        QStringList signatures;
        for (const QVariant& argument : arguments) {
            signatures << QString::fromLatin1(QDBusMetaType::typeToSignature(argument.metaType()));
        }
        return signatures;
    }

    QDBusConnection m_bus;
    QString m_service;
    QString m_path;
    Values m_values;
};

}  // namespace quillbar
