// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "artwork/CharSetFiles.h"

#include "artwork/LittleEndian.h"
#include "ui/FileWriter.h"

#include <algorithm>
#include <cassert>
#include <limits>
#include <utility>

namespace artwork {

using glyphs::ArtworkSlotSize;
using glyphs::CharSetRecordSize;

namespace {

/// At the end of a slot's padding: how long the store was before, where it did not end with a whole slot.
constexpr std::string_view UndoMark = "VTMstore";
constexpr std::size_t UndoSize = UndoMark.size() + 4;

ui::Bytes UndoNote(std::size_t storeSize) {
    ui::Bytes note(UndoMark);
    for (unsigned shift = 0; shift < 32; shift += 8) {
        note.push_back(static_cast<char>((storeSize >> shift) & 0xFFU));
    }
    return note;
}

/// How long the store was before the slot at `slotStart` was added to it.
std::size_t SizeBefore(std::string_view store, std::size_t slotStart) {
    if (!Within(store.size(), slotStart, ArtworkSlotSize)) {
        return slotStart;
    }
    const std::string_view note = store.substr(slotStart + ArtworkSlotSize - UndoSize, UndoSize);
    if (!note.starts_with(UndoMark)) {
        return slotStart;
    }
    const std::size_t size = LongAt(note, UndoMark.size());
    // Only what was filled up is ever cut off.
    const bool isPadding = size < slotStart && store.substr(size, slotStart - size).find_first_not_of('\0') ==
                                                   std::string_view::npos;
    return isPadding ? size : slotStart;
}

bool NeedsUndoNote(const CharSetFiles& files) {
    return files.store.size() < NextSlot(files.list) * ArtworkSlotSize;
}

ui::Bytes ListOf(const std::vector<glyphs::CharSetRecord>& records) {
    ui::Bytes list;
    for (const glyphs::CharSetRecord& record : records) {
        list += glyphs::EncodeCharSetRecord(record);
    }
    return list;
}

/// One of the two files: where it is written, what was there before and what comes there.
struct Target {
    ui::Path path;
    const ui::Bytes& before;
    const ui::Bytes& after;
    bool wasThere = false;

