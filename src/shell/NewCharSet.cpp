// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/NewCharSet.h"

#include "artwork/CharSetFiles.h"
#include "glyphs/GifPicture.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace shell {

namespace {

/// What games call the files and folders of their glyphs says nothing of the game.
bool IsCommonName(std::string name) {
    constexpr std::array<std::string_view, 6> Common{"conchars", "charset", "gfx", "pics", "textures", ""};
    std::ranges::transform(name, name.begin(), [](char byte) {
        return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
    });
    const bool isPack =
        name.starts_with("pak") && name.find_first_not_of("0123456789", 3) == std::string::npos;
    return isPack || std::ranges::find(Common, name) != Common.end();
}

std::string TellingName(const ui::Path& file) {
    std::string name = ui::PathText(file.stem());
    for (ui::Path folder = file.parent_path(); IsCommonName(name) && folder.has_filename();
         folder = folder.parent_path()) {
        name = ui::PathText(folder.filename());
    }
    return name;
}

std::string ColoursText(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " color" : " colors");
}

/// The end of a sentence as a sentence.
std::string Sentence(std::string text) {
    if (text.front() >= 'a' && text.front() <= 'z') {
        text.front() = static_cast<char>(text.front() - 'a' + 'A');
    }
    return text + '.';
}

} // namespace

ui::Result<NewCharSet>
NewCharSet::In(const ui::Path& file, ui::Files& files, const ui::ProgramDirectory& directory) {
    NewCharSet set(file, files, directory);
    const auto installed = artwork::ReadCharSetFiles(files, directory);
    if (!installed) {
        return installed.failure();
    }
    set.m_installed = artwork::RecordsOf(installed.value().list);
    set.m_takesPalette = artwork::LacksPalette(file);
    if (set.m_takesPalette) {
        return set;
    }
    auto read = artwork::ArtworkIn(file, std::nullopt);
    if (!read) {
        return read.failure();
    }
    if (auto taken = set.take(std::move(read).value()); !taken) {
        return taken.failure();
    }
    return set;
}

ui::Status NewCharSet::usePalette(const ui::Path& file) {
    const auto palette = artwork::PaletteIn(file);
    if (!palette) {
        return palette.failure();
    }
    auto read = artwork::ArtworkIn(m_file, palette.value());
    return read ? take(std::move(read).value()) : read.failure();
}

ui::Status NewCharSet::take(artwork::Artwork artwork) {
    const auto image = artwork::SlotImageFor(*m_files, *m_directory, m_file, artwork);
    if (!image) {
        return image.failure();
    }
    auto picture = glyphs::DecodeGif(image.value().gif);
    if (!picture) {
        return picture.failure();
    }
    const std::string side = std::to_string(artwork.side);
    m_facts = side + " x " + side + " pixels, " + ColoursText(image.value().originalColours);
    m_notes = artwork.notes;
    if (image.value().colours < image.value().originalColours) {
        m_notes.push_back("It is stored in " + ColoursText(image.value().colours) + ", so that it fits.");
    }
    m_picture = std::move(picture).value();
    m_artwork = std::move(artwork);
    return {};
}

std::string NewCharSet::suggestedName() const {
    const auto isFree = [this](const std::string& name) {
        const auto naming = artwork::NamingOf(name, "");
        return naming && artwork::CheckNameIsFree(m_installed, naming.value().name).ok();
    };
    for (const std::string& name : {TellingName(m_file), std::string("New set")}) {
        if (isFree(name)) {
            return name;
        }
        for (std::size_t number = 2; number <= m_installed.size() + 1; ++number) {
            if (std::string numbered = name + ' ' + std::to_string(number); isFree(numbered)) {
                return numbered;
            }
        }
    }
    return {};
}

std::string NewCharSet::objection(const std::string& name, const std::string& webAddress) const {
    if (!m_picture) {
        return "Its colors are those of the game's palette: choose gfx/palette.lmp, or the pak0.pak of the "
               "game.";
    }
    const auto naming = artwork::NamingOf(name, webAddress);
    if (!naming) {
        return Sentence(naming.failure().message);
    }
    const ui::Status isFree = artwork::CheckNameIsFree(m_installed, naming.value().name);
    return isFree ? "" : Sentence(isFree.failure().message);
}

ui::Result<int> NewCharSet::store(const std::string& name, const std::string& webAddress) const {
    const auto naming = artwork::NamingOf(name, webAddress);
    if (!naming) {
        return naming.failure();
    }
    const auto added = artwork::AddSet(*m_files, *m_directory, naming.value(), m_file, m_artwork);
    if (!added) {
        return added.failure();
    }
    return static_cast<int>(added.value().place);
}

ui::FileDialogRequest CharSetRequest() {
    ui::FileDialogRequest request;
    request.title = "Select a Picture or Game File";
    request.filters = {
        {"Pictures and Game Files", {"*.png", "*.gif", "*.pcx", "*.bmp", "*.tga", "*.lmp", "*.wad", "*.pak"}},
        {"All Files", {"*"}}};
    return request;
}

ui::FileDialogRequest PaletteRequest(const ui::Path& charSet) {
    ui::FileDialogRequest request;
    request.title = "Select the Palette of the Game";
    request.filters = {{"Palettes and Game Files", {"*.lmp", "*.pak"}}, {"All Files", {"*"}}};
    request.folder = charSet.parent_path();
    return request;
}

} // namespace shell
