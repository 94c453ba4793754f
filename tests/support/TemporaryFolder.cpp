// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/support/TemporaryFolder.h"

#include <cstdlib>
#include <string>
#include <system_error>

namespace quillbar {

TemporaryFolder::TemporaryFolder() {
    std::string pathTemplate =
        (std::filesystem::temp_directory_path() / "quillbar-test-XXXXXX").string();
    if (::mkdtemp(pathTemplate.data()) == nullptr) {
        throw std::system_error(errno, std::generic_category(), "mkdtemp");
    }
    m_path = pathTemplate;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code error;
    std::filesystem::remove_all(m_path, error);
}

}  // namespace quillbar
