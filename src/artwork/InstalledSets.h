// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "artwork/Artwork.h"
#include "artwork/ArtworkSlot.h"
#include "glyphs/mdlData.h"
#include "ui/Files.h"
#include "ui/Platform.h"

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace artwork {

using CharSetRecords = std::vector<glyphs::CharSetRecord>;

/// The sets that the program comes with, by their names.
constexpr std::array<std::string_view, 4> ShippedSets{
    "Classic Stone", "Quake2 Steel", "High Legibility", "Ember and Frost"};

[[nodiscard]] bool IsShipped(const glyphs::CharSetRecord& record);

/// What a record holds of the user's words: Latin-1 that fits its fields.
struct SetNaming {
    std::string name;
    std::string webAddress;
};

/// The words of a new set, given in UTF-8; the address may be empty. The failure says what is wrong with
/// them, without a full stop.
[[nodiscard]] ui::Result<SetNaming> NamingOf(std::string_view name, std::string_view webAddress);

/// Fails if a set has that name (Latin-1) already, without a full stop.
[[nodiscard]] ui::Status CheckNameIsFree(const CharSetRecords& records, std::string_view name);

/// The palette or the artwork in a file. The failures name the file.
[[nodiscard]] ui::Result<Palette> PaletteIn(const ui::Path& file);
[[nodiscard]] ui::Result<Artwork> ArtworkIn(const ui::Path& file, const std::optional<Palette>& palette);

/// Whether a file holds artwork that lacks nothing but a palette.
[[nodiscard]] bool LacksPalette(const ui::Path& file);

/// The artwork of a file as the slot of a new set would hold it by now.
[[nodiscard]] ui::Result<SlotImage> SlotImageFor(
    const ui::Files& files, const ui::ProgramDirectory& directory, const ui::Path& file,
    const Artwork& artwork);

/// A set that was added.
struct AddedSet {
    std::size_t place = 0; ///< 0-based, in the list
    SlotImage image;
};

/// Adds the artwork of a file as a set of its own. The failure says that nothing was added, or which file is
/// at fault.
[[nodiscard]] ui::Result<AddedSet> AddSet(
    ui::Files& files, const ui::ProgramDirectory& directory, const SetNaming& naming, const ui::Path& file,
    const Artwork& artwork);

/// A set that was removed.
struct RemovedSet {
    std::string name; ///< in UTF-8
    bool othersMoved = false;
};

/// Finds the set to be removed (0-based) among the installed ones.
using SetChoice = std::function<ui::Result<std::size_t>(const CharSetRecords& records)>;

/// Removes a set. Fails for the only one there is.
[[nodiscard]] ui::Result<RemovedSet>
RemoveSet(ui::Files& files, const ui::ProgramDirectory& directory, const SetChoice& choice);

} // namespace artwork
