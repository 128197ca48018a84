// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/KeyStroke.h"

class QKeyEvent;
class QWidget;

/// What each system tells of its keyboard in its own way.
namespace ui::qt {

/// Which key of the editor's key map a press counts as.
[[nodiscard]] KeyStroke TranslateKey(const QKeyEvent& event);

/// Makes a held key repeat as presses alone, without the releases in between that never happened, where the
/// system would tell of them.
void DropFalseReleases();

/// Has a window told of the keys, too, that the system would open menus of its own by.
void HearEveryKey(QWidget& window);

} // namespace ui::qt
