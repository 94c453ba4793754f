// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/list/ListRow.h"

#include <QString>

#include <cstddef>
#include <string>
#include <vector>

namespace quillbar {

/// "0", "1", "2" …
inline std::vector<std::string> numbered(std::size_t count) {
    std::vector<std::string> ids;
    for (std::size_t each = 0; each < count; ++each) {
        ids.push_back(std::to_string(each));
    }
    return ids;
}

/// A row that is named after what it shows.
class NamedRow final : public ListRow {
public:
    NamedRow(int& presented, QWidget* parent)
        : ListRow(parent)
        , m_presented(presented) {}

    void present(const std::string& id, std::size_t index) override {
        ++m_presented;
        setAccessibleName(QString::fromStdString(id));
        setAlternate(index % 2 == 1);
    }

private:
    int& m_presented;
};

}  // namespace quillbar
