// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Platform.h"

#include <string>
#include <string_view>
#include <vector>

namespace ui::native {

/// How well the readers of desktop entries cope with a program's path.
enum class ExecPath {
    Plain,    ///< all of them take it as it is, openers that know no quotes among them
    Quotable, ///< all that know quotes take it
    Doubtful  ///< beyond the rules for entries, or misread by some: '%', '=' and what is not printable ASCII
};

[[nodiscard]] ExecPath ExecPathOf(const Path& path);

/// One argument of a desktop entry's command line: in quotes where it needs them, nothing in it being taken
/// for a field code.
[[nodiscard]] std::string ExecArgument(std::string_view argument);

/// A text as the value of a key of a desktop entry.
[[nodiscard]] std::string EntryValue(std::string_view text);

/// The desktop entry, not shown in menus, that opens files of the type with `program`. The switch keeps the
/// blank before it and is followed by the file as an argument of its own.
[[nodiscard]] std::string DesktopEntryText(const FileType& type, const Path& program);

/// The desktop entry that shows the program in menus, and what it is called. Its first line marks it as
/// written by the program: without that line the entry stays as the user has changed it.
[[nodiscard]] std::string ProgramEntryText(const Path& program);
constexpr std::string_view ProgramEntryName = "vtm.desktop";

/// Whether an entry was written by the program and may be written anew.
[[nodiscard]] bool IsOwnProgramEntry(std::string_view entry);

/// The file name of a type's entry: of "application/x-vtm-name" it is "vtm-name.desktop".
[[nodiscard]] std::string DesktopEntryName(const FileType& type);

/// The description of the types for the shared MIME database: told by the ends of their names and, where the
/// end is that of no other type, by their first lines.
[[nodiscard]] std::string MimePackageText(const std::vector<FileType>& types);

} // namespace ui::native
