// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/mdlAniName.h"

#include <algorithm>
#include <cassert>

namespace animation {

using editing::MaxNames;
using editing::MinNames;
using editing::NameLength;
using editing::Page;
using glyphs::BlankGlyph;

namespace {

/// `count` rows from row `first` on.
editing::CellBlock Names(int first, int count) {
    return {1, first, NameLength, count};
}

/// Swaps the current name with the one `step` rows further; the cursor follows it.
Change MoveName(AnimationDocument& animation, int step) {
    const int from = animation.currentName;
    const int to = from + step;
    if (to < 1 || to > animation.nameCount) {
        return {};
    }
    SwapNames(animation, from, to);
    animation.currentName = to;
    return {.page = Page::Animation, .changed = Names(std::min(from, to), 2)};
}

} // namespace

void SwapNames(AnimationDocument& animation, int first, int second) {
    // A row swapped with itself stays: swap_ranges must not be given the same range twice.
    if (first != second) {
        std::ranges::swap_ranges(animation.rows().row(first), animation.rows().row(second));
    }
}

void CopyName(AnimationDocument& animation, int from, int to) {
    if (from != to) {
        std::ranges::copy(animation.name(from), animation.rows().row(to).begin());
    }
}

void SetTicks(AnimationDocument& animation, int name, std::int16_t count) {
    animation.ticks(name) = count;
}

void SetAllTicks(AnimationDocument& animation, std::int16_t count) {
    for (int name = 1; name <= animation.nameCount; ++name) {
        animation.ticks(name) = count;
    }
}

void SetNameCount(AnimationDocument& animation, int count) {
    assert(count >= MinNames && count <= MaxNames);
    animation.nameCount = count;
    animation.currentName = std::min(animation.currentName, count);
}

Change InsertName(AnimationDocument& animation) {
    if (animation.nameCount == MaxNames) {
        return {};
    }
    SetNameCount(animation, animation.nameCount + 1);
    const int current = animation.currentName;
    for (int name = animation.nameCount - 1; name >= current; --name) {
        CopyName(animation, name, name + 1);
    }
    std::ranges::fill(animation.rows().row(current), BlankGlyph);
    return {
        .page = Page::Animation,
        .moved = Names(current, animation.nameCount - current),
        .byRows = 1,
        .changed = Names(current, 1)};
}

Change DeleteName(AnimationDocument& animation) {
    const int current = animation.currentName;
    const int last = animation.nameCount;
    for (int name = current + 1; name <= last; ++name) {
        CopyName(animation, name, name - 1);
    }
    std::ranges::fill(animation.rows().row(last), BlankGlyph);
    if (animation.nameCount > MinNames) {
        SetNameCount(animation, animation.nameCount - 1);
    }
    animation.cursorPos = 1;
    return {
        .page = Page::Animation,
        .moved = Names(current + 1, last - current),
        .byRows = -1,
        .changed = Names(last, 1)};
}

Change MoveNameUp(AnimationDocument& animation) {
    return MoveName(animation, -1);
}

Change MoveNameDown(AnimationDocument& animation) {
    return MoveName(animation, 1);
}

} // namespace animation
