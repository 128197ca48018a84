// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Platform.h"

#include <optional>
#include <string>
#include <string_view>

namespace scripts {

/// The copy of a configuration file that is kept, in the program's folder, while the file is rewritten.
constexpr std::string_view ConfigCopyName = "tempfile.cfg";

/// A configuration file with line `number` (1-based) replaced by `line` (without its end). Every other line
/// keeps its bytes; every line ends with CR LF, the last one too. Only a line that ends with CR alone in a
/// file with line feeds keeps that end, which is a glyph to the game, unless the new line follows. A number
/// past the last line replaces nothing.
[[nodiscard]] ui::Bytes ReplaceLine(std::string_view config, int number, std::string_view line);

/// What a rewrite left to tell.
struct Rewritten {
    /// Where an older copy is kept, and why the copy could not be deleted, though the file is done. Mostly
    /// empty.
    std::string leftover = {};
};

/// A line as it is shown to people: glyphs of colour 2 as those of colour 1, what is not ASCII as a dot. Long
/// lines are cut.
[[nodiscard]] std::string ReadableLine(std::string_view line);

/// That line `number`, which is `line`, is going to be replaced. `remark`: what is odd about that, if
/// anything.
[[nodiscard]] std::string
LineToBeReplacedText(int number, std::string_view line, std::string_view remark = {});

/// The status text after line `number`, which was `line`, has been replaced.
[[nodiscard]] std::string ReplacedLineText(int number, std::string_view line, const std::string& leftover);

/// Refuses a file that was not written to its end and of which a copy is kept: the copy may hold what the
/// file lacks.
[[nodiscard]] ui::Status RefuseIncomplete(const ui::Files& files, const ui::Path& path);

/// Why a configuration file, which need not be there yet, cannot be changed, as far as that shows before it
/// is tried: its folder is not there, it may not be written, or RefuseIncomplete() refuses it.
[[nodiscard]] ui::Status MayBeChanged(const ui::Files& files, const ui::Path& path);

/// Gives the configuration file `path`, which holds `before`, the content `after`: its links, owner and
/// permissions stay. At every instant the file or the copy beside the program holds `before` or `after`
/// whole; the copy is deleted when the file is on the disk. A copy that an earlier run left behind is kept
/// under another name. Fails when the file is the copy itself or no longer holds `before`, and while another
/// program changes it. The message of a failure says whether the file is as it was; if it is not it names the
/// copy, which is then kept.
[[nodiscard]] ui::Result<Rewritten> RewriteConfig(
    ui::Files& files, const ui::ProgramDirectory& directory, const ui::Path& path, std::string_view before,
    std::string_view after);

/// Adds bytes to the end of a configuration file, which holds `before` (nothing: it is not there and is
/// made), all of them or none, and waits until they are on the disk. Fails as RewriteConfig() and
/// RefuseIncomplete() do.
[[nodiscard]] ui::Status AppendToConfig(
    ui::Files& files, const ui::ProgramDirectory& directory, const ui::Path& path,
    const std::optional<ui::Bytes>& before, std::string_view bytes);

} // namespace scripts
