// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/FileCommands.h"

#include "scripts/mdlConfig.h"
#include "scripts/mdlName.h"
#include "shell/GamePlaces.h"
#include "shell/RunText.h"
#include "shell/ScriptRooms.h"
#include "shell/Session.h"
#include "ui/System.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace shell {

using editing::Page;

namespace {

std::string LowerExtension(const ui::Path& path) {
    std::string extension = ui::PathText(path.extension());
    std::ranges::transform(extension, extension.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return extension;
}

/// Whose script a file is; nothing when neither its first line nor its extension says so.
std::optional<Page> KindOfScript(const ui::Files& files, const ui::Path& path) {
    const ui::Result<ui::Bytes> bytes = files.read(path);
    const std::string_view firstLine = bytes ? glyphs::ByteLines(bytes.value()).next() : std::string_view();
    const auto hasHeader = [firstLine](const editing::Kind& kind) {
        return firstLine.find(kind.header) != std::string_view::npos;
    };
    auto kind = std::ranges::find_if(editing::Kinds, hasHeader);
    if (kind == editing::Kinds.end()) {
        kind = std::ranges::find(editing::Kinds, LowerExtension(path), &editing::Kind::extension);
    }
    return kind == editing::Kinds.end() ? std::optional<Page>() : kind->page;
}

} // namespace

FileCommands::FileCommands(const ui::Platform& platform, Session& session, ScriptWizards& wizards)
    : m_platform(platform)
    , m_session(session)
    , m_workspace(session.workspace())
    , m_wizards(wizards) {}

ui::Path FileCommands::dialogFolder() const {
    if (m_platform.directory.writable()) {
        return m_platform.directory.folder();
    }
    return m_workspace.lastFolder.empty() ? ui::HomeFolder() : m_workspace.lastFolder;
}

void FileCommands::newDocument(Page page) {
    m_session.switchTo(page);
    m_session.finish(editing::NewDocument(m_workspace.documents, page));
}

void FileCommands::loadScript(Page page) {
    if (const auto path = m_platform.dialogs.chooseFileToOpen(
            editing::OpenScriptRequest(editing::KindOf(page), dialogFolder()))) {
        readScript(page, *path);
    }
    m_session.refresh();
}

void FileCommands::readScript(Page page, const ui::Path& path) {
    m_session.switchTo(page);
    m_session.readScript(page, path);
}

void FileCommands::loadDropped(std::span<const ui::Path> paths) {
    const auto running = m_session.running("Load");
    const Page pageInView = m_session.page();
    std::vector<Page> read;
    bool hasReadConfig = false;
    for (const ui::Path& path : paths) {
        const std::optional<Page> kind = KindOfScript(m_platform.files, path);
        if (!kind && LowerExtension(path) == ".cfg") {
            if (!std::exchange(hasReadConfig, true)) {
                readNameFromConfig(path);
            }
            continue;
        }
        const Page page = kind.value_or(pageInView);
        if (std::ranges::find(read, page) == read.end()) {
            read.push_back(page);
            readScript(page, path);
        }
    }
    m_session.refresh();
}

void FileCommands::loadRecent(Page page, std::size_t index) {
    const std::vector<std::string>& paths = m_workspace.recent.of(page);
    if (index < paths.size()) {
        m_session.readScript(page, ui::PathFromText(paths[index]), editing::OpenFailure::MessageBox);
        m_session.turnTo(page);
    }
}

void FileCommands::saveScript(Page page) {
    const editing::Kind& kind = editing::KindOf(page);
    const auto accepted = [&] {
        if (kind.showsPageWhenSaved) {
            m_session.switchTo(page);
        }
    };
    const auto writer = ScriptRoomOf(page).writer;
    const editing::SaveOutcome outcome = writer == nullptr
                                             ? m_wizards.saveMessages()
                                             : editing::SaveScript(
                                                   m_platform.dialogs, m_platform.files,
                                                   writer(m_workspace.documents), dialogFolder(), accepted);
    m_session.tell(statusText(outcome));
    if (outcome.kind == editing::SaveOutcome::Kind::Written) {
        scriptSaved(page, outcome.path);
    }
    if (kind.offersBinding && scripts::OffersBinding(outcome) && m_workspace.settings.bindPrompt &&
        scripts::AskToBind(m_platform.dialogs)) {
        m_wizards.bindKey();
    }
    m_session.refresh();
}

std::string FileCommands::statusText(const editing::SaveOutcome& outcome) const {
    if (outcome.kind != editing::SaveOutcome::Kind::Written) {
        return outcome.statusText;
    }
    std::vector<games::Family> played;
    std::ranges::copy_if(games::Families, std::back_inserter(played), [this](games::Family family) {
        return m_workspace.settings.games.at(static_cast<std::size_t>(family));
    });
    const std::string run = RunText(outcome, {played, FindGames(m_workspace)});
    const bool hasBoth = !outcome.statusText.empty() && !run.empty();
    return outcome.statusText + (hasBoth ? " " : "") + run;
}

void FileCommands::scriptSaved(Page page, const ui::Path& path) {
    m_workspace.rememberedScript = path;
    m_workspace.lastFolder = path.parent_path();
    if (const ui::Status added =
            AddRecentIfNew(m_workspace.recent, m_platform.settings, ui::PathText(path), page);
        !added) {
        m_session.tell(added.failure().message);
    }
    m_session.loadRecentFiles();
}

void FileCommands::loadNameFromConfig() {
    if (const auto path = scripts::ChooseConfigToLoad(m_platform.dialogs)) {
        readNameFromConfig(*path);
    }
    m_session.refresh();
}

void FileCommands::readNameFromConfig(const ui::Path& path) {
    m_session.switchTo(Page::Name);
    m_workspace.rememberedConfig = path;
    const auto outcome = scripts::LoadNameFromConfig(
        m_platform.dialogs, m_platform.files, path, m_workspace.documents.name,
        [this] { m_session.repaint(Page::Name); });
    m_session.tell(outcome.statusText);
}

void FileCommands::saveNameToConfig() {
    if (const auto path =
            scripts::ChooseConfigToAlter(m_platform.dialogs, m_platform.files, FindGames(m_workspace))) {
        m_workspace.rememberedConfig = *path;
        const auto outcome = scripts::SaveNameToConfig(
            m_platform.dialogs, m_platform.files, m_platform.directory, *path, m_workspace.documents.name);
        m_session.tell(outcome.statusText);
    }
    m_session.refresh();
}

void FileCommands::copyNameToClipboard() {
    scripts::CopyNameToClipboard(m_platform.clipboard, m_platform.dialogs, m_workspace.documents.name);
    m_session.refresh();
}

} // namespace shell
