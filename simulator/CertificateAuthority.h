// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/SimulatorOptions.h"

#include <memory>
#include <string>

namespace quillbar::simulator {

/// A certificate with its private key, both as PEM.
struct CertificateAndKey {
    std::string certificate;
    std::string key;
};

/// A certificate authority of our own: elliptic-curve keys (P-256), valid for ten years, trusted by
/// nobody who was not given its certificate.
class CertificateAuthority final {
public:
    /// A new authority, in memory only. Throws std::runtime_error when the library cannot make one.
    CertificateAuthority();
    /// The authority of a file: the one that stands there with its key beside it (`PATH.key`), or,
    /// when the file is missing or empty, a new one written there, the key with mode 0600. Throws
    /// std::runtime_error when the file holds anything else, has no fitting key, or cannot be read
    /// or written; a file that is not ours is never written over.
    explicit CertificateAuthority(const std::string& file);
    ~CertificateAuthority();
    CertificateAuthority(const CertificateAuthority&) = delete;
    CertificateAuthority& operator=(const CertificateAuthority&) = delete;
    CertificateAuthority(CertificateAuthority&&) = delete;
    CertificateAuthority& operator=(CertificateAuthority&&) = delete;

    [[nodiscard]] std::string certificatePem() const;
    /// A server certificate for localhost, 127.0.0.1 and ::1, or one at fault as asked; each call
    /// makes another, with its own key. Throws std::runtime_error as the constructor does.
    [[nodiscard]] CertificateAndKey issue(CertificateKind kind) const;

private:
    void create();
    [[nodiscard]] bool load(const std::string& file);
    void save(const std::string& file) const;

    struct Material;
    std::unique_ptr<Material> m_material;
};

}  // namespace quillbar::simulator
