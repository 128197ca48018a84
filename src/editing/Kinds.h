// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Documents.h"
#include "editing/FormatSettings.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace editing {

/// What tells one kind of document from another, as plain data. The table lies in the lowest room that reads
/// a part of it.
struct Kind {
    Page page;
    const char* caption;     ///< of its tab and, with '&' before it, of its menu entries
    const char* windowTitle; ///< while its page is in view

    // Formatting all its rows; empty and null where it has only one
    const char* formatQuestion;
    bool FormatSettings::*asksBeforeFormat; ///< whether the question is asked; all are formatted where not

    // Its scripts and the dialogs that ask for them
    std::string_view header; ///< what the first line of a script holds, behind "// "
    const char* extension;   ///< with its dot
    const char* filter;      ///< the text of the file dialogs' type, without the patterns
    const char* saveTitle;   ///< of the save dialog; empty: the platform's own
    bool savesInFolder; ///< whether the save dialog starts in the program's folder, or where the last ended
    bool opensInFolder; ///< the same of the open dialog
    bool tellsFailuresInStatusLine; ///< there alone, that a file cannot be opened or written; else in a box
    bool showsPageWhenSaved;        ///< whether its page comes into view once the save dialog is accepted
    bool offersBinding;             ///< whether the binding wizard is offered after a save

    // The start of the program
    std::string_view commandSwitch; ///< between blanks: the command line with it loads a script
    Page shownAfterSwitch;          ///< the page in view then
    const char* introFile;          ///< loaded from the program's folder when nothing is asked for

    // The desktop's file type
    const char* className;
    const char* description;
    const char* mimeType;

    // Names of controls (objectName)
    const char* newEntry;
    const char* loadMenu;
    const char* loadEntry;
    const char* saveMenu;
    const char* saveEntry;
    const char* recentMenu;
    const char* recentCaption;
    const char* recentEntry; ///< of the entries, without '_' and their number from 0
    const char* toolButton;  ///< shows the page

    // The settings store
    const char* recentSection; ///< holds the recent files
    std::size_t markerColour;  ///< place of the cursor marker's colour among the colours
    std::size_t pointer;       ///< place of the picture's mouse pointer among the pointers
};

/// One row a kind, in the order of Page.
inline constexpr std::array Kinds{
    Kind{
        .page = Page::Name,
        .caption = "Name",
        .windowTitle = "Vortigo [Name]",
        .formatQuestion = "",
        .asksBeforeFormat = nullptr,
        .header = "Name File Created by Vortigo",
        .extension = ".vtn",
        .filter = "VTM Name Script",
        .saveTitle = "Save as a Script File",
        .savesInFolder = true,
        .opensInFolder = false,
        .tellsFailuresInStatusLine = false,
        .showsPageWhenSaved = false,
        .offersBinding = true,
        .commandSwitch = " /name ",
        .shownAfterSwitch = Page::Animation, // another page on purpose
        .introFile = "intro.vtn",
        .className = "VTM_Name",
        .description = "Quake Name Script",
        .mimeType = "application/x-vtm-name",
        .newEntry = "mnuNewName",
        .loadMenu = "mnuLoadName",
        .loadEntry = "mnuFileLoadNameFromScriptFile",
        .saveMenu = "mnuSaveName",
        .saveEntry = "mnuFileSaveName_0",
        .recentMenu = "mnuFileRecentName",
        .recentCaption = "&Recent Name",
        .recentEntry = "mnuRecentNameFiles",
        .toolButton = "sname",
        .recentSection = "NameFiles",
        .markerColour = 2,
        .pointer = 1,
    },
    Kind{
        .page = Page::Animation,
        .caption = "Animation",
        .windowTitle = "Vortigo [Animation]",
        .formatQuestion = "Do you wish to format all names?",
        .asksBeforeFormat = &FormatSettings::asksForNames,
        .header = "Animation File Created by Vortigo",
        .extension = ".vta",
        .filter = "VTM Animation Script",
        .saveTitle = "",
        .savesInFolder = true,
        .opensInFolder = true,
        .tellsFailuresInStatusLine = true,
        .showsPageWhenSaved = true,
        .offersBinding = true,
        .commandSwitch = " /animation ",
        .shownAfterSwitch = Page::Name, // another page on purpose
        .introFile = "intro.vta",
        .className = "VTM_Ani",
        .description = "Quake Animation Script",
        .mimeType = "application/x-vtm-animation",
        .newEntry = "mnuNewAni",
        .loadMenu = "mnuLoadAni",
        .loadEntry = "mnuFileLoadAniFromScriptFile",
        .saveMenu = "mnuSaveAni",
        .saveEntry = "mnuFileSaveAni_0",
        .recentMenu = "mnuFileRecentAni",
        .recentCaption = "Recent &Animation",
        .recentEntry = "mnuRecentAniFiles",
        .toolButton = "sani",
        .recentSection = "AnimFiles",
        .markerColour = 3,
        .pointer = 2,
    },
    Kind{
        .page = Page::Messages,
        .caption = "Messages",
        .windowTitle = "Vortigo [Messages]",
        .formatQuestion = "Do you wish to format all macros?",
        .asksBeforeFormat = &FormatSettings::asksForMessages,
        .header = "Macro File Created by Vortigo",
        .extension = ".vtm",
        .filter = "VTM Macro Script",
        .saveTitle = "Save as a Script File",
        .savesInFolder = false,
        .opensInFolder = false,
        .tellsFailuresInStatusLine = false,
        .showsPageWhenSaved = false,
        .offersBinding = false,
        .commandSwitch = " /macro ",
        .shownAfterSwitch = Page::Messages,
        .introFile = "intro.vtm",
        .className = "VTM_Macro",
        .description = "Quake Message Script",
        .mimeType = "application/x-vtm-message",
        .newEntry = "mnuNewMessages",
        .loadMenu = "mnuLoadMessages",
        .loadEntry = "mnuFileLoadMessagesFromScriptFile",
        .saveMenu = "mnuSaveMessages",
        .saveEntry = "mnuFileSaveMessage",
        .recentMenu = "mnuFileRecentMacro",
        .recentCaption = "Recent &Macro",
        .recentEntry = "mnuRecentMacroFiles",
        .toolButton = "smess",
        .recentSection = "MacroFiles",
        .markerColour = 4,
        .pointer = 3,
    },
};

/// The kinds in the order in which the command line is searched for their switches and intro files are
/// loaded.
inline constexpr std::array StartOrder{Page::Animation, Page::Name, Page::Messages};
static_assert(StartOrder.size() == Kinds.size());

/// The row of a page's kind.
[[nodiscard]] constexpr const Kind& KindOf(Page page) {
    return Kinds.at(static_cast<std::size_t>(page));
}

} // namespace editing
