// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "fuzz/Fuzz.h"
#include "scripts/mdlName.h"

#include <algorithm>

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using scripts::NameCommand;
    using scripts::ScriptEnd;

    editing::NameDocument name;
    name.cells.fill('x');
    name.cursorPos = 7;
    const editing::NameDocument before = name;
    const ScriptEnd outcome = scripts::ReadNameScript(fuzz::Bytes(data, size), name);

    fuzz::Require(name.cursorPos == 7 && name.currentRow == 1, "reading leaves the cursor alone");
    if (outcome == ScriptEnd::NotRecognised) {
        fuzz::Require(name.cells == before.cells, "a foreign file changes nothing");
        return 0;
    }
    fuzz::Require(
        std::ranges::all_of(
            name.cells,
            [](int code) { return code >= 0 && code < glyphs::GlyphCount && code != '\r' && code != '\n'; }),
        "a cell holds a glyph that stood in a line");

    // What has been read can be written and read back.
    for (const NameCommand command : {NameCommand::Name, NameCommand::SetName}) {
        editing::NameDocument again = before;
        fuzz::Require(
            scripts::ReadNameScript(scripts::WriteNameScript(command, name), again) == ScriptEnd::Read &&
                again.cells == name.cells,
            "a script reads back as the name that it was written from");
    }
    return 0;
}
