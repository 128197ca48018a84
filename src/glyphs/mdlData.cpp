// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/mdlData.h"

#include "glyphs/GifPicture.h"
#include "glyphs/mdlPaint.h"
#include "ui/FileWriter.h"

#include <cassert>
#include <utility>

namespace glyphs {

namespace {

std::string Padded(std::string_view text, std::size_t width) {
    std::string padded(text.substr(0, width));
    padded.resize(width, ' ');
    return padded;
}

void AppendInteger(ui::Bytes& bytes, std::int16_t value) {
    const auto word = static_cast<std::uint16_t>(value);
    bytes.push_back(static_cast<char>(word & 0xFFU));
    bytes.push_back(static_cast<char>(word >> 8U));
}

std::int16_t IntegerAt(std::string_view bytes, std::size_t offset) {
    const auto low = static_cast<unsigned char>(bytes[offset]);
    const auto high = static_cast<unsigned char>(bytes[offset + 1]);
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(low | (high << 8U)));
}

constexpr std::size_t NameOffset = 2;
constexpr std::size_t WebAddressOffset = 52;
constexpr std::size_t SlotOffset = 152;

/// What lies in a slot of the artwork store; nothing when it has no such slot.
std::optional<std::string_view> ImageInSlot(std::string_view store, int slot) {
    const std::size_t offset = static_cast<std::size_t>(slot) * ArtworkSlotSize;
    if (slot < 0 || offset >= store.size()) {
        return std::nullopt;
    }
    return store.substr(offset, ArtworkSlotSize);
}

} // namespace

ui::Bytes EncodeCharSetRecord(const CharSetRecord& record) {
    ui::Bytes bytes;
    AppendInteger(bytes, record.listIndex);
    bytes += Padded(record.name, CharSetNameWidth);
    bytes += Padded(record.webAddress, WebAddressWidth);
    AppendInteger(bytes, record.artworkSlot);
    return bytes;
}

CharSetRecord DecodeCharSetRecord(std::string_view bytes) {
    assert(bytes.size() == CharSetRecordSize);
    return {
        .listIndex = IntegerAt(bytes, 0),
        .name = std::string(bytes.substr(NameOffset, CharSetNameWidth)),
        .webAddress = std::string(bytes.substr(WebAddressOffset, WebAddressWidth)),
        .artworkSlot = IntegerAt(bytes, SlotOffset),
    };
}

std::string WebAddressText(const CharSetRecord& record) {
    std::string text = record.webAddress;
    text.resize(text.find_last_not_of(' ') + 1);
    return text;
}

std::string ShownText(std::string_view field) {
    std::string shown;
    for (const char character : field.substr(0, field.find_last_not_of(' ') + 1)) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte < 32 || (byte >= 127 && byte < 160)) {
            shown.push_back('?');
        } else if (byte < 128) {
            shown.push_back(character);
        } else {
            shown.push_back(static_cast<char>(0xC0U | (byte >> 6U)));
            shown.push_back(static_cast<char>(0x80U | (byte & 0x3FU)));
        }
    }
    return shown;
}

ui::Path CharSetListPath(const ui::Files& files, const ui::ProgramDirectory& directory) {
    const std::string name(CharSetListName);
    ui::Path list = directory.toRead(name);
    ui::Path own = directory.folder() / name;
    if (list == own) {
        return own;
    }
    const auto bytes = files.read(list);
    return bytes && bytes.value().empty() ? own : list;
}

std::vector<std::string> LoadCharSetNames(ui::Files& files, const ui::ProgramDirectory& directory) {
    const ui::Path list = CharSetListPath(files, directory);
    std::vector<std::string> names;
    if (!files.exists(list)) {
        if (directory.writable()) {
            // A missing list is made; where that fails the list is just as empty.
            (void)ui::WriteFile(files, list, {});
        }
        return names;
    }
    const auto bytes = files.read(list);
    if (!bytes) {
        return names;
    }
    std::string_view rest = bytes.value();
    for (; rest.size() >= CharSetRecordSize; rest.remove_prefix(CharSetRecordSize)) {
        names.push_back(DecodeCharSetRecord(rest.substr(0, CharSetRecordSize)).name);
    }
    return names;
}

ui::Result<CharSetRecord>
ReadCharSetRecord(const ui::Files& files, const ui::ProgramDirectory& directory, int recordNumber) {
    const ui::Path list = CharSetListPath(files, directory);
    const auto bytes = files.read(list);
    if (!bytes) {
        return bytes.failure();
    }
    const std::string_view records = bytes.value();
    const std::size_t count = records.size() / CharSetRecordSize;
    if (count == 0) {
        return ui::Failure{"The character-set list \"" + ui::PathText(list) + "\" holds no record."};
    }
    const bool isInList = recordNumber >= 1 && static_cast<std::size_t>(recordNumber) <= count;
    const std::size_t index = isInList ? static_cast<std::size_t>(recordNumber - 1) : 0;
    return DecodeCharSetRecord(records.substr(index * CharSetRecordSize, CharSetRecordSize));
}

ui::Result<ui::Picture> LoadArtwork(ui::Files& files, const ui::ProgramDirectory& directory, int slot) {
    // The picture is decoded in memory; a scratch file of that name is of no use to anybody.
    const ui::Path scratch = directory.toWrite(std::string(ScratchArtworkName));
    if (files.exists(scratch)) {
        (void)files.remove(scratch);
    }
    const ui::Path store = directory.toRead(std::string(ArtworkStoreName));
    const auto bytes = files.read(store);
    if (!bytes) {
        return bytes.failure();
    }
    const auto image = ImageInSlot(bytes.value(), slot);
    if (!image) {
        return ui::Failure{
            "The artwork store \"" + ui::PathText(store) + "\" has no slot " + std::to_string(slot) + "."};
    }
    auto picture = DecodeGif(*image);
    if (!picture) {
        return ui::Failure{
            "Slot " + std::to_string(slot) + " of the artwork store \"" + ui::PathText(store) + "\" is " +
            picture.failure().message + "."};
    }
    const ui::Picture& decoded = picture.value();
    if (decoded.width() == ArtworkSide && decoded.height() == ArtworkSide) {
        return picture;
    }
    ui::Picture scaled(ArtworkSide, ArtworkSide, 0);
    StretchCells(scaled, scaled.bounds(), decoded, decoded.bounds());
    return scaled;
}

ui::Result<CharSet> LoadCharSet(ui::Files& files, const ui::ProgramDirectory& directory, int recordNumber) {
    auto record = ReadCharSetRecord(files, directory, recordNumber);
    if (!record) {
        return record.failure();
    }
    auto artwork = LoadArtwork(files, directory, record.value().artworkSlot);
    if (!artwork) {
        return artwork.failure();
    }
    return CharSet{std::move(record).value(), std::move(artwork).value()};
}

std::optional<int> FirstReadableCharSet(const ui::Files& files, const ui::ProgramDirectory& directory) {
    const auto list = files.read(CharSetListPath(files, directory));
    const auto store = files.read(directory.toRead(std::string(ArtworkStoreName)));
    if (!list || !store) {
        return std::nullopt;
    }
    std::string_view rest = list.value();
    for (int place = 0; rest.size() >= CharSetRecordSize; ++place, rest.remove_prefix(CharSetRecordSize)) {
        const auto record = DecodeCharSetRecord(rest.substr(0, CharSetRecordSize));
        const auto image = ImageInSlot(store.value(), record.artworkSlot);
        if (image && DecodeGif(*image)) {
            return place;
        }
    }
    return std::nullopt;
}

} // namespace glyphs
