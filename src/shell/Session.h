// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/ScriptFlow.h"
#include "shell/CommandLine.h"
#include "shell/History.h"
#include "shell/OptionsModel.h"
#include "shell/RecoveryFile.h"
#include "shell/SessionView.h"
#include "shell/Workspace.h"
#include "ui/Platform.h"

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace shell {

/// One run of the program without its window: the workspace, the page in view, what can be taken back, the
/// options, the start and the end. What is to be seen of it is told to a SessionView.
class Session {
public:
    /// Both are borrowed and outlive the session.
    Session(const ui::Platform& platform, SessionView& view);

    [[nodiscard]] Workspace& workspace() { return m_workspace; }

    [[nodiscard]] editing::Page page() const { return m_workspace.page(); }

    /// The rows and the cursor of the page in view.
    [[nodiscard]] editing::PageCursor cursor();

    [[nodiscard]] editing::PagePainter painter();

    /// The start, up to the window: loads the options, the key map, the glyphs and what `arguments` ask for.
    /// The failure says why the program cannot run.
    ui::Status load(std::span<const std::string> arguments);

    /// The start is over, and its window shown: tells what went wrong with it.
    void tellOfStart();

    /// Lets the desktop know of the scripts; once in a run.
    void registerFileTypes();

    /// Saves the options, if they say so. The failure says what could not be saved.
    ui::Status end();

    // Pages and commands

    /// Names the command that runs, for Undo, until the object goes.
    class [[nodiscard]] Running {
    public:
        Running(std::string& command, std::string_view name)
            : m_command(command)
            , m_before(std::exchange(command, name)) {}

        ~Running() { m_command = std::move(m_before); }

        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;

    private:
        std::string& m_command;
        std::string m_before;
    };

    Running running(std::string_view command) { return {m_command, command}; }

    /// What every command ends with: the view follows the documents, and what has changed is kept for Undo.
    void refresh();

    /// The same for a command that leaves the view and the keyboard where they are.
    void refreshPage(editing::Page page);

    /// Lets the page follow a change of its document, and ends the command.
    void finish(const editing::Change& change);

    /// Paints a page anew, with sound and progress.
    void repaint(editing::Page page);

    /// Brings a page into view, with its sound.
    void turnTo(editing::Page page);

    /// Turns to a page that is not in view: for commands that act on that page alone.
    void switchTo(editing::Page page);

    [[nodiscard]] const History& history() const { return m_history; }

    void undo();
    void redo();

    /// Puts a state that was kept for after a crash on the pages.
    void restore(const WorkState& state);

    /// Tells a text in the status line; an empty one leaves what stands there.
    void tell(const std::string& text) { m_view.showStatus(text); }

    // Scripts

    /// Reads a script into its page and tells of it.
    editing::ScriptRead readScript(
        editing::Page page, const ui::Path& path,
        editing::OpenFailure openFailure = editing::OpenFailure::StatusLine);

    /// Paints the names that an abandoned reading has left unpainted.
    void showReadNames();

    /// The recent files as the store has them by now.
    void loadRecentFiles();

    // Options

    /// Turns an editing mode (a place of editing::ModeKeys), and its lock key with it.
    void setMode(std::size_t index, bool isOn);

    void applyOptions(const OptionsModel& model);

    /// Says whether a family of games is played.
    void chooseGame(games::Family family, bool isPlayed);

    /// Says whether the grid tells what its glyphs are.
    void chooseReadout(bool isShown);

    /// Says how large the grid and the pages are shown, see Settings::zoom.
    void chooseZoom(int zoom);

private:
    ui::Status loadSettings();
    void loadStartFiles(const StartFiles& start);
    void bringIntoView(editing::Page page);
    void showTakenBack(const std::vector<editing::Page>& pages);
    ui::Status selectCharSet(int recordNumber);
    void useCharSet(const glyphs::CharSet& set);
    void buildAtlas(const ui::Picture& artwork);

    const ui::Platform& m_platform;
    SessionView& m_view;
    Workspace m_workspace;
    History m_history;
    glyphs::Progress m_progress;
    std::string m_command; ///< the one that runs, as Undo names it
    bool m_isStartingUp = false;
    bool m_hasRegistered = false; ///< the file types, in this run
    std::string m_startNotice;    ///< for the status line, once the start's own messages are through
    std::vector<std::string> m_startWarnings; ///< for message boxes over the window
};

} // namespace shell
