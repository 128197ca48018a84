// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Documents.h"
#include "games/Timetable.h"

#include <string_view>

namespace animation {

using editing::AnimationDocument;

/// The names in use, as games play them. The animation outlives the view.
[[nodiscard]] games::TimedNames TimedNamesOf(const AnimationDocument& animation);

/// Whether a QuakeWorld server and the game let the names in use play to their end.
[[nodiscard]] bool IsSafeForServers(const AnimationDocument& animation);

/// Why names that were made safe may still not be.
constexpr std::string_view NotSafeText =
    "The names beside those that were built are too many, or wait too long, for QuakeWorld servers.";

/// Different names that are left of the fifteen that the wizard builds.
constexpr int SafeNames = 5;

/// Makes fifteen names from `startName` (1 to 76) on such that QuakeWorld servers accept them: they are shown
/// in groups of three, each as its last name is, and wait no longer than all names in use may together.
/// Longer waits than that are cut to one length, shorter ones stay. The other names stay as they are, so that
/// the whole may still not be safe; where they leave no time, no wait is cut.
void MakeSafeForServers(AnimationDocument& animation, int startName);

} // namespace animation
