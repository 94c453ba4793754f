// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/CertificateAuthorities.h"
#include "tests/integration/Fetching.h"
#include "tests/integration/TestExchange.h"
#include "tests/support/TemporaryFolder.h"

#include <QSslCertificate>
#include <QSslConfiguration>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

namespace quillbar {
namespace {

class CertificateAuthoritiesTest : public testing::Test {
protected:
    std::string failure(const std::filesystem::path& file) {
        const auto before = QSslConfiguration::defaultConfiguration().caCertificates();
        const auto error = trustAuthorities(file);
        EXPECT_EQ(QSslConfiguration::defaultConfiguration().caCertificates(), before);
        return error.value_or("no error");
    }

    TemporaryFolder m_folder;
};

TEST_F(CertificateAuthoritiesTest, addsToTheAuthoritiesOfTheSystem) {
    const TestExchange exchange(Trust::unknown);
    ASSERT_EQ(trustAuthorities(exchange.caFile()), std::nullopt);
    EXPECT_EQ(Fetching().get(exchange.klinesUrl()).status, 200);
    const auto system = QSslConfiguration::systemCaCertificates();
    const auto trusted = QSslConfiguration::defaultConfiguration().caCertificates();
    EXPECT_EQ(trusted.size(), system.size() + 1);
    for (const QSslCertificate& authority : system) {
        EXPECT_TRUE(trusted.contains(authority));
    }
}

TEST_F(CertificateAuthoritiesTest, namesAFileThatDoesNotExist) {
    const auto file = m_folder.path() / "none.pem";
    EXPECT_EQ(failure(file), "QUILLBAR_CA_FILE:「" + file.string() + "」不存在");
}

TEST_F(CertificateAuthoritiesTest, refusesAFolder) {
    EXPECT_EQ(failure(m_folder.path()),
              "QUILLBAR_CA_FILE:「" + m_folder.path().string() + "」是一个文件夹");
}

TEST_F(CertificateAuthoritiesTest, refusesAFileWithoutACertificate) {
    const auto file = m_folder.path() / "empty.pem";
    std::ofstream(file) << "-----BEGIN CERTIFICATE-----\nnothing\n-----END CERTIFICATE-----\n";
    EXPECT_EQ(failure(file), "QUILLBAR_CA_FILE:「" + file.string() + "」不含 PEM 格式的证书");
}

}  // namespace
}  // namespace quillbar
