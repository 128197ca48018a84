// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/mdlAniTrial.h"

#include <algorithm>

namespace animation {

using editing::NameLength;
using glyphs::GlyphCode;

namespace {

/// What the last name is shown longer than its own ticks, so that it is seen where a movement begins anew.
constexpr int RestTicks = 10;

/// A name without so many glyphs is short.
constexpr int LongName = 12;

bool IsBlankName(std::span<const GlyphCode> name) {
    return std::ranges::all_of(name, [](GlyphCode code) { return code == glyphs::BlankGlyph; });
}

int BlankNames(const AnimationDocument& names) {
    int count = 0;
    for (int row = 1; row <= BuiltNames; ++row) {
        count += IsBlankName(names.name(row)) ? 1 : 0;
    }
    return count;
}

/// The fifteen rows that a build writes into the animation; without one, its name in all of them.
AnimationDocument BuiltRows(
    AnimationDocument animation, const WizardChoices& choices, glyphs::CaseChoice caseChoice,
    const PatternFiles& patterns) {
    const bool isBuilt = BuildAnimation(animation, choices, caseChoice, patterns).rowsWritten;
    AnimationDocument names;
    for (int row = 1; row <= BuiltNames; ++row) {
        const int built = choices.startName + row - 1;
        std::ranges::copy(animation.name(isBuilt ? built : choices.nameToUse), names.rows().row(row).begin());
        names.ticks(row) = animation.ticks(built);
    }
    return names;
}

/// What a movement leaves blank that it would show of a name that fills its places.
std::string BlankNote(
    AnimationDocument animation, WizardChoices choices, const AnimationDocument& names,
    const PatternFiles& patterns) {
    const auto name = animation.name(choices.nameToUse);
    const bool moves = choices.firstPosition != 0 || choices.secondPosition != 0;
    if (!moves && (choices.color != 0 || choices.letterCase != 0)) {
        return BlankNames(names) < BuiltNames
                   ? ""
                   : "Names " + std::to_string(choices.startName) + " to " +
                         std::to_string(choices.startName + PatternSteps) + " are blank";
    }
    if (IsBlankName(name)) {
        return "Name " + std::to_string(choices.nameToUse) + " is blank: choose another";
    }
    const auto glyphCount =
        std::ranges::count_if(name, [](GlyphCode code) { return code != glyphs::BlankGlyph; });
    std::ranges::fill(animation.rows().row(choices.nameToUse), GlyphCode{'A'});
    const int blank = BlankNames(names);
    if (blank <= BlankNames(BuiltRows(animation, choices, glyphs::CaseChoice::LettersOnly, patterns))) {
        return {};
    }
    return (glyphCount < LongName ? "Short name: " : "") + std::to_string(blank) + " of the 15 " +
           (blank == 1 ? "is" : "are") + " blank";
}

} // namespace

Trial TryChoices(
    const AnimationDocument& animation, const WizardChoices& choices, glyphs::CaseChoice caseChoice,
    const PatternFiles& patterns) {
    Trial trial;
    trial.names = BuiltRows(animation, choices, caseChoice, patterns);
    trial.note = BlankNote(animation, choices, trial.names, patterns);
    return trial;
}

TrialPreview::TrialPreview(const AnimationDocument& names)
    : m_preview(names)
    , m_rest(names.ticks(BuiltNames) + RestTicks) {
    for (int row = 2; row <= BuiltNames; ++row) {
        m_moves = m_moves || !std::ranges::equal(names.name(row), names.name(1));
    }
    begin();
}

void TrialPreview::begin() {
    m_rested = 0;
    m_preview.toBegin();
    m_preview.play();
}

void TrialPreview::showMiddle() {
    m_preview.close();
    m_preview.toBegin();
    while (m_preview.shownName() <= BuiltNames / 2) {
        m_preview.forward();
    }
}

void TrialPreview::step() {
    if (m_preview.playing()) {
        m_preview.step();
    } else if (++m_rested >= m_rest) {
        begin();
    }
}

} // namespace animation
