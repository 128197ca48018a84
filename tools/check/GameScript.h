// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Kinds.h"
#include "games/Script.h"
#include "ui/Result.h"

#include <optional>
#include <string_view>
#include <vector>

/// A script as a game reads it, which takes more for a command than the editor does: its lines end at LF
/// alone, and at a ; outside quotes the next command begins.
namespace check {

/// A name or message.
struct ScriptRow {
    std::vector<games::GlyphCode> glyphs; ///< at most as many as its document has cells
    bool isKnown = true; ///< whether its line is nothing but this command; else nobody can tell what arrives
    int ticks = 0;       ///< that the script waits behind it
};

/// Lines of a script, counted from 1.
struct Lines {
    int first = 0; ///< the first of them; 0: none
    int count = 0;

    void add(int line) {
        first = count == 0 ? line : first;
        ++count;
    }
};

struct GameScript {
    editing::Page kind{};
    std::vector<ScriptRow> rows;               ///< of a name script the last name: that one stays
    std::optional<games::NameCommand> command; ///< SetName as soon as one name is set by it; messages: none
    Lines unquoted;                            ///< that do not end with the quote of their row
    Lines others;                              ///< that hold a command of another kind
    Lines surplus;                             ///< that hold a row more than a script of the kind has
};

/// Takes a script apart. Fails when the first line names no kind, when no row follows, and with a row that is
/// too long or a 91st name; the failure says why, without a file name.
[[nodiscard]] ui::Result<GameScript> ReadGameScript(std::string_view bytes);

} // namespace check
