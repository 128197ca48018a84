// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/mdlAniPreview.h"

#include "animation/Texts.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace animation {

namespace {

/// Timers fire a millisecond or so off their time.
constexpr std::int64_t EarlyMilliseconds = 5;

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
    ui::Path path = ui::PathFromText(setting);
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

std::int64_t TicksDue(std::int64_t milliseconds, std::int64_t passed, int tick) {
    return std::max<std::int64_t>((milliseconds + EarlyMilliseconds) / tick - passed, 0);
}

} // namespace animation
