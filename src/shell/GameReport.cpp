// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/GameReport.h"

#include "animation/mdlAniPreview.h"
#include "animation/mdlAniServer.h"
#include "editing/mdlCommon.h"
#include "games/Findings.h"
#include "glyphs/GlyphWords.h"

#include <algorithm>

namespace shell {

using editing::Page;
using games::Family;
using games::Finding;
using games::Weight;

namespace {

/// More lines than this fill the screen.
constexpr std::size_t MostLines = 12;

constexpr int NeverSaid = 9; ///< behind every place

bool IsBlank(std::span<const glyphs::GlyphCode> cells) {
    return std::ranges::all_of(cells, [](glyphs::GlyphCode code) { return code == glyphs::BlankGlyph; });
}

/// All that is to be said about what stands on the page.
std::vector<Finding>
FindingsOn(const editing::PageCursor& page, Family family, const games::TimedNames& names) {
    switch (page.page) {
    case Page::Name:
        return games::FindingsOnName(family, page.rows.row(1));
    case Page::Animation:
        return games::FindingsOnAnimation(family, names);
    case Page::Messages:
        break;
    }
    std::vector<Finding> findings;
    for (int row = 1; row <= page.rowsInUse; ++row) {
        if (!IsBlank(page.rows.row(row))) {
            std::ranges::move(
                games::FindingsOnMessage(family, page.rows.row(row), row), std::back_inserter(findings));
        }
    }
    return findings;
}

/// What is to be said about the script of an animation, by the command that the family knows.
struct OnScript {
    std::vector<Finding> findings;
    std::string brief; ///< the first of them
};

/// Which of a family's engines a script is too long for; empty: none.
std::string LengthText(Family family, const games::ScriptSize& size) {
    for (const games::Fit fit : {games::Fit::TooLong, games::Fit::MayNotFit}) {
        for (const games::ScriptLimit& limit : games::ScriptLimits()) {
            const games::EngineFacts& engine = games::FactsOf(limit.seen.engine);
            if (engine.family == family && games::FitOf(limit, size) == fit) {
                return (fit == games::Fit::TooLong ? "too long for " : "may be too long for ") +
                       std::string(engine.name) + ": " + games::BytesText(size.bytes);
            }
        }
    }
    return {};
}

/// A finding in words, where it is not about the row `known`.
std::string FullText(const Finding& finding, Page page, int known = 0) {
    std::string text;
    if (finding.row != known && !finding.namesRow && page != Page::Name) {
        text = (page == Page::Animation ? "name " : "message ") + std::to_string(finding.row) + ": ";
    }
    if (finding.weight == Weight::Note) {
        text += std::string(games::FactsOf(finding.seen.engine).name) + " ";
    }
    return text + finding.text;
}

/// What a line says: a loss, or else what one engine does to a row; what that engine does to every animation
/// is for those who ask. Of rows, the cursor's comes first. Null when there is nothing to say.
const Finding* Foremost(const std::vector<Finding>& findings, int currentRow) {
    const auto rank = [currentRow](const Finding& finding) {
        const bool isOfRow = finding.row > 0 && !finding.namesRow;
        const int place = !isOfRow ? 0 : finding.row == currentRow ? 1 : 2;
        return finding.weight == Weight::Loss ? place : isOfRow ? place + 3 : NeverSaid;
    };
    const auto foremost = std::ranges::min_element(findings, {}, rank);
    return foremost == findings.end() || rank(*foremost) == NeverSaid ? nullptr : &*foremost;
}

OnScript FindingsOnAnimationScript(Family family, const games::TimedNames& names) {
    const bool runsName = games::RuleOf(family, games::NameCommand::Name).runs;
    const auto command = runsName ? games::NameCommand::Name : games::NameCommand::SetName;
    const games::ScriptSize size = games::SizeOfAnimation(names, command);
    OnScript script{games::FindingsOnScript(family, size, command), LengthText(family, size)};
    if (script.brief.empty() && !script.findings.empty()) {
        script.brief = FullText(script.findings.front(), Page::Animation);
    }
    return script;
}

/// Whether a row has a glyph in the second colour that differs from the same in the first.
bool HasColour(std::span<const glyphs::GlyphCode> row) {
    constexpr glyphs::GlyphCode ColouredBlank = 160;
    return std::ranges::any_of(row, [](glyphs::GlyphCode code) { return code > ColouredBlank; });
}

/// The row that is seen, in words, which by themselves do not tell of colours; empty: none is shown.
std::string ShownText(const Finding& finding, const editing::PageCursor& page) {
    if (!finding.shown) {
        return {};
    }
    const bool losesColour = HasColour(page.rows.row(finding.row)) && !HasColour(*finding.shown);
    return glyphs::ReadableRow(*finding.shown) + (losesColour ? ", in one color" : "");
}

std::string FullTexts(const std::vector<Finding>& findings, const editing::PageCursor& page) {
    std::string texts;
    for (std::size_t i = 0; i < findings.size() && i < MostLines; ++i) {
        const std::string shown = ShownText(findings[i], page);
        texts += (i == 0 ? "" : "\n") + FullText(findings[i], page.page) + (shown.empty() ? "" : " ") +
                 shown + " (" + games::SightingText(findings[i].seen) + ")";
    }
    if (findings.size() > MostLines) {
        texts += "\nand " + std::to_string(findings.size() - MostLines) + " more";
    }
    return texts;
}

/// How long an animation takes.
struct Times {
    std::string inGame;
    std::string inPreview;
};

Times TimesOf(Family family, const games::TimedNames& names) {
    const games::Timetable table = games::TimetableOf(family, names);
    return {games::TimeText(table.milliseconds), games::TimeText(table.ticks * animation::TickMilliseconds)};
}

GameLine
LineOf(const editing::PageCursor& page, Family family, const games::TimedNames& names, bool tellsPreview) {
    GameLine line{.family = family, .text = "kept"};
    std::vector<Finding> findings = FindingsOn(page, family, names);
    const bool isAnimation = page.page == Page::Animation;
    const OnScript onScript = isAnimation ? FindingsOnAnimationScript(family, names) : OnScript{};
    const Finding* const foremost = Foremost(findings, page.row);
    line.isLoss = foremost != nullptr && foremost->weight == Weight::Loss;
    if (!line.isLoss && !onScript.findings.empty()) {
        line.isLoss = onScript.findings.front().weight == Weight::Loss;
        line.text = onScript.brief;
    } else if (foremost != nullptr) {
        // Before what one engine does, the time of an animation tells that the others play it.
        line.text = (line.isLoss || isAnimation ? "" : "kept; ") + FullText(*foremost, page.page, page.row);
        line.shown = foremost->shown.value_or(std::vector<glyphs::GlyphCode>{});
        line.shownText = ShownText(*foremost, page);
        line.row = foremost->row;
        line.column = foremost->row > 0 ? std::max(foremost->column, 1) : 0;
    }
    if (isAnimation) {
        const Times times = TimesOf(family, names);
        line.text = times.inGame + (tellsPreview ? " (preview " + times.inPreview + "); " : "; ") + line.text;
        line.more = "takes " + times.inGame + ", preview " + times.inPreview + "\n";
    }
    std::ranges::copy(onScript.findings, std::back_inserter(findings));
    line.more += FullTexts(findings, page);
    return line;
}

bool IsMarked(games::Fate fate) {
    return fate == games::Fate::Dropped || fate == games::Fate::Lost || fate == games::Fate::Refused;
}

void AddMarks(
    const editing::PageCursor& page, int row, const games::FamilyChoice& chosen,
    std::vector<editing::CellBlock>& marks) {
    std::array<bool, games::RowVerdict::MaxCells> isMarkedCell{};
    for (const Family family : games::Families) {
        if (!chosen.at(static_cast<std::size_t>(family))) {
            continue;
        }
        const auto cells = page.rows.row(row);
        const games::RowVerdict verdict = page.page == Page::Messages
                                              ? games::JudgeMessage(family, cells)
                                              : games::JudgeName(family, games::Audience::Others, cells);
        for (std::size_t i = 0; i < cells.size(); ++i) {
            isMarkedCell.at(i) = isMarkedCell.at(i) || IsMarked(verdict.fates.at(i));
        }
    }
    for (int column = 1; column <= page.rows.width(); ++column) {
        if (isMarkedCell.at(static_cast<std::size_t>(column - 1))) {
            marks.push_back({column, row, 1, 1});
        }
    }
}

} // namespace

GameReport ReportOf(editing::Documents& documents, Page page, const games::FamilyChoice& chosen) {
    GameReport report;
    const editing::PageCursor cursor = editing::CursorOf(documents, page);
    if (IsBlank(cursor.rows.firstRows(cursor.rowsInUse))) {
        return report;
    }
    const games::TimedNames names = animation::TimedNamesOf(documents.animation);
    for (const Family family : games::Families) {
        if (chosen.at(static_cast<std::size_t>(family))) {
            report.lines.push_back(LineOf(cursor, family, names, report.lines.empty()));
        }
    }
    for (int row = 1; row <= cursor.rowsInUse; ++row) {
        AddMarks(cursor, row, chosen, report.marks);
    }
    return report;
}

} // namespace shell
