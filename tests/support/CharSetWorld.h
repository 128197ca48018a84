// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "artwork/CharSetFiles.h"
#include "glyphs/GifPicture.h"
#include "glyphs/mdlData.h"
#include "support/GameFiles.h"
#include "support/TempProgramDirectory.h"

#include <string>
#include <utility>
#include <vector>

namespace support {

/// A set as the program sees it: its display name and its picture.
using ShownSet = std::pair<std::string, ui::Picture>;

/// The picture of set number `shade`: fewer colours than a GIF has, so that it comes back as it is.
[[nodiscard]] inline ui::Picture SmallArtwork(unsigned shade) {
    return MakePicture(128, 128, [shade](int x, int y) {
        return x % 8 == 7 ? ui::Pixel(0)
                          : ui::OpaquePixel(static_cast<unsigned>(x / 8), y < 64 ? 9 : 200, shade);
    });
}

[[nodiscard]] inline ui::Bytes SmallGif(unsigned shade) {
    return glyphs::EncodeGif(SmallArtwork(shade)).value();
}

/// A list and a store of sets named "A", "B", ... whose pictures have the shades 0, 1, ...
[[nodiscard]] inline artwork::CharSetFiles MakeSets(unsigned count) {
    artwork::CharSetFiles files;
    for (unsigned shade = 0; shade < count; ++shade) {
        const auto number = static_cast<std::int16_t>(shade);
        files.list += glyphs::EncodeCharSetRecord(
            {.listIndex = number,
             .name = std::string(1, static_cast<char>('A' + shade)),
             .webAddress = "",
             .artworkSlot = number});
        ui::Bytes slot = SmallGif(shade);
        slot.resize(glyphs::ArtworkSlotSize, '\0');
        files.store += slot;
    }
    return files;
}

/// The sets that the program finds, through its own reader.
[[nodiscard]] inline std::vector<ShownSet> ShownSets(const ui::ProgramDirectory& directory) {
    ui::DiskFiles disk;
    std::vector<ShownSet> sets;
    const auto names = glyphs::LoadCharSetNames(disk, directory);
    for (std::size_t index = 0; index < names.size(); ++index) {
        const auto record = glyphs::ReadCharSetRecord(disk, directory, static_cast<int>(index) + 1);
        if (!record || record.value().listIndex != static_cast<int>(index)) {
            sets.emplace_back("a record that is not right", ui::Picture());
            continue;
        }
        auto picture = glyphs::LoadArtwork(disk, directory, record.value().artworkSlot);
        sets.emplace_back(
            names[index].substr(0, names[index].find_last_not_of(' ') + 1),
            picture ? std::move(picture).value() : ui::Picture());
    }
    return sets;
}

} // namespace support
