// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "check/Report.h"

#include "check/Json.h"
#include "cli/TerminalText.h"
#include "games/Lists.h"
#include "glyphs/GlyphWords.h"

#include <algorithm>
#include <array>
#include <ostream>

namespace check {

namespace {

using games::Finding;
using games::Weight;

/// How many lines on single rows of a family people are shown; programs are shown everything.
constexpr int MostRowLines = 3;

constexpr int TextColumn = 14; ///< where the sentences begin

std::string CountText(std::size_t count, const std::string& thing) {
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

std::string HeadOf(const Judgement& judgement) {
    const std::size_t rows = judgement.families.empty() ? 0 : judgement.families.front().rows.size();
    std::string what = "a name";
    if (judgement.kind == "animation") {
        what = "an animation of " + CountText(rows, "name");
    } else if (judgement.kind == "messages") {
        what = CountText(rows, "message");
    }
    return what + ", " + games::BytesText(judgement.size.bytes);
}

/// What is said of one row or of several, of none where the text names them.
struct Line {
    const Finding* finding;
    std::vector<int> rows;

    /// Whether the same is to be said of another row.
    [[nodiscard]] bool says(const Finding& other) const {
        return !rows.empty() && finding->text == other.text && finding->shown == other.shown &&
               finding->weight == other.weight && finding->seen.engine == other.seen.engine;
    }
};

std::vector<Line> LinesOn(const FamilyJudgement& family, const Judgement& judgement) {
    std::vector<Line> lines;
    for (const Finding& finding : family.findings) {
        const bool isOnRow = finding.row > 0 && !finding.namesRow && judgement.kind != "name";
        const auto same = std::ranges::find_if(lines, [&](const Line& line) { return line.says(finding); });
        if (!isOnRow) {
            lines.push_back({&finding, {}});
        } else if (same == lines.end()) {
            lines.push_back({&finding, {finding.row}});
        } else {
            same->rows.push_back(finding.row);
        }
    }
    return lines;
}

std::string TextOf(const Line& line, const Judgement& judgement) {
    const Finding& finding = *line.finding;
    const bool isNote = finding.weight == Weight::Note;
    std::string text = isNote ? "note" : "";
    if (!line.rows.empty()) {
        text += isNote ? ", " : "";
        text += judgement.kind == "messages" ? "message" : "name";
        text += (line.rows.size() == 1 ? " " : "s ") + games::NumbersText(line.rows);
    }
    text += text.empty() ? "" : ": ";
    text += isNote ? std::string(games::FactsOf(finding.seen.engine).name) + " " : "";
    return text + finding.text + (finding.shown ? " " + glyphs::ReadableRow(*finding.shown) : "");
}

/// What people are told of a family, line by line.
std::vector<std::string> TextsOn(const FamilyJudgement& family, const Judgement& judgement) {
    std::vector<std::string> texts;
    int onRows = 0;
    std::size_t untold = 0;
    for (const Line& line : LinesOn(family, judgement)) {
        onRows += line.rows.empty() ? 0 : 1;
        if (line.rows.empty() || onRows <= MostRowLines) {
            texts.push_back(TextOf(line, judgement));
        } else {
            untold += line.rows.size();
        }
    }
    if (untold > 0) {
        texts.push_back("and so on: " + std::to_string(untold) + " more");
    }
    if (family.arrives()) {
        texts.insert(texts.begin(), "kept");
    }
    if (family.timetable) {
        texts.front() = "plays " + games::TimeText(family.timetable->milliseconds) + "; " + texts.front();
    }
    return texts;
}

std::string_view NameOf(games::Outcome outcome) {
    constexpr std::array<std::string_view, 4> Names{"kept", "changed", "replaced", "refused"};
    return Names.at(static_cast<std::size_t>(outcome));
}

void WriteFinding(JsonWriter& json, const Finding& finding) {
    json.open('{');
    json.member("weight", finding.weight == Weight::Loss ? "loss" : "note");
    json.member("text", std::string_view(finding.text));
    if (finding.row > 0) {
        json.member("row", std::int64_t{finding.row});
    }
    if (finding.column > 0) {
        json.member("cell", std::int64_t{finding.column});
    }
    if (finding.shown) {
        json.numbers("seen", *finding.shown);
    }
    json.member("engine", games::FactsOf(finding.seen.engine).name);
    json.member("version", games::VersionOf(finding.seen));
    json.member("evidence", finding.seen.evidence == games::Evidence::Run ? "run" : "read");
    json.close('}');
}

void WriteRow(JsonWriter& json, const std::optional<games::RowVerdict>& verdict) {
    json.open('{');
    json.member("outcome", verdict ? NameOf(verdict->outcome) : "unknown");
    if (verdict && verdict->outcome != games::Outcome::Refused) {
        json.numbers("seen", verdict->shownRow());
        json.member("reads", verdict->shownCount == 0 ? "" : glyphs::ReadableRow(verdict->shownRow()));
    }
    json.close('}');
}

void WriteFamily(JsonWriter& json, const FamilyJudgement& family) {
    json.open('{');
    json.member("game", games::NameOf(family.family));
    json.member("arrives", family.arrives());
    if (family.timetable) {
        json.member("milliseconds", std::int64_t{family.timetable->milliseconds});
    }
    json.key("rows");
    json.open('[');
    for (const auto& row : family.rows) {
        WriteRow(json, row);
    }
    json.close(']');
    json.key("findings");
    json.open('[');
    for (const Finding& finding : family.findings) {
        WriteFinding(json, finding);
    }
    json.close(']');
    json.close('}');
}

void WriteJudgement(JsonWriter& json, const Judgement& judgement) {
    json.member("kind", judgement.kind);
    json.member("bytes", static_cast<std::int64_t>(judgement.size.bytes));
    if (judgement.command) {
        json.member("command", *judgement.command == games::NameCommand::SetName ? "set name" : "name");
    }
    json.member("arrives", judgement.arrives());
    json.key("games");
    json.open('[');
    for (const FamilyJudgement& family : judgement.families) {
        WriteFamily(json, family);
    }
    json.close(']');
}

} // namespace

void PrintForPeople(std::ostream& output, const Judgement& judgement) {
    output << cli::TerminalText(ui::PathText(judgement.path)) << ": " << HeadOf(judgement) << '\n';
    for (const FamilyJudgement& family : judgement.families) {
        std::string head = "  " + std::string(games::NameOf(family.family));
        for (const std::string& text : TextsOn(family, judgement)) {
            head.resize(TextColumn, ' ');
            output << head << cli::TerminalText(text) << '\n';
            head.clear();
        }
    }
}

void PrintJson(std::ostream& output, const std::vector<JudgedFile>& files) {
    JsonWriter json(output);
    json.open('{');
    json.key("files");
    json.open('[');
    for (const JudgedFile& file : files) {
        json.open('{');
        json.member("file", std::string_view(ui::PathText(file.path)));
        if (file.result) {
            WriteJudgement(json, file.result.value());
        } else {
            json.member("error", std::string_view(file.result.failure().message));
        }
        json.close('}');
    }
    json.close(']');
    json.close('}');
    output << '\n';
}

} // namespace check
