// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Platform.h"

#include <QObject>
#include <chrono>

namespace ui::native {

/// Hands addresses to the desktop's standard opener, `xdg-open`. Made and used on the GUI thread. An opener
/// that still runs when the launcher goes, or the program ends, is left alone, and its result is not
/// reported.
class DesktopLauncher final : public Launcher {
public:
    /// An opener that has not ended after `patience` has succeeded: some run as long as what they opened.
    explicit DesktopLauncher(std::chrono::milliseconds patience = std::chrono::seconds(3));

    /// Opens `address` itself: desktops know no program for shortcut files.
    void open(const Path& shortcut, const std::string& address, std::function<void(int)> done) override;

private:
    std::chrono::milliseconds m_patience;
    QObject m_listener; ///< when it goes, results are no longer delivered
};

} // namespace ui::native
