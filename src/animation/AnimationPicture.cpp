// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/AnimationPicture.h"

#include "glyphs/mdlPaint.h"

#include <algorithm>

namespace animation {

std::vector<glyphs::GifFrame>
AnimationFrames(const editing::AnimationDocument& animation, const ui::Picture& source, int factor) {
    constexpr int HundredthsPerTick = 5;
    constexpr int MaxTicksPerFrame = 0xFFFF / HundredthsPerTick;
    const auto drawn = [&](int name) {
        ui::Picture picture(editing::NameLength * glyphs::ArtworkCell * factor, glyphs::ArtworkCell * factor);
        glyphs::DrawRow(picture, animation.name(name), source, 0, 0, factor);
        return picture;
    };
    std::vector<glyphs::GifFrame> frames;
    for (int name = 1; name <= animation.nameCount; ++name) {
        int ticks = animation.ticks(name);
        if (ticks == 0) {
            continue;
        }
        const ui::Picture picture = drawn(name);
        for (; ticks > 0; ticks -= MaxTicksPerFrame) {
            frames.push_back({picture, std::min(ticks, MaxTicksPerFrame) * HundredthsPerTick});
        }
    }
    if (frames.empty()) {
        frames.push_back({drawn(animation.nameCount), HundredthsPerTick});
    }
    return frames;
}

} // namespace animation
