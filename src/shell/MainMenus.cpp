// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/MainMenus.h"

#include "shell/Icons.h"
#include "shell/MenuTables.h"
#include "shell/ZoomFit.h"

#include <QAction>
#include <QActionGroup>
#include <QIcon>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <utility>

namespace shell {

using editing::Page;

namespace {

constexpr int IconSide = 24;

/// How much of a path a menu shows, in average characters; the middle of a longer one is left out.
constexpr int RecentPathLength = 70;

QString Numbered(const char* name, int number) {
    return QStringLiteral("%1_%2").arg(QLatin1String(name)).arg(number);
}

/// Whether a menu's commands let the status line forget what an earlier one told.
bool IsForgetful(const QMenu& menu) {
    const auto* const parent = qobject_cast<const QMenu*>(menu.parentWidget());
    return parent != nullptr ? IsForgetful(*parent)
                             : menu.objectName() == QLatin1String("mnuFile") ||
                                   menu.objectName() == QLatin1String("mnuFormat") ||
                                   menu.objectName() == QLatin1String("mnuTools");
}

} // namespace

MainMenus::MainMenus(QMainWindow& window, const MenuReceivers& receivers)
    : QObject(&window)
    , m_window(window)
    , m_receivers(receivers) {
    buildMenus();
    buildToolbar();
}

QMenu* MainMenus::addMenu(QMenu* parent, const char* name, const QString& caption) {
    QMenu* added = parent == nullptr ? m_window.menuBar()->addMenu(caption) : parent->addMenu(caption);
    added->setObjectName(QLatin1String(name));
    m_menus.push_back(added);
    return added;
}

QAction* MainMenus::addEntry(
    QMenu& menu, const QString& name, const QString& caption, const char* command,
    std::function<void()> run) {
    QAction* action = menu.addAction(caption);
    action->setObjectName(name);
    QString undoName = command != nullptr ? QString::fromLatin1(command) : caption;
    connect(
        action, &QAction::triggered, this,
        [this, run = std::move(run), forgets = IsForgetful(menu),
         undoName = undoName.remove(QLatin1Char('&')).toStdString()] {
            const auto running = m_receivers.session.running(undoName);
            if (forgets) {
                m_window.statusBar()->clearMessage();
            }
            run();
        });
    return action;
}

/// The entries of the File menu that a kind has.
void MainMenus::addEntriesOf(const editing::Kind& kind) {
    FileCommands& files = m_receivers.files;
    const Page page = kind.page;
    const QString caption = QLatin1Char('&') + tr(kind.caption);
    addEntry(
        *menu(QStringLiteral("mnuFileNew")), QLatin1String(kind.newEntry), caption, "New",
        [&files, page] { files.newDocument(page); });
    addEntry(
        *addMenu(menu(QStringLiteral("mnuLoad")), kind.loadMenu, caption), QLatin1String(kind.loadEntry),
        tr("From &Script File"), "Load", [&files, page] { files.loadScript(page); });
    addEntry(
        *addMenu(menu(QStringLiteral("mnuSave")), kind.saveMenu, caption), QLatin1String(kind.saveEntry),
        tr("To &Script File"), nullptr, [&files, page] { files.saveScript(page); });
    QMenu* const recent = addMenu(menu(QStringLiteral("mnuFile")), kind.recentMenu, tr(kind.recentCaption));
    recent->setToolTipsVisible(true);
    for (std::size_t i = 0; i < MaxRecentFiles; ++i) {
        addEntry(*recent, Numbered(kind.recentEntry, static_cast<int>(i)), {}, "Load", [&files, page, i] {
            files.loadRecent(page, i);
        });
    }
}

void MainMenus::buildMenus() {
    for (const MenuCommand& entry : MenuCommands()) {
        QMenu* parent = *entry.menu == '\0' ? nullptr : menu(QLatin1String(entry.menu));
        if (QLatin1String(entry.name) == QLatin1String(EachKind)) {
            std::ranges::for_each(editing::Kinds, [this](const editing::Kind& kind) { addEntriesOf(kind); });
        } else if (entry.caption == nullptr) {
            parent->addSeparator();
        } else if (entry.run == nullptr) {
            addMenu(parent, entry.name, tr(entry.caption));
        } else {
            addEntry(
                *parent, QLatin1String(entry.name), tr(entry.caption), entry.command,
                [this, run = entry.run] { run(m_receivers); });
        }
    }
    // No key with Ctrl is free: they type.
    mnuEditUndo = m_window.findChild<QAction*>(QStringLiteral("mnuEditUndo"));
    mnuEditUndo->setShortcut(Qt::ALT | Qt::Key_Backspace);
    mnuEditRedo = m_window.findChild<QAction*>(QStringLiteral("mnuEditRedo"));
    mnuEditRedo->setShortcut(Qt::ALT | Qt::SHIFT | Qt::Key_Backspace);
    auto* pages = new QActionGroup(this);
    for (const editing::Kind& kind : editing::Kinds) {
        QAction* action = addEntry(
            *menu(QStringLiteral("mnuView")), Numbered("mnuView", static_cast<int>(kind.page)),
            QLatin1Char('&') + tr(kind.caption), nullptr,
            [this, page = kind.page] { m_receivers.session.turnTo(page); });
        action->setCheckable(true);
        pages->addAction(action);
    }
    m_pageEntries = pages->actions();
    addGames();
    addReadout();
    addZooms();
}

void MainMenus::addReadout() {
    QMenu* const view = menu(QStringLiteral("mnuView"));
    view->addSeparator();
    mnuViewReadout = addEntry(*view, QStringLiteral("mnuViewReadout"), tr("Glyph &Readout"), nullptr, [] {});
    mnuViewReadout->setCheckable(true);
    connect(mnuViewReadout, &QAction::triggered, this, [this](bool isShown) {
        m_receivers.session.chooseReadout(isShown);
    });
    addEntry(
        *view, QStringLiteral("mnuViewFindGlyph"), tr("&Find Glyph") + QLatin1String("\tAlt+I"), nullptr,
        [this] { m_receivers.commands.mnuViewFindGlyph_Click(); });
}

void MainMenus::addZooms() {
    QMenu* const zooms = addMenu(menu(QStringLiteral("mnuView")), "mnuViewZoom", tr("&Zoom"));
    auto* const choice = new QActionGroup(this);
    for (int zoom = FitZoom; zoom <= MaxZoom; ++zoom) {
        const QString caption = zoom == FitZoom ? tr("&Fit the window") : tr("&%1x").arg(zoom);
        QAction* const action =
            addEntry(*zooms, Numbered("mnuViewZoom", zoom), caption, nullptr, [this, zoom] {
                m_receivers.session.chooseZoom(zoom);
            });
        action->setCheckable(true);
        choice->addAction(action);
    }
}

void MainMenus::showViewChoices() {
    const Settings& settings = m_receivers.session.workspace().settings;
    mnuViewReadout->setChecked(settings.showsReadout);
    menu(QStringLiteral("mnuViewZoom"))->actions().at(settings.zoom)->setChecked(true);
}

void MainMenus::addGames() {
    QMenu* const view = menu(QStringLiteral("mnuView"));
    view->addSeparator();
    QMenu* const played = addMenu(view, "mnuViewGames", tr("&Games"));
    for (const games::Family family : games::Families) {
        const std::string name(games::NameOf(family));
        QAction* action = addEntry(
            *played, Numbered("mnuViewGames", static_cast<int>(family)), QString::fromStdString(name),
            nullptr, [] {});
        action->setCheckable(true);
        connect(action, &QAction::triggered, this, [this, family](bool isPlayed) {
            m_receivers.session.chooseGame(family, isPlayed);
        });
    }
}

void MainMenus::showGames() {
    const games::FamilyChoice& played = m_receivers.session.workspace().settings.games;
    const QList<QAction*> entries = menu(QStringLiteral("mnuViewGames"))->actions();
    for (std::size_t i = 0; i < played.size(); ++i) {
        entries.at(static_cast<qsizetype>(i))->setChecked(played.at(i));
    }
}

void MainMenus::popGames(QPoint at) {
    menu(QStringLiteral("mnuViewGames"))->exec(at);
}

QMenu* MainMenus::menu(const QString& name) const {
    const auto found = std::ranges::find(m_menus, name, &QMenu::objectName);
    return found == m_menus.end() ? nullptr : *found;
}

void MainMenus::buildToolbar() {
    Toolbar1 = m_window.addToolBar(tr("Toolbar"));
    Toolbar1->setObjectName(QStringLiteral("Toolbar1"));
    Toolbar1->setAccessibleName(tr("Toolbar"));
    Toolbar1->setMovable(false);
    Toolbar1->setContextMenuPolicy(Qt::PreventContextMenu);
    Toolbar1->setIconSize({IconSide, IconSide});
    for (const ToolCommand& command : ToolCommands()) {
        if (command.key == nullptr) {
            Toolbar1->addSeparator();
            continue;
        }
        const QString key = QLatin1String(command.key);
        QAction* action = Toolbar1->addAction(ToolIcon(key), tr(command.tooltip));
        action->setObjectName(key);
        connect(action, &QAction::triggered, this, [this, key, entry = QLatin1String(command.entry)] {
            Toolbar1_ButtonClick(key, entry);
        });
        QWidget* button = Toolbar1->widgetForAction(action);
        button->setObjectName(key);
        button->setAccessibleName(tr(command.tooltip));
        button->setFocusPolicy(Qt::NoFocus);
    }
    auto* rest = Toolbar1->findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"));
    rest->setAccessibleName(tr("The other buttons"));
    rest->setToolTip(rest->accessibleName());
    rest->setIcon(MoreIcon(*rest)); // the toolkit's is black in every theme
    rest->setFocusPolicy(Qt::NoFocus);
    auto* pages = new QActionGroup(this);
    for (const editing::Kind& kind : editing::Kinds) {
        auto* action = Toolbar1->findChild<QAction*>(QLatin1String(kind.toolButton));
        action->setCheckable(true);
        pages->addAction(action);
    }
    m_pageButtons = pages->actions();
}

void MainMenus::Toolbar1_ButtonClick(const QString& key, const QString& entry) {
    if (QMenu* const popped = menu(entry)) {
        const auto* button = Toolbar1->findChild<QToolButton*>(key);
        popped->exec(button->mapToGlobal(QPoint(0, button->height())));
    } else {
        m_window.findChild<QAction*>(entry)->trigger();
    }
    m_receivers.session.refresh();
}

void MainMenus::showPage(Page page) {
    const auto index = static_cast<qsizetype>(page);
    m_pageButtons.at(index)->setChecked(true);
    m_pageEntries.at(index)->setChecked(true);
}

void MainMenus::showRecentFiles() {
    for (const editing::Kind& kind : editing::Kinds) {
        const std::vector<std::string>& paths = m_receivers.session.workspace().recent.of(kind.page);
        QMenu* heading = menu(QLatin1String(kind.recentMenu));
        heading->menuAction()->setVisible(!paths.empty());
        const QList<QAction*> entries = heading->actions();
        for (qsizetype i = 0; i < entries.size(); ++i) {
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

void MainMenus::showTakingBack() {
    const auto offer = [](QAction& entry, const QString& verb, const std::string* command) {
        entry.setText(command == nullptr ? verb : verb + QLatin1Char(' ') + QString::fromStdString(*command));
        entry.setEnabled(command != nullptr);
    };
    offer(*mnuEditUndo, tr("&Undo"), m_receivers.session.history().undoCommand());
    offer(*mnuEditRedo, tr("&Redo"), m_receivers.session.history().redoCommand());
}

void MainMenus::showExchange() {
    const Exchange& exchange = m_receivers.exchange;
    const auto offer = [this](const char* entry, bool isOffered) {
        m_window.findChild<QAction*>(QLatin1String(entry))->setEnabled(isOffered);
    };
    offer("mnuEditCopyAsText", exchange.hasRow());
    menu(QStringLiteral("mnuEditCopyAsPicture"))->menuAction()->setEnabled(exchange.hasRow());
    offer("mnuFileExportName", exchange.hasName());
    offer("mnuFileExportAni", exchange.hasAnimation());
}

bool MainMenus::open(int letter) {
    for (QAction* const action : m_window.menuBar()->actions()) {
        if (QKeySequence::mnemonic(action->text()) == QKeySequence(Qt::ALT | Qt::Key(letter))) {
            m_window.menuBar()->setActiveAction(action);
            return true;
        }
    }
    return false;
}

} // namespace shell
