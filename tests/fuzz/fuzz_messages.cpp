// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "fuzz/Fuzz.h"
#include "scripts/mdlMacro.h"

#include <algorithm>

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using scripts::SayCommand;
    using scripts::ScriptEnd;

    const auto script = fuzz::Bytes(data, size);
    const int count = scripts::CountMessages(script);
    fuzz::Require(count >= 0 && count <= editing::MessageCount, "a script holds up to three messages");

    editing::MessageDocument messages;
    messages.cells.fill('x');
    messages.cursorPos = 7;
    messages.currentMessage = 3;
    const editing::MessageDocument before = messages;
    const ScriptEnd outcome = scripts::ReadMessageScript(script, messages);

    fuzz::Require(messages.cursorPos == 7 && messages.currentMessage == 3, "reading leaves the cursor alone");
    fuzz::Require(
        (outcome == ScriptEnd::NotRecognised) == (count == 0), "a script with messages is recognised");
    const auto kept = messages.cells.begin() + static_cast<std::ptrdiff_t>(count) * editing::MessageLength;
    fuzz::Require(
        std::all_of(kept, messages.cells.end(), [](int code) { return code == 'x'; }),
        "messages that the script does not hold stay");
    fuzz::Require(
        std::ranges::all_of(
            messages.cells,
            [](int code) { return code >= 0 && code < glyphs::GlyphCount && code != '\r' && code != '\n'; }),
        "a cell holds a glyph that stood in a line");

    // What has been read can be written and read back.
    for (const SayCommand command : {SayCommand::Say, SayCommand::SayTeam}) {
        editing::MessageDocument again = before;
        fuzz::Require(
            scripts::ReadMessageScript(
                scripts::WriteMessageScript({{true, true, true}, command}, messages), again) ==
                    ScriptEnd::Read &&
                again.cells == messages.cells,
            "a script reads back as the messages that it was written from");
    }
    return 0;
}
