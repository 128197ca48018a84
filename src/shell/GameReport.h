// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Change.h"
#include "games/Engines.h"

#include <string>
#include <vector>

namespace shell {

/// What one family of games makes of what stands on a page.
struct GameLine {
    games::Family family{};
    bool isLoss = false;                       ///< whether something does not arrive as it is written
    std::string text = {};                     ///< behind the family's name
    std::string more = {};                     ///< all that is known, a line each; may be empty
    std::vector<glyphs::GlyphCode> shown = {}; ///< the row that others see, behind the text; may be empty
    std::string shownText = {};                ///< the same in words
    int row = 0;                               ///< the cell that the text is about (1-based); 0: none
    int column = 0;

    friend bool operator==(const GameLine&, const GameLine&) = default;
};

struct GameReport {
    std::vector<GameLine> lines;           ///< one for each family that is played; none for a blank page
    std::vector<editing::CellBlock> marks; ///< cells that one of them drops, refuses or never reaches

    friend bool operator==(const GameReport&, const GameReport&) = default;
};

/// What the games make of a page. The first line tells the preview's time too. Of several things to say about
/// an animation or messages, those about the cursor's row come before those about other rows.
[[nodiscard]] GameReport
ReportOf(editing::Documents& documents, editing::Page page, const games::FamilyChoice& chosen);

} // namespace shell
