// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Kinds.h"
#include "shell/Settings.h"

#include <QSize>
#include <array>
#include <functional>

namespace shell {

/// How many times as large as at first the glyph grid and the page of each kind are shown.
struct Zooms {
    int grid = 1;
    std::array<int, editing::Kinds.size()> pages{};

    friend bool operator==(const Zooms&, const Zooms&) = default;
};

/// The same zoom for all.
[[nodiscard]] Zooms EqualZooms(int zoom);

/// Of each two zooms the smaller one.
[[nodiscard]] Zooms SmallerZooms(const Zooms& one, const Zooms& other);

/// What the column of the grid, and that of the pages with one of them in view, take at a zoom.
struct ZoomSizes {
    std::function<QSize(int zoom)> grid;
    std::function<QSize(editing::Page page, int zoom)> page;
};

/// Whether both columns fit into a room beside each other, whatever page is in view.
[[nodiscard]] bool AllFit(const ZoomSizes& sizes, const QSize& room, const Zooms& zooms);

/// The largest zooms, 1 to MaxZoom, at which both columns fit into a room beside each other. The grid keeps
/// its zoom whatever page is in view; neither it nor the page is left small to make the other large.
[[nodiscard]] Zooms FittingZooms(const ZoomSizes& sizes, const QSize& room);

} // namespace shell
