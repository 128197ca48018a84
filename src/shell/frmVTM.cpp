// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/frmVTM.h"

#include "animation/AnimationPage.h"
#include "editing/DirectionPad.h"
#include "editing/NamePage.h"
#include "editing/mdlKey.h"
#include "scripts/MessagesPage.h"
#include "shell/GlyphButton.h"
#include "shell/ProgressIndicator.h"
#include "shell/Recovery.h"
#include "shell/ScrollingCentre.h"
#include "shell/StatusLine.h"
#include "shell/TabPicture.h"
#include "ui/qt/LineLabel.h"
#include "ui/qt/MarkerShape.h"
#include "ui/qt/PictureWidget.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMenu>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolButton>
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
    connect(ImgGrid, &ui::qt::PictureWidget::pressed, this, &frmVTM::ImgGrid_MouseDown);
    connect(ImgGrid, &ui::qt::PictureWidget::pointerMoved, this, &frmVTM::ImgGrid_MouseMove);
    for (int i = 0; i < static_cast<int>(cmdFavorite.size()); ++i) {
        connect(
            cmdFavorite[static_cast<std::size_t>(i)], &GlyphButton::mouseDown, this,
            [this, i](Qt::MouseButton button) { cmdFavorite_MouseDown(i, button); });
    }
    for (int i = 0; i < static_cast<int>(cmdFrequent.size()); ++i) {
        connect(cmdFrequent[static_cast<std::size_t>(i)], &GlyphButton::mouseDown, this, [this, i] {
            cmdFrequent_MouseDown(i);
        });
    }
    connect(cmdCalcFrequent, &QToolButton::clicked, this, &frmVTM::cmdCalcFrequent_Click);
    for (int i = 0; i < static_cast<int>(cmdKey.size()); ++i) {
        // clicked, not toggled: a lock key sets the button too, and must not be set by it in turn.
        connect(
            cmdKey[static_cast<std::size_t>(i)], &QToolButton::clicked, this, [this, i] { cmdKey_Click(i); });
    }
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
    ImgGrid->setPicture(&m_workspace.atlas.cells);
}

void frmVTM::applyColours() {
    const auto& colours = m_workspace.settings.colours;
    GridPosShape->setColour(QColor::fromRgb(colours[GridMarkerColour]));
    m_namePage->setMarkerColour(colours[NameMarkerColour]);
    m_animationPage->setMarkerColour(colours[AnimationMarkerColour]);
    m_messagesPage->setMarkerColour(colours[MessagesMarkerColour]);
}

void frmVTM::applyCursors() {
    const auto& cursors = m_workspace.settings.cursors;
    ImgGrid->setPointer(cursors[GridCursor]);
    m_namePage->setPointer(cursors[NameCursor]);
    m_animationPage->setPointer(cursors[AnimationCursor]);
    m_messagesPage->setPointer(cursors[MessagesCursor]);
}

void frmVTM::applyModes() {
    for (std::size_t i = 0; i < editing::ModeKeys.size(); ++i) {
        const editing::ModeKey& mode = editing::ModeKeys[i];
        const bool isOn = m_workspace.settings.modes.*mode.flag;
        cmdKey[i]->setChecked(isOn);
        editing::SetLockKey(m_platform.lockKeys, mode.virtualKey, isOn);
    }
}

void frmVTM::paintGlyphButtons() {
    const bool isCounted = std::ranges::any_of(m_workspace.settings.frequent, [](glyphs::GlyphCode code) {
        return code != 0 && code != glyphs::BlankGlyph;
    });
    lblFrequent->tell(
        isCounted ? tr("Frequent") : tr("Frequent: use \u03A3"),
        tr("The glyphs that your name, animation and messages hold most often, once \u03A3 has counted "
           "them"));
    for (std::size_t i = 0; i < cmdFrequent.size(); ++i) {
        cmdFrequent[i]->setGlyph(m_workspace.atlas, m_workspace.settings.frequent[i]);
    }
    for (std::size_t i = 0; i < cmdFavorite.size(); ++i) {
        cmdFavorite[i]->setGlyph(m_workspace.atlas, m_workspace.settings.favourites[i]);
    }
}

void frmVTM::tmrCursor_Timer() {
    GridPosShape->toggleStyle();
    panel(m_workspace.page()).blink();
}

void frmVTM::closeEvent(QCloseEvent* event) {
    if (const ui::Status saved = Form_Unload(); !saved) {
        m_platform.dialogs.warn(saved.failure().message);
    }
    event->accept();
}

} // namespace shell
