// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/mdlAniWizard.h"

#include "animation/Texts.h"
#include "animation/mdlAniServer.h"
#include "glyphs/FieldReader.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace animation {

using editing::NameLength;
using glyphs::GlyphCode;

namespace {

using NameCells = std::array<GlyphCode, NameLength>;
using PatternReader = std::function<ui::Result<ui::Bytes>(std::string_view name)>;

/// Reads the 14 x 15 numbers of a record.
std::optional<Pattern> ReadCells(glyphs::FieldReader& fields) {
    Pattern pattern;
    for (int step = 1; step <= PatternSteps; ++step) {
        for (int position = 1; position <= NameLength; ++position) {
            const auto number = fields.number();
            if (!number) {
                return std::nullopt;
            }
            pattern.cell(step, position) = *number;
        }
    }
    return pattern;
}

ui::Result<ui::Bytes>
ReadPatternFile(const ui::Files& files, const ui::ProgramDirectory& directory, std::string_view name) {
    return files.read(directory.toRead(std::string(name)));
}

/// The positional pattern of one or two options; nothing when one of them cannot be read or is not one.
std::optional<Pattern> PositionPattern(const WizardChoices& choices, std::string_view bytes) {
    std::optional<Pattern> pattern;
    if (choices.firstPosition == 0 || choices.secondPosition == 0) {
        pattern = ReadPattern(bytes, std::max(choices.firstPosition, choices.secondPosition));
    } else {
        const auto first = ReadPattern(bytes, choices.firstPosition);
        const auto second = ReadPattern(bytes, choices.secondPosition);
        if (first && second) {
            pattern = CombinePatterns(*first, *second);
        }
    }
    return pattern && pattern->isPositional() ? pattern : std::nullopt;
}

void PlacePositions(AnimationDocument& animation, const WizardChoices& choices, const Pattern& pattern) {
    // The name may lie among the rows that are written.
    NameCells name{};
    std::ranges::copy(animation.name(choices.nameToUse), name.begin());
    for (int step = 1; step <= PatternSteps; ++step) {
        for (int position = 1; position <= NameLength; ++position) {
            const int source = pattern.cell(step, position);
            animation.rows().cell(choices.startName + step - 1, position) =
                source == 0 ? glyphs::BlankGlyph : name[static_cast<std::size_t>(source - 1)];
        }
    }
    std::ranges::copy(name, animation.rows().row(choices.startName + PatternSteps).begin());
}

/// Changes the marked glyphs. The row after the last step is the name at rest and stays.
template <class Change>
void ChangeMarked(AnimationDocument& animation, int startName, const Pattern& pattern, Change change) {
    for (int step = 1; step <= PatternSteps; ++step) {
        for (int position = 1; position <= NameLength; ++position) {
            if (pattern.cell(step, position) == 1) {
                GlyphCode& code = animation.rows().cell(startName + step - 1, position);
                code = change(code);
            }
        }
    }
}

GlyphCode ChangeColor(GlyphCode code, ColorChange change) {
    switch (change) {
    case ColorChange::Color1:
        return glyphs::ToColor2Glyph(code);
    case ColorChange::Color2:
        return glyphs::ToColor1Glyph(code);
    case ColorChange::Switch:
        break;
    }
    return glyphs::SwitchColorGlyph(code);
}

GlyphCode ChangeCase(GlyphCode code, CaseChange change, glyphs::CaseChoice choice) {
    switch (change) {
    case CaseChange::Lower:
        return glyphs::ToLowerGlyph(code, choice);
    case CaseChange::Upper:
        return glyphs::ToUpperGlyph(code, choice);
    case CaseChange::Switch:
        break;
    }
    return glyphs::SwitchCaseGlyph(code, choice);
}

/// Builds from what `read` makes of the names of the pattern files.
BuildOutcome Build(
    AnimationDocument& animation, const WizardChoices& choices, glyphs::CaseChoice caseChoice,
    const PatternReader& read) {
    const bool placesPositions = choices.firstPosition != 0 || choices.secondPosition != 0;
    if (!placesPositions && choices.color == 0 && choices.letterCase == 0) {
        return {.end = BuildEnd::NothingToDo, .rowsWritten = false};
    }
    BuildOutcome outcome{.end = BuildEnd::Stopped, .rowsWritten = false};
    if (placesPositions) {
        const auto bytes = read(PositionPatternsName);
        const auto pattern = bytes ? PositionPattern(choices, bytes.value()) : std::nullopt;
        if (!pattern) {
            return outcome;
        }
        PlacePositions(animation, choices, *pattern);
        outcome.rowsWritten = true;
    }
    const auto changePattern = [&](int option) {
        const auto bytes = read(ChangePatternsName);
        return bytes ? ReadPattern(bytes.value(), option) : std::nullopt;
    };
    if (choices.color != 0) {
        const auto pattern = changePattern(choices.color);
        if (!pattern) {
            return outcome;
        }
        ChangeMarked(animation, choices.startName, *pattern, [&](GlyphCode code) {
            return ChangeColor(code, choices.colorChange);
        });
        outcome.rowsWritten = true;
    }
    if (choices.letterCase != 0) {
        const auto pattern = changePattern(choices.letterCase);
        if (!pattern) {
            return outcome;
        }
        ChangeMarked(animation, choices.startName, *pattern, [&](GlyphCode code) {
            return ChangeCase(code, choices.caseChange, caseChoice);
        });
        outcome.rowsWritten = true;
    }
    if (choices.safeForServers) {
        MakeSafeForServers(animation, choices.startName);
    }
    outcome.end = BuildEnd::Built;
    return outcome;
}

} // namespace

