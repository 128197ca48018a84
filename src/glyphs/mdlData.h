// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/GlyphCode.h"
#include "ui/Files.h"
#include "ui/Picture.h"
#include "ui/Platform.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace glyphs {

constexpr std::string_view CharSetListName = "vtmtc.dat";
constexpr std::string_view ArtworkStoreName = "vtmgrid.dat";
constexpr std::string_view ScratchArtworkName = "curchar.gif";

constexpr std::size_t CharSetNameWidth = 50;
constexpr std::size_t WebAddressWidth = 100;
constexpr std::size_t CharSetRecordSize = 154;
constexpr std::size_t ArtworkSlotSize = 10000;

/// Side of a glyph and of the whole picture in the unscaled artwork, in pixels.
constexpr int ArtworkCell = 8;
constexpr int ArtworkSide = 16 * ArtworkCell;

/// One installed character set. Texts are Latin-1 bytes, blank padded to their full width.
struct CharSetRecord {
    std::int16_t listIndex = 0; ///< 0-based position in the list; the setting "grid"
    std::string name = std::string(CharSetNameWidth, ' ');
    std::string webAddress = std::string(WebAddressWidth, ' ');
    std::int16_t artworkSlot = 0; ///< 0-based slot in the artwork store

    friend bool operator==(const CharSetRecord&, const CharSetRecord&) = default;
};

/// The 154 bytes of a record: index, name, address, slot; little-endian. Longer texts are cut.
[[nodiscard]] ui::Bytes EncodeCharSetRecord(const CharSetRecord& record);

/// The record in exactly 154 bytes.
[[nodiscard]] CharSetRecord DecodeCharSetRecord(std::string_view bytes);

/// The web address without its trailing blanks.
[[nodiscard]] std::string WebAddressText(const CharSetRecord& record);

/// A text of a record as people read it: in UTF-8, without the blanks at its right end, control characters
/// replaced.
[[nodiscard]] std::string ShownText(std::string_view field);

/// Where the list is read from. An empty one in the stand-in folder stands in for nothing.
[[nodiscard]] ui::Path CharSetListPath(const ui::Files& files, const ui::ProgramDirectory& directory);

/// The display names of all whole records of the list, in file order, 50 bytes each. A missing list is made
/// empty, but not in the stand-in folder: there it would hide the list that the program comes with.
[[nodiscard]] std::vector<std::string>
LoadCharSetNames(ui::Files& files, const ui::ProgramDirectory& directory);

/// Record `recordNumber` (1-based) of the list; the first one when the number lies outside the list.
[[nodiscard]] ui::Result<CharSetRecord>
ReadCharSetRecord(const ui::Files& files, const ui::ProgramDirectory& directory, int recordNumber);

/// The picture in a slot (0-based) of the artwork store: 128 x 128, transparent pixels 0. Leaves no scratch
/// file.
[[nodiscard]] ui::Result<ui::Picture>
LoadArtwork(ui::Files& files, const ui::ProgramDirectory& directory, int slot);

/// A character set with its picture.
struct CharSet {
    CharSetRecord record;
    ui::Picture artwork; ///< 128 x 128, transparent pixels 0
};

/// The character set of a record, as ReadCharSetRecord() and LoadArtwork() read it.
[[nodiscard]] ui::Result<CharSet>
LoadCharSet(ui::Files& files, const ui::ProgramDirectory& directory, int recordNumber);

/// The place (0-based) in the list of the first character set whose picture can be read; nothing when there
/// is none.
[[nodiscard]] std::optional<int>
FirstReadableCharSet(const ui::Files& files, const ui::ProgramDirectory& directory);

} // namespace glyphs
