// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/ConfigRewrite.h"

#include "glyphs/RowText.h"
#include "scripts/Lines.h"
#include "ui/CopyNotes.h"
#include "ui/FileWriter.h"

#include <memory>

namespace scripts {

namespace {

/// How many copies of earlier runs are kept beside the program.
constexpr int MaxKeptCopies = 99;

/// Moves what lies at `copy` to the first free name beside it, tempfile-1.cfg and so on; that name.
ui::Result<ui::Path> KeepOldCopy(ui::Files& files, const ui::Path& copy) {
    ui::Failure taken;
    for (int number = 1; number <= MaxKeptCopies; ++number) {
        ui::Path kept = copy;
        kept.replace_filename(ui::PathFromText(
            ui::PathText(copy.stem()) + "-" + std::to_string(number) + ui::PathText(copy.extension())));
        const auto renamed = files.renameNew(copy, kept);
        if (renamed) {
            ui::MoveCopyNote(files, copy, kept);
            return kept;
        }
        taken = renamed.failure();
        if (!files.exists(kept)) {
            break;
        }
    }
    return taken;
}

/// Makes the copy, complete and on the disk; the path that an older one is kept at, or an empty one. Leaves
/// nothing behind when it fails.
ui::Result<ui::Path> MakeCopy(ui::Files& files, const ui::Path& copy, std::string_view bytes) {
    ui::Path keptAt;
    if (files.exists(copy)) {
        auto kept = KeepOldCopy(files, copy);
        if (!kept) {
            return kept;
        }
        keptAt = std::move(kept).value();
    }
    if (auto made = ui::WritePrivateCopy(files, copy, bytes); !made) {
        return made.failure();
    }
    return keptAt;
}

/// Refuses a path that leads to the copy, whether it is there or not.
ui::Status RefuseCopy(const ui::Files& files, const ui::Path& copy, const ui::Path& path) {
    const bool isCopy =
        files.sameFile(path, copy) ||
        (path.filename() == copy.filename() && files.sameFile(ui::FolderOf(path), ui::FolderOf(copy)));
    if (isCopy) {
        return ui::Failure{
            "Could not alter \"" + ui::PathText(path) +
            "\": VTM needs a file of this name for itself. Please copy it to another name first."};
    }
    return {};
}

ui::Failure WithFileUntouched(const ui::Failure& failure, const ui::Path& path) {
    return {failure.message + "\nThe config file, " + ui::PathText(path) + ", was not changed."};
}

/// What to tell when a configuration file could not be written. A copy that is named is kept.
ui::Failure NotWritten(const ui::FileWritten& written, const ui::Path& path, const ui::Path& copy) {
    using Holds = ui::FileWritten::Holds;
    const std::string cause = written.status.failure().message;
    const std::string file = "\nThe config file, " + ui::PathText(path) + ", ";
    const std::string kept = copy.empty() ? "" : " the whole copy is kept as \"" + ui::PathText(copy) + "\".";
    switch (written.holds) {
    case Holds::Before:
        break;
    case Holds::Restored:
        return {cause + file + "was put back as it was."};
    case Holds::After:
        return {
            cause + file + "holds the new line, but that may not be on the disk yet." +
            (kept.empty() ? "" : " It was copied before, and" + kept)};
    case Holds::Unsure:
        return {cause + file + "may be incomplete now. It was copied before, and" + kept};
    }
    return WithFileUntouched(written.status.failure(), path);
}

/// Whether the copy of a file that could not be written is still of use.
bool NeedsCopy(const ui::FileWritten& written) {
    using Holds = ui::FileWritten::Holds;
    return written.holds == Holds::After || written.holds == Holds::Unsure;
}

/// Locks out other instances while a configuration file is changed: those that use the same copy, and those
/// installed elsewhere that change the same file.
struct ConfigLock {
    std::unique_ptr<ui::FileLock> folder;
    std::unique_ptr<ui::FileLock> file;
};

/// Locks the file and compares it with `before`, in which a line was sought: another program may have written
/// it since. `before`: nothing if the file was not there.
ui::Result<ConfigLock> LockConfig(
    ui::Files& files, const ui::Path& folder, const ui::Path& path,
    const std::optional<std::string_view>& before) {
    auto folderLock = files.lockFolder(folder);
    if (!folderLock) {
        return WithFileUntouched(folderLock.failure(), path);
    }
    ConfigLock lock{std::move(folderLock).value(), nullptr};
    const ui::Failure changed = WithFileUntouched({"Another program has just changed the file."}, path);
    if (!before) {
        // A file that appears from now on makes the rename of the new one fail.
        return files.exists(path) ? ui::Result<ConfigLock>(changed) : std::move(lock);
    }
    auto fileLock = files.lockFile(path);
    if (!fileLock) {
        return WithFileUntouched(fileLock.failure(), path);
    }
    lock.file = std::move(fileLock).value();
    const auto content = files.read(path);
    if (!content) {
        return WithFileUntouched(content.failure(), path);
    }
    return content.value() == *before ? ui::Result<ConfigLock>(std::move(lock)) : changed;
}

/// Refuses a content that is too large to be read again.
ui::Status RefuseTooLarge(std::size_t size, const ui::Path& path) {
    return size > ui::Files::MaxFileSize ? ui::Status(WithFileUntouched({"It would become too large."}, path))
                                         : ui::Status();
}

} // namespace

ui::Status RefuseIncomplete(const ui::Files& files, const ui::Path& path) {
    const auto copy = ui::KeptCopyOf(files, path);
    return copy ? ui::Status(ui::Failure{
                      "\"" + ui::PathText(path) + "\" may be incomplete: writing it did not end well.\n" +
                      "What it held before is kept whole as \"" + ui::PathText(*copy) +
                      "\". Please put that back, or delete it, and try again."})
                : ui::Status();
}

ui::Status MayBeChanged(const ui::Files& files, const ui::Path& path) {
    if (files.kindOf(ui::FolderOf(path)) == ui::PathKind::Nothing) {
        return ui::Failure{"There is no folder \"" + ui::PathText(ui::FolderOf(path)) + "\"."};
    }
    const auto facts = files.inspect(path, ui::Links::Follow);
    return facts ? RefuseIncomplete(files, path) : ui::Status(facts.failure());
}

ui::Bytes ReplaceLine(std::string_view config, int number, std::string_view line) {
    ui::Bytes result;
    result.reserve(config.size() + config.size() / 16 + line.size() + LineEnd.size());
    // Where line feeds end the lines, a carriage return alone is a glyph, which hides what stands before it.
    const bool hasLineFeeds = config.find('\n') != std::string_view::npos;
    glyphs::ByteLines lines(config);
    for (int current = 1; !lines.atEnd(); ++current) {
        const std::string_view old = lines.next();
        if (current == number) {
            result += line;
            result += LineEnd;
            continue;
        }
        result += old;
        const auto end = static_cast<std::size_t>(old.data() - config.data()) + old.size();
        const bool isGlyph = hasLineFeeds && !lines.atEnd() && current + 1 != number &&
                             config.substr(end, LineEnd.size()) != LineEnd && config[end] == '\r';
        result += isGlyph ? LineEnd.substr(0, 1) : LineEnd;
    }
    return result;
}

std::string ReadableLine(std::string_view line) {
    constexpr std::size_t MaxLength = 80;
    std::string text;
    for (const char byte : line.substr(0, MaxLength)) {
        const int glyph = static_cast<unsigned char>(byte) & 127;
        if (glyph >= 32 && glyph < 127) {
            text += static_cast<char>(glyph);
        } else {
            text += "\xC2\xB7";
        }
    }
    return line.size() > MaxLength ? text + "..." : text;
}

std::string LineToBeReplacedText(int number, std::string_view line, std::string_view remark) {
    return "Line " + std::to_string(number) + " will be replaced" + std::string(remark) + ": " +
           ReadableLine(line);
}

std::string ReplacedLineText(int number, std::string_view line, const std::string& leftover) {
    std::string text = "Line " + std::to_string(number) + " was replaced: " + ReadableLine(line);
    return leftover.empty() ? text : text + "  " + leftover;
}

ui::Result<Rewritten> RewriteConfig(
    ui::Files& files, const ui::ProgramDirectory& directory, const ui::Path& path, std::string_view before,
    std::string_view after) {
    const ui::Path copy = directory.toWrite(std::string(ConfigCopyName));
    if (auto refused = RefuseCopy(files, copy, path); !refused) {
        return refused.failure();
    }
    if (auto refused = RefuseTooLarge(after.size(), path); !refused) {
        return refused.failure();
    }
    const auto lock = LockConfig(files, ui::FolderOf(copy), path, before);
    if (!lock) {
        return lock.failure();
    }
    const auto older = MakeCopy(files, copy, before);
    if (!older) {
        return WithFileUntouched(older.failure(), path);
    }
    auto change = ui::FileChange::Prepare(files, path, after, ui::Links::Follow, copy);
    if (!change) {
        (void)files.remove(copy);
        return WithFileUntouched(change.failure(), path);
    }
    const auto note = ui::NoteCopy(files, path, copy);
    if (const ui::FileWritten written = change.value()->commit(); !written.status) {
        if (NeedsCopy(written)) {
            ui::MarkCopyTold(files, copy);
        } else {
            ui::ForgetCopy(files, copy);
            (void)files.remove(copy);
        }
        return NotWritten(written, path, copy);
    }
    ui::ForgetCopy(files, copy);
    Rewritten done;
    if (!older.value().empty()) {
        done.leftover = "An older copy is kept as \"" + ui::PathText(older.value()) + "\".";
    }
    if (const auto removed = files.remove(copy); !removed) {
        done.leftover += (done.leftover.empty() ? "" : "  ") + removed.failure().message;
    }
    return done;
}

ui::Status AppendToConfig(
    ui::Files& files, const ui::ProgramDirectory& directory, const ui::Path& path,
    const std::optional<ui::Bytes>& before, std::string_view bytes) {
    const ui::Path copy = directory.toWrite(std::string(ConfigCopyName));
    if (auto refused = RefuseCopy(files, copy, path); !refused) {
        return refused;
    }
    if (auto refused = RefuseIncomplete(files, path); !refused) {
        return refused;
    }
    const ui::Bytes after = before.value_or(ui::Bytes()).append(bytes);
    if (auto refused = RefuseTooLarge(after.size(), path); !refused) {
        return refused;
    }
    const auto lock = LockConfig(files, ui::FolderOf(copy), path, before);
    if (!lock) {
        return lock.failure();
    }
    auto change = ui::FileChange::Prepare(files, path, after);
    if (!change) {
        return WithFileUntouched(change.failure(), path);
    }
    const ui::FileWritten written = change.value()->commit();
    return written.status ? ui::Status() : NotWritten(written, path, written.copy);
}

} // namespace scripts
