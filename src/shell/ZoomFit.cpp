// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/ZoomFit.h"

#include <algorithm>
#include <utility>

namespace shell {

namespace {

bool BothFit(const ZoomSizes& sizes, const QSize& room, int grid, editing::Page page, int zoom) {
    const QSize left = sizes.grid(grid);
    const QSize right = sizes.page(page, zoom);
    return left.width() + right.width() <= room.width() &&
           std::max(left.height(), right.height()) <= room.height();
}

/// The grid's zoom in the best pair: the smaller of the two counts, then both.
int BestGrid(const ZoomSizes& sizes, const QSize& room, editing::Page page) {
    int best = 1;
    std::pair<int, int> worth;
    for (int grid = 1; grid <= MaxZoom; ++grid) {
        for (int zoom = 1; zoom <= MaxZoom; ++zoom) {
            const std::pair<int, int> found{std::min(grid, zoom), grid + zoom};
            if (found > worth && BothFit(sizes, room, grid, page, zoom)) {
                worth = found;
                best = grid;
            }
        }
    }
    return best;
}

} // namespace

Zooms EqualZooms(int zoom) {
    Zooms zooms{.grid = zoom};
    zooms.pages.fill(zoom);
    return zooms;
}

Zooms SmallerZooms(const Zooms& one, const Zooms& other) {
    Zooms zooms{.grid = std::min(one.grid, other.grid)};
    std::ranges::transform(
        one.pages, other.pages, zooms.pages.begin(), [](int a, int b) { return std::min(a, b); });
    return zooms;
}

bool AllFit(const ZoomSizes& sizes, const QSize& room, const Zooms& zooms) {
    return std::ranges::all_of(editing::Kinds, [&](const editing::Kind& kind) {
        const int zoom = zooms.pages.at(static_cast<std::size_t>(kind.page));
        return BothFit(sizes, room, zooms.grid, kind.page, zoom);
    });
}

Zooms FittingZooms(const ZoomSizes& sizes, const QSize& room) {
    Zooms zooms{.grid = MaxZoom};
    for (const editing::Kind& kind : editing::Kinds) {
        zooms.grid = std::min(zooms.grid, BestGrid(sizes, room, kind.page));
    }
    for (const editing::Kind& kind : editing::Kinds) {
        int zoom = MaxZoom;
        while (zoom > 1 && !BothFit(sizes, room, zooms.grid, kind.page, zoom)) {
            --zoom;
        }
        zooms.pages.at(static_cast<std::size_t>(kind.page)) = zoom;
    }
    return zooms;
}

} // namespace shell
