// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Documents.h"
#include "ui/Platform.h"

#include <array>
#include <cstdint>
#include <string>

namespace animation {

/// How long one tick lasts, unless another pace is chosen.
constexpr int TickMilliseconds = 50;

/// The preview of an animation: which of its names is shown, and its playing tick by tick. It knows no clock:
/// whoever holds one calls step(). It shows the animation as it was when the preview was made.
class AniPreview {
public:
    /// Shows the first name, though the last one is the current one: the first forward() goes to name 1.
    explicit AniPreview(const editing::AnimationDocument& animation);

    /// The row that is shown, 1 to the number of names.
    [[nodiscard]] int shownName() const { return m_shownName; }

    [[nodiscard]] bool playing() const { return m_playing; }

    /// The ticks of a row, 1 to the number of names.
    [[nodiscard]] int ticksOf(int name) const { return m_ticks[static_cast<std::size_t>(name - 1)]; }

    /// While playing: the ticks that went by since it began with the first name. Otherwise those of the names
    /// before the shown one.
    [[nodiscard]] std::int64_t elapsedTicks() const;

    /// Whether the last name, once its own ticks went by, is followed by the first; off at first. stop() ends
    /// the playing all the same, and so does an animation without any ticks.
    void setAgain(bool again) { m_again = again; }

    /// Plays from the first name. What was shown before stays until the first step to another name: names
    /// follow each other after the ticks of the one before, and the last one's ticks are not waited.
    void play();

    /// While playing: ends with the last name after the current wait. Otherwise only moves the current name
    /// to the last but one.
    void stop();

    /// Ends the playing at once.
    void close() { m_playing = false; }

    /// Show another name; for while it is not playing.
    void toBegin() { show(1); }

    void toEnd() { show(m_previewTotal); }

    /// The name before or after the current one, going round at the ends.
    void rewind() { show(m_previewName == 1 ? m_previewTotal : m_previewName - 1); }

    void forward() { show(m_previewName == m_previewTotal ? 1 : m_previewName + 1); }

    /// One tick goes by. Names without ticks follow at once.
    void step();

private:
    void show(int name);
    void wait();
    void passDueNames();
    [[nodiscard]] bool goesOn() const;
    [[nodiscard]] std::int64_t ticksBefore(int name) const;

    std::array<std::int16_t, editing::MaxNames> m_ticks;
    int m_previewTotal;
    int m_previewName; ///< the current name; not always the one that is shown
    int m_shownName = 1;
    bool m_playing = false;
    bool m_again = false;
    bool m_stopped = false; ///< since the playing began
    std::int64_t m_tickCounter = 0;
    std::int64_t m_began = 0;    ///< count of ticks at which the first name came
    std::int64_t m_deadline = 0; ///< count of ticks at which the current wait ends
};

/// The screenshot behind the preview: where it lies, or what to say when there is none.
struct ScreenShot {
    std::string message; ///< empty: the file is there
    ui::Path path;
};

/// Looks for the screenshot of the settings; a relative path lies in the program directory.
[[nodiscard]] ScreenShot
FindScreenShot(const std::string& setting, const ui::Files& files, const ui::ProgramDirectory& directory);

/// How many ticks of `tick` milliseconds are due `milliseconds` after playing began, when `passed` have been
/// stepped. A clock that is read a little early counts as being in time.
[[nodiscard]] std::int64_t
TicksDue(std::int64_t milliseconds, std::int64_t passed, int tick = TickMilliseconds);

} // namespace animation
