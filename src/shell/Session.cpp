// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/Session.h"

#include "editing/KeyMapFile.h"
#include "shell/ScriptRooms.h"
#include "shell/StartCharSet.h"
#include "shell/mdlLaunch.h"
#include "shell/mdlRegistry.h"
#include "ui/CopyNotes.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace shell {

using editing::Page;

Session::Session(const ui::Platform& platform, SessionView& view)
    : m_platform(platform)
    , m_view(view)
    , m_progress([this](int percentage) { m_view.showProgress(percentage); }) {}

editing::PageCursor Session::cursor() {
    return editing::CursorOf(m_workspace.documents, page());
}

editing::PagePainter Session::painter() {
    return {m_workspace.documents, m_workspace.atlas,           m_workspace.pictures,
            m_platform.sounds,     m_workspace.settings.sounds, m_progress};
}

void Session::refresh() {
    refreshPage(page());
    m_view.followCursor();
}

void Session::refreshPage(Page page) {
    // Undo goes back to the state after the start and no further.
    if (m_isStartingUp) {
        m_history.start(m_workspace.documents);
    } else {
        m_history.record(m_workspace.documents, this->page(), m_command);
    }
    m_view.showDocument(page);
}

void Session::finish(const editing::Change& change) {
    editing::ShowChange(painter(), change);
    refresh();
}

void Session::repaint(Page page) {
    editing::PaintPage(painter(), page);
    m_view.showDocument(page);
}

void Session::turnTo(Page page) {
    glyphs::PlaySoundResource(m_platform.sounds, m_workspace.settings.sounds, glyphs::PageSwitchedSound);
    bringIntoView(page);
}

void Session::switchTo(Page page) {
    if (page != this->page()) {
        turnTo(page);
    }
}

void Session::bringIntoView(Page page) {
    m_workspace.settings.makeType = static_cast<std::int16_t>(page);
    m_view.viewPage(page);
    refresh();
}

void Session::undo() {
    showTakenBack(m_history.undo(m_workspace.documents));
}

void Session::redo() {
    showTakenBack(m_history.redo(m_workspace.documents));
}

/// Shows pages that were taken back, or done again, as their documents are; one of them comes into view.
void Session::showTakenBack(const std::vector<Page>& pages) {
    for (const Page page : pages) {
        editing::PaintRowsFrom(painter(), page, 1);
        if (page == Page::Animation) {
            m_view.withdrawReadNames(); // nothing is left that it could show
        }
    }
    if (!pages.empty() && std::ranges::find(pages, page()) == pages.end()) {
        bringIntoView(pages.front());
    } else {
        refresh();
    }
}

void Session::restore(const WorkState& state) {
    const Running running(m_command, "Restore");
    m_workspace.documents = state.documents;
    for (const editing::Kind& kind : editing::Kinds) {
        editing::PaintRowsFrom(painter(), kind.page, 1);
        m_view.showDocument(kind.page);
    }
    bringIntoView(state.page);
}

editing::ScriptRead Session::readScript(Page page, const ui::Path& path, editing::OpenFailure openFailure) {
    editing::AnimationDocument& animation = m_workspace.documents.animation;
    auto before = animation.nameGlyphs;
    editing::ScriptRead read = editing::LoadScript(
        m_platform.dialogs, m_platform.files, ScriptRoomOf(page).reader(m_workspace.documents, path),
        m_isStartingUp, openFailure, [this, page] { repaint(page); });
    if (read.end == editing::ScriptEnd::Abandoned) {
        // The number of names may have changed all the same. The names that come into use by it are
        // painted as they were, since the page does not show what was read.
        std::swap(animation.nameGlyphs, before);
        m_view.showDocument(page);
        std::swap(animation.nameGlyphs, before);
    }
    m_view.showStatus(read.statusText);
    if (read.hasUnshownNames) {
        m_view.offerReadNames();
    }
    return read;
}

void Session::showReadNames() {
    switchTo(Page::Animation);
    repaint(Page::Animation);
    m_view.withdrawReadNames();
    refresh();
}

