// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "games/Findings.h"

#include "games/RowWords.h"

#include <algorithm>

namespace games {

namespace {

constexpr Sighting FteServer{Engine::Fte, Evidence::Read};
constexpr Sighting StrictRules{Engine::EzQuake, Evidence::Read};
constexpr int StrictWaits = 10; ///< that ezQuake's ruleset qcon allows in a row

/// Names by the first of them: "name 3", "name 3 and 2 others".
std::string NamesText(const NameCount& names) {
    const int others = names.count - 1;
    return "name " + std::to_string(names.first) +
           (others == 0 ? "" : " and " + std::to_string(others) + (others == 1 ? " other" : " others"));
}

/// Puts the findings on a row together.
std::vector<Finding> OnRow(const RowVerdict& verdict, std::span<const GlyphCode> row, int number) {
    std::vector<Finding> findings;
    if (!verdict.arrives()) {
        const RowWords words = WordsOf(verdict, row);
        Finding loss{Weight::Loss, words.text, verdict.seen, number, verdict.column};
        if (words.showsRow) {
            loss.shown.emplace(verdict.shownRow().begin(), verdict.shownRow().end());
        }
        findings.push_back(std::move(loss));
    }
    for (const EngineNote& note : NotesOn(verdict.family, verdict.station, row)) {
        findings.push_back({Weight::Note, std::string(note.text), note.seen, number, note.column});
    }
    return findings;
}

void AddQuakeTimes(const Timetable& table, std::vector<Finding>& findings) {
    if (table.taken < table.changes) {
        findings.push_back(
            {Weight::Note,
             "servers take one name in 5 seconds: " + std::to_string(table.taken) + " of " +
                 std::to_string(table.changes),
             TakeLimit.seen});
    }
}

void AddQuakeWorldTimes(const Timetable& table, std::vector<Finding>& findings) {
    if (table.kicked.name > 0) {
        findings.push_back(
            {Weight::Loss,
             "kicked at name " + std::to_string(table.kicked.name) + ", after " +
                 TimeText(table.kicked.milliseconds),
             KickLimit.seen, table.kicked.name, 0, true});
    }
    if (table.cutOff.name > 0) {
        findings.push_back(
            {Weight::Loss,
             "name " + std::to_string(table.cutOff.name) +
                 " and what follows is never run: a script may wait " +
                 TimeText(WaitLimit.ticks * PaceOf(table.family).tick),
             WaitLimit.seen, table.cutOff.name, 0, true});
    }
    if (table.kicked.name > 0) {
        findings.push_back({Weight::Note, "servers mute the player for 5 minutes instead", FteServer});
    }
    if (table.ticks > StrictWaits) {
        findings.push_back(
            {Weight::Note,
             "runs no more than " + std::to_string(StrictWaits) + " waits under the ruleset qcon",
             StrictRules});
    }
}

void AddQuake2Times(const Timetable& table, std::vector<Finding>& findings) {
    if (table.unsent.count > 0) {
        findings.push_back(
            {Weight::Loss,
             NamesText(table.unsent) + (table.unsent.count == 1 ? " is" : " are") + " never sent: no ticks",
             SkipLimit.seen, table.unsent.first, 0, true});
    }
    if (table.doubtful.count > 0) {
        findings.push_back(
            {Weight::Note,
             "may skip " + NamesText(table.doubtful) + ": fewer than " + std::to_string(SkipLimit.ticks) +
                 " ticks",
             SkipLimit.seen, table.doubtful.first, 0, true});
    }
}

} // namespace

std::vector<Finding> FindingsOnName(Family family, std::span<const GlyphCode> row) {
    return OnRow(JudgeName(family, Audience::Others, row), row, 1);
}

std::vector<Finding> FindingsOnMessage(Family family, std::span<const GlyphCode> row, int number) {
    return OnRow(JudgeMessage(family, row), row, number);
}

std::vector<Finding> FindingsOnAnimation(Family family, const TimedNames& names) {
    std::vector<Finding> findings;
    const Timetable table = TimetableOf(family, names);
    switch (family) {
    case Family::Quake:
        AddQuakeTimes(table, findings);
        break;
    case Family::QuakeWorld:
        AddQuakeWorldTimes(table, findings);
        break;
    case Family::Quake2:
        AddQuake2Times(table, findings);
        break;
    }
    for (std::size_t i = 0; i < names.count(); ++i) {
        const auto row = names.name(i);
        auto onRow = OnRow(JudgeName(family, Audience::Others, row), row, static_cast<int>(i) + 1);
        std::ranges::move(onRow, std::back_inserter(findings));
    }
    std::stable_partition(findings.begin(), findings.end(), [](const Finding& finding) {
        return finding.weight == Weight::Loss;
    });
    return findings;
}

std::vector<Finding>
FindingsOnScript(Family family, const ScriptSize& size, std::optional<NameCommand> command) {
    std::vector<Finding> findings;
    if (command) {
        const CommandRule& rule = RuleOf(family, *command);
        if (!rule.runs) {
            findings.push_back({Weight::Loss, std::string(rule.text), rule.seen});
        }
    }
    for (const ScriptLimit& limit : ScriptLimits()) {
        if (FactsOf(limit.seen.engine).family != family) {
            continue;
        }
        const auto add = [&](const std::string& text) {
            findings.push_back({Weight::Note, text, limit.seen});
        };
        switch (FitOf(limit, size)) {
        case Fit::TooLong:
            add("does not run " + BytesText(size.bytes) + ": it takes " + BytesText(limit.most) + " at most");
            break;
        case Fit::MayNotFit:
            add("may not run " + BytesText(size.bytes) + ": " + BytesText(limit.sure) + " are sure");
            break;
        case Fit::LineTooLong:
            add("does not run a line of " + BytesText(size.longestLine) + ": it takes " +
                BytesText(limit.line) + " at most");
            break;
        case Fit::Fits:
            break;
        }
        if (size.hasZero && !limit.takesZero) {
            add("does not run a script with glyph 0");
        }
        if (size.lacksEnd && limit.needsEnd) {
            add("does not run the last line: it has no end");
        }
        if (!command && size.hasCrLf && !limit.takesCrLf) {
            add("shows a closing quote behind each message");
        }
    }
    return findings;
}

std::string TimeText(int milliseconds) {
    const int tenths = (milliseconds + 50) / 100;
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " s";
}

std::string BytesText(std::size_t bytes) {
    std::string text = std::to_string(bytes);
    for (std::size_t at = text.size(); at > 3;) {
        at -= 3;
        text.insert(at, ",");
    }
    return text + (bytes == 1 ? " byte" : " bytes");
}

} // namespace games
