// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/mdlData.h"
#include "ui/Files.h"
#include "ui/Platform.h"

#include <string>
#include <string_view>
#include <vector>

namespace artwork {

/// The contents of the character-set list and of the artwork store, which belong together.
struct CharSetFiles {
    ui::Bytes list;
    ui::Bytes store;

    friend bool operator==(const CharSetFiles&, const CharSetFiles&) = default;
};

/// The records of a list, in order; a broken one at the end is left out.
[[nodiscard]] std::vector<glyphs::CharSetRecord> RecordsOf(std::string_view list);

/// The 0-based slot that a new set takes: the one after the last slot that a record uses.
[[nodiscard]] std::size_t NextSlot(std::string_view list);

/// How large the image of the next set may be: a slot, less what the undoing of an unusual store takes.
[[nodiscard]] std::size_t RoomForImage(const CharSetFiles& files);

/// Adds a set at the end, its GIF (at most RoomForImage() bytes) in the next slot. `name` and `webAddress`
/// are Latin-1 and fit their fields. What lies behind the last used slot is overwritten. Fails when the files
/// would become larger than the program reads.
[[nodiscard]] ui::Result<CharSetFiles> WithSetAdded(
    const CharSetFiles& files, std::string_view name, std::string_view webAddress, std::string_view gif);

/// Removes a set (0-based). The records after it move up and the slots behind the last one still in use are
/// cut off. Removing the set that was added last yields the files that it was added to.
[[nodiscard]] CharSetFiles WithSetRemoved(const CharSetFiles& files, std::size_t index);

/// Both files of a program directory. Fails also when the list's end is broken: nothing can be added to it.
[[nodiscard]] ui::Result<CharSetFiles>
ReadCharSetFiles(const ui::Files& files, const ui::ProgramDirectory& directory);

/// Replaces `before`, which the program directory holds, by `after`. Both are written before either is
/// replaced, each as a whole, the store first when it grows and last when it shrinks, so that at every
/// instant each record of the list has its slot. When the second file cannot be replaced, the first one is
/// put back. Where a stand-in folder is written and would hold the same as the program's own folder, its
/// files are removed instead.
[[nodiscard]] ui::Status WriteCharSetFiles(
    ui::Files& files, const ui::ProgramDirectory& directory, const CharSetFiles& before,
    const CharSetFiles& after);

} // namespace artwork
