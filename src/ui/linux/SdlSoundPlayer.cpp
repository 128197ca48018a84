// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/linux/SdlSoundPlayer.h"

#include "ui/linux/SdlAudio.h"

#include <chrono>
#include <condition_variable>
#include <csignal>
#include <mutex>
#include <optional>
#include <pthread.h>

namespace ui::native {

namespace {

using namespace std::chrono_literals;

/// How long the device stays open without a sound: while somebody types it is not opened for every key.
constexpr auto QuietTime = 1500ms;

/// How long nothing is tried after the device could not be opened: each try is work for every key that is
/// typed.
constexpr auto RestingTime = 5s;

/// How long the end of the program waits for the device to be closed.
constexpr auto ClosingTime = 300ms;

/// How long the first sound waits. It often comes while the program starts, and loading the library, which
/// brings thirty others along, would hold up the window's first appearance.
constexpr auto LoadingDelay = 250ms;

/// Signals are for the main thread; threads that SDL starts inherit this.
void BlockSignals() {
    sigset_t all;
    sigfillset(&all);
    ::pthread_sigmask(SIG_BLOCK, &all, nullptr);
}

} // namespace

/// What the player and its thread tell each other. The thread holds a share of it, so that it may outlive the
/// player when it hangs in the device.
struct SdlSoundPlayer::Mailbox {
    std::mutex mutex;
    std::condition_variable changed;
    std::optional<std::string_view> wave; ///< to be played next
    bool ends = false;                    ///< the thread is to end
    bool ended = false;
};

SdlSoundPlayer::SdlSoundPlayer()
    : m_mailbox(std::make_shared<Mailbox>()) {}

SdlSoundPlayer::~SdlSoundPlayer() {
    if (!m_worker.joinable()) {
        return;
    }
    bool ended = false;
    {
        std::unique_lock lock(m_mailbox->mutex);
        m_mailbox->ends = true;
        m_mailbox->changed.notify_all();
        ended = m_mailbox->changed.wait_for(lock, ClosingTime, [this] { return m_mailbox->ended; });
    }
    if (ended) {
        m_worker.join();
    } else {
        m_worker.detach();
    }
}

void SdlSoundPlayer::play(std::string_view wave) {
    {
        const std::lock_guard lock(m_mailbox->mutex);
        m_mailbox->wave = wave;
        m_mailbox->changed.notify_all();
    }
    if (!m_worker.joinable()) {
        m_worker = std::thread([mailbox = m_mailbox] { Work(mailbox); });
    }
}

void SdlSoundPlayer::Work(const std::shared_ptr<Mailbox>& mailbox) {
    BlockSignals();
    {
        SdlAudio audio;
        std::unique_lock lock(mailbox->mutex);
        const auto hasNews = [&] {
            return mailbox->ends || mailbox->wave.has_value();
        };
        mailbox->changed.wait_for(lock, LoadingDelay, [&] { return mailbox->ends; });
        auto silentFrom = std::chrono::steady_clock::now();
        auto restsUntil = silentFrom;
        for (;;) {
            if (!audio.isOpen()) {
                mailbox->changed.wait(lock, hasNews);
            } else if (!mailbox->changed.wait_until(lock, silentFrom + QuietTime, hasNews)) {
                lock.unlock();
                audio.close();
                lock.lock();
                continue;
            }
            if (mailbox->ends) {
                break;
            }
            const std::string_view wave = *mailbox->wave;
            mailbox->wave.reset();
            if (std::chrono::steady_clock::now() < restsUntil) {
                continue;
            }
            lock.unlock();
            const auto duration = audio.play(wave);
            silentFrom = std::chrono::steady_clock::now() + duration;
            if (!audio.isOpen()) {
                restsUntil = silentFrom + RestingTime;
            }
            lock.lock();
        }
        lock.unlock();
        audio.close();
    }
    const std::lock_guard lock(mailbox->mutex);
    mailbox->ended = true;
    mailbox->changed.notify_all();
}

} // namespace ui::native
