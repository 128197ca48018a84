// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/MenuTables.h"

#include "shell/MainMenus.h"

#include <array>
#include <type_traits>

namespace shell {

using editing::FormatOperation;

namespace {

/// Runs a command with its arguments, at whichever receiver it is a command of.
template <auto Handler, auto... Arguments>
void Run(const MenuReceivers& receivers) {
    if constexpr (std::is_invocable_v<decltype(Handler), Commands&, decltype(Arguments)...>) {
        (receivers.commands.*Handler)(Arguments...);
    } else if constexpr (std::is_invocable_v<decltype(Handler), FileCommands&, decltype(Arguments)...>) {
        (receivers.files.*Handler)(Arguments...);
    } else if constexpr (std::is_invocable_v<decltype(Handler), Exchange&, decltype(Arguments)...>) {
        (receivers.exchange.*Handler)(Arguments...);
    } else {
        (receivers.session.*Handler)(Arguments...);
    }
}

constexpr std::array<MenuCommand, 53> MenuRows{{
    {"", "mnuFile", "&File", nullptr},
    {"mnuFile", "mnuFileNew", "&New", nullptr},
    {"mnuFile", "mnuLoad", "&Load", nullptr},
    {"mnuFile", "mnuSave", "&Save", nullptr},
    {"mnuFile", "mnuFileExport", "&Export", nullptr},
    {"mnuFileExport", "mnuFileExportName", "&Name As PNG", Run<&Exchange::exportName>},
    {"mnuFileExport", "mnuFileExportAni", "&Animation As GIF", Run<&Exchange::exportAnimation>},
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
    {"mnuEdit", "mnuEditCopyAsText", "C&opy As Text", Run<&Exchange::copyAsText>},
    {"mnuEdit", "mnuEditCopyAsPicture", "Copy As P&icture", nullptr},
    {"mnuEditCopyAsPicture", "mnuEditCopyAsPicture_1", "&1x", Run<&Exchange::copyAsPicture, 1>},
    {"mnuEditCopyAsPicture", "mnuEditCopyAsPicture_2", "&2x", Run<&Exchange::copyAsPicture, 2>},
    {"mnuEditCopyAsPicture", "mnuEditCopyAsPicture_4", "&4x", Run<&Exchange::copyAsPicture, 4>},
    {"mnuEdit", "mnuEditPasteText", "P&aste Text", Run<&Exchange::pasteText>},
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
constexpr std::array<ToolCommand, 31> ToolRows{{
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

} // namespace

std::span<const MenuCommand> MenuCommands() {
    return MenuRows;
}

std::span<const ToolCommand> ToolCommands() {
    return ToolRows;
}

} // namespace shell
