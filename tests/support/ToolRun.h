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
    std::string errors; ///< what it wrote to the standard error output; its lines end with LF
};

/// Runs a program with arguments that hold no quotes.
[[nodiscard]] ToolRun RunProgram(const ui::Path& program, const std::vector<std::string>& arguments);

/// The whole content of a file; fails the test when there is none.
[[nodiscard]] std::string FileContent(const ui::Path& path);

} // namespace support
