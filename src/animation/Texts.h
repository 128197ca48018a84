// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

/// The fixed texts of the room.
namespace animation {

constexpr std::string_view GameQuestion = "Is this animation to be used in Quake2?";
constexpr std::string_view PatternsMissing = "The Animation Data file/s needed by VTM 'vtmani01.dat or "
                                             "vtmani02.dat' is not in the programs directory!\n"
                                             "Automatic animation has been disabled.";
constexpr std::string_view NothingToDoText = "Nothing to do!";
constexpr std::string_view NoScreenShotChosen = "There is no screen shot chosen to display.\n"
                                                "Please go to the options and select a new screen shot.";

} // namespace animation
