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
#include <vector>

namespace ui {

using Path = std::filesystem::path;

/// File contents: raw bytes, never decoded.
using Bytes = std::string;

/// A file that is being written. Every step reports its own failure; nothing is retried.
class OutputFile {
public:
    virtual ~OutputFile() = default;

    /// Writes all of `bytes` where the last write ended; the first one starts at the file's beginning.
    virtual Status write(std::string_view bytes) = 0;

    /// Lets the next write start at `position`.
    virtual Status seek(std::uintmax_t position) = 0;

    /// Takes the room on the disk for a file of `size` bytes. A shorter one grows to that size.
    virtual Status reserve(std::uintmax_t size) = 0;

    /// Gives the file that size: cuts it off, or fills it up with zeros.
    virtual Status resize(std::uintmax_t size) = 0;

    /// Forces what was written onto the disk; of a file that was made by open() its name in the folder as
    /// well.
    virtual Status flush() = 0;

    /// Reads the whole file back; fails unless it holds `bytes` and nothing else.
    virtual Status check(std::string_view bytes) = 0;

    /// Closes the file; the object accepts no more writes.
    virtual Status close() = 0;
};

/// A lock that is held as long as the object lives.
class FileLock {
public:
    virtual ~FileLock() = default;
};

/// What a path leads to.
enum class PathKind {
    Nothing,
    File, ///< or a link to one
    Folder,
    Device ///< or a pipe
};

/// What becomes of a link that lies where a file is to be written.
enum class Links {
    Follow, ///< it stays, and the file that it leads to is written
    Replace ///< the new file takes its place
};

/// What lies at a path that is to be written.
struct FileFacts {
    enum class Kind {
        Absent, ///< nothing
        File,   ///< a file, or with Links::Replace a link
        Device  ///< what keeps nothing: a device or a pipe
    };

    Kind kind = Kind::Absent;
    Path target = {};         ///< where the path leads to, if links are followed
    bool standsAlone = false; ///< whether a new file can take its place: it has no other name, and no
                              ///< attributes that a new file would not be given
};

/// The names of temporary files begin with this.
constexpr std::string_view TemporaryPrefix = ".vtm-";

/// A new file that nobody knows of yet.
struct TemporaryFile {
    Path path;
    std::unique_ptr<OutputFile> file;
};

/// The file system as the modules see it. Failures name the path and the cause. Files are written through
/// ui/FileWriter.h.
class Files {
public:
    enum class OpenMode {
        InPlace,      ///< an existing file keeps its content until it is written over; no link is followed
        Device,       ///< what keeps nothing
        CreateNew,    ///< fails if the path exists
        CreatePrivate ///< the same; nobody but the user may read it
    };

    /// No file that the program reads is larger than this; a larger one is refused, not loaded. The
    /// largest animation script that the program can write, of 17 MiB, can be read again.
    static constexpr std::uintmax_t MaxFileSize = 32U * 1024U * 1024U;

    virtual ~Files() = default;

    /// What a path leads to. What cannot be looked at counts as a file: reading it tells the cause.
    [[nodiscard]] virtual PathKind kindOf(const Path& path) const = 0;

    /// Whether a file is there, or may be.
    [[nodiscard]] bool exists(const Path& path) const { return kindOf(path) == PathKind::File; }

    /// The whole file; fails on a missing, unreadable or non-regular file, or one over MaxFileSize.
    [[nodiscard]] virtual Result<Bytes> read(const Path& path) const = 0;

    /// What lies at a path that is to be written. Fails on a folder, on what may not be written or cannot be
    /// looked at, and on a link that another user has put into a folder that everybody may write.
    [[nodiscard]] virtual Result<FileFacts> inspect(const Path& path, Links links) const = 0;

    [[nodiscard]] virtual Result<std::unique_ptr<OutputFile>> open(const Path& path, OpenMode mode) = 0;

    /// Makes a file of a name that nobody can guess in the folder of `target`, with its permissions and its
    /// owner if it is there. Failures name `target`.
    [[nodiscard]] virtual Result<TemporaryFile> createBeside(const Path& target) = 0;

