// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/frmVTM.h"

#include "editing/PagePanel.h"
#include "shell/GlyphColumn.h"
#include "shell/MainMenus.h"
#include "shell/PageColumn.h"
#include "shell/ProgressIndicator.h"
#include "shell/Recovery.h"
#include "shell/ScrollingCentre.h"
#include "shell/StatusLine.h"
#include "ui/qt/FileDrop.h"
#include "ui/qt/KeyTranslation.h"

#include <QApplication>
#include <QCloseEvent>
#include <QScreen>
#include <QToolBar>
#include <chrono>
#include <utility>

namespace shell {

using editing::Page;

namespace {

constexpr std::chrono::milliseconds BlinkInterval(500);

/// Where the window stood; apart from the options, of which every key has a meaning of its own.
constexpr std::string_view WindowSection = "window";
constexpr std::string_view GeometryKey = "geometry";

/// From the start on; the first paint takes a fraction of it.
constexpr std::chrono::milliseconds FileTypesTime(500);
constexpr std::chrono::milliseconds GamesTime(100);

constexpr int StatusLineMargin = 2; // that the toolkit adds
constexpr int RoundingRoom = 2;
constexpr QSize FrameRoom(10, 40); // for what the desktop puts around the window

} // namespace

frmVTM::frmVTM(const ui::Platform& platform)
    : m_platform(platform)
    , m_session(platform, *this)
    , m_glyphColumn(new GlyphColumn(workspace(), this))
    , m_pageColumn(new PageColumn(
          workspace().documents, workspace().pictures, workspace().atlas, workspace().settings, this))
    , m_commands(platform, m_session, *m_glyphColumn, *m_pageColumn, *this)
    , m_files(platform, m_session, m_commands)
    , m_exchange(platform, m_session)
    , m_menus(new MainMenus(*this, {m_session, m_files, m_commands, m_exchange})) {
    setObjectName(QStringLiteral("frmVTM"));
    for (const editing::Kind& kind : editing::Kinds) {
        m_pageColumn->panel(kind.page).setGlyphText(
            [this](glyphs::GlyphCode code) { return m_glyphColumn->glyphText(code); });
    }
    setFocusPolicy(Qt::NoFocus); // the picture of the page in view has it
    // The toolkit's own menu would hide the toolbar.
    setContextMenuPolicy(Qt::PreventContextMenu);
    buildCentre();
    connect(m_pageColumn, &PageColumn::gamesWanted, m_menus, &MainMenus::popGames);
    new ui::qt::FileDrop(*this, [this](const std::vector<ui::Path>& files) {
        m_statusLine->clearMessage();
        m_files.loadDropped(files);
    });
    m_recovery = new Recovery(
        workspace(), *m_statusLine, m_platform.files, m_platform.stateFolder,
        [this](const WorkState& state) { m_session.restore(state); }, this);
    m_platform.lockKeys.onTurned([this](ui::LockKey key, bool isOn) { lockKey_Turned(key, isOn); });
    tmrCursor.setParent(this);
    tmrCursor.setObjectName(QStringLiteral("tmrCursor"));
    connect(&tmrCursor, &QTimer::timeout, this, &frmVTM::tmrCursor_Timer);
    tmrCursor.start(BlinkInterval);
    qApp->installEventFilter(this);
    ui::qt::HearEveryKey(*this);
}

frmVTM::~frmVTM() {
    m_platform.lockKeys.onTurned({});
}

void frmVTM::buildCentre() {
    m_centre = new ScrollingCentre(*m_glyphColumn, *m_pageColumn, this);
    setCentralWidget(m_centre);
    picProgress = new ProgressIndicator(this);
    m_statusLine = new StatusLine(this);
    m_statusLine->addPermanentWidget(picProgress);
    const int margin = ScrollingCentre::Margin - StatusLineMargin;
    m_statusLine->setContentsMargins(margin, 0, margin, 0);
    setStatusBar(m_statusLine);
    connect(m_statusLine, &StatusLine::showPressed, this, [this] { m_session.showReadNames(); });
}

ui::Status frmVTM::Form_Load(std::span<const std::string> arguments) {
    if (ui::Status loaded = m_session.load(arguments); !loaded) {
        return loaded;
    }
    showViewChoices();
    restoreWindow();
    show();
    // The desktop learns about the file types once the window is painted: nothing in it waits for them.
    QTimer::singleShot(FileTypesTime, this, [this] { m_session.registerFileTypes(); });
    m_recovery->start();
    QTimer::singleShot(GamesTime, this, &frmVTM::showGames);
    m_session.tellOfStart();
    return {};
}

ui::Status frmVTM::Form_Unload() {
    if (std::exchange(m_isUnloaded, true)) {
        return {};
    }
    // A window that the start has not shown yet has no place to remember.
    if (workspace().settings.saveAtExit && isVisible()) {
        m_platform.settings.write(
            std::string(WindowSection), std::string(GeometryKey), saveGeometry().toBase64().toStdString());
    }
    const ui::Status saved = m_session.end();
    // Should the program end before it came to that.
    m_session.registerFileTypes();
    m_recovery->end();
    return saved;
}

void frmVTM::restoreWindow() {
    const auto geometry = m_platform.settings.read(std::string(WindowSection), std::string(GeometryKey));
    if (!geometry || !restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(*geometry)))) {
        resize(firstSize());
    }
}

