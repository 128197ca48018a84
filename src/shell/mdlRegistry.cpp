// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/mdlRegistry.h"

#include "editing/Kinds.h"
#include "ui/System.h"

#include <string>

namespace shell {

std::vector<ui::FileType> FileAssociations(const ui::Path& programFolder) {
    const std::string program = ui::PathText(programFolder / ui::ProgramFile(ProgramName));
    std::vector<ui::FileType> types;
    for (const editing::Kind& kind : editing::Kinds) {
        ui::FileType type;
        type.extension = kind.extension;
        type.className = kind.className;
        type.description = kind.description;
        type.switchText = kind.commandSwitch;
        // The switch keeps its blanks and shares one pair of quotes with the path: that is what the start-up
        // looks for. The program's own path is never quoted.
        type.commandValue = program + " \"" + type.switchText + "%1\"";
        type.iconValue = program + ",0";
        type.mimeType = kind.mimeType;
        type.firstLine = "// " + std::string(kind.header);
        types.push_back(type);
    }
    return types;
}

void WriteFileAssociations(ui::FileTypes& fileTypes, const ui::Path& programFolder) {
    fileTypes.registerTypes(FileAssociations(programFolder), programFolder / ui::ProgramFile(ProgramName));
}

} // namespace shell
