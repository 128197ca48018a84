// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "games/Timetable.h"

#include <string>
#include <vector>

namespace games_test {

/// Names with their ticks.
class Animation {
public:
    /// `count` names, all different, of so many ticks each.
    Animation(int count, std::int16_t ticks) {
        for (int name = 0; name < count; ++name) {
            add("n" + std::to_string(name), ticks);
        }
    }

    Animation() = default;

    Animation& add(const std::string& name, std::int16_t ticks) {
        std::string cells = name;
        cells.resize(games::CellsOfName, ' ');
        for (const char byte : cells) {
            m_cells.push_back(static_cast<unsigned char>(byte));
        }
        m_ticks.push_back(ticks);
        return *this;
    }

    [[nodiscard]] games::TimedNames names() const { return {m_cells, m_ticks}; }

private:
    std::vector<glyphs::GlyphCode> m_cells;
    std::vector<std::int16_t> m_ticks;
};

} // namespace games_test
