// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "thumbnail/Command.h"

#include "cli/Arguments.h"
#include "cli/NamedDirectory.h"
#include "cli/Script.h"
#include "cli/TerminalText.h"
#include "glyphs/PngPicture.h"
#include "glyphs/mdlData.h"
#include "thumbnail/Drawing.h"
#include "ui/FileWriter.h"

#include <array>
#include <limits>
#include <optional>
#include <ostream>
#include <variant>

namespace thumbnail {

namespace {

constexpr std::string_view Usage =
    R"(Usage: vtm-thumbnail [OPTION]... INPUT OUTPUT.png
       vtm-thumbnail [OPTION]... INPUT --animate OUTPUT.gif

Draws a name, animation or message script (.vtn, .vta, .vtm or .scr) as its glyphs.

  --size N           width and height of the PNG picture, greatest width of the GIF,
                     16 to 1024 pixels (128 and 240 unless given)
  --set N            number of the character set; 1 unless given
  --animate FILE     write an animation as a GIF that plays like it does in the game
  --directory DIR    where the character sets lie; otherwise beside the program
  --help             show this help
)";

constexpr std::array<cli::Option, 5> Options{
    {{"--help", false}, {"--size", true}, {"--set", true}, {"--animate", true}, {"--directory", true}}};

constexpr int DefaultSide = 128;
constexpr int DefaultWidth = 240; ///< glyphs as large as in the program's own pages

/// What the user asks for.
struct Task {
    ui::Path input;
    std::optional<ui::Path> picture;
    std::optional<ui::Path> animation;
    std::optional<int> size;
    int set = 1;
};

/// The task that the arguments describe; nothing when they describe none.
std::optional<Task> TaskOf(const cli::Arguments& arguments) {
    const auto& words = arguments.words;
    Task task;
    if (const auto file = arguments.value("--animate")) {
        task.animation = ui::PathFromText(*file);
    }
    if (words.empty() || words.size() > 2 || (words.size() == 1 && !task.animation)) {
        return std::nullopt;
    }
    task.input = ui::PathFromText(words[0]);
    if (words.size() == 2) {
        task.picture = ui::PathFromText(words[1]);
    }
    if (const auto size = arguments.value("--size")) {
        task.size = cli::NumberIn(*size, MinSide, MaxSide);
        if (!task.size) {
            return std::nullopt;
        }
    }
    if (const auto number = arguments.value("--set")) {
        const auto set = cli::NumberIn(*number, 1, std::numeric_limits<std::int16_t>::max());
        if (!set) {
            return std::nullopt;
        }
        task.set = *set;
    }
    return task;
}

ui::Result<ui::Picture> ArtworkOf(int set, ui::Files& files, const ui::ProgramDirectory& directory) {
    const auto record = glyphs::ReadCharSetRecord(files, directory, set);
    if (!record) {
        return record.failure();
    }
    // Beyond the end of the list the first record is what is read.
    const std::size_t count = glyphs::LoadCharSetNames(files, directory).size();
    if (static_cast<std::size_t>(set) > count) {
        return ui::Failure{
            "There is no character set " + std::to_string(set) + "; there are " + std::to_string(count) +
            "."};
    }
    return glyphs::LoadArtwork(files, directory, record.value().artworkSlot);
}

ui::Failure NotDrawn(const ui::Path& input, const ui::Failure& failure) {
    return {"\"" + ui::PathText(input) + "\" cannot be drawn: " + failure.message + "."};
}

ui::Status
WriteOutput(ui::Files& files, const Task& task, const ui::Path& output, const ui::Result<ui::Bytes>& bytes) {
    if (!bytes) {
        return NotDrawn(task.input, bytes.failure());
    }
    if (files.sameFile(task.input, output)) {
        return ui::Failure{"\"" + ui::PathText(output) + "\" was not written: it is the script itself."};
    }
    return ui::WriteFile(files, output, bytes.value());
}

ui::Status Perform(const Task& task, ui::Files& files, const ui::ProgramDirectory& directory) {
    const auto bytes = files.read(task.input);
    if (!bytes) {
        return bytes.failure();
    }
    const auto script = cli::ReadScript(bytes.value());
    if (!script) {
        return NotDrawn(task.input, script.failure());
    }
    const auto* animation = std::get_if<editing::AnimationDocument>(&script.value());
    if (task.animation && animation == nullptr) {
        return NotDrawn(task.input, {"it is not an animation"});
    }
    const auto artwork = ArtworkOf(task.set, files, directory);
    if (!artwork) {
        return artwork.failure();
    }
    if (task.picture) {
        const ui::Picture picture =
            DrawThumbnail(script.value(), artwork.value(), task.size.value_or(DefaultSide));
        if (auto written = WriteOutput(files, task, *task.picture, glyphs::EncodePng(picture)); !written) {
            return written;
        }
    }
    if (task.animation) {
        const auto frames = DrawAnimation(*animation, artwork.value(), task.size.value_or(DefaultWidth));
        return WriteOutput(files, task, *task.animation, glyphs::EncodeAnimatedGif(frames));
    }
    return {};
}

} // namespace

int RunCommand(std::span<const std::string> arguments, const Surroundings& surroundings) {
    const auto parsed = cli::ParseArguments(arguments, Options);
    if (!parsed) {
        surroundings.errors << "vtm-thumbnail: " << cli::TerminalText(parsed.failure().message)
                            << "; \"vtm-thumbnail --help\" explains.\n";
        return cli::WrongUsage;
    }
    if (parsed.value().has("--help")) {
        surroundings.output << Usage;
        return cli::Succeeded;
    }
    const auto task = TaskOf(parsed.value());
    if (!task) {
        surroundings.errors << Usage;
        return cli::WrongUsage;
    }
    std::optional<cli::NamedDirectory> named;
    if (const auto folder = parsed.value().value("--directory")) {
        named.emplace(ui::PathFromText(*folder));
    }
    const auto done = Perform(*task, surroundings.files, named ? *named : surroundings.directory);
    if (!done) {
        surroundings.errors << "vtm-thumbnail: " << cli::TerminalText(done.failure().message) << '\n';
        return cli::Failed;
    }
    return cli::Succeeded;
}

} // namespace thumbnail
