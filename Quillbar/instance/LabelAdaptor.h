// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusAbstractAdaptor>
#include <QVariantMap>

#include <functional>

namespace quillbar {

/// The label's interface on the object that it is a child of. Main thread.
class LabelAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "io.github.quillbar.Quillbar.Label")

public:
    /// `object` owns it.
    explicit LabelAdaptor(QObject* object);

    /// The source that `Read` asks; null for none.
    void setReader(std::function<QVariantMap()> reader);

    /// The label now, in the form of `labelMessage`; empty while there is none.
    Q_SLOT QVariantMap Read() const;  // NOLINT(*-identifier-naming, modernize-use-nodiscard)

    /// Something visible has changed. The argument is what `Read` would return.
    Q_SIGNAL void Changed(const QVariantMap& label);  // NOLINT(*-identifier-naming)

private:
    std::function<QVariantMap()> m_reader;
};

}  // namespace quillbar