ui::Status Session::load(std::span<const std::string> arguments) {
    m_isStartingUp = true;
    auto keys = editing::LoadKeyMap(m_platform.files, m_platform.directory);
    m_workspace.keys = {keys.map, keys.map};
    if (!keys.status) {
        m_startWarnings.push_back(keys.status.failure().message);
    }
    for (const editing::Kind& kind : editing::Kinds) {
        editing::NewDocument(m_workspace.documents, kind.page);
    }
    if (auto loaded = loadSettings(); !loaded) {
        return loaded;
    }
    for (const editing::Kind& kind : editing::Kinds) {
        editing::PaintRowsFrom(painter(), kind.page, 1);
    }
    loadStartFiles(ReadArguments(arguments));
    loadRecentFiles();
    for (const editing::Kind& kind : editing::Kinds) {
        m_view.showDocument(kind.page);
    }
    turnTo(page());
    return {};
}

ui::Status Session::loadSettings() {
    Settings& settings = m_workspace.settings;
    const ui::Path folder = m_platform.directory.folder();
    if (LoadsAtStartup(m_platform.settings)) {
        LoadedSettings loaded = Load(m_platform.settings, folder);
        settings = loaded.settings;
        m_workspace.loadedSettings = loaded.settings;
        const ui::Status readable = m_platform.settings.readable();
        m_startNotice =
            readable ? UnreadableSettingsText(loaded.unreadable) : UnreadableStoreText(readable.failure());
    } else {
        Defaults(settings, folder);
    }
    m_view.showColours();
    m_view.showPointers();
    for (std::size_t i = 0; i < editing::ModeKeys.size(); ++i) {
        setMode(i, settings.modes.*editing::ModeKeys.at(i).flag);
    }
    auto start =
        LoadStartCharSet(m_platform.files, m_platform.directory, m_platform.settings, settings.charSet);
    if (!start) {
        return start.failure();
    }
    settings.charSet = static_cast<std::int16_t>(start.value().place);
    if (!start.value().notice.empty()) {
        m_startNotice += (m_startNotice.empty() ? "" : " ") + start.value().notice;
    }
    useCharSet(start.value().set);
    return {};
}

void Session::loadStartFiles(const StartFiles& start) {
    if (start.intro) {
        for (const Page page : editing::StartOrder) {
            const ui::Path path = m_platform.directory.toRead(editing::KindOf(page).introFile);
            if (m_platform.files.exists(path)) {
                readScript(page, path);
            }
        }
    } else if (start.file) {
        ui::Path file = start.file->file;
        if (!start.file->folder.empty()) {
            std::error_code failed;
            std::filesystem::current_path(start.file->folder, failed);
            if (failed) {
                // By its name alone, a file of the same name in another folder would be taken for it.
                file = start.file->folder / file;
            }
        }
        if (const editing::ScriptRead read = readScript(start.file->kind, file); read.loaded()) {
            m_view.showStatus(
                ReadAtStartText(ui::PathText(file.filename()), start.file->kind) +
                (read.statusText.empty() ? "" : " " + read.statusText));
        }
        m_workspace.settings.makeType = static_cast<std::int16_t>(start.file->shown);
    } else {
        m_view.showStatus(std::string(HowToLoad));
    }
}

void Session::loadRecentFiles() {
    LoadRecentMenus(m_workspace.recent, m_platform.settings);
    m_view.showRecentFiles();
}

void Session::tellOfStart() {
    m_isStartingUp = false;
    m_view.showStatus(m_startNotice);
    for (const std::string& warning : m_startWarnings) {
        m_platform.dialogs.warn(warning);
    }
    ui::TellOfKeptCopies(m_platform.dialogs, m_platform.files);
    CheckHelp(m_platform);
}

void Session::registerFileTypes() {
    if (!std::exchange(m_hasRegistered, true)) {
        WriteFileAssociations(m_platform.fileTypes, m_platform.directory.folder());
    }
}

ui::Status Session::end() {
    return m_workspace.settings.saveAtExit
               ? Save(m_platform.settings, m_workspace.settings, m_workspace.loadedSettings)
               : ui::Status();
}

} // namespace shell
