// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Result.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace ui {

using Path = std::filesystem::path;

/// File contents: raw bytes, never decoded.
using Bytes = std::string;

/// A file that is being written. Every step reports its own failure; nothing is retried.
class OutputFile {
public:
    virtual ~OutputFile() = default;

    /// Appends all of `bytes`.
    virtual Status write(std::string_view bytes) = 0;

    /// Forces what was written onto the disk; of a file that was made new its name in the folder as well.
    virtual Status flush() = 0;

    /// Closes the file; the object accepts no more writes.
    virtual Status close() = 0;
};

/// A lock that is held as long as the object lives.
class FileLock {
public:
    virtual ~FileLock() = default;
};

/// The file system as the modules see it. Failures name the path and the cause.
class Files {
public:
    enum class OpenMode {
        Truncate,     ///< an existing file keeps its inode, links and permissions and loses its content
        Append,       ///< created if it does not exist
        CreateNew,    ///< fails if the path exists
        CreatePrivate ///< the same; nobody but the user may read it
    };

    /// No file that the program reads is larger than this; a larger one is refused, not loaded. The
    /// largest animation script that the program can write, of 17 MiB, can be read again.
    static constexpr std::uintmax_t MaxFileSize = 32U * 1024U * 1024U;

    virtual ~Files() = default;

    /// Whether a regular file (or a link to one) is there.
    [[nodiscard]] virtual bool exists(const Path& path) const = 0;

    /// The whole file; fails on a missing, unreadable or non-regular file, or one over MaxFileSize.
    [[nodiscard]] virtual Result<Bytes> read(const Path& path) const = 0;

    [[nodiscard]] virtual Result<std::unique_ptr<OutputFile>> open(const Path& path, OpenMode mode) = 0;

    virtual Status remove(const Path& path) = 0;

    virtual Status rename(const Path& from, const Path& to) = 0;

    /// Whether both paths lead to the same existing file or folder, by whatever names and links.
    [[nodiscard]] virtual bool sameFile(const Path& first, const Path& second) const = 0;

    /// Keeps out every other lock of the same folder, of this process and of others. Waits up to a second for
    /// one that is held. On a file system without locks it keeps out nobody.
    [[nodiscard]] virtual Result<std::unique_ptr<FileLock>> lockFolder(const Path& folder) = 0;
};

/// Opens `path`, writes `bytes`, closes. With Truncate it replaces the content in place. Fails at the first
/// failing step.
[[nodiscard]] Status WriteFile(
    Files& files, const Path& path, std::string_view bytes, Files::OpenMode mode = Files::OpenMode::Truncate);

/// Writes `bytes` into `path` in place, so that its links and permissions stay. When that fails, as on a full
/// disk, what it held before is put back as far as that can be done; a file that was not there is removed.
[[nodiscard]] Status OverwriteFile(Files& files, const Path& path, std::string_view bytes);

/// Replaces `path` so that at every instant either the old or the new content is whole: a flushed temporary
/// beside it is renamed over it.
[[nodiscard]] Status WriteFileAtomically(Files& files, const Path& path, std::string_view bytes);

/// A path as UTF-8 for messages; bytes that are not UTF-8 are kept as they are.
[[nodiscard]] std::string PathText(const Path& path);

/// The real file system.
class DiskFiles final : public Files {
public:
    [[nodiscard]] bool exists(const Path& path) const override;
    [[nodiscard]] Result<Bytes> read(const Path& path) const override;
    [[nodiscard]] Result<std::unique_ptr<OutputFile>> open(const Path& path, OpenMode mode) override;
    Status remove(const Path& path) override;
    Status rename(const Path& from, const Path& to) override;
    [[nodiscard]] bool sameFile(const Path& first, const Path& second) const override;
    [[nodiscard]] Result<std::unique_ptr<FileLock>> lockFolder(const Path& folder) override;
};

} // namespace ui
