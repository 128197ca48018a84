// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/mdlAniPreview.h"

#include "animation/Texts.h"
#include "glyphs/mdlPaint.h"
#include "ui/WholePixel.h"

#include <algorithm>
#include <cmath>
#include <numeric>
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

} // namespace

AniPreview::AniPreview(const editing::AnimationDocument& animation)
    : m_ticks(animation.nameTicks)
    , m_previewTotal(animation.nameCount)
    , m_previewName(animation.nameCount) {}

std::int64_t AniPreview::elapsedTicks() const {
    return m_playing ? m_tickCounter - m_began : ticksBefore(m_shownName);
}

void AniPreview::play() {
    m_playing = true;
    m_stopped = false;
    m_began = m_tickCounter;
    m_previewName = 1;
    wait();
    passDueNames();
}

void AniPreview::stop() {
    m_stopped = true;
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
    m_deadline = m_tickCounter + ticksOf(m_previewName);
}

void AniPreview::passDueNames() {
    while (goesOn() && m_tickCounter >= m_deadline) {
        if (m_previewName == m_previewTotal) {
            show(1);
            m_began = m_tickCounter;
        } else {
            show(m_previewName + 1);
        }
        wait();
    }
    m_playing = goesOn();
}

bool AniPreview::goesOn() const {
    return m_previewName < m_previewTotal || (m_again && !m_stopped && ticksBefore(m_previewTotal + 1) > 0);
}

std::int64_t AniPreview::ticksBefore(int name) const {
    return std::accumulate(m_ticks.begin(), m_ticks.begin() + (name - 1), std::int64_t{0});
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
    const std::int64_t width = hasScreenShot ? sizes.screenShotWidth : BoardWidth;
    const std::int64_t height = hasScreenShot ? sizes.screenShotHeight : BoardHeight;
    // In a screenshot of another size the board is taken to stand at the same height and in the middle.
    const bool isBoard = width == BoardWidth && height == BoardHeight;
    const std::int64_t lineX = isBoard ? BoardLineX : RoundedDown(width - StripWidth, 2) / 2;
    const std::int64_t lineY = height * BoardLineY / BoardHeight;
    const int top = sizes.windowHeight / TopPart;
    const int playerTop = sizes.windowHeight * 9 / 10;

    RankingsLayout layout;
    const double ratio = sizes.devicePixelRatio;
    const auto across = static_cast<std::int64_t>(std::max(sizes.windowWidth, 1) * ratio);
    const auto room = static_cast<std::int64_t>(std::max(playerTop - top, 1) * ratio);
    // The name is to be seen whole too, and may be larger than the screenshot.
    const std::int64_t wanted = std::max(width, width - 2 * lineX);
    const std::int64_t wantedRoom = std::max(height, lineY + StripHeight);
    const std::int64_t parts = ratio == std::floor(ratio) ? 1 : 2;
    const std::int64_t enlarged = std::min(across * parts / wanted, room * parts / wantedRoom);
    if (enlarged >= parts) {
        layout.enlarge = static_cast<int>(enlarged / std::gcd(enlarged, parts));
        layout.reduce = static_cast<int>(parts / std::gcd(enlarged, parts));
    } else {
        layout.reduce =
            static_cast<int>(std::max((wanted + across - 1) / across, (wantedRoom + room - 1) / room));
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
    // The strip covers whole pixels of the screen, where the screenshot's pixels begin and end as well. A
    // name that is smaller than a pixel is not shown.
    const std::int64_t step = layout.reduce > StripHeight ? 1 : layout.reduce;
    const std::int64_t x = RoundedDown(lineX, step);
    const std::int64_t y = RoundedDown(lineY, step);
    const std::int64_t right = RoundedDown(lineX + StripWidth + step - 1, step);
    const std::int64_t bottom = RoundedDown(lineY + StripHeight + step - 1, step);
    const auto exactly = [&layout](std::int64_t pixels) {
        return static_cast<int>(pixels * layout.enlarge / layout.reduce);
    };
    const Frame columns = FrameOf(left, exactly(x), exactly(right - x), ratio);
    const Frame rows = FrameOf(top, exactly(y), exactly(bottom - y), ratio);
    layout.strip = {columns.begin, rows.begin, columns.length, rows.length};
    layout.insetX = columns.inset;
    layout.insetY = rows.inset;
    layout.underStrip = {
        static_cast<int>(x), static_cast<int>(y), static_cast<int>(right - x), static_cast<int>(bottom - y)};
    layout.nameX = static_cast<int>(lineX - x);
    layout.nameY = static_cast<int>(lineY - y);
    layout.player = {centred(sizes.playerWidth), playerTop, sizes.playerWidth, sizes.playerHeight};
    layout.quit = {sizes.windowWidth - QuitDistance, sizes.windowHeight - QuitDistance, QuitSide, QuitSide};
    return layout;
}

std::int64_t TicksDue(std::int64_t milliseconds, std::int64_t passed, int tick) {
    return std::max<std::int64_t>((milliseconds + EarlyMilliseconds) / tick - passed, 0);
}

} // namespace animation
