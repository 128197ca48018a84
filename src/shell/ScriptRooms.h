// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/ScriptFlow.h"

namespace shell {

/// How the scripts of a kind are read and written. The table of kinds cannot name these: they lie in the
/// rooms above it.
struct ScriptRoom {
    editing::ScriptReader (*reader)(editing::Documents& documents, const ui::Path& path);
    editing::ScriptWriter (*writer)(const editing::Documents& documents); ///< null: a wizard writes them
};

[[nodiscard]] const ScriptRoom& ScriptRoomOf(editing::Page kind);

} // namespace shell
