// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT

// mkcharsets OUTDIR SET.txt...: compiles character sets into the list vtmtc.dat and the artwork store
// vtmgrid.dat.
#include "glyphs/GifPicture.h"
#include "glyphs/mdlData.h"
#include "makers/CharSetSource.h"
#include "makers/SourceText.h"

#include <cstdint>
#include <iostream>
#include <span>
#include <string>

namespace {

/// The picture as a GIF, padded to a whole slot.
ui::Bytes ArtworkSlot(const ui::Picture& artwork, const std::string& file) {
    const auto gif = glyphs::EncodeGif(artwork);
    if (!gif) {
        makers::Refuse(file, 1, gif.failure().message);
    }
    ui::Bytes slot = gif.value();
    if (slot.size() > glyphs::ArtworkSlotSize) {
        makers::Refuse(
            file, 1,
            "the picture takes " + std::to_string(slot.size()) + " bytes, more than the " +
                std::to_string(glyphs::ArtworkSlotSize) + " of a slot");
    }
    slot.resize(glyphs::ArtworkSlotSize, '\0');
    return slot;
}

void MakeCharSets(const std::string& directory, std::span<char*> sources) {
    ui::Bytes list;
    ui::Bytes store;
    std::int16_t position = 0;
    for (const std::string file : sources) {
        const makers::CharSetDrawing drawing = makers::DrawCharSet(file);
        store += ArtworkSlot(drawing.artwork, file);
        list += glyphs::EncodeCharSetRecord(
            {.listIndex = position,
             .name = drawing.name,
             .webAddress = drawing.webAddress,
             .artworkSlot = position});
        ++position;
    }
    makers::WriteOutput(directory + "/" + std::string(glyphs::CharSetListName), list);
    makers::WriteOutput(directory + "/" + std::string(glyphs::ArtworkStoreName), store);
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::cerr << "usage: mkcharsets OUTDIR SET.txt...\n";
        return 2;
    }
    const std::span<char*> arguments(argv, static_cast<std::size_t>(argc));
    return makers::RunTool([&] { MakeCharSets(arguments[1], arguments.subspan(2)); });
}
