// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Result.h"

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace cli {

constexpr int Succeeded = 0;
constexpr int Failed = 1; ///< refused or gone wrong: the reason was printed
constexpr int WrongUsage = 2;

/// A command line taken apart.
struct Arguments {
    std::map<std::string, std::string, std::less<>> options; ///< by name with its dashes
    std::vector<std::string> words;                          ///< what is no option, in order

    [[nodiscard]] bool has(std::string_view option) const { return options.find(option) != options.end(); }

    /// The option's value; nothing when it was not given.
    [[nodiscard]] std::optional<std::string> value(std::string_view option) const;
};

/// An option that a program knows.
struct Option {
    std::string_view name; ///< with its dashes
    bool takesValue = false;
};

/// Takes the arguments (without the program's name) apart: "--name VALUE" or "--name=VALUE"; "--" ends the
/// options, "-h" stands for "--help". Fails on an unknown option, one that is given twice, and a value that
/// is missing or too much.
[[nodiscard]] ui::Result<Arguments>
ParseArguments(std::span<const std::string> arguments, std::span<const Option> known);

/// The whole word as a decimal number from `low` to `high`.
[[nodiscard]] std::optional<int> NumberIn(std::string_view word, int low, int high);

} // namespace cli
