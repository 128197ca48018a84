// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/SettingText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace shell {

namespace {

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool EqualsIgnoringCase(std::string_view text, std::string_view lower) {
    return std::equal(text.begin(), text.end(), lower.begin(), lower.end(), [](char given, char wanted) {
        return (given >= 'A' && given <= 'Z' ? static_cast<char>(given - 'A' + 'a') : given) == wanted;
    });
}

/// The number in a text, not rounded. from_chars never looks at the locale.
std::optional<double> RealNumberOf(std::string_view text) {
    text = Trimmed(text);
    if (text.starts_with('+')) {
        text.remove_prefix(1);
        if (text.starts_with('-')) {
            return std::nullopt;
        }
    }
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size() || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

template <class Number>
std::optional<Number> WholeNumberOf(std::string_view text) {
    const auto real = RealNumberOf(text);
    if (!real) {
        return std::nullopt;
    }
    // A half goes to the even neighbour.
    const double whole = std::nearbyint(*real);
    if (whole < std::numeric_limits<Number>::min() || whole > std::numeric_limits<Number>::max()) {
        return std::nullopt;
    }
    return static_cast<Number>(whole);
}

} // namespace

std::optional<bool> BooleanOf(std::string_view text) {
    const std::string_view word = Trimmed(text);
    if (EqualsIgnoringCase(word, "true")) {
        return true;
    }
    if (EqualsIgnoringCase(word, "false")) {
        return false;
    }
    const auto number = RealNumberOf(word);
    if (!number) {
        return std::nullopt;
    }
    return *number != 0;
}

std::optional<std::int32_t> NumberOf(std::string_view text) {
    return WholeNumberOf<std::int32_t>(text);
}

std::optional<std::int16_t> ShortNumberOf(std::string_view text) {
    return WholeNumberOf<std::int16_t>(text);
}

std::string TextOf(bool value) {
    return value ? "True" : "False";
}

} // namespace shell
