// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/mdlAniScript.h"
#include "editing/PagePanel.h"
#include "scripts/frmSaveMessages.h"
#include "scripts/mdlConfig.h"
#include "scripts/mdlMacro.h"
#include "scripts/mdlName.h"
#include "shell/StatusLine.h"
#include "shell/frmVTM.h"
#include "ui/qt/Text.h"

#include <QAction>
#include <QDir>
#include <QMenu>
#include <utility>

namespace shell {

using editing::Page;

namespace {

/// How much of a path a menu shows, in average characters; the middle of a longer one is left out.
constexpr int RecentPathLength = 70;

/// How the scripts of a kind are read and written. A table of its own, in the order of Page: the one in
/// `editing` cannot name the rooms above it.
struct ScriptRoom {
    editing::ScriptReader (*reader)(editing::Documents&, const ui::Path&);
    editing::ScriptWriter (*writer)(const editing::Documents&); ///< null: a wizard writes them
};

constexpr std::array ScriptRooms{
    ScriptRoom{
        [](editing::Documents& documents, const ui::Path& path) {
            return scripts::NameReader(documents.name, path);
        },
        [](const editing::Documents& documents) {
            return scripts::NameWriter(documents.name);
        }},
    ScriptRoom{
        [](editing::Documents& documents, const ui::Path& path) {
            return animation::AnimationReader(documents.animation, path);
        },
        [](const editing::Documents& documents) {
            return animation::AnimationWriter(documents.animation);
        }},
    ScriptRoom{
        [](editing::Documents& documents, const ui::Path& path) {
            return scripts::MessageReader(documents.messages, path);
        },
        nullptr},
};
static_assert(ScriptRooms.size() == editing::Kinds.size());

const ScriptRoom& ScriptRoomOf(Page page) {
    return ScriptRooms.at(static_cast<std::size_t>(page));
}

} // namespace

ui::Path frmVTM::dialogFolder() const {
    if (m_platform.directory.writable()) {
        return m_platform.directory.folder();
    }
    if (!m_workspace.lastFolder.empty()) {
        return m_workspace.lastFolder;
    }
    return ui::qt::ToPath(QDir::homePath());
}

void frmVTM::repaintPage(Page page) {
    editing::PaintPage(painter(), page);
    showDamage();
}

void frmVTM::mnuNew_Click(Page page) {
    switchPageFor(page);
    editing::ShowChange(painter(), editing::NewDocument(m_workspace.documents, page));
    Refresh();
}

bool frmVTM::loadScript(Page page, const ui::Path& path, editing::OpenFailure openFailure) {
    const auto repaint = [this, page] {
        repaintPage(page);
        panel(page).refresh();
    };
    editing::AnimationDocument& animation = m_workspace.documents.animation;
    auto before = animation.nameGlyphs;
    const editing::ScriptRead read = editing::LoadScript(
        m_platform.dialogs, m_platform.files, ScriptRoomOf(page).reader(m_workspace.documents, path),
        m_isStartingUp, openFailure, repaint);
    if (read.end == editing::ScriptEnd::Abandoned) {
        // The number of names may have changed all the same. The names that come into use by it are
        // painted as they were, since the page does not show what was read.
        std::swap(animation.nameGlyphs, before);
        panel(page).refresh();
        std::swap(animation.nameGlyphs, before);
    }
    showStatus(read.statusText);
    if (read.hasUnshownNames) {
        m_statusLine->offerShow();
    }
    return read.loaded();
}

/// Paints the animation after a reading that was abandoned.
void frmVTM::showReadNames() {
    switchPageFor(Page::Animation);
    repaintPage(Page::Animation);
    m_statusLine->clearMessage();
    Refresh();
}

void frmVTM::mnuLoad_Click(Page page) {
    if (const auto path = m_platform.dialogs.chooseFileToOpen(
            editing::OpenScriptRequest(editing::KindOf(page), dialogFolder()))) {
        switchPageFor(page);
        loadScript(page, *path);
    }
    Refresh();
}

void frmVTM::mnuFileLoadNameFromConfigFile_Click() {
    if (const auto path = scripts::ChooseConfigToLoad(m_platform.dialogs)) {
        switchPageFor(Page::Name);
        m_workspace.rememberedConfig = *path;
        const auto outcome = scripts::LoadNameFromConfig(
            m_platform.dialogs, m_platform.files, *path, m_workspace.documents.name,
            [this] { repaintPage(Page::Name); });
        showStatus(outcome.statusText);
    }
    Refresh();
}

void frmVTM::mnuFileSaveNameToConfigFile_Click() {
    if (const auto path = scripts::ChooseConfigToAlter(m_platform.dialogs, m_platform.files)) {
        m_workspace.rememberedConfig = *path;
        const auto outcome = scripts::SaveNameToConfig(
            m_platform.dialogs, m_platform.files, m_platform.directory, *path, m_workspace.documents.name);
        showStatus(outcome.statusText);
    }
    Refresh();
}

void frmVTM::mnuFileSaveNameToClipboard_Click() {
    scripts::CopyNameToClipboard(m_platform.clipboard, m_platform.dialogs, m_workspace.documents.name);
    Refresh();
}

void frmVTM::scriptSaved(Page kind, const ui::Path& path) {
    m_workspace.rememberedScript = path;
    m_workspace.lastFolder = path.parent_path();
    if (const ui::Status added =
            AddRecentIfNew(m_workspace.recent, m_platform.settings, ui::PathText(path), kind);
        !added) {
        showStatus(added.failure().message);
    }
    rebuildRecentMenus();
}

void frmVTM::offerBinding() {
    if (m_workspace.settings.bindPrompt && scripts::AskToBind(m_platform.dialogs)) {
        mnuToolsBindingWizard_Click();
    }
}

editing::SaveOutcome frmVTM::saveScript(const editing::Kind& kind) {
    const auto writer = ScriptRoomOf(kind.page).writer;
    if (writer == nullptr) {
        scripts::frmSaveMessages wizard(
            m_platform.dialogs, m_platform.files, m_workspace.documents.messages, this);
        wizard.exec();
        return wizard.outcome();
    }
    const auto accepted = [&] {
        if (kind.showsPageWhenSaved) {
            switchPageFor(kind.page);
        }
    };
    return editing::SaveScript(
        m_platform.dialogs, m_platform.files, writer(m_workspace.documents), dialogFolder(), accepted);
}

void frmVTM::mnuSave_Click(Page page) {
    const editing::Kind& kind = editing::KindOf(page);
    const editing::SaveOutcome outcome = saveScript(kind);
    showStatus(outcome.statusText);
    if (outcome.kind == editing::SaveOutcome::Kind::Written) {
        scriptSaved(page, outcome.path);
    }
    if (kind.offersBinding && scripts::OffersBinding(outcome)) {
        offerBinding();
    }
    Refresh();
}

void frmVTM::rebuildRecentMenus() {
    LoadRecentMenus(m_workspace.recent, m_platform.settings);
    for (const editing::Kind& kind : editing::Kinds) {
        const std::vector<std::string>& paths = m_workspace.recent.of(kind.page);
        QMenu* heading = menu(kind.recentMenu);
        heading->setToolTipsVisible(true);
        heading->menuAction()->setVisible(!paths.empty());
        const QList<QAction*> entries = heading->actions();
        for (int i = 0; i < entries.size(); ++i) {
            const bool isUsed = static_cast<std::size_t>(i) < paths.size();
            entries[i]->setVisible(isUsed);
            if (isUsed) {
                const QString path = QString::fromStdString(paths[static_cast<std::size_t>(i)]);
                // An ampersand in a path is no mnemonic, nor are other characters in it markup.
                const int room = heading->fontMetrics().averageCharWidth() * RecentPathLength;
                entries[i]->setText(heading->fontMetrics()
                                        .elidedText(path, Qt::ElideMiddle, room)
                                        .replace(QLatin1Char('&'), QLatin1String("&&")));
                entries[i]->setToolTip(QStringLiteral("<p>") + path.toHtmlEscaped() + QStringLiteral("</p>"));
            }
        }
    }
}

void frmVTM::mnuRecentFiles_Click(Page kind, int index) {
    const std::vector<std::string>& paths = m_workspace.recent.of(kind);
    if (static_cast<std::size_t>(index) < paths.size()) {
        loadScript(kind, paths[static_cast<std::size_t>(index)], editing::OpenFailure::MessageBox);
        mnuView_Click(kind);
    }
}

void frmVTM::mnuFileExit_Click() {
    close();
}

} // namespace shell
