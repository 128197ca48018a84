// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"

#include <string>
#include <vector>

namespace support {

/// How a program that was run to its end went.
struct ToolRun {
    int exitCode = -1;
    std::string errors; ///< what it wrote to the standard error output
};

/// Runs a program with arguments that hold no single quotes. `before`: commands of the shell that it is
/// started from, each ended by a semicolon.
[[nodiscard]] ToolRun RunProgram(
    const ui::Path& program, const std::vector<std::string>& arguments, const std::string& before = {});

/// The whole content of a file; fails the test when there is none.
[[nodiscard]] std::string FileContent(const ui::Path& path);

} // namespace support
