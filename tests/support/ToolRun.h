// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"

#include <string>
#include <vector>

namespace support {

/// How a program that was run to its end went. The lines of what it wrote end with LF.
struct ToolRun {
    int exitCode = -1;
    std::string output; ///< what it wrote to the standard output
    std::string errors; ///< what it wrote to the standard error output
};

/// Runs a program with arguments that hold no quotes.
[[nodiscard]] ToolRun RunProgram(const ui::Path& program, const std::vector<std::string>& arguments);

/// The whole content of a file; fails the test when there is none.
[[nodiscard]] std::string FileContent(const ui::Path& path);

} // namespace support
