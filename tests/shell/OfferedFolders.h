// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "shell/GamePlaces.h"
#include "shell/Workspace.h"
#include "support/TempProgramDirectory.h"

#include <string>

/// The folders to offer, one a line, within a folder; with slashes.
inline std::string FoldersIn(const support::TempFolder& home, const shell::Workspace& workspace) {
    std::string names;
    for (const ui::NamedFolder& folder : shell::GameFolders(workspace)) {
        const ui::Path within = folder.path.lexically_relative(home.path());
        if (!within.empty() && *within.begin() != "..") {
            names += folder.name + " " + within.generic_string() + "\n";
        }
    }
    return names;
}
