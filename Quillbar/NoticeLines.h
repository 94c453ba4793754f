// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/Notices.h"
#include "QuillbarCore/runtime/Observed.h"

#include <QWidget>

#include <vector>

namespace quillbar {

/// The lines that tell what the session lacks, each with a button that takes it away. Hidden while
/// there is nothing to tell.
class NoticeLines final : public QWidget {
public:
    /// `notices` outlive the view; null for nothing to tell, ever.
    explicit NoticeLines(Notices* notices, QWidget* parent = nullptr);

private:
    class Line;

    void refresh();

    Notices* m_notices;
    std::vector<Line*> m_lines;
    Observation m_observation;
};

}  // namespace quillbar
