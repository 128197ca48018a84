// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/windows/WaveSounds.h"

#include <windows.h>

#include <mmsystem.h>

namespace ui::native {

WaveSounds::~WaveSounds() {
    ::sndPlaySoundW(nullptr, 0);
}

void WaveSounds::play(std::string_view wave) {
    StartWave(wave);
}

bool StartWave(std::string_view wave) {
    // In memory the name stands for the bytes of the wave. Without a wave that can be played there is
    // silence, and not the sound of the system's own.
    const auto* const bytes = reinterpret_cast<const wchar_t*>(wave.data());
    return !wave.empty() && ::sndPlaySoundW(bytes, SND_ASYNC | SND_MEMORY | SND_NODEFAULT) != FALSE;
}

} // namespace ui::native
