// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "animation/mdlAniPreview.h"
#include "animation/mdlAniWizard.h"

#include <string>

namespace animation {

/// What the wizard would build.
struct Trial {
    AnimationDocument names; ///< rows 1 to 15, whatever rows it would write
    std::string note;        ///< what is blank in them, in a few words; may be empty

    friend bool operator==(const Trial&, const Trial&) = default;
};

/// Builds on a copy of the animation. Where nothing would be built, the name that was chosen stands in all
/// rows.
[[nodiscard]] Trial TryChoices(
    const AnimationDocument& animation, const WizardChoices& choices, glyphs::CaseChoice caseChoice,
    const PatternFiles& patterns);

/// Plays fifteen names again and again, tick by tick, with a rest after the last. It knows no clock: whoever
/// holds one calls step().
class TrialPreview {
public:
    /// Begins with the first name.
    explicit TrialPreview(const AnimationDocument& names);

    /// The row that is shown, 1 to 15.
    [[nodiscard]] int shownName() const { return m_preview.shownName(); }

    /// Whether there is anything to play: not all names are the same.
    [[nodiscard]] bool moves() const { return m_moves; }

    void begin();

    /// Shows a name from the middle, for a movement that is not played.
    void showMiddle();

    /// One tick goes by.
    void step();

private:
    AniPreview m_preview;
    bool m_moves = false;
    int m_rest = 0;   ///< ticks that the last name is shown
    int m_rested = 0; ///< how many of them have gone by
};

} // namespace animation