QSize frmVTM::firstSize() const {
    m_centre->settle();
    const QSize room = screen()->availableSize() - FrameRoom;
    // No toolbar button hides behind an arrow, also where the scale of the screen rounds the width down.
    QSize wanted = sizeHint().expandedTo({m_menus->toolbar().sizeHint().width() + RoundingRoom, 0});
    wanted.rheight() += m_centre->barHeight(room.width());
    return wanted.boundedTo(room);
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

void frmVTM::tmrCursor_Timer() {
    m_glyphColumn->blink();
    m_pageColumn->blink();
}

void frmVTM::viewPage(Page page) {
    m_pageColumn->view(page);
    m_menus->showPage(page);
    setWindowTitle(QLatin1String(editing::KindOf(page).windowTitle));
}

void frmVTM::showDocument(Page page) {
    m_pageColumn->showDocument(page);
    m_glyphColumn->showCursor(m_session.cursor().glyph());
    m_menus->showTakingBack();
    m_menus->showExchange();
}

void frmVTM::followCursor() {
    editing::PagePanel& panel = m_pageColumn->panel(m_session.page());
    m_centre->follow(panel.marker());
    panel.takeFocus();
}

void frmVTM::showProgress(int percentage) {
    picProgress->showPercentage(percentage);
}

void frmVTM::showStatus(const std::string& text) {
    if (!text.empty()) {
        m_statusLine->showMessage(QString::fromStdString(text));
    }
}

void frmVTM::offerReadNames() {
    m_statusLine->offerShow();
}

void frmVTM::withdrawReadNames() {
    if (m_statusLine->offersShow()) {
        m_statusLine->clearMessage();
    }
}

void frmVTM::showRecentFiles() {
    m_menus->showRecentFiles();
}

void frmVTM::showAtlas() {
    m_glyphColumn->showGrid();
    m_glyphColumn->showGlyphs();
    m_pageColumn->showAtlas();
}

void frmVTM::showColours() {
    m_glyphColumn->showColours();
    m_pageColumn->showColours();
}

void frmVTM::showPointers() {
    m_glyphColumn->showPointer();
    m_pageColumn->showPointers();
}

void frmVTM::showModes() {
    m_glyphColumn->showModes();
}

void frmVTM::showGames() {
    m_pageColumn->showGames();
    m_menus->showGames();
}

void frmVTM::showViewChoices() {
    m_glyphColumn->showReadout();
    m_centre->setZoom(workspace().settings.zoom);
    m_menus->showViewChoices();
}

} // namespace shell
