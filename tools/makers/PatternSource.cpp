// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "makers/PatternSource.h"

#include "makers/SourceText.h"

#include <algorithm>
#include <string_view>

namespace makers {

namespace {

constexpr std::size_t MaxTitle = 50;

// A cell's value is the index of its character.
constexpr std::string_view PositionCells = ".123456789ABCDEF";
constexpr std::string_view MarkCells = ".#";

constexpr std::string_view TitleMark = "pattern ";

void checkTitle(const std::string& file, int line, const std::string& title) {
    if (title.empty() || title.size() > MaxTitle) {
        Refuse(file, line, "a title has 1 to " + std::to_string(MaxTitle) + " characters");
    }
    for (const char character : title) {
        if (character < ' ' || character > '~' || character == '"') {
            Refuse(file, line, "a title holds ASCII characters without double quotes");
        }
    }
}

PatternRow parseRow(const std::string& file, int line, const std::string& text, std::string_view cells) {
    if (text.size() != PatternPositions) {
        Refuse(
            file, line,
            "a row has " + std::to_string(PatternPositions) + " cells, not " + std::to_string(text.size()));
    }
    PatternRow row = {};
    for (std::size_t at = 0; at < PatternPositions; ++at) {
        const std::size_t value = cells.find(text[at]);
        if (value == std::string_view::npos) {
            Refuse(file, line, "cell " + std::to_string(at + 1) + " is none of " + std::string(cells));
        }
        row[at] = static_cast<int>(value);
    }
    return row;
}

void checkWhole(const std::string& file, const Pattern& pattern) {
    if (pattern.rows.size() != PatternSteps) {
        Refuse(
            file, pattern.line,
            "\"" + pattern.title + "\" has " + std::to_string(pattern.rows.size()) + " rows, not " +
                std::to_string(PatternSteps));
    }
    const bool blank = std::all_of(pattern.rows.begin(), pattern.rows.end(), [](const auto& row) {
        return std::all_of(row.begin(), row.end(), [](int cell) { return cell == 0; });
    });
    if (blank) {
        Refuse(file, pattern.line, "\"" + pattern.title + "\" is blank throughout");
    }
}

void checkDistinct(const std::string& file, const std::vector<Pattern>& patterns) {
    for (std::size_t later = 1; later < patterns.size(); ++later) {
        for (std::size_t earlier = 0; earlier < later; ++earlier) {
            if (patterns[later].title == patterns[earlier].title) {
                Refuse(file, patterns[later].line, "\"" + patterns[later].title + "\" is there twice");
            }
            if (patterns[later].rows == patterns[earlier].rows) {
                Refuse(
                    file, patterns[later].line,
                    "\"" + patterns[later].title + "\" equals \"" + patterns[earlier].title + "\"");
            }
        }
    }
}

} // namespace

PatternSource ReadPatterns(const std::string& file) {
    PatternSource source;
    std::vector<Pattern>& patterns = source.patterns;
    std::string_view cells;
    for (const auto& [line, text] : ReadSource(file)) {
        if (cells.empty()) {
            if (text != "positions" && text != "marks") {
                Refuse(file, line, "expected \"positions\" or \"marks\" before the first pattern");
            }
            source.arePositions = text == "positions";
            cells = source.arePositions ? PositionCells : MarkCells;
        } else if (text.starts_with(TitleMark) || text == "pattern") {
            if (!patterns.empty()) {
                checkWhole(file, patterns.back());
            }
            const std::string title = text.substr(std::min(TitleMark.size(), text.size()));
            checkTitle(file, line, title);
            patterns.push_back({line, title, {}});
        } else if (patterns.empty()) {
            Refuse(file, line, "a row before the first pattern");
        } else {
            patterns.back().rows.push_back(parseRow(file, line, text, cells));
        }
    }
    if (patterns.empty()) {
        throw SourceError{file + ": holds no patterns"};
    }
    checkWhole(file, patterns.back());
    checkDistinct(file, patterns);
    return source;
}

} // namespace makers
