// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "RecordingView.h"
#include "shell/FileCommands.h"
#include "support/FakePlatform.h"
#include "support/PaintedPages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

inline support::ExpectedFileDialog Like(const ui::FileDialogRequest& request) {
    return {.title = request.title, .initialName = request.initialName, .filters = request.filters};
}

/// The dialogs that ask for a script of a page's kind.
inline support::ExpectedFileDialog OpenDialog(editing::Page page) {
    return Like(editing::OpenScriptRequest(editing::KindOf(page)));
}

inline support::ExpectedFileDialog SaveDialog(editing::Page page) {
    return Like(editing::SaveScriptRequest(editing::KindOf(page)));
}

/// Wizards that are only noted, among what is shown.
class NotedWizards final : public shell::ScriptWizards {
public:
    explicit NotedWizards(RecordingView& view)
        : m_view(view) {}

    editing::SaveOutcome saveMessages() override {
        m_view.shown.emplace_back("messages' wizard");
        return outcome;
    }

    void bindKey() override { m_view.shown.emplace_back("binding wizard"); }

    editing::SaveOutcome outcome; ///< what the wizard of the messages comes to

private:
    RecordingView& m_view;
};

/// A run of the program without a window, in a program directory that holds the real character sets.
class SessionRun : public testing::Test {
protected:
    SessionRun() {
        for (const char* name : {"vtmtc.dat", "vtmgrid.dat"}) {
            fake.directory.files.put(name, fake.disk.read(ui::Path(VTM_PROGRAM_DIR) / name).value());
        }
        fake.directory.files.put("vtmhelp.htm", "<html></html>");
    }

    ~SessionRun() override {
        fake.dialogs.expectAllAsked();
        // A start goes to the folder of the script that it loads, which does not outlive the test.
        std::error_code error;
        std::filesystem::current_path(m_startFolder, error);
    }

    SessionRun(const SessionRun&) = delete;
    SessionRun& operator=(const SessionRun&) = delete;
    SessionRun(SessionRun&&) = delete;
    SessionRun& operator=(SessionRun&&) = delete;

    /// Starts on a page; what the start showed and played is forgotten.
    void startOn(editing::Page page) {
        fake.settings.write("options", "maketype", std::to_string(static_cast<int>(page)));
        load({});
        session.tellOfStart();
        view.shown.clear();
        fake.sounds.waves.clear();
    }

    void load(const std::vector<std::string>& arguments) {
        const ui::Status loaded = session.load(arguments);
        ASSERT_TRUE(loaded.ok()) << loaded.failure().message;
    }

    [[nodiscard]] editing::Documents& documents() { return session.workspace().documents; }

    [[nodiscard]] bool isPainted() {
        return support::ArePaintedLike(documents(), session.workspace().pictures, session.workspace().atlas);
    }

    [[nodiscard]] std::ptrdiff_t played(int sound) const {
        return std::ranges::count(fake.sounds.waves, glyphs::SoundWave(sound));
    }

    /// A name script of the program directory.
    [[nodiscard]] ui::Path putScript(const std::string& file, const std::string& name) const {
        return fake.directory.files.put(file, "// Name File Created by Vortigo\r\nname \"" + name + "\"\r\n");
    }

    [[nodiscard]] std::string nameText() {
        std::string text;
        for (const glyphs::GlyphCode code : documents().name.cells) {
            text.push_back(static_cast<char>(code));
        }
        return text.substr(0, text.find_last_not_of(' ') + 1);
    }

    support::FakePlatform fake;
    RecordingView view;
    shell::Session session{fake.platform, view};
    NotedWizards wizards{view};
    shell::FileCommands files{fake.platform, session, wizards};

private:
    ui::Path m_startFolder = std::filesystem::current_path();
};
