// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

/// The fixed texts of the room, as they are shown. Lines end with '\n'.
namespace shell::texts {

constexpr auto HelpMissingAtStart = "The file \"vtmhelp.htm\" was not found in the VTM directory.\n"
                                    "This is the help file. It is included in the zip, \"vtmhelp.zip\".\n"
                                    "Please unzip it and place the files in the VTM directory!";

constexpr auto HelpMissing = "The file \"vtmhelp.htm\" was not found in the VTM directory.\n"
                             "Either download it from the VTM website or use your internet\n"
                             "browser to locate it on your hard drive.";

constexpr auto ResetKeys = "Are you sure you wish to reset the current configuration?";

} // namespace shell::texts
