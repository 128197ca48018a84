// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "check/Judgement.h"

#include "check/GameScript.h"

#include <algorithm>
#include <array>

namespace check {

namespace {

using editing::Page;
using games::Family;
using games::Finding;
using games::Weight;

/// What there is to say of a script's name, if a key is to run it.
std::vector<Finding> OnFileName(Family family, const ui::Path& path) {
    using Kind = games::NameTrouble::Kind;
    const std::string name = ui::PathText(path.filename());
    const games::NameTrouble trouble = games::TroubleOfScriptName(name, std::span(&family, 1));
    switch (trouble.kind) {
    case Kind::EveryGame:
    case Kind::SomeGames: {
        const bool isShown = trouble.byte > 32 && trouble.byte < 127;
        const std::string byte = trouble.byte == ' ' ? "a blank"
                                 : isShown           ? std::string(1, trouble.byte)
                                                     : "an unusual letter";
        return {{Weight::Note, "runs no file from a key that has " + byte + " in its name", trouble.seen}};
    }
    case Kind::TooLong:
        return {{Weight::Note, "runs no file from a key that has so long a name", trouble.seen}};
    case Kind::None:
        break;
    }
    return {};
}

/// Lines by the first of them: "line 3 ", "line 3 and 2 others ".
std::string LinesText(const Lines& lines) {
    const int others = lines.count - 1;
    return "line " + std::to_string(lines.first) +
           (others == 0 ? " " : " and " + std::to_string(others) + (others == 1 ? " other " : " others "));
}

/// The names of an animation as they are judged. Those that are not known are blank.
class AnimationNames {
public:
    explicit AnimationNames(const std::vector<ScriptRow>& rows)
        : m_cells(rows.size() * games::CellsOfName, glyphs::BlankGlyph) {
        for (std::size_t i = 0; i < rows.size(); ++i) {
            std::ranges::copy(
                rows[i].glyphs, m_cells.begin() + static_cast<std::ptrdiff_t>(i * games::CellsOfName));
            m_ticks.push_back(static_cast<std::int16_t>(rows[i].ticks));
        }
    }

    [[nodiscard]] games::TimedNames names() const { return {m_cells, m_ticks}; }

private:
    std::vector<games::GlyphCode> m_cells;
    std::vector<std::int16_t> m_ticks;
};

/// Judges a script in one family.
class FamilyJudge {
public:
    FamilyJudge(Family family, const GameScript& script)
        : m_script(script) {
        m_judgement.family = family;
    }

    FamilyJudgement judge(const games::ScriptSize& size) && {
        addLines(m_script.unquoted, "does not end with its quote", "do not end with their quotes");
        addLines(m_script.others, "holds another command", "hold other commands");
        if (m_script.kind == Page::Messages) {
            addLines(m_script.surplus, "holds another message", "hold other messages");
        } else {
            addLines(m_script.surplus, "holds another name", "hold other names");
        }
        add(games::FindingsOnScript(family(), size, m_script.command));
        addRows();
        std::stable_partition(
            m_judgement.findings.begin(), m_judgement.findings.end(),
            [](const Finding& finding) { return finding.weight == Weight::Loss; });
        return std::move(m_judgement);
    }

private:
    [[nodiscard]] Family family() const { return m_judgement.family; }

    void add(std::vector<Finding> findings) {
        std::ranges::move(findings, std::back_inserter(m_judgement.findings));
    }

    void addLines(const Lines& lines, std::string_view one, std::string_view several) {
        if (lines.count > 0) {
            m_judgement.findings.push_back(
                {Weight::Loss, LinesText(lines) + std::string(lines.count == 1 ? one : several),
                 games::RuleOf(family(), games::Station::Own, '\n').seen});
        }
    }

    void addRows() {
        const bool isMessage = m_script.kind == Page::Messages;
        for (const ScriptRow& row : m_script.rows) {
            auto& verdict = m_judgement.rows.emplace_back();
            if (row.isKnown) {
                verdict = isMessage ? games::JudgeMessage(family(), row.glyphs)
                                    : games::JudgeName(family(), games::Audience::Others, row.glyphs);
            }
        }
        if (m_script.kind == Page::Animation) {
            const AnimationNames animation(m_script.rows);
            m_judgement.timetable = games::TimetableOf(family(), animation.names());
            add(games::FindingsOnAnimation(family(), animation.names()));
            std::erase_if(m_judgement.findings, [this](const Finding& finding) {
                return finding.row > 0 && !finding.namesRow &&
                       !m_judgement.rows[static_cast<std::size_t>(finding.row) - 1];
            });
            return;
        }
        for (int number = 1; const ScriptRow& row : m_script.rows) {
            if (row.isKnown) {
                add(isMessage ? games::FindingsOnMessage(family(), row.glyphs, number)
                              : games::FindingsOnName(family(), row.glyphs));
            }
            ++number;
        }
    }

    const GameScript& m_script;
    FamilyJudgement m_judgement{};
};

/// In the order of Page.
constexpr std::array<std::string_view, editing::Kinds.size()> KindNames{"name", "animation", "messages"};

} // namespace

bool FamilyJudgement::arrives() const {
    return std::ranges::none_of(
        findings, [](const Finding& finding) { return finding.weight == Weight::Loss; });
}

bool Judgement::arrives() const {
    return std::ranges::all_of(families, [](const FamilyJudgement& family) { return family.arrives(); });
}

ui::Result<Judgement>
Judge(const ui::Path& path, std::string_view bytes, const std::vector<Family>& families) {
    const auto script = ReadGameScript(bytes);
    if (!script) {
        return script.failure();
    }
    Judgement judgement{
        path,
        KindNames.at(static_cast<std::size_t>(script.value().kind)),
        games::SizeOf(bytes),
        script.value().command,
        {}};
    for (const Family family : families) {
        FamilyJudgement judged = FamilyJudge(family, script.value()).judge(judgement.size);
        std::ranges::move(OnFileName(family, path), std::back_inserter(judged.findings));
        judgement.families.push_back(std::move(judged));
    }
    return judgement;
}

} // namespace check
