// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Dialogs.h"
#include "ui/Files.h"

#include <memory>
#include <optional>

/// Notes, in Files::spareFolder(), of the copies that are kept while a file may be incomplete. When the
/// program is ended in the middle its next start finds the note.
namespace ui {

/// Notes on the disk that `copy`, which is there and whole, holds what `file` held. Other programs leave the
/// note alone as long as the lock is held. Where no note can be made there is none: that is no reason not to
/// write the file.
[[nodiscard]] std::unique_ptr<FileLock> NoteCopy(Files& files, const Path& file, const Path& copy);

/// The file is whole: there is nothing to tell of the copy any more.
void ForgetCopy(Files& files, const Path& copy);

/// The user has been told of the copy, which is kept.
void MarkCopyTold(Files& files, const Path& copy);

/// The copy has got another name in its folder.
void MoveCopyNote(Files& files, const Path& from, const Path& to);

/// The copy that is kept of a file that may be incomplete, whether the user was told of it or not.
[[nodiscard]] std::optional<Path> KeptCopyOf(const Files& files, const Path& file);

/// Tells once of every copy that an interrupted program has left, and names the file that was copied.
void TellOfKeptCopies(Dialogs& dialogs, Files& files);

} // namespace ui
