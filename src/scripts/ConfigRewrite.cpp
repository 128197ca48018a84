// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/ConfigRewrite.h"

#include "glyphs/RowText.h"
#include "scripts/Lines.h"

#include <memory>

namespace scripts {

namespace {

/// How many copies of earlier runs are kept beside the program.
constexpr int MaxKeptCopies = 99;

/// Writes, flushes and closes an open file and reads it back.
ui::Status
Fill(ui::Files& files, const ui::Path& path, std::unique_ptr<ui::OutputFile> file, std::string_view bytes) {
    if (auto written = file->write(bytes); !written) {
        return written;
    }
    if (auto flushed = file->flush(); !flushed) {
        return flushed;
    }
    if (auto closed = file->close(); !closed) {
        return closed;
    }
    const auto content = files.read(path);
    if (!content) {
        return content.failure();
    }
    if (content.value() != bytes) {
        return ui::Failure{"Could not write \"" + ui::PathText(path) + "\": it holds something else."};
    }
    return {};
}

/// Moves what lies at `copy` to the first free name beside it, tempfile-1.cfg and so on; that name.
ui::Result<ui::Path> KeepOldCopy(ui::Files& files, const ui::Path& copy) {
    ui::Failure reserved;
    for (int number = 1; number <= MaxKeptCopies; ++number) {
        ui::Path kept = copy;
        kept.replace_filename(
            copy.stem().native() + "-" + std::to_string(number) + copy.extension().native());
        // Making the file first reserves the name: a file that is there is never renamed over.
        auto file = files.open(kept, ui::Files::OpenMode::CreateNew);
        if (!file) {
            reserved = file.failure();
            continue;
        }
        (void)file.value()->close();
        if (auto renamed = files.rename(copy, kept); !renamed) {
            (void)files.remove(kept);
            return renamed.failure();
        }
        return kept;
    }
    return reserved;
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
    auto file = files.open(copy, ui::Files::OpenMode::CreatePrivate);
    if (!file) {
        return file.failure();
    }
    if (auto filled = Fill(files, copy, std::move(file).value(), bytes); !filled) {
        (void)files.remove(copy);
        return filled.failure();
    }
    return keptAt;
}

ui::Path FolderOf(const ui::Path& path) {
    const ui::Path folder = path.parent_path();
    return folder.empty() ? ui::Path(".") : folder;
}

/// Refuses a path that leads to the copy, whether it is there or not.
ui::Status RefuseCopy(const ui::Files& files, const ui::Path& copy, const ui::Path& path) {
    const bool isCopy = files.sameFile(path, copy) || (path.filename() == copy.filename() &&
                                                       files.sameFile(FolderOf(path), FolderOf(copy)));
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

/// A line as it is shown to people: glyphs of colour 2 as those of colour 1, what is not ASCII as a dot. Long
/// lines are cut.
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

} // namespace

ui::Bytes ReplaceLine(std::string_view config, int number, std::string_view line) {
    ui::Bytes result;
    result.reserve(config.size() + config.size() / 16 + line.size() + LineEnd.size());
    glyphs::ByteLines lines(config);
    for (int current = 1; !lines.atEnd(); ++current) {
        const std::string_view old = lines.next();
        result += current == number ? line : old;
        result += LineEnd;
    }
    return result;
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
    if (after.size() > ui::Files::MaxFileSize) {
        return WithFileUntouched({"It would become too large."}, path);
    }
    const auto lock = files.lockFolder(FolderOf(copy));
    if (!lock) {
        return WithFileUntouched(lock.failure(), path);
    }
    // Before the lock was held, another instance may have written the file that the line was sought in.
    const auto content = files.read(path);
    if (!content) {
        return content.failure();
    }
    if (content.value() != before) {
        return WithFileUntouched({"Another program has just changed the file."}, path);
    }
    const auto older = MakeCopy(files, copy, before);
    if (!older) {
        return WithFileUntouched(older.failure(), path);
    }

    auto file = files.open(path, ui::Files::OpenMode::Truncate);
    if (!file) {
        // Mostly the file may not be written and is as it was. Only then is the copy of no use.
        const auto now = files.read(path);
        if (now && now.value() == before) {
            (void)files.remove(copy);
            return WithFileUntouched(file.failure(), path);
        }
    }
    const ui::Status filled =
        file ? Fill(files, path, std::move(file).value(), after) : ui::Status(file.failure());
    if (!filled) {
        return ui::Failure{
            filled.failure().message + "\nThe config file, " + ui::PathText(path) +
            ", may be incomplete now. It was copied before, and the whole copy is kept as \"" +
            ui::PathText(copy) + "\"."};
    }
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
    ui::Files& files, const ui::ProgramDirectory& directory, const ui::Path& path, std::string_view bytes) {
    const ui::Path copy = directory.toWrite(std::string(ConfigCopyName));
    if (auto refused = RefuseCopy(files, copy, path); !refused) {
        return refused;
    }
    auto file = files.open(path, ui::Files::OpenMode::Append);
    if (!file) {
        return file.failure();
    }
    ui::Status done = file.value()->write(bytes);
    if (done) {
        done = file.value()->flush();
    }
    if (done) {
        done = file.value()->close();
    }
    if (!done) {
        return ui::Failure{
            done.failure().message + "\nThe config file, " + ui::PathText(path) +
            ", may end with a part of the new line now."};
    }
    return done;
}

} // namespace scripts
