// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "artwork/InstalledSets.h"
#include "ui/Dialogs.h"
#include "ui/Platform.h"

#include <optional>
#include <string>
#include <vector>

namespace shell {

/// A character set out of a file, looked at before it is stored. All texts are UTF-8.
class NewCharSet {
public:
    /// The set in a file. Fails, naming the file, when it holds none; one that lacks nothing but a palette
    /// is a set. `files` and `directory` outlive the object.
    static ui::Result<NewCharSet>
    In(const ui::Path& file, ui::Files& files, const ui::ProgramDirectory& directory);

    [[nodiscard]] const ui::Path& file() const { return m_file; }

    /// Whether it takes the colours of a palette: it has none of its own.
    [[nodiscard]] bool takesPalette() const { return m_takesPalette; }

    /// Takes the palette in a file. The failure names the file, and changes nothing.
    ui::Status usePalette(const ui::Path& file);

    /// The glyphs as they will be stored, 128 x 128; none while the palette is missing.
    [[nodiscard]] const std::optional<ui::Picture>& picture() const { return m_picture; }

    /// Size and colours of what the file holds; empty without a picture.
    [[nodiscard]] const std::string& facts() const { return m_facts; }

    /// What else is to be known of the picture, a sentence each.
    [[nodiscard]] const std::vector<std::string>& notes() const { return m_notes; }

    /// A name that no set has, taken from that of the file or of its folders.
    [[nodiscard]] std::string suggestedName() const;

    /// Why it cannot be stored under such a name and web address, in a sentence; empty: it can.
    [[nodiscard]] std::string objection(const std::string& name, const std::string& webAddress) const;

    /// Stores the set; its place (0-based) in the list. The failure says why nothing was stored.
    [[nodiscard]] ui::Result<int> store(const std::string& name, const std::string& webAddress) const;

private:
    NewCharSet(ui::Path file, ui::Files& files, const ui::ProgramDirectory& directory)
        : m_file(std::move(file))
        , m_files(&files)
        , m_directory(&directory) {}

    ui::Status take(artwork::Artwork artwork);

    ui::Path m_file;
    ui::Files* m_files;
    const ui::ProgramDirectory* m_directory;
    artwork::CharSetRecords m_installed;
    bool m_takesPalette = false;
    artwork::Artwork m_artwork;
    std::optional<ui::Picture> m_picture;
    std::string m_facts;
    std::vector<std::string> m_notes;
};

/// How the file choosers for a character set and for its palette are opened.
[[nodiscard]] ui::FileDialogRequest CharSetRequest();
[[nodiscard]] ui::FileDialogRequest PaletteRequest(const ui::Path& charSet);

} // namespace shell
