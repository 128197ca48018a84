// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Platform.h"

namespace ui::native {

/// Plays waves as the system plays them from memory.
class WaveSounds final : public SoundPlayer {
public:
    WaveSounds() = default;
    WaveSounds(const WaveSounds&) = delete;
    WaveSounds& operator=(const WaveSounds&) = delete;
    WaveSounds(WaveSounds&&) = delete;
    WaveSounds& operator=(WaveSounds&&) = delete;
    ~WaveSounds() override;

    void play(std::string_view wave) override;
};

/// Whether the system has taken the wave to play it.
bool StartWave(std::string_view wave);

} // namespace ui::native
