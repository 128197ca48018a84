// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"
#include "ui/Platform.h"

#include <iosfwd>
#include <span>
#include <string>

namespace thumbnail {

/// What the command works with.
struct Surroundings {
    ui::Files& files;
    const ui::ProgramDirectory& directory; ///< used unless the user names another
    std::ostream& output;
    std::ostream& errors;
};

/// Runs vtm-thumbnail with its arguments (without the program's name); the exit code.
[[nodiscard]] int RunCommand(std::span<const std::string> arguments, const Surroundings& surroundings);

} // namespace thumbnail
