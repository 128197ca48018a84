// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "cli/Arguments.h"

#include <algorithm>
#include <charconv>

namespace cli {

std::optional<std::string> Arguments::value(std::string_view option) const {
    const auto found = options.find(option);
    return found == options.end() ? std::nullopt : std::optional(found->second);
}

ui::Result<Arguments> ParseArguments(std::span<const std::string> arguments, std::span<const Option> known) {
    Arguments parsed;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--") {
            const auto rest = arguments.subspan(i + 1);
            parsed.words.insert(parsed.words.end(), rest.begin(), rest.end());
            break;
        }
        if (argument.size() < 2 || argument.front() != '-') {
            parsed.words.push_back(argument);
            continue;
        }
        const std::size_t equals = argument.find('=');
        const std::string name = argument == "-h" ? "--help" : argument.substr(0, equals);
        const auto option = std::ranges::find(known, name, &Option::name);
        if (option == known.end()) {
            return ui::Failure{"unknown option \"" + name + "\""};
        }
        std::string value;
        if (equals != std::string::npos) {
            if (!option->takesValue) {
                return ui::Failure{"the option \"" + name + "\" takes no value"};
            }
            value = argument.substr(equals + 1);
        } else if (option->takesValue) {
            if (i + 1 == arguments.size()) {
                return ui::Failure{"the option \"" + name + "\" needs a value"};
            }
            value = arguments[++i];
        }
        if (!parsed.options.emplace(name, value).second) {
            return ui::Failure{"the option \"" + name + "\" is given twice"};
        }
    }
    return parsed;
}

std::optional<int> NumberIn(std::string_view word, int low, int high) {
    int number = 0;
    const char* end = word.data() + word.size();
    const auto [next, error] = std::from_chars(word.data(), end, number);
    const bool fits = error == std::errc() && next == end && number >= low && number <= high;
    return fits ? std::optional(number) : std::nullopt;
}

} // namespace cli
