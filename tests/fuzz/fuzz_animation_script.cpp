// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/mdlAniScript.h"
#include "fuzz/Fuzz.h"

#include <algorithm>

namespace {

using editing::AnimationDocument;

bool Same(const AnimationDocument& a, const AnimationDocument& b) {
    return a.nameGlyphs == b.nameGlyphs && a.nameTicks == b.nameTicks && a.nameCount == b.nameCount &&
           a.currentName == b.currentName && a.cursorPos == b.cursorPos;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    AnimationDocument before;
    before.nameGlyphs.fill('x');
    before.nameTicks.fill(7);
    before.nameCount = 50;
    before.currentName = 50;
    AnimationDocument animation = before;
    const animation::DecodedScript script =
        animation::DecodeAnimationScript(fuzz::Bytes(data, size), animation);

    if (script.end == animation::ScriptEnd::NotRecognised) {
        fuzz::Require(Same(animation, before), "a foreign file changes nothing");
        return 0;
    }
    fuzz::Require(
        (script.end == animation::ScriptEnd::Abandoned) == !script.cause.empty(),
        "what is abandoned has a cause");
    fuzz::Require(animation.nameCount >= 15 && animation.nameCount <= 90, "15 to 90 names are in use");
    fuzz::Require(
        animation.currentName >= 1 && animation.currentName <= animation.nameCount,
        "the cursor stands on a name in use");
    fuzz::Require(
        std::ranges::all_of(
            animation.nameGlyphs,
            [](int code) { return code >= 0 && code < glyphs::GlyphCount && code != '\r' && code != '\n'; }),
        "a cell holds a glyph that stood in a line");
    fuzz::Require(
        std::ranges::all_of(animation.nameTicks, [](int ticks) { return ticks >= 1; }), "a wait has ticks");
    fuzz::Require(script.namesRead >= 0 && script.namesRead <= 90, "no more names are read than there are");
    fuzz::Require(
        script.namesUntimed >= 0 && script.namesUntimed <= script.namesRead,
        "no more names are untimed than were read");

    // What has been read can be written and read back.
    for (const auto command : {animation::NameCommand::Name, animation::NameCommand::SetName}) {
        AnimationDocument again = animation;
        fuzz::Require(
            animation::DecodeAnimationScript(animation::EncodeAnimationScript(animation, command), again)
                        .end == animation::ScriptEnd::Read &&
                Same(again, animation),
            "a script reads back as the animation that it was written from");
    }
    return 0;
}
