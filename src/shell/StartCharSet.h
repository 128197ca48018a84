// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/mdlData.h"
#include "ui/Platform.h"

#include <string>

namespace shell {

/// The character set that a start takes into use.
struct StartCharSet {
    int place = 0; ///< 0-based, in the list; as it was asked for unless another set stands in
    glyphs::CharSet set;
    std::string notice; ///< that another set stands in, for the status line; empty: it is the one asked for
};

/// The character set at a place (0-based) of the list, or the first one for a place outside it. A set whose
/// picture cannot be read ends the start, once: the failure names it, and from the next start on the first
/// set that can be read stands in. That it was told is kept in the store, at once. Without any set that can
/// be read every start fails.
[[nodiscard]] ui::Result<StartCharSet> LoadStartCharSet(
    ui::Files& files, const ui::ProgramDirectory& directory, ui::SettingsStore& store, int place);

} // namespace shell
