// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>

struct _XDisplay; // NOLINT(bugprone-reserved-identifier): the window system's own name

namespace ui::native {

/// The keyboard of an X server, through the toolkit's own connection.
class X11Keyboard {
public:
    enum class Lock { Caps, Num };

    /// The keyboard; null where the toolkit is not connected to an X server, or only to one that stands
    /// between it and a Wayland desktop.
    [[nodiscard]] static std::unique_ptr<X11Keyboard> Connect();

    [[nodiscard]] bool isLocked(Lock lock) const;
    void setLocked(Lock lock, bool locked);

    /// What an event of the window system says of a lock that a program has set, this one or another; nothing
    /// when it tells of something else, a lock that a key has turned for instance.
    [[nodiscard]] std::optional<bool> lockSetByProgram(const void* event, Lock lock) const;

    /// Whether the keys go to this window.
    [[nodiscard]] bool hasFocus(unsigned long window) const;

    [[nodiscard]] bool scrollLight() const;
    void setScrollLight(bool on);

    /// Makes a held key repeat as presses alone, without the releases in between that never happened.
    void dropFalseReleases();

private:
    struct Library;

    X11Keyboard(_XDisplay* display, const Library* library);

    [[nodiscard]] unsigned mask(Lock lock) const;

    _XDisplay* m_display;
    const Library* m_library;
    int m_firstEvent = 0; ///< the number that the keyboard's own events have
};

} // namespace ui::native
