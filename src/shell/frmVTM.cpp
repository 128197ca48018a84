// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/frmVTM.h"

#include "animation/AnimationPage.h"
#include "editing/DirectionPad.h"
#include "editing/NamePage.h"
#include "editing/mdlKey.h"
#include "scripts/MessagesPage.h"
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
constexpr std::array<Page, 3> AllPages{Page::Name, Page::Animation, Page::Messages};

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
    for (int i = 0; i < static_cast<int>(AllPages.size()); ++i) {
        const Page page = AllPages[static_cast<std::size_t>(i)];
        editing::PagePanel& shown = panel(page);
        connect(&shown, &editing::PagePanel::userActed, this, [this, page] { switchPageFor(page); });
        connect(&shown, &editing::PagePanel::cursorMoved, this, [this, page](int column, int row) {
            cursor_Moved(page, column, row);
        });
        connect(
            &shown, &editing::PagePanel::picturePressed, this,
            [this, page](int x, int y, Qt::MouseButton button) { PagePic_MouseDown(page, x, y, button); });
        connect(picTab[static_cast<std::size_t>(i)], &TabPicture::pressed, this, [this, i] {
            if (i != static_cast<int>(m_workspace.page())) {
                mnuView_Click(i);
            }
        });
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
    switch (page) {
    case Page::Animation:
        return *m_animationPage;
    case Page::Messages:
        return *m_messagesPage;
    case Page::Name:
        break;
    }
    return *m_namePage;
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
    for (const Page page : AllPages) {
        panel(page).showDamage();
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
        mnuView_Click(static_cast<int>(page));
    }
}

void frmVTM::mnuView_Click(int index) {
    glyphs::PlaySoundResource(m_platform.sounds, m_workspace.settings.sounds, glyphs::PageSwitchedSound);
    view(static_cast<Page>(index));
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
    const std::array<QString, 3> titles{
        QStringLiteral("Vortigo [Name]"), QStringLiteral("Vortigo [Animation]"),
        QStringLiteral("Vortigo [Messages]")};
    setWindowTitle(titles[static_cast<std::size_t>(index)]);
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
    m_namePage->setMarkerColour(colours[NameMarkerColour]);
    m_animationPage->setMarkerColour(colours[AnimationMarkerColour]);
    m_messagesPage->setMarkerColour(colours[MessagesMarkerColour]);
}

void frmVTM::applyCursors() {
    const auto& cursors = m_workspace.settings.cursors;
    m_glyphColumn->showPointer();
    m_namePage->setPointer(cursors[NameCursor]);
    m_animationPage->setPointer(cursors[AnimationCursor]);
    m_messagesPage->setPointer(cursors[MessagesCursor]);
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
