// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "games/Findings.h"
#include "ui/Files.h"

#include <optional>
#include <vector>

namespace check {

/// What a family makes of a script.
struct FamilyJudgement {
    games::Family family;
    std::vector<std::optional<games::RowVerdict>> rows; ///< of every name or message, in order; nothing of
                                                        ///< one whose line holds more
    std::vector<games::Finding> findings;
    std::optional<games::Timetable> timetable; ///< of an animation

    /// Whether everything arrives as it is written.
    [[nodiscard]] bool arrives() const;
};

/// A script and what is to be said of it.
struct Judgement {
    ui::Path path;
    std::string_view kind; ///< "name", "animation" or "messages"
    games::ScriptSize size;
    std::optional<games::NameCommand> command; ///< that sets its names; nothing of messages
    std::vector<FamilyJudgement> families;

    [[nodiscard]] bool arrives() const;
};

/// Judges the bytes of a script, which lie at `path`. Fails when they are no script or hold a row that is too
/// long; the failure says why, without a file name.
[[nodiscard]] ui::Result<Judgement>
Judge(const ui::Path& path, std::string_view bytes, const std::vector<games::Family>& families);

} // namespace check
