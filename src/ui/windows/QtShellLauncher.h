// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Platform.h"

#include <QObject>

namespace ui::native {

/// Hands shortcut files to the system, which knows a program for them. Made and used on the GUI thread.
class QtShellLauncher final : public Launcher {
public:
    /// Opens `shortcut` in a thread of its own: finding a program, or starting it, may take seconds.
    void open(const Path& shortcut, const std::string& address, std::function<void(int)> done) override;

private:
    QObject m_listener; ///< when it goes, results are no longer delivered
};

} // namespace ui::native
