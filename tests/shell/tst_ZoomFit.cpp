// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/ZoomFit.h"

#include <gtest/gtest.h>

using editing::Page;
using shell::FittingZooms;
using shell::Zooms;

namespace {

/// Columns of about the size that the window's have.
const shell::ZoomSizes Sizes{
    [](int zoom) { return QSize(258 * zoom, 256 * zoom + 190); },
    [](Page page, int zoom) {
        switch (page) {
        case Page::Name:
            return QSize(240 * zoom + 40, 16 * zoom + 150);
        case Page::Animation:
            return QSize(240 * zoom + 260, 240 * zoom + 150);
        case Page::Messages:
            return QSize(496 * zoom + 60, 48 * zoom + 150);
        }
        return QSize();
    }};

TEST(ZoomFit, LeavesASmallWindowAsItIs) {
    EXPECT_EQ(FittingZooms(Sizes, {0, 0}), shell::EqualZooms(1));
    EXPECT_EQ(FittingZooms(Sizes, {820, 450}), (Zooms{1, {2, 1, 1}}));
}

TEST(ZoomFit, FillsALargeWindow) {
    EXPECT_EQ(FittingZooms(Sizes, {1900, 960}), (Zooms{3, {4, 3, 2}}));
}

TEST(ZoomFit, EndsAtTheLargestZoom) {
    EXPECT_EQ(FittingZooms(Sizes, {20000, 20000}), shell::EqualZooms(shell::MaxZoom));
}

TEST(ZoomFit, FitsIntoEveryRoomThatHoldsTheSmallest) {
    for (int width = 820; width < 3000; width += 37) {
        for (int height = 446; height < 1800; height += 41) {
            const Zooms zooms = FittingZooms(Sizes, {width, height});
            const QSize grid = Sizes.grid(zooms.grid);
            for (const editing::Kind& kind : editing::Kinds) {
                const QSize page = Sizes.page(kind.page, zooms.pages.at(static_cast<std::size_t>(kind.page)));
                EXPECT_LE(grid.width() + page.width(), width);
                EXPECT_LE(std::max(grid.height(), page.height()), height);
            }
        }
    }
}

} // namespace
