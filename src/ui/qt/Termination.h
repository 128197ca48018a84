// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class QObject;

namespace ui::qt {

/// Calls `end` from the event loop, once, when the system tells the program to end, as long as `context`
/// lives. Called once.
void OnTermination(QObject& context, std::function<void()> end);

} // namespace ui::qt
