// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/MainMenus.h"

#include "shell/Icons.h"

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
#include <type_traits>
#include <utility>

namespace shell {

using editing::FormatOperation;
using editing::Page;

namespace {

constexpr int IconSide = 24;

/// How much of a path a menu shows, in average characters; the middle of a longer one is left out.
constexpr int RecentPathLength = 70;

/// The row of the menus at which every kind adds its entries.
constexpr auto EachKind = "EachKind";

/// Runs a command with its arguments, at whichever receiver it is a command of.
template <auto Handler, auto... Arguments>
void Run(const MenuReceivers& receivers) {
    if constexpr (std::is_invocable_v<decltype(Handler), Commands&, decltype(Arguments)...>) {
        (receivers.commands.*Handler)(Arguments...);
    } else if constexpr (std::is_invocable_v<decltype(Handler), FileCommands&, decltype(Arguments)...>) {
        (receivers.files.*Handler)(Arguments...);
    } else {
        (receivers.session.*Handler)(Arguments...);
    }
}

/// An entry of a menu. Without an action it is a submenu; without a caption it is a separator or EachKind.
struct MenuCommand {
    const char* menu; ///< objectName of the menu that it stands in; empty: the menu bar
    const char* name; ///< objectName
    const char* caption;
    void (*run)(const MenuReceivers&);
    const char* command = nullptr; ///< what Undo calls it; null: as its caption does
};

/// A button of the toolbar. Its action carries the key as objectName. Without a key it is a separator.
struct ToolCommand {
    const char* key;
    const char* tooltip;
    const char* entry; ///< objectName of the submenu that it pops up or of the menu entry that it chooses
};

constexpr std::array<MenuCommand, 43> MenuCommands{{
    {"", "mnuFile", "&File", nullptr},
    {"mnuFile", "mnuFileNew", "&New", nullptr},
    {"mnuFile", "mnuLoad", "&Load", nullptr},
    {"mnuFile", "mnuSave", "&Save", nullptr},
    {"mnuFile", nullptr, nullptr, nullptr},
    {"mnuFile", EachKind, nullptr, nullptr},
    {"mnuLoadName", "mnuFileLoadNameFromConfigFile", "From &Config File",
     Run<&FileCommands::loadNameFromConfig>, "Load"},
    {"mnuSaveName", "mnuFileSaveName_1", "To A &Config File", Run<&FileCommands::saveNameToConfig>},
    {"mnuSaveName", "mnuFileSaveName_2", "To Clip&board", Run<&FileCommands::copyNameToClipboard>},
    {"mnuFile", nullptr, nullptr, nullptr},
    {"mnuFile", "mnuFileExit", "E&xit", Run<&Commands::mnuFileExit_Click>},
    {"", "mnuEdit", "&Edit", nullptr},
    {"mnuEdit", "mnuEditCut", "Cu&t", Run<&Commands::mnuEditCut_Click>},
    {"mnuEdit", "mnuEditCopy", "&Copy", Run<&Commands::mnuEditCopy_Click>},
    {"mnuEdit", "mnuEditPaste", "&Paste", Run<&Commands::mnuEditPaste_Click>},
    {"mnuEdit", nullptr, nullptr, nullptr},
    {"mnuEdit", "mnuEditUndo", "&Undo", Run<&Session::undo>},
    {"mnuEdit", "mnuEditRedo", "&Redo", Run<&Session::redo>},
    {"", "mnuFormat", "F&ormat", nullptr},
    {"mnuFormat", "mnuFormatAlignLeft", "Align &Left",
     Run<&Commands::mnuFormat_Click, FormatOperation::AlignLeft>},
    {"mnuFormat", "mnuFormatAlignCenter", "Align &Center",
     Run<&Commands::mnuFormat_Click, FormatOperation::AlignCenter>},
    {"mnuFormat", "mnuFormatAlignRight", "Align &Right",
     Run<&Commands::mnuFormat_Click, FormatOperation::AlignRight>},
    {"mnuFormat", nullptr, nullptr, nullptr},
    {"mnuFormat", "mnuFormatUpperToLowerCase", "Upper To Lo&wer Case",
     Run<&Commands::mnuFormat_Click, FormatOperation::ToLowerCase>},
    {"mnuFormat", "mnuFormatLowerToUpperCase", "Lower To &Upper Case",
     Run<&Commands::mnuFormat_Click, FormatOperation::ToUpperCase>},
    {"mnuFormat", "mnuFormatSwitchCase", "Switch C&ase",
     Run<&Commands::mnuFormat_Click, FormatOperation::SwitchCase>},
    {"mnuFormat", nullptr, nullptr, nullptr},
    {"mnuFormat", "mnuFormatColor1ToColor2", "Color&1 To Color2",
     Run<&Commands::mnuFormat_Click, FormatOperation::Color1ToColor2>},
    {"mnuFormat", "mnuFormatColor2ToColor1", "Color&2 To Color1",
     Run<&Commands::mnuFormat_Click, FormatOperation::Color2ToColor1>},
    {"mnuFormat", "mnuFormatSwitchColor", "&Switch Color",
     Run<&Commands::mnuFormat_Click, FormatOperation::SwitchColor>},
    {"mnuFormat", nullptr, nullptr, nullptr},
    {"mnuFormat", "mnuFormatReverseCharacters", "Re&verse Character Order",
     Run<&Commands::mnuFormat_Click, FormatOperation::ReverseCharacters>},
    {"mnuFormat", "mnuFormatReverseNameOrder", "Reverse &Name Order",
     Run<&Commands::mnuFormatReverseNameOrder_Click>},
    {"", "mnuView", "&View", nullptr},
    {"", "mnuTools", "&Tools", nullptr},
    {"mnuTools", "mnuToolsAnimationWizard", "&Animation Wizard",
     Run<&Commands::mnuToolsAnimationWizard_Click>, "Wizard"},
    {"mnuTools", "mnuToolsAnimationViewer", "&Full Screen Preview",
     Run<&Commands::mnuToolsAnimationViewer_Click>},
    {"mnuTools", "mnuToolsBindingWizard", "&Binding Wizard", Run<&Commands::mnuToolsBindingWizard_Click>},
    {"mnuTools", nullptr, nullptr, nullptr},
    {"mnuTools", "mnuToolsSettings", "&Configure", Run<&Commands::mnuToolsSettings_Click>},
    {"", "mnuHelpMenu", "&Help", nullptr},
    {"mnuHelpMenu", "mnuHelp", "VTM &Help", Run<&Commands::mnuHelp_Click>},
    {"mnuHelpMenu", "mnuAboutVTM", "&About VTM", Run<&Commands::mnuAboutVTM_Click>},
}};

// The page buttons are buttons 5 to 7, so a separator stands before them. The tooltips of the two colour
// buttons name the opposite of what they do, which their pictures show.
constexpr std::array<ToolCommand, 31> ToolCommands{{
    {"fnew", "File New", "mnuFileNew"},
    {"fopen", "File Open", "mnuLoad"},
    {"fsave", "File Save", "mnuSave"},
    {nullptr, nullptr, nullptr},
    {"sname", "Switch To Name", "mnuView_0"},
    {"sani", "Switch To Animate", "mnuView_1"},
    {"smess", "Switch To Messages", "mnuView_2"},
    {nullptr, nullptr, nullptr},
    {"cut", "Cut", "mnuEditCut"},
    {"copy", "Copy", "mnuEditCopy"},
    {"paste", "Paste", "mnuEditPaste"},
    {nullptr, nullptr, nullptr},
    {"aleft", "Align Left", "mnuFormatAlignLeft"},
    {"acenter", "Align Center", "mnuFormatAlignCenter"},
    {"aright", "Align Right", "mnuFormatAlignRight"},
    {nullptr, nullptr, nullptr},
    {"lcase", "Upper To Lower Case", "mnuFormatUpperToLowerCase"},
    {"ucase", "Lower To Upper Case", "mnuFormatLowerToUpperCase"},
    {"scase", "Switch Case", "mnuFormatSwitchCase"},
    {"color1", "Color2 To Color1", "mnuFormatColor1ToColor2"},
    {"color2", "Color1 To Color2", "mnuFormatColor2ToColor1"},
    {"scolor", "Switch Color", "mnuFormatSwitchColor"},
    {"revorder", "Reverse Name Order", "mnuFormatReverseNameOrder"},
    {"revchar", "Reverse Character Order", "mnuFormatReverseCharacters"},
    {nullptr, nullptr, nullptr},
    {"wiz", "Animation Wizard", "mnuToolsAnimationWizard"},
    {"view", "Full Screen Preview", "mnuToolsAnimationViewer"},
    {nullptr, nullptr, nullptr},
    {"config", "Configure", "mnuToolsSettings"},
    {"about", "About VTM", "mnuAboutVTM"},
    {"help", "VTM Help", "mnuHelp"},
}};

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
    for (const MenuCommand& entry : MenuCommands) {
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
    for (const ToolCommand& command : ToolCommands) {
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
