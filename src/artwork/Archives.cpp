// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "artwork/Archives.h"

#include "artwork/LittleEndian.h"
#include "artwork/SetTexts.h"

#include <algorithm>
#include <string>

namespace artwork {

namespace {

constexpr std::string_view PackMark = "PACK";
constexpr std::string_view WadMark = "WAD2";
constexpr std::size_t HeaderSize = 12;

/// The games know archives of a few thousand entries.
constexpr std::size_t MaxEntries = 65536;

/// Where the fields of a directory's entry lie.
struct EntryLayout {
    std::size_t size = 0;
    std::size_t name = 0;
    std::size_t nameWidth = 0;
    std::size_t partOffset = 0;
    std::size_t partSize = 0;
};

constexpr EntryLayout PackEntry{.size = 64, .name = 0, .nameWidth = 56, .partOffset = 56, .partSize = 60};
constexpr EntryLayout WadEntry{.size = 32, .name = 16, .nameWidth = 16, .partOffset = 0, .partSize = 4};
constexpr std::size_t WadCompression = 13;

bool SameName(std::string_view first, std::string_view second) {
    return std::ranges::equal(first, second, {}, FoldCase, FoldCase);
}

std::string_view EntryName(std::string_view entry, const EntryLayout& layout) {
    const std::string_view name = entry.substr(layout.name, layout.nameWidth);
    return name.substr(0, name.find('\0'));
}

/// The entry of that name in the directory at `offset`; empty when there is none.
ui::Result<ui::Bytes> FindEntry(
    const ui::ByteSource& archive, std::uint64_t offset, std::uint64_t count, const EntryLayout& layout,
    std::string_view name) {
    if (!Within(archive.size(), offset, count * layout.size)) {
        return ui::Failure{"its directory does not lie within the file"};
    }
    if (count > MaxEntries) {
        return ui::Failure{"its directory has more than " + std::to_string(MaxEntries) + " entries"};
    }
    const auto directory = archive.read(offset, static_cast<std::size_t>(count) * layout.size);
    if (!directory) {
        return directory.failure();
    }
    for (std::string_view rest = directory.value(); !rest.empty(); rest.remove_prefix(layout.size)) {
        const std::string_view entry = rest.substr(0, layout.size);
        if (SameName(EntryName(entry, layout), name)) {
            return ui::Bytes(entry);
        }
    }
    return ui::Bytes();
}

/// The part that an entry leads to.
ui::Result<std::optional<ui::Bytes>>
ReadPart(const ui::ByteSource& archive, std::string_view entry, const EntryLayout& layout) {
    const std::uint32_t offset = LongAt(entry, layout.partOffset);
    const std::uint32_t size = LongAt(entry, layout.partSize);
    const std::string name(EntryName(entry, layout));
    if (!Within(archive.size(), offset, size)) {
        return ui::Failure{name + " does not lie within the file"};
    }
    if (size > MaxPartSize) {
        return ui::Failure{name + " is too large"};
    }
    auto part = archive.read(offset, size);
    if (!part) {
        return part.failure();
    }
    return std::optional(std::move(part).value());
}

} // namespace

bool IsPack(std::string_view start) {
    return start.starts_with(PackMark);
}

bool IsWad(std::string_view start) {
    return start.starts_with(WadMark);
}

ui::Result<std::optional<ui::Bytes>> FileInPack(const ui::ByteSource& pack, std::string_view name) {
    const auto header = pack.read(0, HeaderSize);
    if (!header) {
        return header.failure();
    }
    if (!IsPack(header.value())) {
        return ui::Failure{"it is not a PACK archive"};
    }
    const std::uint32_t offset = LongAt(header.value(), 4);
    const std::uint32_t length = LongAt(header.value(), 8);
    if (length % PackEntry.size != 0) {
        return ui::Failure{"its directory is damaged"};
    }
    const auto entry = FindEntry(pack, offset, length / PackEntry.size, PackEntry, name);
    if (!entry) {
        return entry.failure();
    }
    if (entry.value().empty()) {
        return std::optional<ui::Bytes>();
    }
    return ReadPart(pack, entry.value(), PackEntry);
}

ui::Result<std::optional<ui::Bytes>> LumpInWad(const ui::ByteSource& wad, std::string_view name) {
    const auto header = wad.read(0, HeaderSize);
    if (!header) {
        return header.failure();
    }
    if (!IsWad(header.value())) {
        return ui::Failure{"it is not a WAD2 archive"};
    }
    const std::uint32_t count = LongAt(header.value(), 4);
    const std::uint32_t offset = LongAt(header.value(), 8);
    const auto entry = FindEntry(wad, offset, count, WadEntry, name);
    if (!entry) {
        return entry.failure();
    }
    if (entry.value().empty()) {
        return std::optional<ui::Bytes>();
    }
    if (ByteAt(entry.value(), WadCompression) != 0) {
        return ui::Failure{std::string(EntryName(entry.value(), WadEntry)) + " is compressed"};
    }
    return ReadPart(wad, entry.value(), WadEntry);
}

} // namespace artwork