bool Pattern::isPositional() const {
    return std::ranges::all_of(m_cells, [](int cell) { return cell >= 0 && cell <= NameLength; });
}

std::vector<std::string> ReadPatternTitles(std::string_view bytes) {
    std::vector<std::string> titles;
    glyphs::FieldReader fields(bytes);
    const int count = fields.number().value_or(0);
    for (int record = 1; record <= count; ++record) {
        const auto title = fields.text();
        if (!title) {
            break;
        }
        titles.emplace_back(*title);
        if (!ReadCells(fields)) {
            break;
        }
    }
    return titles;
}

std::optional<Pattern> ReadPattern(std::string_view bytes, int number) {
    glyphs::FieldReader fields(bytes);
    if (fields.number().value_or(0) < number) {
        return std::nullopt;
    }
    std::optional<Pattern> pattern;
    for (int record = 1; record <= number; ++record) {
        if (!fields.text()) {
            return std::nullopt;
        }
        pattern = ReadCells(fields);
        if (!pattern) {
            return std::nullopt;
        }
    }
    return pattern;
}

Pattern CombinePatterns(const Pattern& first, const Pattern& second) {
    constexpr int Half = PatternSteps / 2;
    Pattern combined;
    for (int step = 1; step <= Half; ++step) {
        for (int position = 1; position <= NameLength; ++position) {
            combined.cell(step, position) = first.cell(2 * step - 1, position);
            combined.cell(Half + step, position) = second.cell(2 * step - 1, position);
        }
    }
    return combined;
}

BuildOutcome BuildAnimation(
    AnimationDocument& animation, const WizardChoices& choices, glyphs::CaseChoice caseChoice,
    const ui::Files& files, const ui::ProgramDirectory& directory) {
    return Build(animation, choices, caseChoice, [&](std::string_view name) {
        return ReadPatternFile(files, directory, name);
    });
}

BuildOutcome BuildAnimation(
    AnimationDocument& animation, const WizardChoices& choices, glyphs::CaseChoice caseChoice,
    const PatternFiles& patterns) {
    return Build(animation, choices, caseChoice, [&](std::string_view name) -> ui::Result<ui::Bytes> {
        return name == PositionPatternsName ? patterns.positions : patterns.changes;
    });
}

std::string OutOfUseText(const AnimationDocument& animation, int startName) {
    const int last = startName + PatternSteps;
    if (last <= animation.nameCount) {
        return {};
    }
    const int first = std::max(startName, animation.nameCount + 1);
    const std::string lastText = std::to_string(last);
    const std::string rows =
        first == last ? "Name " + lastText + " was built but is"
                      : "Names " + std::to_string(first) + " to " + lastText + " were built but are";
    return rows + " not in use: raise the total to " + lastText + ".";
}

WizardOptions LoadWizardOptions(const ui::Files& files, const ui::ProgramDirectory& directory) {
    WizardOptions options;
    for (const std::string_view name : {PositionPatternsName, ChangePatternsName}) {
        if (!files.exists(directory.toRead(std::string(name)))) {
            options.message = PatternsMissing;
            return options;
        }
    }
    auto positions = ReadPatternFile(files, directory, PositionPatternsName);
    auto changes = ReadPatternFile(files, directory, ChangePatternsName);
    if (!positions || !changes) {
        options.message = ui::Consequence(
                              "Automatic animation has been disabled, because its patterns cannot be read.",
                              (positions ? changes : positions).failure())
                              .message;
        return options;
    }
    options.positions = ReadPatternTitles(positions.value());
    options.changes = ReadPatternTitles(changes.value());
    options.patterns = {std::move(positions).value(), std::move(changes).value()};
    options.available = true;
    return options;
}

} // namespace animation
