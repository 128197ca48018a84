// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Kinds.h"
#include "glyphs/RowText.h"
#include "ui/Dialogs.h"
#include "ui/Files.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace editing {

/// How the reading of a script ended.
enum class ScriptEnd {
    Read,         ///< at the end of what it holds
    TooLong,      ///< at a row with more glyphs than cells: the cells hold the first of them
    Abandoned,    ///< at a line that cannot be read; the lines before it have been
    NotRecognised ///< not a script of the kind: the document is as it was
};

/// What came of reading a script.
struct ScriptRead {
    ScriptEnd end = ScriptEnd::NotRecognised; ///< also when the script cannot be opened
    std::string statusText = {};              ///< for the status line; may be empty
    bool hasUnshownNames = false; ///< names in use were read and are not painted: the status text says which

    [[nodiscard]] bool loaded() const { return end == ScriptEnd::Read; }
};

/// How a document becomes a script of its kind.
struct ScriptWriter {
    const Kind& kind;
    std::function<ui::Bytes(glyphs::NameCommand)> encode;
    std::string_view gameQuestion = {}; ///< what settles the command: Yes for the plain one; empty: not asked
    /// What writing a command comes to, as in "writes x: runs in y"; told below the question.
    std::function<std::string(glyphs::NameCommand)> commandText = {};
    std::string lossText = {}; ///< for the status line: what a later reading will not bring back
};

/// How a script of a kind becomes a document.
struct ScriptReader {
    const Kind& kind;
    ui::Path path;
    std::function<ScriptRead(std::string_view)> decode; ///< from the script's bytes into the document
    std::string failureText;                            ///< the message when it cannot be read
};

/// What came of saving a script.
struct SaveOutcome {
    enum class Kind {
        Cancelled,
        Written, ///< the script is on the disk and the user was told
        Failed   ///< the command ends here: nothing follows it
    };

    Kind kind = Kind::Cancelled;
    ui::Path path = {};          ///< of a written script: for the recent files and as the script to bind
    std::string statusText = {}; ///< for the status line; may be empty
    ui::Bytes script = {};       ///< what a written script holds
    std::optional<glyphs::NameCommand> command = {}; ///< what sets its names; nothing: it was not asked for
};

/// What is shown when a script cannot be opened whose kind tells such failures in the status line.
enum class OpenFailure {
    StatusLine, ///< the reason, there: a script chosen in a file dialog
    MessageBox  ///< the text for unreadable scripts as well: one that is named elsewhere
};

/// The dialogs that ask for a script. Kinds that do not start in `folder` ignore it.
[[nodiscard]] ui::FileDialogRequest OpenScriptRequest(const Kind& kind, const ui::Path& folder = {});
[[nodiscard]] ui::FileDialogRequest SaveScriptRequest(const Kind& kind, const ui::Path& folder = {});

/// Asks which game the script is for, if that makes a difference; writes it over whatever the path holds and
/// says so, or why not.
[[nodiscard]] SaveOutcome
WriteScript(ui::Dialogs& dialogs, ui::Files& files, const ScriptWriter& writer, const ui::Path& path);

/// Asks for the path, starting in `folder`, and calls `accepted` when one is chosen; asks again if a file
/// lies there that is not a script of the kind; then writes the script.
[[nodiscard]] SaveOutcome SaveScript(
    ui::Dialogs& dialogs, ui::Files& files, const ScriptWriter& writer, const ui::Path& folder = {},
    const std::function<void()>& accepted = [] {});

/// Reads a script into its document, calls `repaint` for what the page has to show, and then tells the user.
/// `quiet` leaves out the message of success, never that of a failure. A reading that was abandoned shows
/// nothing but the status text.
[[nodiscard]] ScriptRead LoadScript(
    ui::Dialogs& dialogs, const ui::Files& files, const ScriptReader& reader, bool quiet,
    OpenFailure openFailure, const std::function<void()>& repaint);

} // namespace editing
