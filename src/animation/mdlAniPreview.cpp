// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/mdlAniPreview.h"

#include "animation/Texts.h"
#include "glyphs/mdlPaint.h"

#include <algorithm>
#include <utility>

namespace animation {

namespace {

/// Timers fire a millisecond or so off their time.
constexpr std::int64_t EarlyMilliseconds = 5;

constexpr int StripWidth = editing::NameLength * glyphs::CellSide;
constexpr int StripHeight = glyphs::CellSide;

/// The screenshot that comes with the program, and where its board leaves a line free for the strip.
constexpr int BoardWidth = 640;
constexpr int BoardHeight = 480;
constexpr int BoardLineX = 240;
constexpr int BoardLineY = 176;

/// How far the corner of the OK button stands from the right and the bottom edge, and its own side: smaller,
/// or it would be cut off.
constexpr int QuitDistance = 40;
constexpr int QuitSide = 34;

/// The pixels of the screen that can be counted in: a row of the strip is a whole number of the window's
/// pixels high, whatever the factor.
int WholePixelRatio(double devicePixelRatio) {
    for (const int ratio : {2, 4}) {
        if (devicePixelRatio == ratio) {
            return ratio;
        }
    }
    return 1;
}

} // namespace

AniPreview::AniPreview(const editing::AnimationDocument& animation)
    : m_ticks(animation.nameTicks)
    , m_previewTotal(animation.nameCount)
    , m_previewName(animation.nameCount) {}

void AniPreview::play() {
    m_playing = true;
    m_previewName = 1;
    wait();
    passDueNames();
}

void AniPreview::stop() {
    m_previewName = m_previewTotal - 1;
}

void AniPreview::step() {
    ++m_tickCounter;
    if (m_playing) {
        passDueNames();
    }
}

void AniPreview::show(int name) {
    m_previewName = name;
    m_shownName = name;
}

void AniPreview::wait() {
    m_deadline = m_tickCounter + m_ticks[static_cast<std::size_t>(m_previewName - 1)];
}

void AniPreview::passDueNames() {
    while (m_previewName < m_previewTotal && m_tickCounter >= m_deadline) {
        show(m_previewName + 1);
        wait();
    }
    m_playing = m_previewName < m_previewTotal;
}

ScreenShot
FindScreenShot(const std::string& setting, const ui::Files& files, const ui::ProgramDirectory& directory) {
    if (setting.empty()) {
        return {.message = std::string(NoScreenShotChosen), .path = {}};
    }
    ui::Path path = setting;
    if (path.is_relative()) {
        path = directory.toRead(setting);
    }
    if (!files.exists(path)) {
        return {
            .message = "The chosen screen shot, " + setting +
                       ", was not found in the VTM directory.\n"
                       "Please go to the options and select a new screen shot.",
            .path = {}};
    }
    return {.message = {}, .path = std::move(path)};
}

RankingsLayout LayOutRankings(const RankingsSizes& sizes) {
    const bool hasScreenShot = sizes.screenShotWidth > 0 && sizes.screenShotHeight > 0;
    const int width = hasScreenShot ? sizes.screenShotWidth : BoardWidth;
    const int height = hasScreenShot ? sizes.screenShotHeight : BoardHeight;
    const int top = sizes.windowHeight / 10;
    const int playerTop = sizes.windowHeight * 9 / 10;

    RankingsLayout layout;
    layout.pixelRatio = WholePixelRatio(sizes.devicePixelRatio);
    const int across = std::max(sizes.windowWidth, 1) * layout.pixelRatio;
    const int room = std::max(playerTop - top, 1) * layout.pixelRatio;
    layout.enlarge = std::max(std::min(across / width, room / height), 1);
    while (width > across * layout.reduce || height > room * layout.reduce) {
        ++layout.reduce;
    }
    const auto scaled = [&layout](int pixels) {
        return pixels * layout.enlarge / (layout.reduce * layout.pixelRatio);
    };
    const auto centred = [&sizes](int pixels) {
        return (sizes.windowWidth - pixels) / 2;
    };

    const int left = centred(scaled(width));
    if (hasScreenShot) {
        layout.screenShot = {left, top, scaled(width), scaled(height)};
    }
    // In a screenshot of another size the board is taken to stand at the same height and in the middle.
    const bool isBoard = width == BoardWidth && height == BoardHeight;
    const int lineX = isBoard ? BoardLineX : (width - StripWidth) / 2;
    layout.strip = {
        left + scaled(lineX), top + scaled(height * BoardLineY / BoardHeight), scaled(StripWidth),
        scaled(StripHeight)};
    layout.player = {centred(sizes.playerWidth), playerTop, sizes.playerWidth, sizes.playerHeight};
    layout.quit = {sizes.windowWidth - QuitDistance, sizes.windowHeight - QuitDistance, QuitSide, QuitSide};
    return layout;
}

std::int64_t TicksDue(std::int64_t milliseconds, std::int64_t passed) {
    return std::max<std::int64_t>((milliseconds + EarlyMilliseconds) / TickMilliseconds - passed, 0);
}

} // namespace animation
