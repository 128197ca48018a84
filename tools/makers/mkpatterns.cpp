// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT

// mkpatterns SOURCE OUTPUT: compiles the animation wizard's patterns into the file that the wizard reads.
#include "makers/PatternSource.h"
#include "makers/SourceText.h"

#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace {

std::string compile(const std::vector<makers::Pattern>& patterns) {
    constexpr std::string_view LineEnd = "\r\n";
    std::string bytes = std::to_string(patterns.size());
    bytes += LineEnd;
    for (const makers::Pattern& pattern : patterns) {
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
    return makers::RunTool(
        [&] { makers::WriteOutput(argv[2], compile(makers::ReadPatterns(argv[1]).patterns)); });
}
