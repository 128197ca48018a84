// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/mdlAniPreview.h"

#include <algorithm>

namespace animation {

namespace {

/// Timers fire a millisecond or so off their time.
constexpr std::int64_t EarlyMilliseconds = 5;

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

std::int64_t TicksDue(std::int64_t milliseconds, std::int64_t passed) {
    return std::max<std::int64_t>((milliseconds + EarlyMilliseconds) / TickMilliseconds - passed, 0);
}

} // namespace animation
