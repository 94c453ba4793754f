// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/LabelAdaptor.h"

#include <utility>

namespace quillbar {

LabelAdaptor::LabelAdaptor(QObject* object)
    : QDBusAbstractAdaptor(object) {}

void LabelAdaptor::setReader(std::function<QVariantMap()> reader) {
    m_reader = std::move(reader);
}

QVariantMap LabelAdaptor::Read() const {
    return m_reader ? m_reader() : QVariantMap();
}

}  // namespace quillbar
