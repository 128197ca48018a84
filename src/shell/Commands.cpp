// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/Commands.h"

#include "animation/AnimationPage.h"
#include "animation/frmAniWiz.h"
#include "animation/frmRankings.h"
#include "animation/mdlAniName.h"
#include "editing/GlyphFacts.h"
#include "editing/frmGetChar.h"
#include "editing/mdlPick.h"
#include "scripts/frmBindWiz.h"
#include "scripts/frmSaveMessages.h"
#include "shell/GamePlaces.h"
#include "shell/GlyphColumn.h"
#include "shell/PageColumn.h"
#include "shell/RemovedCharSet.h"
#include "shell/frmAbout.h"
#include "shell/frmOptions.h"
#include "shell/mdlLaunch.h"

#include <QApplication>
#include <QWidget>

namespace shell {

using editing::Page;
using glyphs::GlyphCode;

Commands::Commands(
    const ui::Platform& platform, Session& session, GlyphColumn& glyphColumn, PageColumn& pageColumn,
    QWidget& window)
    : m_platform(platform)
    , m_session(session)
    , m_workspace(session.workspace())
    , m_glyphColumn(glyphColumn)
    , m_pageColumn(pageColumn)
    , m_window(window)
    , m_glyphText([&glyphColumn](GlyphCode code) { return glyphColumn.glyphText(code); }) {
    connect(&glyphColumn, &GlyphColumn::glyphPressed, this, &Commands::ImgGrid_MouseDown);
    connect(&glyphColumn, &GlyphColumn::favouritePressed, this, &Commands::cmdFavorite_MouseDown);
    connect(&glyphColumn, &GlyphColumn::frequentPressed, this, &Commands::cmdFrequent_MouseDown);
    connect(&glyphColumn, &GlyphColumn::rightGlyphPressed, this, &Commands::cmdRightGlyph_MouseDown);
    connect(&glyphColumn, &GlyphColumn::glyphFound, this, &Commands::putFoundGlyph);
    connect(&glyphColumn, &GlyphColumn::findingEnded, this, [&session] { session.refresh(); });
    pageColumn.setGlyphText(m_glyphText);
    connect(&pageColumn, &PageColumn::pointedAt, &glyphColumn, &GlyphColumn::pointAt);
    connect(&glyphColumn, &GlyphColumn::countPressed, this, &Commands::cmdCalcFrequent_Click);
    connect(&glyphColumn, &GlyphColumn::modeSwitched, this, &Commands::cmdKey_Click);
    connect(&pageColumn, &PageColumn::pageWanted, this, [&session](Page page) { session.switchTo(page); });
    connect(&pageColumn, &PageColumn::picturePressed, this, &Commands::PagePic_MouseDown);
    connect(&pageColumn, &PageColumn::cursorMoved, this, &Commands::cursor_Moved);
    connect(&pageColumn, &PageColumn::arrow, this, &Commands::navigate);
    const animation::AnimationPage& animation = pageColumn.animationPage();
    connect(&animation, &animation::AnimationPage::nameButtonClicked, this, &Commands::cmdName_Click);
    connect(&animation, &animation::AnimationPage::totalChosen, this, &Commands::total_Chosen);
    connect(&animation, &animation::AnimationPage::ticksChosen, this, &Commands::ticks_Chosen);
    connect(&animation, &animation::AnimationPage::namesAdded, this, [&session](int firstName) {
        editing::PaintRowsFrom(session.painter(), Page::Animation, firstName);
    });
}

void Commands::mnuFileExit_Click() {
    m_window.close();
}

void Commands::mnuEditCut_Click() {
    m_session.finish(editing::CutRow(m_session.cursor(), m_workspace.editClipboard));
}

void Commands::mnuEditCopy_Click() {
    editing::CopyRow(m_session.cursor(), m_workspace.editClipboard);
    m_session.refresh();
}

void Commands::mnuEditPaste_Click() {
    m_session.finish(editing::PasteRow(m_session.cursor(), m_workspace.editClipboard));
}

void Commands::mnuFormat_Click(editing::FormatOperation operation) {
    const Settings& settings = m_workspace.settings;
    const editing::FormatSettings formatSettings{
        .asksForNames = settings.promptNames,
        .asksForMessages = settings.promptMessages,
        .caseChoice = settings.letterChoice(),
    };
    m_session.finish(editing::FormatPage(m_session.cursor(), m_platform.dialogs, formatSettings, operation));
}

void Commands::mnuFormatReverseNameOrder_Click() {
    m_session.finish(editing::ReverseNameOrder(m_session.cursor()));
}

void Commands::mnuToolsAnimationWizard_Click() {
    animation::frmAniWiz wizard(
        m_workspace.documents.animation, m_workspace.settings.letterChoice(), m_workspace.atlas,
        m_platform.dialogs, m_platform.files, m_platform.directory, &m_window);
    wizard.exec();
    if (wizard.built()) {
        m_session.switchTo(Page::Animation);
        m_session.repaint(Page::Animation);
        m_session.tell(wizard.statusText());
    }
    m_session.refresh();
}

void Commands::mnuToolsAnimationViewer_Click() {
    Settings& settings = m_workspace.settings;
    animation::frmRankings preview(
        m_workspace.documents.animation, m_workspace.pictures.animation.pixels(),
        {.screenShot = settings.screenshot,
         .sounds = settings.sounds,
         .games = settings.games,
         .line = animation::LineOn(settings.previewLines, settings.screenshot)},
        m_platform, &m_window);
    preview.exec();
    animation::KeepLine(settings.previewLines, settings.screenshot, preview.line());
    m_session.refresh();
}

void Commands::mnuToolsBindingWizard_Click() {
    scripts::frmBindWiz wizard(
        m_platform.dialogs, m_platform.files, m_platform.directory,
        {m_workspace.rememberedConfig, m_workspace.rememberedScript}, FindGames(m_workspace), &m_window);
    wizard.exec();
    m_workspace.rememberedConfig = wizard.remembered().config;
    m_workspace.rememberedScript = wizard.remembered().script;
    m_session.tell(wizard.statusText());
    m_session.refresh();
}

void Commands::mnuToolsSettings_Click() {
    frmOptions options(
        m_platform, m_workspace.settings, m_workspace.charSet, m_workspace.atlas, m_workspace.keys,
        [this](GlyphCode start) { return pickGlyph(start); },
        [this](int place) { FollowRemovedCharSet(m_session, m_platform, place); }, &m_window);
    if (options.exec() == QDialog::Accepted) {
        m_session.applyOptions(options.model());
    }
    m_session.refresh();
}

void Commands::mnuHelp_Click() {
    ShowHelp(m_platform);
    m_session.refresh();
}

void Commands::mnuAboutVTM_Click() {
    frmAbout(m_platform, m_workspace.atlas, &m_window).exec();
    m_session.refresh();
}

void Commands::bindKey() {
    mnuToolsBindingWizard_Click();
}

editing::SaveOutcome Commands::saveMessages() {
    scripts::frmSaveMessages wizard(
        m_platform.dialogs, m_platform.files, m_workspace.documents.messages, &m_window);
    wizard.exec();
    return wizard.outcome();
}

void Commands::ImgGrid_MouseDown(GlyphCode code, Qt::MouseButton button) {
    if (button == Qt::LeftButton) {
        putGlyphWithMarker(code);
    } else if (button == Qt::RightButton) {
        m_workspace.rightButtonGlyph = code;
        m_glyphColumn.showGlyphs();
        m_session.refresh();
    }
}

void Commands::cmdFavorite_MouseDown(int index, Qt::MouseButton button) {
    GlyphCode& favourite = m_workspace.settings.favourites.at(static_cast<std::size_t>(index));
    if (button == Qt::LeftButton) {
        putGlyphWithMarker(favourite);
    } else if (button == Qt::RightButton) {
        favourite = pickGlyph(favourite);
        m_glyphColumn.showGlyphs();
        m_platform.clipboard.setPicture(m_glyphColumn.favouritePicture(index));
        m_session.refresh();
    }
}

void Commands::cmdRightGlyph_MouseDown(Qt::MouseButton button) {
    if (button == Qt::LeftButton) {
        putGlyphWithMarker(m_workspace.rightButtonGlyph);
    } else if (button == Qt::RightButton) {
        pickRightGlyph();
    }
}

void Commands::putFoundGlyph(GlyphCode code) {
    const GlyphCode placed = glyphs::FilterPickedGlyph(code);
    if (placed == 0) {
        m_session.tell(editing::FactsOf(code, m_workspace.keys.used, m_workspace.settings.modes).note);
    }
    putGlyphWithMarker(placed);
}

void Commands::mnuViewFindGlyph_Click() {
    m_glyphColumn.find();
}

void Commands::cmdFrequent_MouseDown(int index) {
    putGlyphWithMarker(m_workspace.settings.frequent.at(static_cast<std::size_t>(index)));
}

void Commands::cmdCalcFrequent_Click() {
    m_workspace.settings.frequent = editing::FrequentGlyphs(m_workspace.documents);
    m_glyphColumn.showGlyphs();
    m_session.refresh();
}

void Commands::cmdKey_Click(int index, bool isOn) {
    m_session.setMode(static_cast<std::size_t>(index), isOn);
    m_session.refresh();
}

void Commands::PagePic_MouseDown(Page page, int x, int y, Qt::MouseButton button) {
    m_session.switchTo(page);
    editing::PlaceCursor(m_session.cursor(), x, y);
    m_session.refresh();
    if (button == Qt::RightButton) {
        putGlyph(m_workspace.rightButtonGlyph);
    }
}

void Commands::cursor_Moved(Page page, int column, int row) {
    const editing::PageCursor moved = editing::CursorOf(m_workspace.documents, page);
    moved.column = column;
    moved.row = row;
    m_session.refreshPage(page);
}

void Commands::cmdName_Click(int index) {
    m_session.switchTo(Page::Animation);

    struct Operation {
        const char* name;
        editing::Change (*run)(editing::AnimationDocument&);
    };

    constexpr std::array<Operation, 4> Operations{{
        {"Insert Name", animation::InsertName},
        {"Delete Name", animation::DeleteName},
        {"Move Name", animation::MoveNameUp},
        {"Move Name", animation::MoveNameDown},
    }};
    const Operation& operation = Operations.at(static_cast<std::size_t>(index));
    const auto running = m_session.running(operation.name);
    m_session.finish(operation.run(m_workspace.documents.animation));
}

void Commands::total_Chosen(int count) {
    const auto running = m_session.running("Total");
    animation::SetNameCount(m_workspace.documents.animation, count);
    m_session.refreshPage(Page::Animation);
}

void Commands::ticks_Chosen(int count, bool forAllNames) {
    const auto running = m_session.running("Ticks");
    editing::AnimationDocument& animation = m_workspace.documents.animation;
    const auto ticks = static_cast<std::int16_t>(count);
    if (forAllNames) {
        animation::SetAllTicks(animation, ticks);
    } else {
        animation::SetTicks(animation, animation.currentName, ticks);
    }
    m_session.refreshPage(Page::Animation);
}

void Commands::navigate(int virtualKey) {
    const auto running = m_session.running("Delete"); // a mere move of the cursor is no step
    m_session.finish(editing::NavigateKey(m_session.cursor(), virtualKey));
}

void Commands::putGlyph(GlyphCode code) {
    const auto running = m_session.running(History::Typing);
    m_session.finish(editing::PutGlyph(m_session.cursor(), m_workspace.settings.modes, code));
}

void Commands::putGlyphWithMarker(GlyphCode code) {
    const auto running = m_session.running(History::Typing);
    if (code != 0) {
        editing::ShowChange(
            m_session.painter(), editing::PutGlyph(m_session.cursor(), m_workspace.settings.modes, code));
        // The typed glyph is shown at once; marker, bars and numbers follow.
        m_pageColumn.showDamage();
        QCoreApplication::sendPostedEvents(&m_window, QEvent::UpdateRequest);
        m_glyphColumn.mark(code);
    }
    m_session.refresh();
}

void Commands::putPickedGlyph() {
    editing::frmGetChar picker(
        m_glyphColumn.markedGlyph(), m_workspace.atlas.cells, m_workspace.settings.colours[GridMarkerColour],
        &m_window, m_glyphText);
    if (picker.exec() == QDialog::Accepted) {
        putGlyphWithMarker(picker.glyph());
    }
    m_session.refresh();
}

void Commands::pickRightGlyph() {
    m_workspace.rightButtonGlyph = pickGlyph(m_workspace.rightButtonGlyph);
    m_glyphColumn.showGlyphs();
    m_session.refresh();
}

GlyphCode Commands::pickGlyph(GlyphCode start) {
    return editing::PickGlyph(
        start, m_workspace.atlas.cells, m_workspace.settings.colours[GridMarkerColour],
        QApplication::activeWindow(), m_glyphText);
}

} // namespace shell
