// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Platform.h"

#include <vector>

namespace shell {

/// The program, as its file is called.
constexpr const char* ProgramName = "VTM";

/// The script types as the desktop is to know them, for a program in `programFolder`.
[[nodiscard]] std::vector<ui::FileType> FileAssociations(const ui::Path& programFolder);

/// Registers the script types. Done at every start, so that a program that was moved is found again.
void WriteFileAssociations(ui::FileTypes& fileTypes, const ui::Path& programFolder);

} // namespace shell
