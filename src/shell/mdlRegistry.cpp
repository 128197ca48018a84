// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/mdlRegistry.h"

#include <array>
#include <string>

namespace shell {

namespace {

struct Association {
    const char* extension;
    const char* className;
    const char* description;
    const char* switchText;
    const char* mimeType;
    const char* firstLine;
};

constexpr std::array<Association, 3> Associations{{
    {".vtn", "VTM_Name", "Quake Name Script", " /name ", "application/x-vtm-name",
     "// Name File Created by Vortigo"},
    {".vta", "VTM_Ani", "Quake Animation Script", " /animation ", "application/x-vtm-animation",
     "// Animation File Created by Vortigo"},
    {".vtm", "VTM_Macro", "Quake Message Script", " /macro ", "application/x-vtm-message",
     "// Macro File Created by Vortigo"},
}};

} // namespace

std::vector<ui::FileType> FileAssociations(const ui::Path& programFolder) {
    const std::string program = ui::PathText(programFolder / ProgramFileName);
    std::vector<ui::FileType> types;
    for (const auto& row : Associations) {
        ui::FileType type;
        type.extension = row.extension;
        type.className = row.className;
        type.description = row.description;
        type.switchText = row.switchText;
        // The switch keeps its blanks and shares one pair of quotes with the path: that is what the start-up
        // looks for. The program's own path is never quoted.
        type.commandValue = program + " \"" + row.switchText + "%1\"";
        type.iconValue = program + ",0";
        type.mimeType = row.mimeType;
        type.firstLine = row.firstLine;
        types.push_back(type);
    }
    return types;
}

void WriteFileAssociations(ui::FileTypes& fileTypes, const ui::Path& programFolder) {
    fileTypes.registerTypes(FileAssociations(programFolder), programFolder / ProgramFileName);
}

} // namespace shell
