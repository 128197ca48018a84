// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/mdlArray.h"
#include "shell/Icons.h"
#include "shell/frmVTM.h"

#include <QAction>
#include <QActionGroup>
#include <QIcon>
#include <QMenu>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>

namespace shell {

using editing::FormatOperation;
using editing::Page;

namespace {

constexpr int IconSide = 24;

/// The row of the menus at which every kind adds its entries.
constexpr auto EachKind = "EachKind";

} // namespace

/// An entry of a menu. Without an action it is a submenu; without a caption it is a separator or EachKind.
struct frmVTM::MenuCommand {
    const char* menu; ///< objectName of the menu that it stands in; empty: the menu bar
    const char* name; ///< objectName
    const char* caption;
    void (*run)(frmVTM&);
};

/// A button of the toolbar. Its action carries the key as objectName. Without a key it is a separator.
struct frmVTM::ToolCommand {
    const char* key;
    const char* tooltip;
    const char* entry; ///< objectName of the submenu that it pops up or of the menu entry that it chooses
};

const std::array<frmVTM::MenuCommand, 43> frmVTM::MenuCommands{{
    {"", "mnuFile", "&File", nullptr},
    {"mnuFile", "mnuFileNew", "&New", nullptr},
    {"mnuFile", "mnuLoad", "&Load", nullptr},
    {"mnuFile", "mnuSave", "&Save", nullptr},
    {"mnuFile", nullptr, nullptr, nullptr},
    {"mnuFile", EachKind, nullptr, nullptr},
    {"mnuLoadName", "mnuFileLoadNameFromConfigFile", "From &Config File",
     Run<&frmVTM::mnuFileLoadNameFromConfigFile_Click>},
    {"mnuSaveName", "mnuFileSaveName_1", "To A &Config File",
     Run<&frmVTM::mnuFileSaveNameToConfigFile_Click>},
    {"mnuSaveName", "mnuFileSaveName_2", "To Clip&board", Run<&frmVTM::mnuFileSaveNameToClipboard_Click>},
    {"mnuFile", nullptr, nullptr, nullptr},
    {"mnuFile", "mnuFileExit", "E&xit", Run<&frmVTM::mnuFileExit_Click>},
    {"", "mnuEdit", "&Edit", nullptr},
    {"mnuEdit", "mnuEditCut", "Cu&t", Run<&frmVTM::mnuEditCut_Click>},
    {"mnuEdit", "mnuEditCopy", "&Copy", Run<&frmVTM::mnuEditCopy_Click>},
    {"mnuEdit", "mnuEditPaste", "&Paste", Run<&frmVTM::mnuEditPaste_Click>},
    {"mnuEdit", nullptr, nullptr, nullptr},
    {"mnuEdit", "mnuEditUndo", "&Undo", Run<&frmVTM::mnuEditUndo_Click>},
    {"mnuEdit", "mnuEditRedo", "&Redo", Run<&frmVTM::mnuEditRedo_Click>},
    {"", "mnuFormat", "F&ormat", nullptr},
    {"mnuFormat", "mnuFormatAlignLeft", "Align &Left",
     Run<&frmVTM::mnuFormat_Click, FormatOperation::AlignLeft>},
    {"mnuFormat", "mnuFormatAlignCenter", "Align &Center",
     Run<&frmVTM::mnuFormat_Click, FormatOperation::AlignCenter>},
    {"mnuFormat", "mnuFormatAlignRight", "Align &Right",
     Run<&frmVTM::mnuFormat_Click, FormatOperation::AlignRight>},
    {"mnuFormat", nullptr, nullptr, nullptr},
    {"mnuFormat", "mnuFormatUpperToLowerCase", "Upper To Lo&wer Case",
     Run<&frmVTM::mnuFormat_Click, FormatOperation::ToLowerCase>},
    {"mnuFormat", "mnuFormatLowerToUpperCase", "Lower To &Upper Case",
     Run<&frmVTM::mnuFormat_Click, FormatOperation::ToUpperCase>},
    {"mnuFormat", "mnuFormatSwitchCase", "Switch C&ase",
     Run<&frmVTM::mnuFormat_Click, FormatOperation::SwitchCase>},
    {"mnuFormat", nullptr, nullptr, nullptr},
    {"mnuFormat", "mnuFormatColor1ToColor2", "Color&1 To Color2",
     Run<&frmVTM::mnuFormat_Click, FormatOperation::Color1ToColor2>},
    {"mnuFormat", "mnuFormatColor2ToColor1", "Color&2 To Color1",
     Run<&frmVTM::mnuFormat_Click, FormatOperation::Color2ToColor1>},
    {"mnuFormat", "mnuFormatSwitchColor", "&Switch Color",
     Run<&frmVTM::mnuFormat_Click, FormatOperation::SwitchColor>},
    {"mnuFormat", nullptr, nullptr, nullptr},
    {"mnuFormat", "mnuFormatReverseCharacters", "Re&verse Character Order",
     Run<&frmVTM::mnuFormat_Click, FormatOperation::ReverseCharacters>},
    {"mnuFormat", "mnuFormatReverseNameOrder", "Reverse &Name Order",
     Run<&frmVTM::mnuFormatReverseNameOrder_Click>},
    {"", "mnuView", "&View", nullptr},
    {"", "mnuTools", "&Tools", nullptr},
    {"mnuTools", "mnuToolsAnimationWizard", "&Animation Wizard", Run<&frmVTM::mnuToolsAnimationWizard_Click>},
    {"mnuTools", "mnuToolsAnimationViewer", "&Full Screen Preview",
     Run<&frmVTM::mnuToolsAnimationViewer_Click>},
    {"mnuTools", "mnuToolsBindingWizard", "&Binding Wizard", Run<&frmVTM::mnuToolsBindingWizard_Click>},
    {"mnuTools", nullptr, nullptr, nullptr},
    {"mnuTools", "mnuToolsSettings", "&Configure", Run<&frmVTM::mnuToolsSettings_Click>},
    {"", "mnuHelpMenu", "&Help", nullptr},
    {"mnuHelpMenu", "mnuHelp", "VTM &Help", Run<&frmVTM::mnuHelp_Click>},
    {"mnuHelpMenu", "mnuAboutVTM", "&About VTM", Run<&frmVTM::mnuAboutVTM_Click>},
}};

// The page buttons are buttons 5 to 7, so a separator stands before them. The tooltips of the two colour
// buttons name the opposite of what they do, which their pictures show.
const std::array<frmVTM::ToolCommand, 31> frmVTM::ToolCommands{{
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

namespace {

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

/// What Undo calls a command: what its menu says, but for those that stand in several places.
std::string CommandName(const QMenu& menu, const QAction& entry) {
    if (menu.objectName().startsWith(QLatin1String("mnuLoad")) ||
        menu.objectName().startsWith(QLatin1String("mnuFileRecent"))) {
        return "Load";
    }
    if (menu.objectName() == QLatin1String("mnuFileNew")) {
        return "New";
    }
    return entry.objectName() == QLatin1String("mnuToolsAnimationWizard")
               ? "Wizard"
               : entry.text().remove(QLatin1Char('&')).toStdString();
}

} // namespace

QMenu* frmVTM::addMenu(QMenu* parent, const char* name, const QString& caption) {
    QMenu* added = parent == nullptr ? menuBar()->addMenu(caption) : parent->addMenu(caption);
    added->setObjectName(QLatin1String(name));
    m_menus.push_back(added);
    return added;
}

QAction*
frmVTM::addEntry(QMenu& menu, const QString& name, const QString& caption, std::function<void()> run) {
    QAction* action = menu.addAction(caption);
    action->setObjectName(name);
    connect(
        action, &QAction::triggered, this,
        [this, run = std::move(run), forgets = IsForgetful(menu), command = CommandName(menu, *action)] {
            const QScopedValueRollback running(m_command, command);
            if (forgets) {
                statusBar()->clearMessage();
            }
            run();
        });
    return action;
}

/// The entries of the File menu that a kind has.
void frmVTM::addEntriesOf(const editing::Kind& kind) {
    const Page page = kind.page;
    const QString caption = QLatin1Char('&') + tr(kind.caption);
    addEntry(
        *menu("mnuFileNew"), QLatin1String(kind.newEntry), caption, [this, page] { mnuNew_Click(page); });
    addEntry(
        *addMenu(menu("mnuLoad"), kind.loadMenu, caption), QLatin1String(kind.loadEntry),
        tr("From &Script File"), [this, page] { mnuLoad_Click(page); });
    addEntry(
        *addMenu(menu("mnuSave"), kind.saveMenu, caption), QLatin1String(kind.saveEntry),
        tr("To &Script File"), [this, page] { mnuSave_Click(page); });
    QMenu* const recent = addMenu(menu("mnuFile"), kind.recentMenu, tr(kind.recentCaption));
    for (int i = 0; i < static_cast<int>(MaxRecentFiles); ++i) {
        addEntry(
            *recent, Numbered(kind.recentEntry, i), {}, [this, page, i] { mnuRecentFiles_Click(page, i); });
    }
}

void frmVTM::buildMenus() {
    for (const MenuCommand& entry : MenuCommands) {
        QMenu* parent = *entry.menu == '\0' ? nullptr : menu(entry.menu);
        if (QLatin1String(entry.name) == QLatin1String(EachKind)) {
            std::ranges::for_each(editing::Kinds, [this](const editing::Kind& kind) { addEntriesOf(kind); });
        } else if (entry.caption == nullptr) {
            parent->addSeparator();
        } else if (entry.run == nullptr) {
            addMenu(parent, entry.name, tr(entry.caption));
        } else {
            addEntry(*parent, QLatin1String(entry.name), tr(entry.caption), [this, run = entry.run] {
                run(*this);
            });
        }
    }
    // No key with Ctrl is free: they type.
    mnuEditUndo = findChild<QAction*>(QStringLiteral("mnuEditUndo"));
    mnuEditUndo->setShortcut(Qt::ALT | Qt::Key_Backspace);
    mnuEditRedo = findChild<QAction*>(QStringLiteral("mnuEditRedo"));
    mnuEditRedo->setShortcut(Qt::ALT | Qt::SHIFT | Qt::Key_Backspace);
    auto* pages = new QActionGroup(this);
    for (const editing::Kind& kind : editing::Kinds) {
        QAction* action = addEntry(
            *menu("mnuView"), Numbered("mnuView", static_cast<int>(kind.page)),
            QLatin1Char('&') + tr(kind.caption), [this, page = kind.page] { mnuView_Click(page); });
        action->setCheckable(true);
        pages->addAction(action);
    }
}

QMenu* frmVTM::menu(const char* name) const {
    const auto found = std::find_if(m_menus.begin(), m_menus.end(), [name](const QMenu* m) {
        return m->objectName() == QLatin1String(name);
    });
    return found == m_menus.end() ? nullptr : *found;
}

void frmVTM::buildToolbar() {
    Toolbar1 = addToolBar(tr("Toolbar"));
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
        connect(action, &QAction::triggered, this, [this, key] { Toolbar1_ButtonClick(key); });
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
    m_pageActions = pages->actions();
}

void frmVTM::Toolbar1_ButtonClick(const QString& key) {
    const auto* command =
        std::find_if(ToolCommands.begin(), ToolCommands.end(), [&key](const ToolCommand& c) {
            return c.key != nullptr && key == QLatin1String(c.key);
        });
    if (command != ToolCommands.end()) {
        if (QMenu* const popped = menu(command->entry); popped != nullptr) {
            const auto* button = Toolbar1->findChild<QToolButton*>(key);
            popped->exec(button->mapToGlobal(QPoint(0, button->height())));
        } else {
            findChild<QAction*>(QLatin1String(command->entry))->trigger();
        }
    }
    Refresh();
}

} // namespace shell
