// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/CertificateAuthorities.h"

#include "Quillbar/platform/Formatted.h"
#include "Quillbar/platform/Translated.h"
#include "QuillbarCore/runtime/AtomicFile.h"

#include <QByteArray>
#include <QSslCertificate>
#include <QSslConfiguration>

#include <cerrno>
#include <string_view>

namespace quillbar {

namespace {

std::string about(const std::filesystem::path& pemFile, std::string_view reason) {
    return formatted(translated("platform", "QUILLBAR_CA_FILE:「{}」{}"), pemFile.string(), reason);
}

std::string reasonOf(const FileError& error) {
    switch (error.code()) {
    case ENOENT:
    case ENOTDIR:
        return translated("platform", "不存在").toStdString();
    case EACCES:
        return translated("platform", "没有读取权限").toStdString();
    case EISDIR:
        return translated("platform", "是一个文件夹").toStdString();
    case EFBIG:
        return translated("platform", "太大").toStdString();
    default:
        return formatted(translated("platform", "无法读取（错误 {}）"), error.code());
    }
}

}  // namespace

std::optional<std::string> trustAuthorities(const std::filesystem::path& pemFile) {
    std::string pem;
    try {
        pem = AtomicFile::read(pemFile);
    } catch (const FileError& error) {
        return about(pemFile, reasonOf(error));
    }
    const auto certificates = QSslCertificate::fromData(QByteArray::fromStdString(pem), QSsl::Pem);
    if (certificates.isEmpty()) {
        return about(pemFile, translated("platform", "不含 PEM 格式的证书").toStdString());
    }
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    // A configuration with authorities of its own no longer looks the system's up as they are
    // needed.
    configuration.setCaCertificates(QSslConfiguration::systemCaCertificates() + certificates);
    QSslConfiguration::setDefaultConfiguration(configuration);
    return std::nullopt;
}

}  // namespace quillbar
