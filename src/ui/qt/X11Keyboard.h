// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

struct _XDisplay; // NOLINT(bugprone-reserved-identifier): the window system's own name

namespace ui::qt {

/// The keyboard of an X server, through the toolkit's own connection.
class X11Keyboard {
public:
    enum class Lock { Caps, Num };

    /// The keyboard; null where the toolkit is not connected to an X server, or only to one that stands
    /// between it and a Wayland desktop.
    [[nodiscard]] static std::unique_ptr<X11Keyboard> Connect();

    [[nodiscard]] bool isLocked(Lock lock) const;
    void setLocked(Lock lock, bool locked);

    [[nodiscard]] bool scrollLight() const;
    void setScrollLight(bool on);

    /// Makes a held key repeat as presses alone, without the releases in between that never happened.
    void dropFalseReleases();

private:
    struct Library;

    X11Keyboard(_XDisplay* display, const Library* library)
        : m_display(display)
        , m_library(library) {}

    [[nodiscard]] unsigned mask(Lock lock) const;

    _XDisplay* m_display;
    const Library* m_library;
};

} // namespace ui::qt
