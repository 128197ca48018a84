// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/GameReport.h"

#include "animation/mdlAniPreview.h"
#include "animation/mdlAniServer.h"
#include "editing/mdlCommon.h"
#include "games/Findings.h"

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
std::vector<Finding> FindingsOnAnimationScript(Family family, const games::TimedNames& names) {
    const bool runsName = games::RuleOf(family, games::NameCommand::Name).runs;
    const auto command = runsName ? games::NameCommand::Name : games::NameCommand::SetName;
    return games::FindingsOnScript(family, games::SizeOfAnimation(names, command), command);
}

/// A finding in words, where the row is not known by itself.
std::string FullText(const Finding& finding, Page page) {
    std::string text;
    if (finding.row > 0 && !finding.namesRow && page != Page::Name) {
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

std::string FullTexts(const std::vector<Finding>& findings, Page page) {
    std::string texts;
    for (std::size_t i = 0; i < findings.size() && i < MostLines; ++i) {
        texts += (i == 0 ? "" : "\n") + FullText(findings[i], page) + " (" +
                 games::SightingText(findings[i].seen) + ")";
    }
    if (findings.size() > MostLines) {
        texts += "\nand " + std::to_string(findings.size() - MostLines) + " more";
    }
    return texts;
}

/// The time that an animation takes, and in the preview.
std::string TimesText(Family family, const games::TimedNames& names) {
    const games::Timetable table = games::TimetableOf(family, names);
    return games::TimeText(table.milliseconds) + ", preview " +
           games::TimeText(table.ticks * animation::TickMilliseconds);
}

GameLine LineOf(const editing::PageCursor& page, Family family, const games::TimedNames& names) {
    GameLine line{.family = family, .text = "kept"};
    std::vector<Finding> findings = FindingsOn(page, family, names);
    std::vector<Finding> onScript;
    if (page.page == Page::Animation) {
        const std::string times = TimesText(family, names);
        line.text += ": " + times;
        line.more = "takes " + times + "\n";
        onScript = FindingsOnAnimationScript(family, names);
    }
    const Finding* foremost = Foremost(findings, page.row);
    if (!onScript.empty() && (foremost == nullptr || foremost->weight == Weight::Note)) {
        foremost = &onScript.front();
    }
    if (foremost != nullptr) {
        line.isLoss = foremost->weight == Weight::Loss;
        line.text = (line.isLoss ? "" : line.text + "; ") + FullText(*foremost, page.page);
        line.shown = foremost->shown.value_or(std::vector<glyphs::GlyphCode>{});
        line.row = foremost->row;
        line.column = foremost->row > 0 ? std::max(foremost->column, 1) : 0;
    }
    std::ranges::move(onScript, std::back_inserter(findings));
    line.more += FullTexts(findings, page.page);
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
            report.lines.push_back(LineOf(cursor, family, names));
        }
    }
    for (int row = 1; row <= cursor.rowsInUse; ++row) {
        AddMarks(cursor, row, chosen, report.marks);
    }
    return report;
}

} // namespace shell
