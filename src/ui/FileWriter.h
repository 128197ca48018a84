// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"

namespace ui {

/// What came of giving a file new content.
struct FileWritten {
    /// What the file holds after a failure.
    enum class Holds {
        Before,   ///< what it held before: it is untouched, or still not there
        Restored, ///< the same, put back
        After,    ///< the new content, which may not be on the disk yet
        Unsure    ///< perhaps only a part of either
    };

    Status status = {};
    Holds holds = Holds::Before; ///< only after a failure
    Path copy = {};              ///< a whole copy of the old content; only when the file is unsure

    /// The failure and, unless nothing has changed, what the file holds now and where the copy is.
    [[nodiscard]] Failure told() const;
};

/// New content for one file. At every instant the file holds the old content or the new one, or a copy holds
/// the old one: the new content is written to a file of its own, which is flushed, read back and then takes
/// the file's place. Only where no other file can take its place is it written over, with a whole copy beside
/// it: a file with several names, in a folder where nothing can be made, of another owner, with attributes.
class FileChange {
public:
    FileChange(const FileChange&) = delete;
    FileChange& operator=(const FileChange&) = delete;
    FileChange(FileChange&&) = delete;
    FileChange& operator=(FileChange&&) = delete;

    /// A change that was not committed leaves nothing behind.
    ~FileChange();

    /// Makes everything ready for the file at `path` to hold `bytes`, which outlive the change. When that
    /// fails nothing has changed. `copy` is a whole copy of the file that there is already; with none, one is
    /// made where it is needed, and removed again.
    [[nodiscard]] static Result<std::unique_ptr<FileChange>> Prepare(
        Files& files, const Path& path, std::string_view bytes, Links links = Links::Follow,
        const Path& copy = {});

    /// Makes the change; only once.
    FileWritten commit();

private:
    FileChange(Files& files, FileFacts facts, std::string_view bytes, Links links, Path copy);

    Status fillBeside();
    Status prepareInPlace();
    Status keepCopyIn(const Path& folder);
    Status keepCopy();
    Status overwrite(std::string_view bytes, std::size_t position);
    FileWritten commitInPlace();
    void removeOwnCopy();

    Files& m_files;
    FileFacts m_facts;
    bool m_mayWriteOver; ///< where another file cannot take its place
    std::string_view m_bytes;
    Path m_temporary;                 ///< empty: the file is written over
    Bytes m_before;                   ///< of a file that is written over
    Path m_copy;                      ///< empty: there is none, or nothing to lose
    bool m_ownsCopy = false;          ///< whether this change has made it
    std::unique_ptr<FileLock> m_note; ///< of the copy
    bool m_isTouched = false;         ///< whether the file has been opened to be written over
};

/// Gives the file at `path` the content `bytes`, as a whole or not at all; see FileChange. A failure says
/// what the file holds if that has changed.
[[nodiscard]] Status
WriteFile(Files& files, const Path& path, std::string_view bytes, Links links = Links::Follow);

/// Makes the file `path`, which may not be there yet, for nobody but the user to read, and waits until it is
/// on the disk. A failure leaves nothing behind.
[[nodiscard]] Status WritePrivateCopy(Files& files, const Path& path, std::string_view bytes);

/// The first free name of "FILE.damaged-1" to "FILE.damaged-99", under which a file that cannot be understood
/// is kept before another takes its place; the last of them, which is there then, when all are taken.
[[nodiscard]] Path DamagedCopyName(const Files& files, const Path& file);

} // namespace ui
