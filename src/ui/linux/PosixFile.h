// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"

#include <sys/stat.h>
#include <utility>

/// Files as POSIX has them: what the sources of DiskFiles share, and links.
namespace ui::native {

[[nodiscard]] Failure FileFailure(const char* what, const Path& path, int errorNumber);

/// Whether a failure to look at a path means that nothing is there. No other failure does.
[[nodiscard]] bool IsAbsence(int errorNumber);

[[nodiscard]] bool IsSame(const struct stat& first, const struct stat& second);

/// A file descriptor that is closed when it goes out of scope.
class Descriptor {
public:
    explicit Descriptor(int number)
        : m_number(number) {}

    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    Descriptor(Descriptor&& other) noexcept
        : m_number(other.release()) {}

    Descriptor& operator=(Descriptor&&) = delete;

    ~Descriptor();

    [[nodiscard]] int number() const { return m_number; }

    /// Gives the descriptor up without closing it.
    int release() { return std::exchange(m_number, -1); }

private:
    int m_number;
};

/// A name for the temporary file that is to replace `target`.
[[nodiscard]] Path TemporaryName(const Path& target);

/// Makes `link` a symbolic link to `target`, in place of whatever has that name.
Status PutLink(const Path& link, const Path& target);

/// Forces the names in a folder onto the disk; a failure names `shown`.
Status SynchroniseFolder(const Path& folder, const Path& shown);

/// Writes to an open file, which failures call `shown`. A new file's name is forced onto the disk with its
/// content.
[[nodiscard]] std::unique_ptr<OutputFile> MakeOutputFile(Path shown, int number, bool isNew);

} // namespace ui::native
