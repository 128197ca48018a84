// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"

#include <functional>
#include <string>

namespace scripts {

/// What came of reading a name from a configuration file. The user has been told and the page repainted as
/// far as either was due.
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
