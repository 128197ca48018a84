// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"

namespace ui::native {

/// Has the system open a document with its program, and waits until that is found: the system's code, of
/// which 33 or more is a success. Shows no message of its own.
[[nodiscard]] int ShellOpen(const Path& document);

} // namespace ui::native