    virtual Status remove(const Path& path) = 0;

    /// Gives a file another name in the same folder, in place of whatever has it.
    virtual Status rename(const Path& from, const Path& to) = 0;

    /// The same; fails if the name is taken.
    virtual Status renameNew(const Path& from, const Path& to) = 0;

    /// Forces the names in a folder onto the disk.
    virtual Status flushFolder(const Path& folder) = 0;

    /// Makes a folder, and those above it, unless it is there.
    virtual Status makeFolder(const Path& folder) = 0;

    /// Whether both paths lead to the same existing file or folder, by whatever names and links, or may do
    /// so: what cannot be looked at counts as the same.
    [[nodiscard]] virtual bool sameFile(const Path& first, const Path& second) const = 0;

    /// Keeps out every other lock of the same folder, of this process and of others. Waits up to two seconds
    /// for one that is held. On a file system without locks it keeps out nobody.
    [[nodiscard]] virtual Result<std::unique_ptr<FileLock>> lockFolder(const Path& folder) = 0;

    /// The same for an existing file, by whatever name.
    [[nodiscard]] virtual Result<std::unique_ptr<FileLock>> lockFile(const Path& path) = 0;

    /// The same without waiting.
    [[nodiscard]] virtual Result<std::unique_ptr<FileLock>> tryLockFile(const Path& path) = 0;

    /// The names of what lies in a folder, sorted; none if it cannot be read.
    [[nodiscard]] virtual std::vector<std::string> list(const Path& folder) const = 0;

    /// The folder of copies that cannot lie beside their file, and of notes; empty: there is none.
    [[nodiscard]] virtual Path spareFolder() const = 0;
};

/// A path as messages show it and files and settings keep it: UTF-8; what is no text is kept as it is.
/// PathFromText() makes the same path of it.
[[nodiscard]] std::string PathText(const Path& path);

/// The path that is written as `text`. A Path made of other than ASCII text directly would be another one on
/// some systems. What cannot be in a path there becomes U+FFFD.
[[nodiscard]] Path PathFromText(std::string_view text);

/// The folder that a path lies in; of a bare name the current one.
[[nodiscard]] Path FolderOf(const Path& path);

/// Letters and digits that nobody can guess, for the name of a file.
[[nodiscard]] std::string RandomName();

/// Makes a write past the size that the system grants a file fail like any other, instead of ending the
/// program. What the program starts is not affected.
void SurviveFileSizeLimit();

/// The real file system.
class DiskFiles final : public Files {
public:
    explicit DiskFiles(Path spareFolder = {});

    [[nodiscard]] PathKind kindOf(const Path& path) const override;
    [[nodiscard]] Result<Bytes> read(const Path& path) const override;
    [[nodiscard]] Result<FileFacts> inspect(const Path& path, Links links) const override;
    [[nodiscard]] Result<std::unique_ptr<OutputFile>> open(const Path& path, OpenMode mode) override;
    [[nodiscard]] Result<TemporaryFile> createBeside(const Path& target) override;
    Status remove(const Path& path) override;
    Status rename(const Path& from, const Path& to) override;
    Status renameNew(const Path& from, const Path& to) override;
    Status flushFolder(const Path& folder) override;
    Status makeFolder(const Path& folder) override;
    [[nodiscard]] bool sameFile(const Path& first, const Path& second) const override;
    [[nodiscard]] Result<std::unique_ptr<FileLock>> lockFolder(const Path& folder) override;
    [[nodiscard]] Result<std::unique_ptr<FileLock>> lockFile(const Path& path) override;
    [[nodiscard]] Result<std::unique_ptr<FileLock>> tryLockFile(const Path& path) override;

    [[nodiscard]] std::vector<std::string> list(const Path& folder) const override;

    [[nodiscard]] Path spareFolder() const override { return m_spareFolder; }

private:
    Path m_spareFolder;
};

} // namespace ui
