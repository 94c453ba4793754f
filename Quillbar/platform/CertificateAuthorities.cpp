// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/CertificateAuthorities.h"

#include "QuillbarCore/runtime/AtomicFile.h"

#include <QByteArray>
#include <QSslCertificate>
#include <QSslConfiguration>

#include <fmt/format.h>

namespace quillbar {

std::optional<std::string> trustAuthorities(const std::filesystem::path& pemFile) {
    std::string pem;
    try {
        pem = AtomicFile::read(pemFile);
    } catch (const FileError& error) {
        return fmt::format("no certificate authority: {}", error.what());
    }
    const auto certificates = QSslCertificate::fromData(QByteArray::fromStdString(pem), QSsl::Pem);
    if (certificates.isEmpty()) {
        return fmt::format("no certificate authority: {} holds no PEM certificate",
                           pemFile.string());
    }
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    // A configuration with authorities of its own no longer looks the system's up as they are needed.
    configuration.setCaCertificates(QSslConfiguration::systemCaCertificates() + certificates);
    QSslConfiguration::setDefaultConfiguration(configuration);
    return std::nullopt;
}

}  // namespace quillbar
