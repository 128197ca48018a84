// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "animation/mdlAniWizard.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace support {

/// A cell of a pattern from its step (1 to 14) and position (1 to 15).
using PatternCell = std::function<int(int step, int position)>;

/// A record of a pattern file: its title and 14 lines of 15 numbers.
inline std::string PatternRecord(const std::string& title, const PatternCell& cell) {
    std::string text = '"' + title + "\"\r\n";
    for (int step = 1; step <= animation::PatternSteps; ++step) {
        for (int position = 1; position <= editing::NameLength; ++position) {
            text += (position == 1 ? "" : ",") + std::to_string(cell(step, position));
        }
        text += "\r\n";
    }
    return text;
}

/// A whole pattern file.
inline std::string PatternFile(const std::vector<std::pair<std::string, PatternCell>>& records) {
    std::string text = std::to_string(records.size()) + "\r\n";
    for (const auto& [title, cell] : records) {
        text += PatternRecord(title, cell);
    }
    return text;
}

} // namespace support
