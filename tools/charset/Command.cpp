// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "charset/Command.h"

#include "artwork/CharSetFiles.h"
#include "artwork/InstalledSets.h"
#include "artwork/SetTexts.h"
#include "charset/TerminalPicture.h"
#include "cli/Arguments.h"
#include "cli/NamedDirectory.h"
#include "cli/TerminalText.h"
#include "glyphs/PngPicture.h"
#include "ui/FileWriter.h"

#include <algorithm>
#include <array>
#include <optional>
#include <ostream>

namespace charset {

using artwork::RecordsOf;
using glyphs::CharSetRecord;
using glyphs::ShownText;

namespace {

constexpr std::string_view Usage =
    R"(Usage: vtm-charset [--directory DIR] COMMAND

Lists, adds and removes the character sets that the program shows glyphs with.

  list                         the installed sets and their numbers
  add NAME FILE                add the set in FILE: a picture of 16 x 16 glyphs, 128, 256 or
                               512 pixels a side (PNG, GIF, PCX, BMP, TGA), the raw lump
                               conchars, a gfx.wad, or the pak0.pak of Quake or Quake2
      --web ADDRESS            where the set comes from
      --palette FILE           colors of conchars and gfx.wad: palette.lmp or a pak0.pak
  remove NAME|NUMBER           remove a set
  export NUMBER FILE.png       write a set's picture
  preview NUMBER               show a set in the terminal

  --directory DIR              where vtmtc.dat and vtmgrid.dat lie; otherwise beside the program
                               or, where that cannot be written, in the user's data folder
  --help                       show this help
)";

constexpr std::array<cli::Option, 4> Options{
    {{"--help", false}, {"--directory", true}, {"--web", true}, {"--palette", true}}};

/// How a command went.
using Outcome = ui::Status;

/// One run of the command.
class Run {
public:
    Run(const Surroundings& surroundings, const ui::ProgramDirectory& directory)
        : m_files(surroundings.files)
        , m_directory(directory)
        , m_output(surroundings.output)
        , m_columns(surroundings.columns) {}

    Outcome list();
    Outcome add(const std::string& name, const ui::Path& file, const cli::Arguments& arguments);
    Outcome remove(const std::string& nameOrNumber);
    Outcome exportPicture(const std::string& number, const ui::Path& file);
    Outcome preview(const std::string& number);

private:
    [[nodiscard]] ui::Path listPath() const { return glyphs::CharSetListPath(m_files, m_directory); }

    [[nodiscard]] ui::Result<ui::Picture> pictureOf(const std::string& number);

