// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/panel/Notices.h"
#include "QuillbarCore/runtime/Observed.h"

#include <QWidget>

#include <vector>

namespace quillbar {

/// The lines that say what the session lacks, each with a button that removes it. Hidden while
/// there are none.
class NoticeLines final : public QWidget {
public:
    /// `notices` outlive the view; null for a view that never shows any.
    explicit NoticeLines(Notices* notices, QWidget* parent = nullptr);

private:
    class Line;

    void refresh();

    Notices* m_notices;
    std::vector<Line*> m_lines;
    Observation m_observation;
};

}  // namespace quillbar
