// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

/// The fixed texts of the room.
namespace animation {

constexpr std::string_view GameQuestion = "Is this animation to be used in Quake2?";
constexpr std::string_view OpenScriptTitle = "Select the Script file";
constexpr std::string_view ScriptFilterText = "VTM Animation Script (*.vta;*.scr)";

} // namespace animation
