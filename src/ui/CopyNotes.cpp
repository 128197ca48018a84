// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/CopyNotes.h"

#include "ui/FileWriter.h"

#include <system_error>
#include <vector>

namespace ui {

namespace {

constexpr std::string_view UntoldEnd = ".note";
constexpr std::string_view ToldEnd = ".told";

struct Note {
    Path note;
    Path file;
    Path copy;
    bool isTold = false;
};

Path NotePath(const Files& files, const Path& copy, std::string_view end) {
    return files.spareFolder() / PathFromText(PathText(copy.filename()) + std::string(end));
}

/// A note holds the path of the file, a zero and the folder of the copy; the copy is called like the note.
std::optional<Note> ReadNote(const Files& files, const Path& path) {
    const auto bytes = files.read(path);
    const auto end = bytes ? bytes.value().find('\0') : Bytes::npos;
    if (end == Bytes::npos) {
        return {};
    }
    return Note{
        .note = path,
        .file = PathFromText(std::string_view(bytes.value()).substr(0, end)),
        .copy = PathFromText(std::string_view(bytes.value()).substr(end + 1)) / path.stem(),
        .isTold = path.extension() == ToldEnd};
}

std::vector<Note> Notes(const Files& files) {
    std::vector<Note> notes;
    const Path folder = files.spareFolder();
    const auto names = folder.empty() ? std::vector<std::string>() : files.list(folder);
    for (const std::string& name : names) {
        if (!name.ends_with(UntoldEnd) && !name.ends_with(ToldEnd)) {
            continue;
        }
        if (auto note = ReadNote(files, folder / PathFromText(name))) {
            notes.push_back(std::move(*note));
        }
    }
    return notes;
}

Path Absolute(const Path& path) {
    std::error_code error;
    Path absolute = std::filesystem::absolute(path, error);
    return error ? path : absolute;
}

bool HoldsTheSame(const Files& files, const Path& first, const Path& second) {
    const auto one = files.read(first);
    const auto other = files.read(second);
    return one && other && one.value() == other.value();
}

} // namespace

std::unique_ptr<FileLock> NoteCopy(Files& files, const Path& file, const Path& copy) {
    if (files.spareFolder().empty() || !files.makeFolder(files.spareFolder())) {
        return nullptr;
    }
    ForgetCopy(files, copy);
    const Path note = NotePath(files, copy, UntoldEnd);
    const Bytes bytes = PathText(Absolute(file)) + '\0' + PathText(Absolute(FolderOf(copy)));
    if (!WritePrivateCopy(files, note, bytes)) {
        return nullptr;
    }
    auto lock = files.lockFile(note);
    return lock ? std::move(lock).value() : nullptr;
}

void ForgetCopy(Files& files, const Path& copy) {
    for (const std::string_view end : {UntoldEnd, ToldEnd}) {
        const Path note = NotePath(files, copy, end);
        if (!files.spareFolder().empty() && files.exists(note)) {
            (void)files.remove(note);
        }
    }
}

void MarkCopyTold(Files& files, const Path& copy) {
    if (!files.spareFolder().empty()) {
        (void)files.rename(NotePath(files, copy, UntoldEnd), NotePath(files, copy, ToldEnd));
    }
}

void MoveCopyNote(Files& files, const Path& from, const Path& to) {
    for (const std::string_view end : {UntoldEnd, ToldEnd}) {
        const Path note = NotePath(files, from, end);
        if (!files.spareFolder().empty() && files.exists(note)) {
            (void)files.rename(note, NotePath(files, to, end));
        }
    }
}

std::optional<Path> KeptCopyOf(const Files& files, const Path& file) {
    for (const Note& note : Notes(files)) {
        if (files.exists(note.copy) && (note.file == Absolute(file) || files.sameFile(note.file, file))) {
            return note.copy;
        }
    }
    return {};
}

void TellOfKeptCopies(Dialogs& dialogs, Files& files) {
    for (const Note& note : Notes(files)) {
        // A program that holds the lock is writing the file at this moment.
        const auto lock = files.lockFile(note.note);
        if (!lock) {
            continue;
        }
        if (!files.exists(note.copy) || HoldsTheSame(files, note.file, note.copy)) {
            (void)files.remove(note.note);
        } else if (!note.isTold) {
            dialogs.warn(
                "\"" + PathText(note.file) +
                "\" may be incomplete: VTM was ended while it wrote the file.\n" +
                "What it held before is kept whole as \"" + PathText(note.copy) + "\".");
            MarkCopyTold(files, note.copy);
        }
    }
}

} // namespace ui
