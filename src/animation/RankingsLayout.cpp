// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/RankingsLayout.h"

#include "editing/Documents.h"
#include "glyphs/mdlPaint.h"
#include "ui/WholePixel.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>

namespace animation {

namespace {

constexpr int StripWidth = editing::NameLength * glyphs::CellSide;
constexpr int StripHeight = glyphs::CellSide;

/// The screenshot that comes with the program, and where its board leaves a line free for the strip.
constexpr int BoardWidth = 640;
constexpr int BoardHeight = 480;
constexpr int BoardLineX = 240;
constexpr int BoardLineY = 176;

/// The side of the OK button, which is smaller than its distance so that nothing of it is cut off.
constexpr int QuitSide = 34;

/// The greatest multiple of `step` that is not above `value`, which may be negative.
std::int64_t RoundedDown(std::int64_t value, std::int64_t step) {
    const std::int64_t rest = value % step;
    return value - (rest < 0 ? rest + step : rest);
}

/// The window's pixels that hold some of the screen's.
struct Frame {
    int begin = 0;
    int length = 0;
    int inset = 0; ///< of the screen's pixels, before the first that is held
};

/// The frame of `length` pixels of the screen that begin `offset` pixels after a pixel of the window.
Frame FrameOf(int pixel, int offset, int length, double ratio) {
    const int first = ui::WholePixel(pixel * ratio) + offset;
    Frame frame;
    frame.begin = static_cast<int>(std::floor(first / ratio + ui::PixelTolerance));
    frame.inset = first - ui::WholePixel(frame.begin * ratio);
    if (length > 0) {
        frame.length = static_cast<int>(std::ceil((frame.inset + length) / ratio - ui::PixelTolerance));
    }
    return frame;
}

/// The line where the name stands unless another was chosen.
BoardLine FreeLine(std::int64_t width, std::int64_t height) {
    // In a screenshot of another size the board is taken to stand at the same height and in the middle.
    const bool isBoard = width == BoardWidth && height == BoardHeight;
    return {
        isBoard ? BoardLineX : static_cast<int>(RoundedDown(width - StripWidth, 2) / 2),
        static_cast<int>(height * BoardLineY / BoardHeight)};
}

/// A row or column of pixels, of the screen and of the pictures on it.
struct Direction {
    std::int64_t enlarge = 1;
    std::int64_t reduce = 1; ///< of the screenshot
    std::int64_t line = 0;   ///< of the screenshot, where the name begins
    std::int64_t own = 0;    ///< the name's length in its own pixels
    std::int64_t shown = 0;  ///< and on the screen
    std::int64_t begin = 0;  ///< of the screenshot on the screen
    std::int64_t end = 0;    ///< where the screen's pixels end that the name may stand on

    /// Puts the name on the screen, with its middle where it is on the screenshot, and keeps it inside; where
    /// that is from the beginning of the screenshot.
    std::int64_t place() {
        // Where an enlarged pixel begins, so does one of the screen.
        if (enlarge >= reduce) {
            line = RoundedDown(line, reduce);
        }
        const std::int64_t wanted = ((2 * line + own) * enlarge / reduce - shown) / 2;
        const std::int64_t kept = std::max(std::min(wanted, end - shown - begin), -begin);
        if (kept != wanted) {
            line = ((2 * kept + shown) * reduce / enlarge - own) / 2;
        }
        return kept;
    }
};

} // namespace

RankingsLayout LayOutRankings(const RankingsSizes& sizes) {
    const bool hasScreenShot = sizes.screenShotWidth > 0 && sizes.screenShotHeight > 0;
    const std::int64_t width = hasScreenShot ? sizes.screenShotWidth : BoardWidth;
    const std::int64_t height = hasScreenShot ? sizes.screenShotHeight : BoardHeight;
    const BoardLine free = FreeLine(width, height);
    const int top = sizes.windowHeight / TopPart;
    const int playerTop = sizes.windowHeight * 9 / 10;

    RankingsLayout layout;
    const double ratio = sizes.devicePixelRatio;
    const auto across = static_cast<std::int64_t>(std::max(sizes.windowWidth, 1) * ratio);
    const auto room = static_cast<std::int64_t>(std::max(playerTop - top, 1) * ratio);
    // The name is to be seen whole too, and may be larger than the screenshot.
    const std::int64_t wanted = std::max<std::int64_t>(width, width - 2 * std::int64_t{free.x});
    const std::int64_t wantedRoom = std::max<std::int64_t>(height, free.y + StripHeight);
    const std::int64_t parts = sizes.isDoubled ? 2 : 1;
    const std::int64_t enlarged = std::min(across * parts / wanted, room * parts / wantedRoom);
    if (enlarged >= parts) {
        layout.enlarge = static_cast<int>(enlarged / std::gcd(enlarged, parts));
        layout.reduce = static_cast<int>(parts / std::gcd(enlarged, parts));
        layout.nameEnlarge = layout.enlarge;
        layout.nameReduce = layout.reduce;
    } else {
        layout.reduce =
            static_cast<int>(std::max((wanted + across - 1) / across, (wantedRoom + room - 1) / room));
        layout.nameReduce = static_cast<int>((StripWidth + across - 1) / across);
    }
    const auto scaled = [&layout, ratio](std::int64_t pixels) {
        return ui::WholePixel(static_cast<double>(pixels * layout.enlarge) / (layout.reduce * ratio));
    };
    const auto centred = [&sizes](int pixels) {
        return (sizes.windowWidth - pixels) / 2;
    };

    const int left = centred(scaled(width));
    if (hasScreenShot) {
        layout.screenShot = {left, top, scaled(width), scaled(height)};
    }
    const BoardLine line = sizes.line.value_or(free);
    Direction columns{
        .enlarge = layout.enlarge,
        .reduce = layout.reduce,
        .line = line.x,
        .own = StripWidth,
        .shown = StripWidth * layout.nameEnlarge / layout.nameReduce,
        .begin = ui::WholePixel(left * ratio),
        .end = across};
    Direction rows = columns;
    rows.line = line.y;
    rows.own = StripHeight;
    rows.shown = StripHeight * layout.nameEnlarge / layout.nameReduce;
    rows.begin = ui::WholePixel(top * ratio);
    rows.end = static_cast<std::int64_t>(playerTop * ratio);
    const Frame atX =
        FrameOf(left, static_cast<int>(columns.place()), static_cast<int>(columns.shown), ratio);
    const Frame atY = FrameOf(top, static_cast<int>(rows.place()), static_cast<int>(rows.shown), ratio);
    layout.strip = {atX.begin, atY.begin, atX.length, atY.length};
    layout.insetX = atX.inset;
    layout.insetY = atY.inset;
    layout.line = {static_cast<int>(columns.line), static_cast<int>(rows.line)};
    layout.player = {centred(sizes.playerWidth), playerTop, sizes.playerWidth, sizes.playerHeight};
    layout.quit = {sizes.windowWidth - QuitDistance, sizes.windowHeight - QuitDistance, QuitSide, QuitSide};
    return layout;
}

bool IsDoubled(const ui::Picture& picture) {
    if (picture.width() % 2 != 0 || picture.height() % 2 != 0) {
        return false;
    }
    for (int y = 0; y < picture.height(); y += 2) {
        const ui::Pixel* const row = picture.row(y);
        if (!std::equal(row, row + picture.width(), picture.row(y + 1))) {
            return false;
        }
        for (int x = 0; x < picture.width(); x += 2) {
            if (row[x] != row[x + 1]) {
                return false;
            }
        }
    }
    return true;
}

} // namespace animation
