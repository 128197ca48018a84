// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/ScriptFlow.h"

#include <string>
#include <string_view>

namespace animation {

using editing::AnimationDocument;
using editing::ScriptEnd;
using glyphs::NameCommand;

/// The whole script of the names in use: raw glyph bytes, lines ending with CR LF.
[[nodiscard]] ui::Bytes EncodeAnimationScript(const AnimationDocument& animation, NameCommand command);

/// What came of reading a script's bytes. A row that is too long abandons the reading, so `end` is never
/// TooLong.
struct DecodedScript {
    ScriptEnd end = ScriptEnd::Read;
    int line = 0;         ///< 1-based line that the reading was abandoned at
    std::string cause;    ///< what is wrong with that line: "it holds ..."
    int namesRead = 0;    ///< name lines read
    int namesUntimed = 0; ///< names in use that were read without a wait line: they kept their ticks
};

/// Reads a script into the document. Nothing is cleared first: rows without a line of their own keep their
/// glyphs, names without a wait line keep their ticks. The number of names changes before the first name is
/// read.
DecodedScript DecodeAnimationScript(std::string_view bytes, AnimationDocument& animation);

/// How an animation is saved, and loaded from `path`. A loss is told of what will not come back, and a
/// reading that ended tells what the document has kept. The animation outlives both.
[[nodiscard]] editing::ScriptWriter AnimationWriter(const AnimationDocument& animation);
[[nodiscard]] editing::ScriptReader AnimationReader(AnimationDocument& animation, const ui::Path& path);

} // namespace animation
