// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"

#include <functional>
#include <string>

namespace scripts {

/// What came of reading a script's bytes into its document.
enum class ReadOutcome {
    Read,
    TooLong,      ///< more glyphs than cells: the cells hold the first of them
    NotRecognised ///< not such a script
};

/// What came of a save command.
struct SaveOutcome {
    enum class Kind {
        Cancelled,
        Written, ///< the script is on the disk and the user was told
        Failed   ///< the user was told why; the command ends here, nothing follows it
    };

    Kind kind = Kind::Cancelled;
    ui::Path path = {}; ///< of a written script: for the recent files and as the script to bind
};

/// What came of a load command. The user has been told and the page repainted as far as either was due.
struct LoadOutcome {
    bool loaded = false;
    std::string statusText = {}; ///< why it could not be loaded, or what exactly was; may be empty
};

/// What came of writing into a configuration file. The user has been told.
struct ConfigOutcome {
    bool written = false;
    std::string statusText = {}; ///< for the status line: the line that was replaced; may be empty
};

/// Repaints and shows a document's page. Called before the user is told that a script was read, so that the
/// page behind the box is the new one.
using Repaint = std::function<void()>;

} // namespace scripts
