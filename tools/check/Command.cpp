// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "check/Command.h"

#include "check/Report.h"
#include "cli/Arguments.h"
#include "cli/TerminalText.h"

#include <algorithm>
#include <array>
#include <optional>
#include <ostream>

namespace check {

namespace {

constexpr std::string_view Usage =
    R"(Usage: vtm-check [OPTION]... FILE...

Tells what Quake, QuakeWorld and Quake2 make of name, animation and message scripts
(.vtn, .vta, .vtm or .scr): what other players see of them, and what servers do.

  --game GAME[,GAME]...  judge for these games: quake, quakeworld, quake2; all unless given
  --json                 print JSON
  --help                 show this help
  --version              show the version

Ends with 0 when everything arrives as it is written, with 1 when something does not, and
with 2 when a file cannot be judged.
)";

constexpr std::array<cli::Option, 4> Options{
    {{"--help", false}, {"--version", false}, {"--json", false}, {"--game", true}}};

std::string SmallLetters(std::string_view text) {
    std::string small(text);
    std::ranges::transform(small, small.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return small;
}

/// The families that a list separated by commas names, in their own order; nothing when it names others.
std::optional<std::vector<games::Family>> FamiliesOf(std::string_view list) {
    std::array<bool, games::Families.size()> isNamed{};
    for (bool atEnd = false; !atEnd;) {
        const std::size_t comma = list.find(',');
        const std::string word = SmallLetters(list.substr(0, comma));
        const auto found = std::ranges::find_if(
            games::FamilyNames, [&word](std::string_view name) { return SmallLetters(name) == word; });
        if (found == games::FamilyNames.end()) {
            return std::nullopt;
        }
        isNamed.at(static_cast<std::size_t>(found - games::FamilyNames.begin())) = true;
        atEnd = comma == std::string_view::npos;
        list.remove_prefix(atEnd ? list.size() : comma + 1);
    }
    std::vector<games::Family> families;
    for (const games::Family family : games::Families) {
        if (isNamed.at(static_cast<std::size_t>(family))) {
            families.push_back(family);
        }
    }
    return families;
}

ui::Result<Judgement>
JudgeFile(const ui::Files& files, const ui::Path& path, const std::vector<games::Family>& families) {
    const auto bytes = files.read(path);
    if (!bytes) {
        return bytes.failure();
    }
    auto judgement = Judge(path, bytes.value(), families);
    if (!judgement) {
        return ui::Failure{
            "\"" + ui::PathText(path) + "\" cannot be judged: " + judgement.failure().message + "."};
    }
    return judgement;
}

int WrongUsage(std::ostream& errors, const std::string& what) {
    errors << "vtm-check: " << cli::TerminalText(what) << "; \"vtm-check --help\" explains.\n";
    return NotJudged;
}

/// What the whole run ends with.
int ExitCodeOf(const std::vector<JudgedFile>& files) {
    if (std::ranges::any_of(files, [](const JudgedFile& file) { return !file.result; })) {
        return NotJudged;
    }
    const bool allArrives =
        std::ranges::all_of(files, [](const JudgedFile& file) { return file.result.value().arrives(); });
    return allArrives ? AllArrives : SomethingIsLost;
}

} // namespace

int RunCommand(std::span<const std::string> arguments, const Surroundings& surroundings) {
    const auto parsed = cli::ParseArguments(arguments, Options);
    if (!parsed) {
        return WrongUsage(surroundings.errors, parsed.failure().message);
    }
    if (parsed.value().has("--help")) {
        surroundings.output << Usage;
        return AllArrives;
    }
    if (parsed.value().has("--version")) {
        surroundings.output << "vtm-check " VTM_VERSION "\n";
        return AllArrives;
    }
    const std::string list = parsed.value().value("--game").value_or("quake,quakeworld,quake2");
    const auto families = FamiliesOf(list);
    if (!families) {
        return WrongUsage(
            surroundings.errors, "the games are quake, quakeworld and quake2, not \"" + list + "\"");
    }
    if (parsed.value().words.empty()) {
        surroundings.errors << Usage;
        return NotJudged;
    }
    const bool isJson = parsed.value().has("--json");
    std::vector<JudgedFile> judged;
    for (const std::string& word : parsed.value().words) {
        const ui::Path path = ui::PathFromText(word);
        judged.push_back({path, JudgeFile(surroundings.files, path, *families)});
        const auto& result = judged.back().result;
        if (!result) {
            surroundings.errors << "vtm-check: " << cli::TerminalText(result.failure().message) << '\n';
        } else if (!isJson) {
            PrintForPeople(surroundings.output, result.value());
        }
    }
    if (isJson) {
        PrintJson(surroundings.output, judged);
    }
    return ExitCodeOf(judged);
}

} // namespace check
