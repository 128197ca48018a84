// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string_view>

namespace ui::native {

/// The samples of a RIFF wave and how they are to be read.
struct WaveSamples {
    int rate = 0;                 ///< samples a second of each channel
    std::uint8_t channels = 0;    ///< 1 or 2
    std::uint8_t sampleBytes = 0; ///< 1: unsigned, 2: signed, low byte first
    std::string_view samples;

    [[nodiscard]] std::chrono::milliseconds duration() const;
};

/// Finds the samples in a whole RIFF wave held in memory; nothing for a wave that is damaged or compressed.
[[nodiscard]] std::optional<WaveSamples> ReadWave(std::string_view wave);

/// The audio device through SDL, loaded when it is first needed. Everything here may wait for the device.
class SdlAudio {
public:
    SdlAudio() = default;
    SdlAudio(const SdlAudio&) = delete;
    SdlAudio& operator=(const SdlAudio&) = delete;
    SdlAudio(SdlAudio&&) = delete;
    SdlAudio& operator=(SdlAudio&&) = delete;
    ~SdlAudio() = default;

    /// Plays a wave in place of one that still plays; how long it takes, zero when it cannot be played.
    std::chrono::milliseconds play(std::string_view wave);

    [[nodiscard]] bool isOpen() const { return m_device != 0; }

    /// Gives the device back, and with it the connection to the sound server.
    void close();

private:
    struct Library;

    bool open(const WaveSamples& wave);

    const Library* m_library = nullptr;
    bool m_isLoaded = false;    ///< whether loading was tried
    std::uint32_t m_device = 0; ///< 0: none
    WaveSamples m_format;       ///< what the device was opened for
};

} // namespace ui::native
