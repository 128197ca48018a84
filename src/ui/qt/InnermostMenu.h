// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

class QEvent;
class QObject;

namespace ui::qt {

/// For the event filter of an application: if a key or a move of the mouse goes to a menu over which another
/// has opened, opens the innermost anew, which makes it the one that gets them, and the key with them.
/// Returns whether that was so, and the event needs nothing more.
///
/// An X server tells late that the first menu has the keyboard. Since Qt 6.8 the toolkit then takes that menu
/// for the innermost, even if a key that was typed before has opened another over it: the letters that follow
/// would choose from the wrong menu, and a click would close them all.
[[nodiscard]] bool PassToInnermostMenu(QObject& watched, QEvent& event);

} // namespace ui::qt
