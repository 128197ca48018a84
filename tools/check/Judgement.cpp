// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "check/Judgement.h"

#include "glyphs/RowText.h"
#include "scripts/mdlMacro.h"

#include <algorithm>
#include <array>
#include <variant>

namespace check {

namespace {

using games::Family;
using games::Finding;
using games::NameCommand;
using games::Weight;

bool Holds(std::string_view line, std::string_view word) {
    return line.find(word) != std::string_view::npos;
}

/// What the lines of a script tell that its document does not.
struct Lines {
    std::optional<NameCommand> command; ///< of the first name
    int names = 0;                      ///< lines that set a name
    int broken = 0;                     ///< the first line whose quotes do not end, from 1; 0: none
};

Lines ReadLines(std::string_view bytes) {
    Lines read;
    glyphs::ByteLines lines(bytes);
    for (int number = 1; !lines.atEnd(); ++number) {
        const std::string_view line = lines.next();
        const bool isName = Holds(line, "name");
        if (number == 1 || (!isName && !Holds(line, "say"))) {
            continue;
        }
        if (isName) {
            ++read.names;
            const bool isSet = Holds(line.substr(0, line.find("name")), "set");
            read.command = read.command.value_or(isSet ? NameCommand::SetName : NameCommand::Name);
        }
        const std::size_t quote = line.find('"');
        const bool ends = quote != std::string_view::npos && line.size() > quote + 1 && line.back() == '"';
        read.broken = read.broken == 0 && !ends ? number : read.broken;
    }
    return read;
}

void Add(std::vector<Finding>& findings, std::vector<Finding> more) {
    std::ranges::move(more, std::back_inserter(findings));
}

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

/// Judges what a script holds, whatever its kind, in one family.
class FamilyJudge {
public:
    FamilyJudge(Family family, std::string_view bytes, const Lines& lines)
        : m_bytes(bytes)
        , m_lines(lines) {
        m_judgement.family = family;
    }

    FamilyJudgement operator()(const editing::NameDocument& name) {
        m_judgement.rows = {games::JudgeName(family(), games::Audience::Others, name.cells)};
        return finish(games::FindingsOnName(family(), name.cells));
    }

    FamilyJudgement operator()(const editing::MessageDocument& messages) {
        const int count = scripts::CountMessages(m_bytes);
        std::vector<Finding> findings;
        for (int number = 1; number <= count; ++number) {
            const auto row = std::span(messages.cells)
                                 .subspan(
                                     static_cast<std::size_t>(number - 1) * editing::MessageLength,
                                     editing::MessageLength);
            m_judgement.rows.push_back(games::JudgeMessage(family(), row));
            Add(findings, games::FindingsOnMessage(family(), row, number));
        }
        return finish(std::move(findings));
    }

    FamilyJudgement operator()(const editing::AnimationDocument& animation) {
        const auto count = static_cast<std::size_t>(std::min(m_lines.names, editing::MaxNames));
        const games::TimedNames names{
            std::span(animation.nameGlyphs).first(count * games::CellsOfName),
            std::span(animation.nameTicks).first(count)};
        m_judgement.timetable = games::TimetableOf(family(), names);
        for (std::size_t i = 0; i < names.count(); ++i) {
            m_judgement.rows.push_back(games::JudgeName(family(), games::Audience::Others, names.name(i)));
        }
        return finish(games::FindingsOnAnimation(family(), names));
    }

private:
    [[nodiscard]] Family family() const { return m_judgement.family; }

    FamilyJudgement finish(std::vector<Finding> onContent) {
        std::vector<Finding>& findings = m_judgement.findings;
        if (m_lines.broken > 0) {
            findings.push_back(
                {Weight::Loss, "line " + std::to_string(m_lines.broken) + " does not end with its quote",
                 games::RuleOf(family(), games::Station::Own, '\n').seen});
        }
        Add(findings, games::FindingsOnScript(family(), games::SizeOf(m_bytes), m_lines.command));
        Add(findings, std::move(onContent));
        std::stable_partition(findings.begin(), findings.end(), [](const Finding& finding) {
            return finding.weight == Weight::Loss;
        });
        return std::move(m_judgement);
    }

    std::string_view m_bytes;
    const Lines& m_lines;
    FamilyJudgement m_judgement{};
};

constexpr std::array<std::string_view, std::variant_size_v<cli::Script>> KindNames{
    "name", "animation", "messages"};

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
    const auto script = cli::ReadScript(bytes);
    if (!script) {
        return script.failure();
    }
    Judgement judgement{path, KindNames.at(script.value().index()), games::SizeOf(bytes), {}, {}};
    Lines lines = ReadLines(bytes);
    if (std::holds_alternative<editing::MessageDocument>(script.value())) {
        lines.command.reset();
    }
    judgement.command = lines.command;
    for (const Family family : families) {
        FamilyJudgement judged = std::visit(FamilyJudge(family, bytes, lines), script.value());
        Add(judged.findings, OnFileName(family, path));
        judgement.families.push_back(std::move(judged));
    }
    return judgement;
}

} // namespace check
