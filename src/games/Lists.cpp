// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "games/Lists.h"

#include <vector>

namespace games {

std::string ListText(std::span<const std::string_view> names) {
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const bool isLast = i + 1 == names.size();
        text += i == 0 ? "" : isLast ? " and " : ", ";
        text += names[i];
    }
    return text;
}

std::string NumbersText(std::span<const int> numbers) {
    std::vector<std::string> parts;
    for (std::size_t first = 0; first < numbers.size();) {
        std::size_t last = first;
        while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1) {
            ++last;
        }
        if (last < first + 2) {
            last = first;
        }
        parts.push_back(
            std::to_string(numbers[first]) + (last == first ? "" : " to " + std::to_string(numbers[last])));
        first = last + 1;
    }
    const std::vector<std::string_view> names(parts.begin(), parts.end());
    return ListText(names);
}

} // namespace games