    ui::Files& m_files;
    const ui::ProgramDirectory& m_directory;
    std::ostream& m_output;
    int m_columns;
};

/// The index (0-based) of the set that a number (1-based) names.
std::optional<std::size_t> IndexOf(const std::string& number, std::size_t count) {
    const auto found = cli::NumberIn(number, 1, static_cast<int>(count));
    return found ? std::optional(static_cast<std::size_t>(*found - 1)) : std::nullopt;
}

ui::Failure NoSuchSet(const std::string& what, std::size_t count) {
    return {
        "There is no character set \"" + what + "\"; \"vtm-charset list\" shows the " +
        std::to_string(count) + " there are."};
}

/// Cells of a table's column as wide as its widest one. Every character is one column wide.
std::size_t WidthOf(std::string_view utf8) {
    return static_cast<std::size_t>(std::ranges::count_if(
        utf8, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

std::string Filled(std::string text, std::size_t width) {
    text.append(width - std::min(width, WidthOf(text)), ' ');
    return text;
}

std::string RightAligned(const std::string& text, std::size_t width) {
    return std::string(width - std::min(width, text.size()), ' ') + text;
}

Outcome Run::list() {
    const ui::Path path = listPath();
    const auto list = m_files.read(path);
    if (!list) {
        return list.failure();
    }
    const auto records = RecordsOf(list.value());
    std::size_t nameWidth = WidthOf("Name");
    for (const CharSetRecord& record : records) {
        nameWidth = std::max(nameWidth, WidthOf(ShownText(record.name)));
    }
    m_output << cli::TerminalText(ui::PathText(path)) << ":\n"
             << "  No.   Slot  " << Filled("Name", nameWidth) << "  Address\n";
    for (std::size_t index = 0; index < records.size(); ++index) {
        const CharSetRecord& record = records[index];
        std::string line = RightAligned(std::to_string(index + 1), 5) + "  " +
                           RightAligned(std::to_string(record.artworkSlot), 5) + "  " +
                           Filled(ShownText(record.name), nameWidth) + "  " + ShownText(record.webAddress);
        line.resize(line.find_last_not_of(' ') + 1);
        m_output << line << '\n';
    }
    return {};
}

Outcome Run::add(const std::string& name, const ui::Path& file, const cli::Arguments& arguments) {
    const auto naming = artwork::NamingOf(name, arguments.value("--web").value_or(""));
    if (!naming) {
        return ui::Failure{"Nothing was added: " + naming.failure().message + "."};
    }
    std::optional<artwork::Palette> palette;
    if (const auto paletteFile = arguments.value("--palette")) {
        const auto read = artwork::PaletteIn(ui::PathFromText(*paletteFile));
        if (!read) {
            return read.failure();
        }
        palette = read.value();
    }
    const auto drawn = artwork::ArtworkIn(file, palette);
    if (!drawn) {
        return drawn.failure();
    }
    const auto added = artwork::AddSet(m_files, m_directory, naming.value(), file, drawn.value());
    if (!added) {
        return added.failure();
    }
    for (const std::string& note : drawn.value().notes) {
        m_output << note << '\n';
    }
    const artwork::SlotImage& image = added.value().image;
    if (image.colours < image.originalColours) {
        m_output << "Its " << image.originalColours << " colors were reduced to " << image.colours
                 << ", so that it fits.\n";
    }
    m_output << "\"" << name << "\" is character set " << added.value().place + 1 << " now.\n";
    return {};
}

/// The place of the set that a name or a number stands for.
ui::Result<std::size_t> PlaceOf(const std::string& nameOrNumber, const artwork::CharSetRecords& records) {
    if (const auto index = IndexOf(nameOrNumber, records.size())) {
        return *index;
    }
    if (!artwork::IsNumber(nameOrNumber)) {
        const auto field = artwork::FieldText("name", nameOrNumber, glyphs::CharSetNameWidth);
        const auto found = std::ranges::find_if(records, [&](const CharSetRecord& record) {
            return field && artwork::SameSetName(record.name, field.value());
        });
        if (found != records.end()) {
            return static_cast<std::size_t>(found - records.begin());
        }
    }
    return NoSuchSet(nameOrNumber, records.size());
}

Outcome Run::remove(const std::string& nameOrNumber) {
    const auto removed =
        artwork::RemoveSet(m_files, m_directory, [&](const artwork::CharSetRecords& records) {
            return PlaceOf(nameOrNumber, records);
        });
    if (!removed) {
        return removed.failure();
    }
    m_output << "\"" << removed.value().name << "\" was removed.\n";
    if (removed.value().othersMoved) {
        m_output << "The sets after it have moved up: if one of them was chosen in the options, choose it "
                    "again.\n";
    }
    return {};
}

ui::Result<ui::Picture> Run::pictureOf(const std::string& number) {
    const auto list = m_files.read(listPath());
    if (!list) {
        return list.failure();
    }
    const auto records = RecordsOf(list.value());
    const auto index = IndexOf(number, records.size());
    if (!index) {
        return NoSuchSet(number, records.size());
    }
    return glyphs::LoadArtwork(m_files, m_directory, records[*index].artworkSlot);
}

Outcome Run::exportPicture(const std::string& number, const ui::Path& file) {
    if (file.extension() != ".png") {
        return ui::Failure{"\"" + ui::PathText(file) + "\" was not written: its name must end in .png."};
    }
    const auto picture = pictureOf(number);
    if (!picture) {
        return picture.failure();
    }
    const auto png = glyphs::EncodePng(picture.value());
    if (!png) {
        return ui::Failure{"\"" + ui::PathText(file) + "\" was not written: " + png.failure().message + "."};
    }
    return ui::WriteFile(m_files, file, png.value(), ui::Links::Replace);
}

Outcome Run::preview(const std::string& number) {
    const auto picture = pictureOf(number);
    if (!picture) {
        return picture.failure();
    }
    m_output << TerminalPicture(picture.value(), m_columns);
    return {};
}

/// The command that the words name, with as many words as it takes; nothing if there is none.
std::optional<Outcome> Dispatch(Run& run, const cli::Arguments& arguments) {
    const auto& words = arguments.words;
    const auto is = [&words](std::string_view command, std::size_t count) {
        return words.size() == count + 1 && words.front() == command;
    };
    const bool isAdd = is("add", 2);
    if (!isAdd && (arguments.has("--web") || arguments.has("--palette"))) {
        return std::nullopt;
    }
    if (isAdd) {
        return run.add(words[1], ui::PathFromText(words[2]), arguments);
    }
    if (is("list", 0)) {
        return run.list();
    }
    if (is("remove", 1)) {
        return run.remove(words[1]);
    }
    if (is("export", 2)) {
        return run.exportPicture(words[1], ui::PathFromText(words[2]));
    }
    if (is("preview", 1)) {
        return run.preview(words[1]);
    }
    return std::nullopt;
}

} // namespace

int RunCommand(std::span<const std::string> arguments, const Surroundings& surroundings) {
    const auto parsed = cli::ParseArguments(arguments, Options);
    if (!parsed) {
        surroundings.errors << "vtm-charset: " << cli::TerminalText(parsed.failure().message)
                            << "; \"vtm-charset --help\" explains.\n";
        return cli::WrongUsage;
    }
    if (parsed.value().has("--help")) {
        surroundings.output << Usage;
        return cli::Succeeded;
    }
    std::optional<cli::NamedDirectory> named;
    if (const auto folder = parsed.value().value("--directory")) {
        named.emplace(ui::PathFromText(*folder));
    }
    Run run(surroundings, named ? *named : surroundings.directory);
    const auto outcome = Dispatch(run, parsed.value());
    if (!outcome) {
        surroundings.errors << Usage;
        return cli::WrongUsage;
    }
    if (!outcome->ok()) {
        surroundings.errors << "vtm-charset: " << cli::TerminalText(outcome->failure().message) << '\n';
        return cli::Failed;
    }
    surroundings.output.flush();
    if (!surroundings.output) {
        surroundings.errors << "vtm-charset: the output could not be written.\n";
        return cli::Failed;
    }
    return cli::Succeeded;
}

} // namespace charset
