// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/mdlAniScript.h"
#include "editing/PagePanel.h"
#include "scripts/mdlConfig.h"
#include "scripts/mdlMacro.h"
#include "scripts/mdlName.h"
#include "shell/StatusLine.h"
#include "shell/frmVTM.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <utility>

namespace shell {

using editing::Page;

namespace {

/// How much of a path a menu shows, in average characters; the middle of a longer one is left out.
constexpr int RecentPathLength = 70;

} // namespace

ui::Path frmVTM::dialogFolder() const {
    if (m_platform.directory.writable()) {
        return m_platform.directory.folder();
    }
    if (!m_workspace.lastFolder.empty()) {
        return m_workspace.lastFolder;
    }
    return QFile::encodeName(QDir::homePath()).toStdString();
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

bool frmVTM::loadScript(Page kind, const ui::Path& path, animation::OpenFailure openFailure) {
    const auto repaint = [this, kind] {
        repaintPage(kind);
        panel(kind).refresh();
    };
    switch (kind) {
    case Page::Name: {
        const auto outcome = scripts::LoadNameScript(
            m_platform.dialogs, m_platform.files, path, m_isStartingUp, m_workspace.documents.name, repaint);
        showStatus(outcome.statusText);
        return outcome.loaded;
    }
    case Page::Animation: {
        editing::AnimationDocument& animation = m_workspace.documents.animation;
        auto before = animation.nameGlyphs;
        const auto outcome = animation::ReadAnimationScript(
            animation, path, m_isStartingUp, openFailure, repaint, m_platform.dialogs, m_platform.files);
        if (outcome.end == animation::ScriptEnd::Abandoned) {
            // The number of names may have changed all the same. The names that come into use by it are
            // painted as they were, since the page does not show what was read.
            std::swap(animation.nameGlyphs, before);
            panel(kind).refresh();
            std::swap(animation.nameGlyphs, before);
        }
        showStatus(outcome.statusText);
        if (outcome.hasUnshownNames) {
            m_statusLine->offerShow();
        }
        return outcome.end == animation::ScriptEnd::Read;
    }
    case Page::Messages: {
        const auto outcome = scripts::LoadMessageScript(
            m_platform.dialogs, m_platform.files, path, m_isStartingUp, m_workspace.documents.messages,
            repaint);
        showStatus(outcome.statusText);
        return outcome.loaded;
    }
    }
    return false;
}

/// Paints the animation after a reading that was abandoned.
void frmVTM::showReadNames() {
    switchPageFor(Page::Animation);
    repaintPage(Page::Animation);
    m_statusLine->clearMessage();
    Refresh();
}

void frmVTM::mnuFileLoadNameFromScriptFile_Click() {
    if (const auto path = scripts::ChooseNameScript(m_platform.dialogs)) {
        switchPageFor(Page::Name);
        loadScript(Page::Name, *path);
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

void frmVTM::saveNameToConfigFile() {
    if (const auto path = scripts::ChooseConfigToAlter(m_platform.dialogs, m_platform.files)) {
        m_workspace.rememberedConfig = *path;
        const auto outcome = scripts::SaveNameToConfig(
            m_platform.dialogs, m_platform.files, m_platform.directory, *path, m_workspace.documents.name);
        showStatus(outcome.statusText);
    }
}

void frmVTM::mnuFileLoadAniFromScriptFile_Click() {
    if (const auto path =
            m_platform.dialogs.chooseFileToOpen(animation::AnimationOpenRequest(dialogFolder()))) {
        switchPageFor(Page::Animation);
        loadScript(Page::Animation, *path);
    }
    Refresh();
}

void frmVTM::mnuFileLoadMessagesFromScriptFile_Click() {
    if (const auto path = scripts::ChooseMessageScript(m_platform.dialogs)) {
        switchPageFor(Page::Messages);
        loadScript(Page::Messages, *path);
    }
    Refresh();
}

void frmVTM::scriptSaved(Page kind, const ui::Path& path) {
    m_workspace.rememberedScript = path;
    m_workspace.lastFolder = path.parent_path();
    if (const ui::Status added = AddRecentIfNew(m_workspace.recent, m_platform.settings, path.native(), kind);
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

void frmVTM::mnuFileSaveName_Click(int index) {
    switch (index) {
    case 0: {
        const auto outcome = scripts::SaveNameScript(
            m_platform.dialogs, m_platform.files, dialogFolder(), m_workspace.documents.name);
        if (outcome.kind == scripts::SaveOutcome::Kind::Written) {
            scriptSaved(Page::Name, outcome.path);
        }
        if (scripts::OffersBinding(outcome)) {
            offerBinding();
        }
        break;
    }
    case 1:
        saveNameToConfigFile();
        break;
    default:
        scripts::CopyNameToClipboard(m_platform.clipboard, m_platform.dialogs, m_workspace.documents.name);
    }
    Refresh();
}

void frmVTM::mnuFileSaveAni_Click() {
    const auto outcome = animation::SaveAnimationScript(
        m_workspace.documents.animation, dialogFolder(), [this] { switchPageFor(Page::Animation); },
        m_platform.dialogs, m_platform.files);
    showStatus(outcome.statusText);
    if (outcome.kind == animation::AnimationSaved::Kind::Written) {
        scriptSaved(Page::Animation, outcome.path);
    }
    if (outcome.kind != animation::AnimationSaved::Kind::Failed) {
        offerBinding();
    }
    Refresh();
}

void frmVTM::rebuildRecentMenus() {
    LoadRecentMenus(m_workspace.recent, m_platform.settings);

    struct Group {
        Page kind;
        const char* heading;
        const char* entry;
    };

    constexpr std::array<Group, 3> Groups{{
        {Page::Name, "mnuFileRecentName", "mnuRecentNameFiles"},
        {Page::Animation, "mnuFileRecentAni", "mnuRecentAniFiles"},
        {Page::Messages, "mnuFileRecentMacro", "mnuRecentMacroFiles"},
    }};
    for (const Group& group : Groups) {
        const std::vector<std::string>& paths = m_workspace.recent.of(group.kind);
        QMenu* heading = menu(group.heading);
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
        loadScript(kind, paths[static_cast<std::size_t>(index)], animation::OpenFailure::MessageBox);
        mnuView_Click(static_cast<int>(kind));
    }
}

void frmVTM::mnuFileExit_Click() {
    close();
}

} // namespace shell
