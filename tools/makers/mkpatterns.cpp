// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT

// mkpatterns SOURCE OUTPUT: compiles the animation wizard's patterns into the file that the wizard reads.
#include "makers/SourceText.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::size_t Steps = 14;
constexpr std::size_t Positions = 15;
constexpr std::size_t MaxTitle = 50;

// A cell's value is the index of its character.
constexpr std::string_view PositionCells = ".123456789ABCDEF";
constexpr std::string_view MarkCells = ".#";

constexpr std::string_view TitleMark = "pattern ";

struct Pattern {
    int line = 0;
    std::string title;
    std::vector<std::array<int, Positions>> rows;
};

void checkTitle(const std::string& file, int line, const std::string& title) {
    if (title.empty() || title.size() > MaxTitle) {
        makers::Refuse(file, line, "a title has 1 to " + std::to_string(MaxTitle) + " characters");
    }
    for (const char character : title) {
        if (character < ' ' || character > '~' || character == '"') {
            makers::Refuse(file, line, "a title holds ASCII characters without double quotes");
        }
    }
}

std::array<int, Positions>
parseRow(const std::string& file, int line, const std::string& text, std::string_view cells) {
    if (text.size() != Positions) {
        makers::Refuse(
            file, line,
            "a row has " + std::to_string(Positions) + " cells, not " + std::to_string(text.size()));
    }
    std::array<int, Positions> row = {};
    for (std::size_t at = 0; at < Positions; ++at) {
        const std::size_t value = cells.find(text[at]);
        if (value == std::string_view::npos) {
            makers::Refuse(
                file, line, "cell " + std::to_string(at + 1) + " is none of " + std::string(cells));
        }
        row[at] = static_cast<int>(value);
    }
    return row;
}

void checkWhole(const std::string& file, const Pattern& pattern) {
    if (pattern.rows.size() != Steps) {
        makers::Refuse(
            file, pattern.line,
            "\"" + pattern.title + "\" has " + std::to_string(pattern.rows.size()) + " rows, not " +
                std::to_string(Steps));
    }
    const bool blank = std::all_of(pattern.rows.begin(), pattern.rows.end(), [](const auto& row) {
        return std::all_of(row.begin(), row.end(), [](int cell) { return cell == 0; });
    });
    if (blank) {
        makers::Refuse(file, pattern.line, "\"" + pattern.title + "\" is blank throughout");
    }
}

void checkDistinct(const std::string& file, const std::vector<Pattern>& patterns) {
    for (std::size_t later = 1; later < patterns.size(); ++later) {
        for (std::size_t earlier = 0; earlier < later; ++earlier) {
            if (patterns[later].title == patterns[earlier].title) {
                makers::Refuse(
                    file, patterns[later].line, "\"" + patterns[later].title + "\" is there twice");
            }
            if (patterns[later].rows == patterns[earlier].rows) {
                makers::Refuse(
                    file, patterns[later].line,
                    "\"" + patterns[later].title + "\" equals \"" + patterns[earlier].title + "\"");
            }
        }
    }
}

std::vector<Pattern> parsePatterns(const std::string& file) {
    std::vector<Pattern> patterns;
    std::string_view cells;
    for (const auto& [line, text] : makers::ReadSource(file)) {
        if (cells.empty()) {
            if (text != "positions" && text != "marks") {
                makers::Refuse(file, line, "expected \"positions\" or \"marks\" before the first pattern");
            }
            cells = text == "positions" ? PositionCells : MarkCells;
        } else if (text.starts_with(TitleMark) || text == "pattern") {
            if (!patterns.empty()) {
                checkWhole(file, patterns.back());
            }
            const std::string title = text.substr(std::min(TitleMark.size(), text.size()));
            checkTitle(file, line, title);
            patterns.push_back({line, title, {}});
        } else if (patterns.empty()) {
            makers::Refuse(file, line, "a row before the first pattern");
        } else {
            patterns.back().rows.push_back(parseRow(file, line, text, cells));
        }
    }
    if (patterns.empty()) {
        throw makers::SourceError{file + ": holds no patterns"};
    }
    checkWhole(file, patterns.back());
    checkDistinct(file, patterns);
    return patterns;
}

std::string compile(const std::vector<Pattern>& patterns) {
    constexpr std::string_view LineEnd = "\r\n";
    std::string bytes = std::to_string(patterns.size());
    bytes += LineEnd;
    for (const Pattern& pattern : patterns) {
        bytes += '"' + pattern.title + '"';
        bytes += LineEnd;
        for (const auto& row : pattern.rows) {
            for (std::size_t at = 0; at < row.size(); ++at) {
                if (at > 0) {
                    bytes += ',';
                }
                bytes += std::to_string(row[at]);
            }
            bytes += LineEnd;
        }
    }
    return bytes;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: mkpatterns SOURCE OUTPUT\n";
        return 2;
    }
    return makers::RunTool([&] { makers::WriteOutput(argv[2], compile(parsePatterns(argv[1]))); });
}
