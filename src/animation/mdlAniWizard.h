// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Documents.h"
#include "glyphs/mdlSwitches.h"
#include "ui/Platform.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace animation {

using editing::AnimationDocument;

/// The pattern files, in the program directory.
constexpr std::string_view PositionPatternsName = "vtmani01.dat";
constexpr std::string_view ChangePatternsName = "vtmani02.dat";

constexpr int PatternSteps = 14;
constexpr int BuiltNames = PatternSteps + 1; ///< a pattern's steps and the name at rest
constexpr int LastStartName = editing::MaxNames - PatternSteps;

/// A grid of 14 steps x 15 positions. In a positional pattern a cell is the position of the name's glyph that
/// is shown there, or 0 for a blank; in a colour or case pattern 1 marks the glyphs that change.
class Pattern {
public:
    /// A cell; step 1 to 14, position 1 to 15.
    [[nodiscard]] std::int16_t& cell(int step, int position) { return m_cells[index(step, position)]; }

    [[nodiscard]] std::int16_t cell(int step, int position) const { return m_cells[index(step, position)]; }

    /// Whether every cell is 0 or a position.
    [[nodiscard]] bool isPositional() const;

    friend bool operator==(const Pattern&, const Pattern&) = default;

private:
    static std::size_t index(int step, int position) {
        assert(step >= 1 && step <= PatternSteps && position >= 1 && position <= editing::NameLength);
        return static_cast<std::size_t>((step - 1) * editing::NameLength + position - 1);
    }

    std::array<std::int16_t, static_cast<std::size_t>(PatternSteps) * editing::NameLength> m_cells{};
};

/// The titles in a pattern file's bytes, in file order, as far as it can be read. The title of a record that
/// breaks off is the last one.
[[nodiscard]] std::vector<std::string> ReadPatternTitles(std::string_view bytes);

/// Record `number` (1-based) of a pattern file's bytes; nothing when it or one before it cannot be read.
[[nodiscard]] std::optional<Pattern> ReadPattern(std::string_view bytes, int number);

/// Two positional patterns one after the other at double speed: steps 1, 3 .. 13 of each.
[[nodiscard]] Pattern CombinePatterns(const Pattern& first, const Pattern& second);

/// Names the colour that is changed.
enum class ColorChange { Color1, Color2, Switch };

/// Names the case that results.
enum class CaseChange { Lower, Upper, Switch };

/// What the wizard builds. Options are record numbers of the pattern files; 0 is "No Change".
struct WizardChoices {
    int firstPosition = 0;
    int secondPosition = 0;
    int nameToUse = editing::MinNames; ///< row of the name that is animated
    int color = 0;
    ColorChange colorChange = ColorChange::Color1;
    int letterCase = 0;
    CaseChange caseChange = CaseChange::Lower;
    int startName = 1;           ///< first of the fifteen rows that are written, 1 to 76
    bool safeForServers = false; ///< whether they are made such that QuakeWorld servers accept them
};

/// How a build ended.
enum class BuildEnd {
    NothingToDo, ///< no option is chosen
    Built,
    Stopped ///< a pattern could not be read; earlier passes have been made
};

struct BuildOutcome {
    BuildEnd end = BuildEnd::NothingToDo;
    bool rowsWritten = false; ///< whether the page is painted again
};

/// What both pattern files hold.
struct PatternFiles {
    ui::Bytes positions;
    ui::Bytes changes;
};

/// Builds the chosen animation: the positional pass, then colours, then case. Reads the patterns anew; each
/// is whole and checked before its pass writes a row. The number of names stays, and ticks do but for what
/// MakeSafeForServers() does to them.
[[nodiscard]] BuildOutcome BuildAnimation(
    AnimationDocument& animation, const WizardChoices& choices, glyphs::CaseChoice caseChoice,
    const ui::Files& files, const ui::ProgramDirectory& directory);

/// The same from patterns that have been read, which may lie elsewhere by now.
[[nodiscard]] BuildOutcome BuildAnimation(
    AnimationDocument& animation, const WizardChoices& choices, glyphs::CaseChoice caseChoice,
    const PatternFiles& patterns);

/// For the status line: which of the fifteen rows from `startName` on are out of use, and so not to be seen.
/// Empty when all are in use.
[[nodiscard]] std::string OutOfUseText(const AnimationDocument& animation, int startName);

/// What the wizard offers.
struct WizardOptions {
    bool available = false;             ///< whether both pattern files are there and can be read
    std::string message;                ///< what to say when they are not
    std::vector<std::string> positions; ///< titles of the positional patterns, single bytes
    std::vector<std::string> changes;   ///< titles of the colour and case patterns
    PatternFiles patterns;              ///< what was read
};

[[nodiscard]] WizardOptions LoadWizardOptions(const ui::Files& files, const ui::ProgramDirectory& directory);

} // namespace animation
