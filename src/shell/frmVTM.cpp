// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/frmVTM.h"

#include "animation/AnimationPage.h"
#include "editing/DirectionPad.h"
#include "editing/PagePanel.h"
#include "editing/mdlKey.h"
#include "shell/GlyphColumn.h"
#include "shell/ProgressIndicator.h"
#include "shell/Recovery.h"
#include "shell/ScrollingCentre.h"
#include "shell/StatusLine.h"
#include "shell/TabPicture.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMenu>
#include <QStackedWidget>
#include <QStatusBar>
#include <algorithm>

namespace shell {

using editing::Page;

namespace {

constexpr int BlinkInterval = 500; // milliseconds

} // namespace

frmVTM::frmVTM(ui::Platform& platform)
    : m_platform(platform)
    , m_progress([this](int percentage) { picProgress->showPercentage(percentage); }) {
    setObjectName(QStringLiteral("frmVTM"));
    setFocusPolicy(Qt::NoFocus); // the picture of the page in view has it
    // The toolkit's own menu would hide the toolbar.
    setContextMenuPolicy(Qt::PreventContextMenu);
    buildMenus();
    buildToolbar();
    buildCentre();
    connectControls();
    m_recovery = new Recovery(
        m_workspace, *m_statusLine, m_platform.files, m_platform.stateFolder,
        [this](const WorkState& state) { showWork(state); }, this);
    tmrCursor.setParent(this);
    tmrCursor.setObjectName(QStringLiteral("tmrCursor"));
    tmrCursor.start(BlinkInterval);
    qApp->installEventFilter(this);
}

frmVTM::~frmVTM() {
    m_platform.lockKeys.onTurned({});
}

void frmVTM::connectControls() {
    for (std::size_t i = 0; i < picTab.size(); ++i) {
        const Page page = editing::Kinds.at(i).page;
        editing::PagePanel& shown = panel(page);
        connect(&shown, &editing::PagePanel::userActed, this, [this, page] { switchPageFor(page); });
        connect(&shown, &editing::PagePanel::cursorMoved, this, [this, page](int column, int row) {
            cursor_Moved(page, column, row);
        });
        connect(
            &shown, &editing::PagePanel::picturePressed, this,
            [this, page](int x, int y, Qt::MouseButton button) { PagePic_MouseDown(page, x, y, button); });
        connect(picTab[i], &TabPicture::pressed, this, [this, page] { switchPageFor(page); });
    }
    m_platform.lockKeys.onTurned([this](ui::LockKey key, bool isOn) { lockKey_Turned(key, isOn); });
    connect(m_animationPage, &animation::AnimationPage::nameButtonClicked, this, &frmVTM::cmdName_Click);
    connect(m_animationPage, &animation::AnimationPage::totalChosen, this, &frmVTM::total_Chosen);
    connect(m_animationPage, &animation::AnimationPage::ticksChosen, this, &frmVTM::ticks_Chosen);
    connect(m_animationPage, &animation::AnimationPage::namesAdded, this, [this](int firstName) {
        editing::PaintRowsFrom(painter(), Page::Animation, firstName);
    });
    connect(m_glyphColumn, &GlyphColumn::glyphPressed, this, &frmVTM::ImgGrid_MouseDown);
    connect(m_glyphColumn, &GlyphColumn::favouritePressed, this, &frmVTM::cmdFavorite_MouseDown);
    connect(m_glyphColumn, &GlyphColumn::frequentPressed, this, &frmVTM::cmdFrequent_MouseDown);
    connect(m_glyphColumn, &GlyphColumn::countPressed, this, &frmVTM::cmdCalcFrequent_Click);
    connect(m_glyphColumn, &GlyphColumn::modeSwitched, this, &frmVTM::cmdKey_Click);
    connect(imgDir, &editing::DirectionPad::arrow, this, &frmVTM::imgDir_Arrow);
    connect(m_statusLine, &StatusLine::showPressed, this, &frmVTM::showReadNames);
    connect(&tmrCursor, &QTimer::timeout, this, &frmVTM::tmrCursor_Timer);
}

editing::PagePanel& frmVTM::panel(Page page) const {
    return *static_cast<editing::PagePanel*>(m_pages->widget(static_cast<int>(page)));
}

editing::PageCursor frmVTM::cursor() {
    return editing::CursorOf(m_workspace.documents, m_workspace.page());
}

editing::PagePainter frmVTM::painter() {
    return {m_workspace.documents, m_workspace.atlas,           m_workspace.pictures,
            m_platform.sounds,     m_workspace.settings.sounds, m_progress};
}

void frmVTM::showStatus(const std::string& text) {
    if (!text.empty()) {
        statusBar()->showMessage(QString::fromStdString(text));
    }
}

void frmVTM::Refresh() {
    editing::PagePanel& shown = panel(m_workspace.page());
    showPage(m_workspace.page());
    m_centre->follow(shown.marker());
    shown.takeFocus();
}

void frmVTM::showPage(Page page) {
    panel(page).refresh();
    showDamage();
    updateCursorLabel();
    record();
}

void frmVTM::showDamage() {
    for (const editing::Kind& kind : editing::Kinds) {
        panel(kind.page).showDamage();
    }
}

void frmVTM::updateCursorLabel() {
    QString text = QString::number(cursor().column);
    if (m_workspace.page() == Page::Animation) {
        text += QLatin1Char(',') + QString::number(cursor().row);
    }
    lblCurPos->setText(text);
}

void frmVTM::switchPageFor(Page page) {
    if (page != m_workspace.page()) {
        mnuView_Click(page);
    }
}

void frmVTM::mnuView_Click(Page page) {
    glyphs::PlaySoundResource(m_platform.sounds, m_workspace.settings.sounds, glyphs::PageSwitchedSound);
    view(page);
}

void frmVTM::view(Page page) {
    const int index = static_cast<int>(page);
    m_workspace.settings.makeType = static_cast<std::int16_t>(index);
    for (std::size_t i = 0; i < picTab.size(); ++i) {
        picTab[i]->setActive(static_cast<int>(i) == index);
    }
    m_pageActions.at(index)->setChecked(true);
    menu("mnuView")->actions().at(index)->setChecked(true);
    m_pages->setCurrentIndex(index);
    setWindowTitle(QLatin1String(editing::KindOf(page).windowTitle));
    Refresh();
}

ui::Status frmVTM::SelectCharSet(int recordNumber) {
    const auto set = glyphs::LoadCharSet(m_platform.files, m_platform.directory, recordNumber);
    if (!set) {
        return set.failure();
    }
    useCharSet(set.value());
    return {};
}

void frmVTM::useCharSet(const glyphs::CharSet& set) {
    m_workspace.charSet = set.record;
    buildAtlas(set.artwork);
}

void frmVTM::buildAtlas(const ui::Picture& artwork) {
    m_workspace.atlas = glyphs::BuildAtlas(artwork, m_workspace.settings.colours[BackgroundColour]);
    m_glyphColumn->showGrid();
}

void frmVTM::applyColours() {
    const auto& colours = m_workspace.settings.colours;
    m_glyphColumn->showColours();
    for (const editing::Kind& kind : editing::Kinds) {
        panel(kind.page).setMarkerColour(colours.at(kind.markerColour));
    }
}

void frmVTM::applyCursors() {
    const auto& cursors = m_workspace.settings.cursors;
    m_glyphColumn->showPointer();
    for (const editing::Kind& kind : editing::Kinds) {
        panel(kind.page).setPointer(cursors.at(kind.pointer));
    }
}

void frmVTM::applyModes() {
    m_glyphColumn->showModes();
    for (const editing::ModeKey& mode : editing::ModeKeys) {
        editing::SetLockKey(m_platform.lockKeys, mode.virtualKey, m_workspace.settings.modes.*mode.flag);
    }
}

void frmVTM::tmrCursor_Timer() {
    m_glyphColumn->blink();
    panel(m_workspace.page()).blink();
}

void frmVTM::closeEvent(QCloseEvent* event) {
    if (const ui::Status saved = Form_Unload(); !saved) {
        m_platform.dialogs.warn(
            ui::Consequence(
                "Your options were not saved: the next start has those of before.", saved.failure())
                .message);
    }
    event->accept();
}

} // namespace shell
