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
using glyphs::CellSide;

namespace {

/// Moves `count` painted rows from row `from` on to row `to` on.
void MovePaintedRows(glyphs::PagePicture& picture, int from, int to, int count) {
    ui::Picture& canvas = picture.canvas();
    glyphs::BlitCells(
        canvas, 0, (to - 1) * CellSide, NameLength * CellSide, count * CellSide, canvas, 0,
        (from - 1) * CellSide);
}

void BlankName(const EditContext& context, int name) {
    std::ranges::fill(context.documents.animation.rows().row(name), BlankGlyph);
    editing::PaintRow(context, Page::Animation, name);
}

void SwapPaintedNames(const EditContext& context, int first, int second) {
    SwapNames(context.documents.animation, first, second);
    editing::PaintRow(context, Page::Animation, first);
    editing::PaintRow(context, Page::Animation, second);
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

void InsertName(const EditContext& context) {
    AnimationDocument& animation = context.documents.animation;
    if (animation.nameCount == MaxNames) {
        return;
    }
    SetNameCount(animation, animation.nameCount + 1);
    const int current = animation.currentName;
    for (int name = animation.nameCount - 1; name >= current; --name) {
        CopyName(animation, name, name + 1);
    }
    glyphs::PagePicture& picture = context.pictures.animation;
    const int moved = animation.nameCount - current;
    MovePaintedRows(picture, current, current + 1, moved);
    picture.damageCells(1, current + 1, NameLength, moved);
    BlankName(context, current);
}

void DeleteName(const EditContext& context) {
    AnimationDocument& animation = context.documents.animation;
    const int current = animation.currentName;
    const int last = animation.nameCount;
    for (int name = current + 1; name <= last; ++name) {
        CopyName(animation, name, name - 1);
    }
    glyphs::PagePicture& picture = context.pictures.animation;
    MovePaintedRows(picture, current + 1, current, last - current);
    picture.damageCells(1, current, NameLength, last - current);
    BlankName(context, last);
    if (animation.nameCount > MinNames) {
        SetNameCount(animation, animation.nameCount - 1);
    }
    animation.cursorPos = 1;
}

void MoveNameUp(const EditContext& context) {
    AnimationDocument& animation = context.documents.animation;
    if (animation.currentName > 1) {
        SwapPaintedNames(context, animation.currentName, animation.currentName - 1);
        --animation.currentName;
    }
}

void MoveNameDown(const EditContext& context) {
    AnimationDocument& animation = context.documents.animation;
    if (animation.currentName < animation.nameCount) {
        SwapPaintedNames(context, animation.currentName, animation.currentName + 1);
        ++animation.currentName;
    }
}

void PaintNamesFrom(const EditContext& context, int first) {
    for (int name = first; name <= context.documents.animation.nameCount; ++name) {
        editing::PaintRow(context, Page::Animation, name);
    }
}

} // namespace animation
