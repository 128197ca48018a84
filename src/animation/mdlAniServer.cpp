// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/mdlAniServer.h"

#include "animation/mdlAniWizard.h"

#include <algorithm>
#include <cassert>
#include <numeric>
#include <span>

namespace animation {

namespace {

/// Rows that show the same name.
constexpr int GroupSize = BuiltNames / SafeNames;
static_assert(GroupSize * SafeNames == BuiltNames);
static_assert(SafeNames < games::KickLimit.count);

/// The longest wait of the built names that leaves all names in use, these among them, within what a script
/// may wait; 0: there is none.
int LongestWait(const AnimationDocument& animation, int startName) {
    int room = games::WaitLimit.ticks;
    for (int name = 1; name <= animation.nameCount; ++name) {
        const bool isBuilt = name >= startName && name < startName + BuiltNames;
        room -= isBuilt ? 0 : animation.ticks(name);
    }
    const auto built =
        std::span(animation.nameTicks).subspan(static_cast<std::size_t>(startName - 1), BuiltNames);
    for (int longest = games::WaitLimit.ticks; longest > 0; --longest) {
        const int ticks = std::accumulate(built.begin(), built.end(), 0, [longest](int sum, int all) {
            return sum + std::min(all, longest);
        });
        if (ticks <= room) {
            return longest;
        }
    }
    return 0;
}

} // namespace

games::TimedNames TimedNamesOf(const AnimationDocument& animation) {
    static_assert(games::CellsOfName == editing::NameLength);
    const auto count = static_cast<std::size_t>(animation.nameCount);
    return {
        std::span(animation.nameGlyphs).first(count * games::CellsOfName),
        std::span(animation.nameTicks).first(count)};
}

bool IsSafeForServers(const AnimationDocument& animation) {
    const games::Timetable table = games::TimetableOf(games::Family::QuakeWorld, TimedNamesOf(animation));
    return table.kicked.name == 0 && table.ticks <= games::WaitLimit.ticks;
}

void MakeSafeForServers(AnimationDocument& animation, int startName) {
    assert(startName >= 1 && startName <= LastStartName);
    for (int row = 0; row < BuiltNames; ++row) {
        const int last = startName + row - row % GroupSize + GroupSize - 1;
        std::ranges::copy(animation.name(last), animation.rows().row(startName + row).begin());
    }
    const int longest = LongestWait(animation, startName);
    if (longest == 0) {
        return;
    }
    for (int name = startName; name < startName + BuiltNames; ++name) {
        animation.ticks(name) = static_cast<std::int16_t>(std::min<int>(animation.ticks(name), longest));
    }
}

} // namespace animation
