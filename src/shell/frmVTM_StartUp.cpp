// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/PagePanel.h"
#include "shell/CommandLine.h"
#include "shell/GlyphColumn.h"
#include "shell/Recovery.h"
#include "shell/StartCharSet.h"
#include "shell/StatusLine.h"
#include "shell/frmVTM.h"
#include "shell/mdlLaunch.h"
#include "shell/mdlRegistry.h"
#include "ui/CopyNotes.h"

#include <QScopedValueRollback>
#include <QTimer>
#include <chrono>
#include <filesystem>
#include <utility>

namespace shell {

namespace {

/// Where the window stood; apart from the options, of which every key has a meaning of its own.
constexpr std::string_view WindowSection = "window";
constexpr std::string_view GeometryKey = "geometry";

/// From the start on; the first paint takes a fraction of it.
constexpr std::chrono::milliseconds FileTypesTime(500);

} // namespace

ui::Status frmVTM::Form_Load(std::span<const std::string> arguments) {
    m_isStartingUp = true;
    std::vector<std::string> notices;

    auto keys = editing::LoadKeyMap(m_platform.files, m_platform.directory);
    m_workspace.keys = {keys.map, keys.map};
    if (!keys.status) {
        notices.push_back(keys.status.failure().message);
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
    m_glyphColumn->showGlyphs();

    const StartFiles start = ReadArguments(arguments);
    if (start.intro) {
        for (const editing::Page page : editing::StartOrder) {
            const ui::Path path = m_platform.directory.toRead(editing::KindOf(page).introFile);
            if (m_platform.files.exists(path)) {
                loadScript(page, path);
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
        if (loadScript(start.file->kind, file)) {
            const std::string more = m_statusLine->currentMessage().toStdString();
            showStatus(
                ReadAtStartText(ui::PathText(file.filename()), start.file->kind) +
                (more.empty() ? "" : " " + more));
        }
        m_workspace.settings.makeType = static_cast<std::int16_t>(start.file->shown);
    } else {
        showStatus(std::string(HowToLoad));
    }
    rebuildRecentMenus();

    for (const editing::Kind& kind : editing::Kinds) {
        panel(kind.page).refresh();
    }
    mnuView_Click(m_workspace.page());
    restoreWindow();
    show();
    m_isStartingUp = false;
    showStatus(m_startNotice);

    // The desktop learns about the file types once the window is painted: nothing in it waits for them.
    QTimer::singleShot(FileTypesTime, this, &frmVTM::registerFileTypes);
    m_recovery->start();
    for (const std::string& notice : notices) {
        m_platform.dialogs.warn(notice);
    }
    ui::TellOfKeptCopies(m_platform.dialogs, m_platform.files);
    CheckHelp(m_platform);
    return {};
}

ui::Status frmVTM::loadSettings() {
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
    applyColours();
    applyCursors();
    applyModes();
    auto start = LoadStartCharSet(m_platform.files, m_platform.directory, m_platform.settings, settings.grid);
    if (!start) {
        return start.failure();
    }
    settings.grid = static_cast<std::int16_t>(start.value().place);
    if (!start.value().notice.empty()) {
        m_startNotice += (m_startNotice.empty() ? "" : " ") + start.value().notice;
    }
    useCharSet(start.value().set);
    return {};
}

void frmVTM::registerFileTypes() {
    if (!std::exchange(m_hasRegistered, true)) {
        WriteFileAssociations(m_platform.fileTypes, m_platform.directory.folder());
    }
}

void frmVTM::restoreWindow() {
    const auto geometry = m_platform.settings.read(std::string(WindowSection), std::string(GeometryKey));
    if (!geometry || !restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(*geometry)))) {
        resize(firstSize());
    }
}

void frmVTM::showWork(const WorkState& state) {
    const QScopedValueRollback<std::string> running(m_command, "Restore");
    m_workspace.documents = state.documents;
    for (const editing::Kind& kind : editing::Kinds) {
        editing::PaintRowsFrom(painter(), kind.page, 1);
        panel(kind.page).refresh();
    }
    view(state.page);
}

ui::Status frmVTM::Form_Unload() {
    if (std::exchange(m_isUnloaded, true)) {
        return {};
    }
    ui::Status saved;
    if (m_workspace.settings.saveAtExit) {
        // A window that the start has not shown yet has no place to remember.
        if (isVisible()) {
            m_platform.settings.write(
                std::string(WindowSection), std::string(GeometryKey),
                saveGeometry().toBase64().toStdString());
        }
        saved = Save(m_platform.settings, m_workspace.settings, m_workspace.loadedSettings);
    }
    // Should the program end before it came to that.
    registerFileTypes();
    m_recovery->end();
    return saved;
}

} // namespace shell