    [[nodiscard]] bool changes() const { return !wasThere || before != after; }
};

/// Undoes a replacement as far as that is possible: what is left behind otherwise can be used as well.
void PutBack(ui::Files& files, const Target& target) {
    if (!target.wasThere) {
        (void)files.remove(target.path);
    } else {
        (void)ui::WriteFile(files, target.path, target.before);
    }
}

/// Makes a change that is ready, or none.
ui::Status Commit(ui::Files& files, ui::FileChange& change, const Target& target) {
    const ui::FileWritten written = change.commit();
    if (!written.status && written.holds == ui::FileWritten::Holds::After) {
        PutBack(files, target);
        return written.status;
    }
    return written.status ? ui::Status() : written.told();
}

ui::Status ReplaceOne(ui::Files& files, const Target& target) {
    auto change = ui::FileChange::Prepare(files, target.path, target.after);
    return change ? Commit(files, *change.value(), target) : change.failure();
}

/// Replaces two files in this order, or neither. What was changed first is on the disk before the second one
/// is.
ui::Status ReplaceBoth(ui::Files& files, const Target& first, const Target& second) {
    // Both are written before either takes its place: a full disk changes nothing.
    auto firstChange = ui::FileChange::Prepare(files, first.path, first.after);
    if (!firstChange) {
        return firstChange.failure();
    }
    auto secondChange = ui::FileChange::Prepare(files, second.path, second.after);
    if (!secondChange) {
        return secondChange.failure();
    }
    if (auto done = Commit(files, *firstChange.value(), first); !done) {
        return done;
    }
    auto done = Commit(files, *secondChange.value(), second);
    if (!done) {
        PutBack(files, first);
    }
    return done;
}

/// Whether a file of the program's own folder holds these bytes.
bool Holds(const ui::Files& files, const ui::Path& path, const ui::Bytes& bytes) {
    const auto content = files.read(path);
    return content && content.value() == bytes;
}

ui::Status RemoveIfThere(ui::Files& files, const ui::Path& path) {
    return files.exists(path) ? files.remove(path) : ui::Status();
}

} // namespace

std::vector<glyphs::CharSetRecord> RecordsOf(std::string_view list) {
    std::vector<glyphs::CharSetRecord> records;
    for (; list.size() >= CharSetRecordSize; list.remove_prefix(CharSetRecordSize)) {
        records.push_back(glyphs::DecodeCharSetRecord(list.substr(0, CharSetRecordSize)));
    }
    return records;
}

std::size_t NextSlot(std::string_view list) {
    std::size_t next = 0;
    for (const glyphs::CharSetRecord& record : RecordsOf(list)) {
        if (record.artworkSlot >= 0) {
            next = std::max(next, static_cast<std::size_t>(record.artworkSlot) + 1);
        }
    }
    return next;
}

std::size_t RoomForImage(const CharSetFiles& files) {
    return NeedsUndoNote(files) ? ArtworkSlotSize - UndoSize : ArtworkSlotSize;
}

ui::Result<CharSetFiles> WithSetAdded(
    const CharSetFiles& files, std::string_view name, std::string_view webAddress, std::string_view gif) {
    assert(gif.size() <= RoomForImage(files));
    auto records = RecordsOf(files.list);
    const std::size_t slot = NextSlot(files.list);
    constexpr std::size_t MaxNumber = std::numeric_limits<std::int16_t>::max();
    if ((slot + 1) * ArtworkSlotSize > ui::Files::MaxFileSize || slot > MaxNumber ||
        records.size() > MaxNumber) {
        return ui::Failure{"there is no room for another character set; remove one first"};
    }
    records.push_back(
        {.listIndex = static_cast<std::int16_t>(records.size()),
         .name = std::string(name),
         .webAddress = std::string(webAddress),
         .artworkSlot = static_cast<std::int16_t>(slot)});

    ui::Bytes image(gif);
    image.resize(ArtworkSlotSize, '\0');
    if (NeedsUndoNote(files)) {
        const ui::Bytes note = UndoNote(files.store.size());
        image.replace(ArtworkSlotSize - UndoSize, UndoSize, note);
    }
    CharSetFiles added{.list = ListOf(records), .store = files.store};
    added.store.resize(slot * ArtworkSlotSize, '\0');
    added.store += image;
    return added;
}

CharSetFiles WithSetRemoved(const CharSetFiles& files, std::size_t index) {
    auto records = RecordsOf(files.list);
    assert(index < records.size());
    const std::int16_t slot = records[index].artworkSlot;
    records.erase(records.begin() + static_cast<std::ptrdiff_t>(index));
    for (std::size_t i = index; i < records.size(); ++i) {
        records[i].listIndex = static_cast<std::int16_t>(i);
    }
    CharSetFiles removed{.list = ListOf(records), .store = files.store};
    const std::size_t end = NextSlot(removed.list) * ArtworkSlotSize;
    if (removed.store.size() > end) {
        const bool wasLast = slot >= 0 && static_cast<std::size_t>(slot) * ArtworkSlotSize == end;
        removed.store.resize(wasLast ? SizeBefore(files.store, end) : end);
    }
    return removed;
}

ui::Result<CharSetFiles> ReadCharSetFiles(const ui::Files& files, const ui::ProgramDirectory& directory) {
    const ui::Path listPath = glyphs::CharSetListPath(files, directory);
    auto list = files.read(listPath);
    if (!list) {
        return list.failure();
    }
    if (list.value().size() % CharSetRecordSize != 0) {
        return ui::Failure{
            "The character-set list \"" + ui::PathText(listPath) +
            "\" is damaged: its last record is cut off."};
    }
    auto store = files.read(directory.toRead(std::string(glyphs::ArtworkStoreName)));
    if (!store) {
        return store.failure();
    }
    return CharSetFiles{.list = std::move(list).value(), .store = std::move(store).value()};
}

ui::Status WriteCharSetFiles(
    ui::Files& files, const ui::ProgramDirectory& directory, const CharSetFiles& before,
    const CharSetFiles& after) {
    const std::string listName(glyphs::CharSetListName);
    const std::string storeName(glyphs::ArtworkStoreName);
    const ui::Path listPath = directory.toWrite(listName);
    const ui::Path storePath = directory.toWrite(storeName);

    const ui::Path ownList = directory.folder() / listName;
    const ui::Path ownStore = directory.folder() / storeName;
    if (listPath != ownList && Holds(files, ownList, after.list) && Holds(files, ownStore, after.store)) {
        // Without a list of its own the stand-in folder counts no more; its store serves the program's list
        // too.
        const bool wasThere = files.exists(listPath);
        if (auto removed = RemoveIfThere(files, listPath); !removed) {
            return removed;
        }
        auto removed = RemoveIfThere(files, storePath);
        if (!removed && wasThere) {
            (void)ui::WriteFile(files, listPath, before.list);
        }
        return removed;
    }

    const Target list{listPath, before.list, after.list, files.exists(listPath)};
    const Target store{storePath, before.store, after.store, files.exists(storePath)};
    const bool grows = after.list.size() >= before.list.size();
    const Target& first = grows ? store : list;
    const Target& second = grows ? list : store;
    if (!first.changes()) {
        return second.changes() ? ReplaceOne(files, second) : ui::Status();
    }
    if (!second.changes()) {
        return ReplaceOne(files, first);
    }
    return ReplaceBoth(files, first, second);
}

} // namespace artwork
