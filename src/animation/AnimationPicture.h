// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Documents.h"
#include "glyphs/GifPicture.h"

#include <vector>

namespace animation {

/// An animation's names as the game shows them, with their times, a tick being 50 milliseconds: names without
/// ticks are left out, unless none has any; then it is the last name that stays. `source` is that of an
/// atlas; its pixels are enlarged by a whole factor.
[[nodiscard]] std::vector<glyphs::GifFrame>
AnimationFrames(const editing::AnimationDocument& animation, const ui::Picture& source, int factor);

} // namespace animation
