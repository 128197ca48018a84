// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Platform.h"

#include <memory>
#include <thread>

namespace ui::native {

/// Plays waves through SDL, where it is installed. The library is loaded and the device opened for the first
/// sound, and the device is given back after a while without one; all of it in a thread of its own, because a
/// sound server that hangs hangs its callers too. Without the library or a device there is silence.
class SdlSoundPlayer final : public SoundPlayer {
public:
    SdlSoundPlayer();
    SdlSoundPlayer(const SdlSoundPlayer&) = delete;
    SdlSoundPlayer& operator=(const SdlSoundPlayer&) = delete;
    SdlSoundPlayer(SdlSoundPlayer&&) = delete;
    SdlSoundPlayer& operator=(SdlSoundPlayer&&) = delete;

    /// Ends a sound that still plays. Returns soon, even where the device hangs.
    ~SdlSoundPlayer() override;

    void play(std::string_view wave) override;

private:
    struct Mailbox;

    static void Work(const std::shared_ptr<Mailbox>& mailbox);

    std::shared_ptr<Mailbox> m_mailbox;
    std::thread m_worker; ///< started by the first sound
};

} // namespace ui::native
