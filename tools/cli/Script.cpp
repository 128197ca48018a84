// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "cli/Script.h"

#include "animation/mdlAniScript.h"
#include "scripts/mdlMacro.h"
#include "scripts/mdlName.h"

#include <string>

namespace cli {

ui::Result<Script> ReadScript(std::string_view bytes) {
    editing::NameDocument name;
    switch (scripts::ReadNameScript(bytes, name)) {
    case editing::ScriptEnd::Read:
        return Script(name);
    case editing::ScriptEnd::TooLong:
        return ui::Failure{"its name has more than 15 glyphs"};
    case editing::ScriptEnd::Abandoned:
    case editing::ScriptEnd::NotRecognised:
        break;
    }

    editing::MessageDocument messages;
    switch (scripts::ReadMessageScript(bytes, messages)) {
    case editing::ScriptEnd::Read:
        return Script(messages);
    case editing::ScriptEnd::TooLong:
        return ui::Failure{"a message has more than 31 glyphs"};
    case editing::ScriptEnd::Abandoned:
    case editing::ScriptEnd::NotRecognised:
        break;
    }

    editing::AnimationDocument animation;
    animation.nameTicks.fill(0);
    const animation::DecodedScript decoded = animation::DecodeAnimationScript(bytes, animation);
    switch (decoded.end) {
    case editing::ScriptEnd::Read:
        return Script(animation);
    case editing::ScriptEnd::Abandoned:
        return ui::Failure{"line " + std::to_string(decoded.line) + ": " + decoded.cause};
    case editing::ScriptEnd::TooLong:
    case editing::ScriptEnd::NotRecognised:
        break;
    }
    return ui::Failure{"it is not a name, animation or message script"};
}

} // namespace cli
