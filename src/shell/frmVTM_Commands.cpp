// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/frmAniWiz.h"
#include "animation/frmRankings.h"
#include "editing/PagePanel.h"
#include "scripts/frmBindWiz.h"
#include "shell/GlyphColumn.h"
#include "shell/frmAbout.h"
#include "shell/frmOptions.h"
#include "shell/frmVTM.h"
#include "shell/mdlLaunch.h"

namespace shell {

using editing::FormatOperation;
using editing::Page;

void frmVTM::mnuFormat_Click(FormatOperation operation) {
    const Settings& settings = m_workspace.settings;
    const editing::FormatSettings formatSettings{
        .asksForNames = settings.promptNames,
        .asksForMessages = settings.promptMessages,
        .caseChoice = settings.letterChoice(),
    };
    editing::ShowChange(
        painter(), editing::FormatPage(cursor(), m_platform.dialogs, formatSettings, operation));
    Refresh();
}

void frmVTM::mnuFormatReverseNameOrder_Click() {
    editing::ShowChange(painter(), editing::ReverseNameOrder(cursor()));
    Refresh();
}

void frmVTM::mnuEditCopy_Click() {
    editing::CopyRow(cursor(), m_workspace.editClipboard);
    Refresh();
}

void frmVTM::mnuEditCut_Click() {
    editing::ShowChange(painter(), editing::CutRow(cursor(), m_workspace.editClipboard));
    Refresh();
}

void frmVTM::mnuEditPaste_Click() {
    editing::ShowChange(painter(), editing::PasteRow(cursor(), m_workspace.editClipboard));
    Refresh();
}

void frmVTM::mnuToolsAnimationWizard_Click() {
    animation::frmAniWiz wizard(
        m_workspace.documents.animation, m_workspace.settings.letterChoice(), m_platform.dialogs,
        m_platform.files, m_platform.directory, this);
    wizard.exec();
    if (wizard.built()) {
        switchPageFor(Page::Animation);
        repaintPage(Page::Animation);
        showStatus(wizard.statusText());
    }
    Refresh();
}

void frmVTM::mnuToolsAnimationViewer_Click() {
    animation::frmRankings(
        m_workspace.documents.animation, m_workspace.pictures.animation.pixels(),
        m_workspace.settings.screenshot, m_platform, m_workspace.settings.sounds, this)
        .exec();
    Refresh();
}

void frmVTM::mnuToolsBindingWizard_Click() {
    scripts::frmBindWiz wizard(
        m_platform.dialogs, m_platform.files, m_platform.directory,
        {m_workspace.rememberedConfig, m_workspace.rememberedScript}, this);
    wizard.exec();
    m_workspace.rememberedConfig = wizard.remembered().config;
    m_workspace.rememberedScript = wizard.remembered().script;
    showStatus(wizard.statusText());
    Refresh();
}

void frmVTM::mnuToolsSettings_Click() {
    frmOptions options(
        m_platform, m_workspace.settings, m_workspace.charSet, m_workspace.atlas, m_workspace.keys,
        [this](glyphs::GlyphCode start) { return pickGlyph(start); }, this);
    if (options.exec() == QDialog::Accepted) {
        applyOptions(options.model());
    }
    Refresh();
}

void frmVTM::applyOptions(const OptionsModel& model) {
    const glyphs::CharSetRecord before = m_workspace.charSet;
    const std::int16_t placeBefore = m_workspace.settings.grid;
    const AppliedOptions applied = model.applyTo(m_workspace.settings, m_workspace.charSet);
    if (applied.colours) {
        applyColours();
    }
    if (applied.cursors) {
        applyCursors();
    }
    const std::string chosen = m_workspace.charSet.name;
    ui::Status selected;
    if (model.isChanged(OptionsPage::ConversionList)) {
        selected = SelectCharSet(m_workspace.charSet.listIndex + 1);
        if (!selected) {
            m_workspace.charSet = before;
            m_workspace.settings.grid = placeBefore;
        }
    }
    if (applied.colours || (applied.glyphs && selected.ok())) {
        RefreshCharSet();
    }
    if (!selected) {
        m_platform.dialogs.warn(CharSetStaysText(chosen, before.name, "in use", selected.failure()));
    }
    if (applied.keyMap) {
        if (const ui::Status written =
                editing::WriteKeyMap(m_platform.files, m_platform.directory, m_workspace.keys);
            !written) {
            m_platform.dialogs.warn(ui::Consequence(
                                        "The keys type what you chose, but only until the program ends: "
                                        "the key map could not be stored.",
                                        written.failure())
                                        .message);
        }
    }
}

/// Draws everything anew from the artwork in use.
void frmVTM::RefreshCharSet() {
    buildAtlas(ui::Picture(m_workspace.atlas.artwork));
    m_glyphColumn->showGlyphs();
    for (const editing::Kind& kind : editing::Kinds) {
        repaintPage(kind.page);
    }
}

void frmVTM::mnuAboutVTM_Click() {
    frmAbout(m_platform, m_workspace.atlas, this).exec();
    Refresh();
}

void frmVTM::mnuHelp_Click() {
    ShowHelp(m_platform);
    Refresh();
}

} // namespace shell
