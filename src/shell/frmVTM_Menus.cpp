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

} // namespace

/// An entry of a menu. Without an action it is a submenu; without a caption it is a separator.
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

const std::array<frmVTM::MenuCommand, 75> frmVTM::MenuCommands{{
    {"", "mnuFile", "&File", nullptr},
    {"mnuFile", "mnuFileNew", "&New", nullptr},
    {"mnuFileNew", "mnuNewName", "&Name", Run<&frmVTM::mnuNew_Click, Page::Name>},
    {"mnuFileNew", "mnuNewAni", "&Animation", Run<&frmVTM::mnuNew_Click, Page::Animation>},
    {"mnuFileNew", "mnuNewMessages", "&Messages", Run<&frmVTM::mnuNew_Click, Page::Messages>},
    {"mnuFile", "mnuLoad", "&Load", nullptr},
    {"mnuLoad", "mnuLoadName", "&Name", nullptr},
    {"mnuLoadName", "mnuFileLoadNameFromScriptFile", "From &Script File",
     Run<&frmVTM::mnuLoad_Click, Page::Name>},
    {"mnuLoadName", "mnuFileLoadNameFromConfigFile", "From &Config File",
     Run<&frmVTM::mnuFileLoadNameFromConfigFile_Click>},
    {"mnuLoad", "mnuLoadAni", "&Animation", nullptr},
    {"mnuLoadAni", "mnuFileLoadAniFromScriptFile", "From &Script File",
     Run<&frmVTM::mnuLoad_Click, Page::Animation>},
    {"mnuLoad", "mnuLoadMessages", "&Messages", nullptr},
    {"mnuLoadMessages", "mnuFileLoadMessagesFromScriptFile", "From &Script File",
     Run<&frmVTM::mnuLoad_Click, Page::Messages>},
    {"mnuFile", "mnuSave", "&Save", nullptr},
    {"mnuSave", "mnuSaveName", "&Name", nullptr},
    {"mnuSaveName", "mnuFileSaveName_0", "To &Script File", Run<&frmVTM::mnuSave_Click, Page::Name>},
    {"mnuSaveName", "mnuFileSaveName_1", "To A &Config File",
     Run<&frmVTM::mnuFileSaveNameToConfigFile_Click>},
    {"mnuSaveName", "mnuFileSaveName_2", "To Clip&board", Run<&frmVTM::mnuFileSaveNameToClipboard_Click>},
    {"mnuSave", "mnuSaveAni", "&Animation", nullptr},
    {"mnuSaveAni", "mnuFileSaveAni_0", "To &Script File", Run<&frmVTM::mnuSave_Click, Page::Animation>},
    {"mnuSave", "mnuSaveMessages", "&Messages", nullptr},
    {"mnuSaveMessages", "mnuFileSaveMessage", "To &Script File", Run<&frmVTM::mnuSave_Click, Page::Messages>},
    {"mnuFile", nullptr, nullptr, nullptr},
    {"mnuFile", "mnuFileRecentName", "&Recent Name", nullptr},
    {"mnuFileRecentName", "mnuRecentNameFiles_0", "", Run<&frmVTM::mnuRecentFiles_Click, Page::Name, 0>},
    {"mnuFileRecentName", "mnuRecentNameFiles_1", "", Run<&frmVTM::mnuRecentFiles_Click, Page::Name, 1>},
    {"mnuFileRecentName", "mnuRecentNameFiles_2", "", Run<&frmVTM::mnuRecentFiles_Click, Page::Name, 2>},
    {"mnuFileRecentName", "mnuRecentNameFiles_3", "", Run<&frmVTM::mnuRecentFiles_Click, Page::Name, 3>},
    {"mnuFile", "mnuFileRecentAni", "Recent &Animation", nullptr},
    {"mnuFileRecentAni", "mnuRecentAniFiles_0", "", Run<&frmVTM::mnuRecentFiles_Click, Page::Animation, 0>},
    {"mnuFileRecentAni", "mnuRecentAniFiles_1", "", Run<&frmVTM::mnuRecentFiles_Click, Page::Animation, 1>},
    {"mnuFileRecentAni", "mnuRecentAniFiles_2", "", Run<&frmVTM::mnuRecentFiles_Click, Page::Animation, 2>},
    {"mnuFileRecentAni", "mnuRecentAniFiles_3", "", Run<&frmVTM::mnuRecentFiles_Click, Page::Animation, 3>},
    {"mnuFile", "mnuFileRecentMacro", "Recent &Macro", nullptr},
    {"mnuFileRecentMacro", "mnuRecentMacroFiles_0", "",
     Run<&frmVTM::mnuRecentFiles_Click, Page::Messages, 0>},
    {"mnuFileRecentMacro", "mnuRecentMacroFiles_1", "",
     Run<&frmVTM::mnuRecentFiles_Click, Page::Messages, 1>},
    {"mnuFileRecentMacro", "mnuRecentMacroFiles_2", "",
     Run<&frmVTM::mnuRecentFiles_Click, Page::Messages, 2>},
    {"mnuFileRecentMacro", "mnuRecentMacroFiles_3", "",
     Run<&frmVTM::mnuRecentFiles_Click, Page::Messages, 3>},
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
    {"mnuView", "mnuView_0", "&Name", Run<&frmVTM::mnuView_Click, 0>},
    {"mnuView", "mnuView_1", "&Animation", Run<&frmVTM::mnuView_Click, 1>},
    {"mnuView", "mnuView_2", "&Messages", Run<&frmVTM::mnuView_Click, 2>},
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

void frmVTM::buildMenus() {
    for (const MenuCommand& entry : MenuCommands) {
        QMenu* parent = *entry.menu == '\0' ? nullptr : menu(entry.menu);
        if (entry.caption == nullptr) {
            parent->addSeparator();
        } else if (entry.run == nullptr) {
            QMenu* submenu = parent == nullptr ? menuBar()->addMenu(tr(entry.caption))
                                               : parent->addMenu(tr(entry.caption));
            submenu->setObjectName(QLatin1String(entry.name));
            m_menus.push_back(submenu);
        } else {
            QAction* action = parent->addAction(tr(entry.caption));
            action->setObjectName(QLatin1String(entry.name));
            connect(
                action, &QAction::triggered, this,
                [this, run = entry.run, forgets = IsForgetful(*parent),
                 name = CommandName(*parent, *action)] {
                    const QScopedValueRollback running(m_command, name);
                    if (forgets) {
                        statusBar()->clearMessage();
                    }
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
    for (QAction* action : menu("mnuView")->actions()) {
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
    for (const char* key : {"sname", "sani", "smess"}) {
        auto* action = Toolbar1->findChild<QAction*>(QLatin1String(key));
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
