// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/list/RowPlaces.h"

#include <QVariantAnimation>

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class QWidget;

namespace quillbar {

/// What is unfolded under the rows of a list: the detail that is open or opening, and those that
/// are still closing. A detail has its full height from the start; a frame around it shows the part
/// that is unfolded.
class RowDetails final {
public:
    /// How long a detail takes to open and to close, slowly at both ends.
    static constexpr std::chrono::milliseconds kDuration{150};

    struct Entry final {
        std::string id;
        /// Holds the detail; as high as `height` and placed by the list.
        QWidget* frame = nullptr;
        int from = 0;
        int to = 0;
        int height = 0;
    };

    /// Makes the detail of an id, as a child of `parent`.
    using Factory = std::function<QWidget*(const std::string& id, QWidget* parent)>;

    /// The frames are children of `list`. `onChanged` is called whenever a height has changed, and
    /// `onSettled` after the last change.
    RowDetails(QWidget& list,
               int fullHeight,
               Factory factory,
               std::function<void()> onChanged,
               std::function<void()> onSettled);

    enum class Transition { animated, immediate };

    /// Opens the detail of that id and closes every other.
    void open(const std::optional<std::string>& id, Transition transition);
    /// Ends all movement at once: every detail is fully open or gone.
    void settle();
    /// Drops the details of rows that are gone, at once and without calling `onChanged`.
    void dropGone(const RowPlaces& places);
    /// Makes room for the details among the rows.
    void layOut(RowPlaces& places) const;

    [[nodiscard]] const std::vector<Entry>& entries() const noexcept { return m_entries; }
    /// The frame of an id's detail; null for none.
    [[nodiscard]] QWidget* frame(const std::string& id) const;
    [[nodiscard]] bool isMoving() const;
    [[nodiscard]] int fullHeight() const noexcept { return m_fullHeight; }
    /// Gives every detail another height, and calls `onChanged`. Those that move go on moving.
    void setFullHeight(int height);

private:
    void step(double progress);
    [[nodiscard]] QWidget* makeFrame(const std::string& id);
    static void discard(QWidget* frame);

    QWidget& m_list;
    int m_fullHeight;
    Factory m_factory;
    std::function<void()> m_onChanged;
    std::function<void()> m_onSettled;
    std::vector<Entry> m_entries;
    QVariantAnimation m_animation;
};

}  // namespace quillbar
