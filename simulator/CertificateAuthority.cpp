// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/CertificateAuthority.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QString>

#include <openssl/bio.h>
#include <openssl/bn.h>
#include <openssl/ec.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>
#include <stdexcept>

namespace quillbar::simulator {

namespace {

template <auto free>
struct Free {
    template <typename T>
    void operator()(T* object) const {
        free(object);
    }
};
using Key = std::unique_ptr<EVP_PKEY, Free<EVP_PKEY_free>>;
using Certificate = std::unique_ptr<X509, Free<X509_free>>;
using Extension = std::unique_ptr<X509_EXTENSION, Free<X509_EXTENSION_free>>;
using Number = std::unique_ptr<BIGNUM, Free<BN_free>>;
using Memory = std::unique_ptr<BIO, Free<BIO_free_all>>;

constexpr long kDay = 24L * 3600;

void require(bool succeeded, const char* step) {
    if (!succeeded) {
        ERR_clear_error();
        throw std::runtime_error(std::string{"cannot make a certificate: "} + step);
    }
}

std::string textOf(BIO* memory) {
    BUF_MEM* buffer = nullptr;
    BIO_get_mem_ptr(memory, &buffer);
    return {buffer->data, buffer->length};
}

std::string pemOf(X509* certificate) {
    const Memory memory{BIO_new(BIO_s_mem())};
    require(PEM_write_bio_X509(memory.get(), certificate) == 1, "encoding");
    return textOf(memory.get());
}

std::string pemOf(EVP_PKEY* key) {
    // The curve's own form: Qt reads an elliptic-curve key only so.
    const Memory memory{BIO_new(BIO_s_mem())};
    require(PEM_write_bio_PrivateKey_traditional(
                memory.get(), key, nullptr, nullptr, 0, nullptr, nullptr)
                == 1,
            "encoding the key");
    return textOf(memory.get());
}

Key makeKey() {
    Key key{EVP_EC_gen("P-256")};
    require(key != nullptr, "the key");
    return key;
}

void setSerial(X509* certificate) {
    const Number serial{BN_new()};
    require(BN_rand(serial.get(), 127, BN_RAND_TOP_ONE, BN_RAND_BOTTOM_ANY) == 1
                && BN_to_ASN1_INTEGER(serial.get(), X509_get_serialNumber(certificate)) != nullptr,
            "the serial number");
}

void setName(X509_NAME* name, const std::string& commonName) {
    const auto add = [name](const char* field, const std::string& value) {
        // The library takes UTF-8 as unsigned bytes.
        const auto* bytes = reinterpret_cast<const unsigned char*>(value.c_str());
        require(X509_NAME_add_entry_by_txt(name, field, MBSTRING_UTF8, bytes, -1, -1, 0) == 1,
                "the name");
    };
    add("O", "Quillbar simulator");
    add("CN", commonName);
}

void addExtension(X509* certificate, X509* issuer, int nid, const char* value) {
    X509V3_CTX context;
    X509V3_set_ctx(&context, issuer, certificate, nullptr, nullptr, 0);
    const Extension extension{X509V3_EXT_conf_nid(nullptr, &context, nid, value)};
    require(extension != nullptr && X509_add_ext(certificate, extension.get(), -1) == 1,
            "an extension");
}

// An unsigned certificate for a key, from `from` to `to` seconds from the system's time.
Certificate makeCertificate(EVP_PKEY* key, long from, long to) {
    Certificate certificate{X509_new()};
    require(certificate != nullptr, "allocation");
    require(X509_set_version(certificate.get(), X509_VERSION_3) == 1, "the version");
    setSerial(certificate.get());
    require(X509_gmtime_adj(X509_getm_notBefore(certificate.get()), from) != nullptr
                && X509_gmtime_adj(X509_getm_notAfter(certificate.get()), to) != nullptr
                && X509_set_pubkey(certificate.get(), key) == 1,
            "the validity");
    return certificate;
}

QString pathOf(const std::string& file) {
    return QString::fromStdString(file);
}

std::string readAll(const std::string& path) {
    QFile file(pathOf(path));
    if (!file.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("cannot read " + path + ": " + file.errorString().toStdString());
    }
    return file.readAll().toStdString();
}

void writeAll(const std::string& path, const std::string& text, QFile::Permissions permissions) {
    QSaveFile file(pathOf(path));
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.setPermissions(permissions)
                           && file.write(text.data(), static_cast<qint64>(text.size())) >= 0
                           && file.commit();
    if (!isWritten) {
        throw std::runtime_error("cannot write " + path + ": " + file.errorString().toStdString());
    }
}

}  // namespace

struct CertificateAuthority::Material {
    Key key;
    Certificate certificate;
};

CertificateAuthority::CertificateAuthority()
    : m_material(std::make_unique<Material>()) {
    create();
}

CertificateAuthority::CertificateAuthority(const std::string& file)
    : m_material(std::make_unique<Material>()) {
    if (!load(file)) {
        create();
        save(file);
    }
}

CertificateAuthority::~CertificateAuthority() = default;

void CertificateAuthority::create() {
    m_material->key = makeKey();
    m_material->certificate = makeCertificate(m_material->key.get(), -kDay, 3650 * kDay);
    X509* self = m_material->certificate.get();
    // A name of its own each time, so that a client never takes one authority for another.
    std::uint32_t tag = 0;
    require(RAND_bytes(reinterpret_cast<unsigned char*>(&tag), sizeof tag) == 1, "the name");
    setName(X509_get_subject_name(self), "Quillbar simulator authority " + std::to_string(tag));
    require(X509_set_issuer_name(self, X509_get_subject_name(self)) == 1, "the name");
    addExtension(self, self, NID_basic_constraints, "critical,CA:TRUE,pathlen:0");
    addExtension(self, self, NID_key_usage, "critical,keyCertSign,cRLSign");
    addExtension(self, self, NID_subject_key_identifier, "hash");
    require(X509_sign(self, m_material->key.get(), EVP_sha256()) > 0, "the signature");
}

bool CertificateAuthority::load(const std::string& file) {
    const QFileInfo info(pathOf(file));
    if (!info.exists() || (info.isFile() && info.size() == 0)) {
        return false;
    }
    const std::string certificatePem = readAll(file);
    const std::string keyFile = file + ".key";
    if (!QFileInfo::exists(pathOf(keyFile))) {
        throw std::runtime_error(file + " exists but has no key beside it (" + keyFile + ")");
    }
    const std::string keyPem = readAll(keyFile);
    const auto memoryOf = [](const std::string& text) {
        return Memory{BIO_new_mem_buf(text.data(), static_cast<int>(text.size()))};
    };
    const Memory certificateMemory = memoryOf(certificatePem);
    const Memory keyMemory = memoryOf(keyPem);
    Certificate certificate{PEM_read_bio_X509(certificateMemory.get(), nullptr, nullptr, nullptr)};
    Key key{PEM_read_bio_PrivateKey(keyMemory.get(), nullptr, nullptr, nullptr)};
    const bool fits = certificate != nullptr && key != nullptr
                      && X509_check_ca(certificate.get()) == 1
                      && X509_check_private_key(certificate.get(), key.get()) == 1;
    ERR_clear_error();
    if (!fits) {
        throw std::runtime_error(file + " and " + keyFile
                                 + " do not hold an authority and its key");
    }
    m_material->certificate = std::move(certificate);
    m_material->key = std::move(key);
    return true;
}

void CertificateAuthority::save(const std::string& file) const {
    constexpr QFile::Permissions kOwner = QFile::ReadOwner | QFile::WriteOwner;
    writeAll(file + ".key", pemOf(m_material->key.get()), kOwner);
    writeAll(file, certificatePem(), kOwner | QFile::ReadGroup | QFile::ReadOther);
}

std::string CertificateAuthority::certificatePem() const {
    return pemOf(m_material->certificate.get());
}

CertificateAndKey CertificateAuthority::issue(CertificateKind kind) const {
    const Key key = makeKey();
    const bool isExpired = kind == CertificateKind::expired;
    const Certificate certificate =
        makeCertificate(key.get(), isExpired ? -30 * kDay : -kDay, isExpired ? -kDay : 365 * kDay);
    X509* issuer = m_material->certificate.get();
    const bool isElsewhere = kind == CertificateKind::wrongHost;
    setName(X509_get_subject_name(certificate.get()),
            isElsewhere ? "elsewhere.example" : "localhost");
    require(X509_set_issuer_name(certificate.get(), X509_get_subject_name(issuer)) == 1,
            "the issuer");
    addExtension(certificate.get(), issuer, NID_basic_constraints, "critical,CA:FALSE");
    addExtension(certificate.get(), issuer, NID_key_usage, "critical,digitalSignature");
    addExtension(certificate.get(), issuer, NID_ext_key_usage, "serverAuth");
    addExtension(certificate.get(), issuer, NID_authority_key_identifier, "keyid:always");
    addExtension(certificate.get(),
                 issuer,
                 NID_subject_alt_name,
                 isElsewhere ? "DNS:elsewhere.example" : "DNS:localhost,IP:127.0.0.1,IP:::1");
    require(X509_sign(certificate.get(), m_material->key.get(), EVP_sha256()) > 0, "the signature");
    return {pemOf(certificate.get()), pemOf(key.get())};
}

}  // namespace quillbar::simulator
