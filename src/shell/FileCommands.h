// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/ScriptFlow.h"
#include "shell/Session.h"

#include <span>

namespace shell {

/// The wizards that saving goes through.
class ScriptWizards {
public:
    virtual ~ScriptWizards() = default;

    virtual editing::SaveOutcome saveMessages() = 0;

    /// Binds a key to the script that was saved.
    virtual void bindKey() = 0;
};

/// The commands of the File menu.
class FileCommands {
public:
    /// All are borrowed and outlive the object.
    FileCommands(const ui::Platform& platform, Session& session, ScriptWizards& wizards);

    void newDocument(editing::Page page);

    /// Ask for a script, and read or write it.
    void loadScript(editing::Page page);
    void saveScript(editing::Page page);

    /// Reads files that were dropped on the window, as the entries of the menu Load do: of each kind the
    /// first. What a file is its first line says, or its extension; where neither does, it is taken for a
    /// script of the page in view.
    void loadDropped(std::span<const ui::Path> paths);

    /// Reads an entry (from 0) of the recent files; nothing where there is none.
    void loadRecent(editing::Page page, std::size_t index);

    /// Ask for a game's configuration file, and take the name from it or put it there.
    void loadNameFromConfig();
    void saveNameToConfig();

    void copyNameToClipboard();

private:
    void readScript(editing::Page page, const ui::Path& path);
    void readNameFromConfig(const ui::Path& path);

    /// What the status line says of a save: what was lost, and how the script is run.
    [[nodiscard]] std::string statusText(const editing::SaveOutcome& outcome) const;

    void scriptSaved(editing::Page page, const ui::Path& path);
    [[nodiscard]] ui::Path dialogFolder() const;

    const ui::Platform& m_platform;
    Session& m_session;
    Workspace& m_workspace;
    ScriptWizards& m_wizards;
};

} // namespace shell
