// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/KeyMapFile.h"
#include "fuzz/Fuzz.h"
#include "glyphs/FieldReader.h"

namespace {

/// Takes all fields, alternately as texts and as numbers.
void ReadFields(std::string_view bytes) {
    glyphs::FieldReader fields(bytes);
    std::size_t count = 0;
    for (; !fields.atEnd(); ++count) {
        fuzz::Require(count <= bytes.size(), "every field takes a byte at least");
        const int line = fields.line();
        if (count % 2 == 0) {
            const auto text = fields.text();
            fuzz::Require(!text || text->size() <= bytes.size(), "a text lies within the input");
        } else {
            (void)fields.number();
        }
        fuzz::Require(fields.line() >= line, "lines are counted upwards");
    }
    fuzz::Require(!fields.text() && !fields.number(), "nothing is read at the end");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes = fuzz::Bytes(data, size);
    ReadFields(bytes);
    const auto map = editing::ParseKeyMap(bytes);
    if (!map) {
        fuzz::Require(!map.failure().message.empty(), "a failure has a reason");
        return 0;
    }
    for (const editing::KeyGlyphs& row : map.value()) {
        for (const glyphs::GlyphCode code : row) {
            fuzz::Require(code >= 0 && code < glyphs::GlyphCount, "every glyph is one of the set");
        }
    }
    const auto again = editing::ParseKeyMap(editing::KeyMapText(map.value()));
    fuzz::Require(again && again.value() == map.value(), "a map reads back as it was written");
    return 0;
}
