// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "artwork/InstalledSets.h"

#include "artwork/CharSetFiles.h"
#include "artwork/SetTexts.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace artwork {

namespace {

ui::Failure OfFile(const ui::Path& path, const ui::Failure& failure) {
    return {"\"" + ui::PathText(path) + "\" cannot be used: " + failure.message + "."};
}

ui::Failure NothingAdded(const ui::Failure& failure) {
    return {"Nothing was added: " + failure.message + "."};
}

/// The installed sets, which no other program changes meanwhile.
struct LockedSets {
    std::unique_ptr<ui::FileLock> lock;
    CharSetFiles files;
};

ui::Result<LockedSets> LockSets(ui::Files& files, const ui::ProgramDirectory& directory) {
    auto lock = files.lockFolder(directory.toWrite(std::string(glyphs::CharSetListName)).parent_path());
    if (!lock) {
        return lock.failure();
    }
    auto installed = ReadCharSetFiles(files, directory);
    if (!installed) {
        return installed.failure();
    }
    return LockedSets{std::move(lock).value(), std::move(installed).value()};
}

ui::Result<SlotImage>
SlotImageIn(const CharSetFiles& installed, const ui::Path& file, const Artwork& artwork) {
    auto image = MakeSlotImage(artwork.picture, RoomForImage(installed));
    return image ? std::move(image) : OfFile(file, image.failure());
}

} // namespace

bool IsShipped(const glyphs::CharSetRecord& record) {
    return std::ranges::any_of(
        ShippedSets, [&](std::string_view name) { return SameSetName(name, record.name); });
}

ui::Result<SetNaming> NamingOf(std::string_view name, std::string_view webAddress) {
    auto field = FieldText("name", name, glyphs::CharSetNameWidth);
    if (!field) {
        return field.failure();
    }
    const std::string& text = field.value();
    if (text.empty() || text.front() == ' ' || text.back() == ' ') {
        return ui::Failure{"the name is empty, or begins or ends with a blank"};
    }
    if (IsNumber(text)) {
        return ui::Failure{"the name is a number, which stands for a set by its place"};
    }
    auto address = FieldText("web address", webAddress, glyphs::WebAddressWidth);
    if (!address) {
        return address.failure();
    }
    if (!webAddress.empty()) {
        if (auto checked = CheckWebAddress(webAddress); !checked) {
            return checked.failure();
        }
    }
    return SetNaming{std::move(field).value(), std::move(address).value()};
}

ui::Status CheckNameIsFree(const CharSetRecords& records, std::string_view name) {
    const auto same = std::ranges::find_if(
        records, [&](const glyphs::CharSetRecord& record) { return SameSetName(record.name, name); });
    if (same == records.end()) {
        return {};
    }
    return ui::Failure{"there is a character set \"" + glyphs::ShownText(same->name) + "\" already"};
}

ui::Result<Palette> PaletteIn(const ui::Path& file) {
    const auto source = ui::OpenSource(file);
    if (!source) {
        return OfFile(file, source.failure());
    }
    const auto palette = ReadPalette(*source.value());
    return palette ? palette : OfFile(file, palette.failure());
}

ui::Result<Artwork> ArtworkIn(const ui::Path& file, const std::optional<Palette>& palette) {
    const auto source = ui::OpenSource(file);
    if (!source) {
        return OfFile(file, source.failure());
    }
    auto artwork = ReadArtwork(*source.value(), ui::PathText(file.extension()), palette);
    return artwork ? std::move(artwork) : OfFile(file, artwork.failure());
}

bool LacksPalette(const ui::Path& file) {
    Palette any;
    any.fill(ui::OpaqueBlack);
    return !ArtworkIn(file, std::nullopt) && ArtworkIn(file, any);
}

ui::Result<SlotImage> SlotImageFor(
    const ui::Files& files, const ui::ProgramDirectory& directory, const ui::Path& file,
    const Artwork& artwork) {
    const auto installed = ReadCharSetFiles(files, directory);
    return installed ? SlotImageIn(installed.value(), file, artwork) : installed.failure();
}

ui::Result<AddedSet> AddSet(
    ui::Files& files, const ui::ProgramDirectory& directory, const SetNaming& naming, const ui::Path& file,
    const Artwork& artwork) {
    const auto locked = LockSets(files, directory);
    if (!locked) {
        return locked.failure();
    }
    const CharSetFiles& before = locked.value().files;
    const auto records = RecordsOf(before.list);
    if (auto isFree = CheckNameIsFree(records, naming.name); !isFree) {
        return NothingAdded(isFree.failure());
    }
    auto image = SlotImageIn(before, file, artwork);
    if (!image) {
        return image.failure();
    }
    const auto after = WithSetAdded(before, naming.name, naming.webAddress, image.value().gif);
    if (!after) {
        return NothingAdded(after.failure());
    }
    if (auto written = WriteCharSetFiles(files, directory, before, after.value()); !written) {
        return written.failure();
    }
    return AddedSet{.place = records.size(), .image = std::move(image).value()};
}

ui::Result<RemovedSet>
RemoveSet(ui::Files& files, const ui::ProgramDirectory& directory, const SetChoice& choice) {
    const auto locked = LockSets(files, directory);
    if (!locked) {
        return locked.failure();
    }
    const CharSetFiles& before = locked.value().files;
    const auto records = RecordsOf(before.list);
    const auto chosen = choice(records);
    if (!chosen) {
        return chosen.failure();
    }
    const std::size_t place = chosen.value();
    RemovedSet removed{
        .name = glyphs::ShownText(records[place].name), .othersMoved = place + 1 < records.size()};
    if (records.size() == 1) {
        return ui::Failure{
            "\"" + removed.name + "\" was not removed: it is the only one, and the program needs one."};
    }
    const CharSetFiles after = WithSetRemoved(before, place);
    if (auto written = WriteCharSetFiles(files, directory, before, after); !written) {
        return written.failure();
    }
    return removed;
}

} // namespace artwork
