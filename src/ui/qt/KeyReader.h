// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/KeyStroke.h"

#include <set>

class QKeyEvent;

namespace ui::qt {

/// Reads the keys of a window. The toolkit now and then reports the repeat of a held key as a new press, so
/// releases are counted as well.
class KeyReader {
public:
    KeyReader();

    /// What a press counts as.
    [[nodiscard]] KeyStroke press(const QKeyEvent& event);

    void release(const QKeyEvent& event);

    /// The keyboard goes to another window, which hears of the releases.
    void forgetHeldKeys() { m_held.clear(); }

private:
    std::set<unsigned> m_held; ///< by scan code
};

} // namespace ui::qt
