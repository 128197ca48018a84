// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/mdlSwitches.h"

namespace editing {

/// The settings that formatting reads.
struct FormatSettings {
    bool asksForNames = true;    ///< "prompt1": ask before all names of the animation are formatted
    bool asksForMessages = true; ///< "prompt2": the same for all messages
    glyphs::CaseChoice caseChoice = glyphs::CaseChoice::LettersOnly;
};

} // namespace editing
