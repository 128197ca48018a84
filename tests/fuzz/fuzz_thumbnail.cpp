// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "fuzz/Fuzz.h"
#include "thumbnail/Drawing.h"

#include <algorithm>
#include <numeric>

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto script = cli::ReadScript(fuzz::Bytes(data, size));
    if (!script) {
        fuzz::Require(!script.failure().message.empty(), "what cannot be drawn has a reason");
        return 0;
    }
    const ui::Picture artwork(128, 128, 0xFF123456U);
    for (const int side : {16, 61, 128}) {
        const ui::Picture picture = thumbnail::DrawThumbnail(script.value(), artwork, side);
        fuzz::Require(picture.width() == side && picture.height() == side, "a thumbnail is a square");
    }
    if (const auto* animation = std::get_if<editing::AnimationDocument>(&script.value())) {
        const auto frames = thumbnail::DrawAnimation(*animation, artwork, 120);
        const long ticks = std::accumulate(
            animation->nameTicks.begin(), animation->nameTicks.begin() + animation->nameCount, 0L);
        long time = 0;
        for (const glyphs::GifFrame& frame : frames) {
            fuzz::Require(
                frame.delay >= 5 && frame.delay <= 65535,
                "a picture is shown for a time that a GIF can hold");
            time += frame.delay;
        }
        fuzz::Require(time == 5 * std::max(ticks, 1L), "an animation takes its time");
    }
    return 0;
}
