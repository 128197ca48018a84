// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Script.h"
#include "glyphs/GifPicture.h"
#include "ui/Picture.h"

#include <vector>

namespace thumbnail {

constexpr int MinSide = 16;
constexpr int MaxSide = 1024;

/// A square picture of a script, `side` pixels (MinSide to MaxSide), black where no glyph is: the name, the
/// messages or the first names of the animation that are not blank, one below the other. Glyphs are enlarged
/// by a whole factor; rows too wide even so go on in the next line. `artwork` is 128 x 128.
[[nodiscard]] ui::Picture DrawThumbnail(const cli::Script& script, const ui::Picture& artwork, int side);

/// An animation's frames (animation::AnimationFrames). Glyphs are enlarged by a whole factor so that 15 of
/// them take at most `width` pixels, but not made smaller.
[[nodiscard]] std::vector<glyphs::GifFrame>
DrawAnimation(const editing::AnimationDocument& animation, const ui::Picture& artwork, int width);

} // namespace thumbnail
