// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/FailingFiles.h"
#include "support/FakeDialogs.h"
#include "support/MemorySettings.h"
#include "support/TempProgramDirectory.h"
#include "ui/Platform.h"

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace support {

/// Remembers everything that was put on the clipboard, and holds what the test says.
class FakeClipboard final : public ui::Clipboard {
public:
    void setText(std::string_view bytes) override { texts.emplace_back(bytes); }

    void setUtf8(std::string_view text) override { utf8Texts.emplace_back(text); }

    void setPicture(const ui::Picture& picture) override { pictures.push_back(picture); }

    [[nodiscard]] std::vector<ui::TextCharacter> text(std::size_t most) const override {
        return {held.begin(), held.begin() + static_cast<std::ptrdiff_t>(std::min(most, held.size()))};
    }

    /// Holds a text from elsewhere, of characters that are not made of others.
    void hold(std::u32string_view text) {
        held.clear();
        for (const char32_t character : text) {
            held.push_back({character, std::u32string(1, character)});
        }
    }

    std::vector<ui::TextCharacter> held;
    std::vector<std::string> texts; ///< of bytes
    std::vector<std::string> utf8Texts;
    std::vector<ui::Picture> pictures;
};

/// Remembers every wave that was to be played.
class FakeSounds final : public ui::SoundPlayer {
public:
    void play(std::string_view wave) override { waves.emplace_back(wave); }

    std::vector<std::string> waves;
};

/// A keyboard whose locks can all be set, unless the test says otherwise.
class FakeLockKeys final : public ui::LockKeys {
public:
    void setLocked(ui::LockKey key, bool locked) override { changes.emplace_back(key, locked); }

    [[nodiscard]] bool canLock(ui::LockKey key) const override {
        const auto found = locks.find(key);
        return found == locks.end() || found->second;
    }

    void onTurned(std::function<void(ui::LockKey key, bool locked)> function) override {
        turned = std::move(function);
    }

    std::vector<std::pair<ui::LockKey, bool>> changes; ///< every call in order
    std::function<void(ui::LockKey, bool)> turned;     ///< to be called as another program that turns a lock
    std::map<ui::LockKey, bool> locks;                 ///< what canLock() says; absent: true
};

/// Remembers every registration.
class FakeFileTypes final : public ui::FileTypes {
public:
    struct Registration {
        std::vector<ui::FileType> types;
        ui::Path program;
    };

    void registerTypes(const std::vector<ui::FileType>& types, const ui::Path& program) override {
        registrations.push_back({types, program});
    }

    std::vector<Registration> registrations;
};

/// A desktop that answers when the test tells it to.
class FakeLauncher final : public ui::Launcher {
public:
    struct Launch {
        ui::Path shortcut;
        std::string address;
    };

    void open(const ui::Path& shortcut, const std::string& address, std::function<void(int)> done) override {
        launches.push_back({shortcut, address});
        m_waiting.push_back(std::move(done));
    }

    /// Reports the result of the oldest launch that is still unanswered; false when there is none.
    bool finish(int code) {
        if (m_waiting.empty()) {
            return false;
        }
        const auto done = std::move(m_waiting.front());
        m_waiting.pop_front();
        if (done) {
            done(code);
        }
        return true;
    }

    std::vector<Launch> launches;

private:
    std::deque<std::function<void(int)>> m_waiting;
};

/// A whole platform for a test: real files in a folder of its own, everything else faked.
class FakePlatform {
public:
    FakeDialogs dialogs;
    ui::DiskFiles disk;
    FailingFiles files{disk};
    FakeClipboard clipboard;
    FakeSounds sounds;
    FakeLockKeys lockKeys;
    MemorySettings settings;
    FakeFileTypes fileTypes;
    FakeLauncher launcher;
    TempProgramDirectory directory;

    FakePlatform() = default;
    FakePlatform(const FakePlatform&) = delete;
    FakePlatform& operator=(const FakePlatform&) = delete;
    FakePlatform(FakePlatform&&) = delete;
    FakePlatform& operator=(FakePlatform&&) = delete;
    ~FakePlatform() = default;

    /// What the program is handed.
    ui::Platform platform{dialogs,  files,     clipboard, sounds,   lockKeys,
                          settings, fileTypes, launcher,  directory};
};

} // namespace support
