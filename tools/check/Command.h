// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"

#include <iosfwd>
#include <span>
#include <string>

namespace check {

constexpr int AllArrives = 0;
constexpr int SomethingIsLost = 1; ///< in one of the games that were asked for
constexpr int NotJudged = 2;       ///< wrong usage, or a file that cannot be read

/// What the command works with.
struct Surroundings {
    const ui::Files& files;
    std::ostream& output;
    std::ostream& errors;
};

/// Runs vtm-check with its arguments (without the program's name); the exit code.
[[nodiscard]] int RunCommand(std::span<const std::string> arguments, const Surroundings& surroundings);

} // namespace check
