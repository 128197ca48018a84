// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "shell/Commands.h"
#include "shell/Exchange.h"
#include "shell/FileCommands.h"

#include <QList>
#include <QObject>
#include <functional>
#include <vector>

class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

namespace shell {

/// Those who carry out what a menu entry stands for.
struct MenuReceivers {
    Session& session;
    FileCommands& files;
    Commands& commands;
    Exchange& exchange;
};

/// The menu bar and the toolbar of the main window.
class MainMenus final : public QObject {
    Q_OBJECT

public:
    /// Puts both into the window. The receivers are borrowed and outlive the object.
    MainMenus(QMainWindow& window, const MenuReceivers& receivers);

    /// Marks the page in view.
    void showPage(editing::Page page);

    /// The menus of recent files show the workspace's.
    void showRecentFiles();

    /// Says what Undo and Redo would do.
    void showTakingBack();

    /// Offers what can be done with what is on the pages.
    void showExchange();

    /// Marks the games that are played.
    void showGames();

    /// Marks what was chosen in the View menu but for pages and games.
    void showViewChoices();

    /// Lets the user choose the games, at a point of the screen.
    void popGames(QPoint at);

    /// Opens the menu of a Latin letter, typed with Alt on a keyboard that has none; false when it has none.
    bool open(int letter);

    [[nodiscard]] QToolBar& toolbar() const { return *Toolbar1; }

private:
    void buildMenus();
    void addGames();
    void addReadout();
    void addZooms();
    void buildToolbar();
    QMenu* addMenu(QMenu* parent, const char* name, const QString& caption);
    /// `command` is what Undo calls it; null: as its caption does.
    QAction* addEntry(
        QMenu& menu, const QString& name, const QString& caption, const char* command,
        std::function<void()> run);
    void addEntriesOf(const editing::Kind& kind);
    /// The menu of that name, or nullptr.
    [[nodiscard]] QMenu* menu(const QString& name) const;
    void Toolbar1_ButtonClick(const QString& key, const QString& entry);

    QMainWindow& m_window;
    MenuReceivers m_receivers;
    std::vector<QMenu*> m_menus;
    QList<QAction*> m_pageEntries; ///< of the View menu
    QList<QAction*> m_pageButtons; ///< of the toolbar
    QAction* mnuEditUndo = nullptr;
    QAction* mnuEditRedo = nullptr;
    QAction* mnuViewReadout = nullptr;
    QToolBar* Toolbar1 = nullptr;
};

} // namespace shell
