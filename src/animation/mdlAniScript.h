// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Documents.h"
#include "glyphs/RowText.h"
#include "ui/Dialogs.h"
#include "ui/Files.h"

#include <functional>
#include <string>
#include <string_view>

namespace animation {

using editing::AnimationDocument;
using glyphs::NameCommand;

/// The whole script of the names in use: raw glyph bytes, lines ending with CR LF.
[[nodiscard]] ui::Bytes EncodeAnimationScript(const AnimationDocument& animation, NameCommand command);

/// How the reading of a script ended.
enum class ScriptEnd {
    Read,          ///< at the end of the file
    NotRecognised, ///< line 1 or 2 is not that of an animation script; the document is as it was
    Abandoned      ///< at a line that cannot be read; the lines before it have been
};

/// What came of reading a script.
struct DecodedScript {
    ScriptEnd end = ScriptEnd::Read;
    int line = 0;         ///< 1-based line that the reading was abandoned at
    std::string cause;    ///< what is wrong with that line: "it holds ..."
    int namesRead = 0;    ///< name lines read
    int namesUntimed = 0; ///< names in use that were read without a wait line: they kept their ticks
};

/// Reads a script into the document. Nothing is cleared first: rows without a line of their own keep their
/// glyphs, names without a wait line keep their ticks. The number of names changes before the first name is
/// read.
DecodedScript DecodeAnimationScript(std::string_view bytes, AnimationDocument& animation);

/// What the window does after writing a script.
struct AnimationWritten {
    bool written = false;   ///< whether the path goes into the recent files
    std::string statusText; ///< for the status line; may be empty
};

/// Asks which game the script is for, writes it over whatever the path holds and says so. A failure to write
/// shows nothing but the status text.
[[nodiscard]] AnimationWritten WriteAnimationScript(
    const AnimationDocument& animation, const ui::Path& path, ui::Dialogs& dialogs, ui::Files& files);

/// What came of the save command.
struct AnimationSaved {
    enum class Kind {
        Cancelled,
        Written, ///< the script is on the disk and the user was told
        Failed   ///< the command ends here: nothing follows it
    };

    Kind kind = Kind::Cancelled;
    ui::Path path;          ///< of a written script: for the recent files and as the script to bind
    std::string statusText; ///< for the status line; may be empty
};

/// Asks for the path, starting in `folder`, calls `accepted` when one is chosen, and writes the script.
[[nodiscard]] AnimationSaved SaveAnimationScript(
    const AnimationDocument& animation, const ui::Path& folder, const std::function<void()>& accepted,
    ui::Dialogs& dialogs, ui::Files& files);

/// What is shown when a script cannot be opened.
enum class OpenFailure {
    StatusLine, ///< the reason, in the status line: a script chosen in a file dialog
    MessageBox  ///< the text for unreadable scripts as well: one that is named elsewhere
};

/// What the window does after reading a script.
struct AnimationRead {
    ScriptEnd end = ScriptEnd::NotRecognised; ///< also when the script cannot be opened
    std::string statusText;                   ///< for the status line; may be empty
    bool hasUnshownNames = false; ///< names in use were read and are not painted: the status text says which
};

/// Reads a script into the document. One that was read to its end is shown by calling `repaintPage` and, but
/// for `quiet`, reported. A reading that was abandoned shows nothing but the status text.
[[nodiscard]] AnimationRead ReadAnimationScript(
    AnimationDocument& animation, const ui::Path& path, bool quiet, OpenFailure openFailure,
    const std::function<void()>& repaintPage, ui::Dialogs& dialogs, const ui::Files& files);

/// The dialogs that ask for a script, starting in a folder.
[[nodiscard]] ui::FileDialogRequest AnimationOpenRequest(const ui::Path& folder);
[[nodiscard]] ui::FileDialogRequest AnimationSaveRequest(const ui::Path& folder);

} // namespace animation
