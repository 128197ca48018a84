// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/FileWriter.h"

#include "ui/CopyNotes.h"

#include <algorithm>
#include <utility>

namespace ui {

namespace {

/// Writes what an open file shall hold from its present place on, waits for the disk and closes it.
Status Complete(OutputFile& file, std::string_view rest, std::string_view whole) {
    Status done = file.write(rest);
    if (done) {
        done = file.flush();
    }
    if (done) {
        done = file.check(whole);
    }
    return done ? file.close() : done;
}

/// Writes over an existing file from `position` on, where `bytes` begins to differ from what it holds. Its
/// room on the disk is taken before anything of it is lost.
Status WriteOver(OutputFile& file, std::string_view bytes, std::size_t position) {
    Status done = file.reserve(bytes.size());
    if (done) {
        done = file.seek(position);
    }
    if (done) {
        done = file.write(bytes.substr(position));
    }
    if (done) {
        done = file.resize(bytes.size());
    }
    return done ? Complete(file, {}, bytes) : done;
}

std::size_t CommonStart(std::string_view first, std::string_view second) {
    return static_cast<std::size_t>(std::ranges::mismatch(first, second).in1 - first.begin());
}

/// A name for a copy: what the file's name ends with is kept, so that the copy can be used as it is.
std::string NameOfCopy(const Path& file) {
    constexpr std::size_t MaxExtension = 16;
    const std::string extension = PathText(file.extension());
    return "vtm-copy-" + RandomName() + (extension.size() <= MaxExtension ? extension : "");
}

} // namespace

Failure FileWritten::told() const {
    std::string message = status.failure().message;
    switch (holds) {
    case Holds::Before:
        break;
    case Holds::Restored:
        message += "\nThe file was put back as it was.";
        break;
    case Holds::After:
        message += "\nThe file holds what was to be written, but that may not be on the disk yet.";
        break;
    case Holds::Unsure:
        message += "\nThe file may be incomplete now.";
        if (!copy.empty()) {
            message += " What it held before is kept whole as \"" + PathText(copy) + "\".";
        }
        break;
    }
    return {std::move(message)};
}

FileChange::FileChange(Files& files, FileFacts facts, std::string_view bytes, Links links, Path copy)
    : m_files(files)
    , m_facts(std::move(facts))
    , m_mayWriteOver(m_facts.kind == FileFacts::Kind::File && links == Links::Follow)
    , m_bytes(bytes)
    , m_copy(std::move(copy)) {}

FileChange::~FileChange() {
    if (!m_temporary.empty()) {
        (void)m_files.remove(m_temporary);
    }
    removeOwnCopy();
}

Result<std::unique_ptr<FileChange>>
FileChange::Prepare(Files& files, const Path& path, std::string_view bytes, Links links, const Path& copy) {
    auto facts = files.inspect(path, links);
    if (!facts) {
        return facts.failure();
    }
    std::unique_ptr<FileChange> change(new FileChange(files, std::move(facts).value(), bytes, links, copy));
    Status ready;
    if (change->m_facts.kind != FileFacts::Kind::Device) {
        ready = change->m_facts.standsAlone || !change->m_mayWriteOver ? change->fillBeside()
                                                                       : change->prepareInPlace();
    }
    return ready ? Result<std::unique_ptr<FileChange>>(std::move(change))
                 : Result<std::unique_ptr<FileChange>>(ready.failure());
}

Status FileChange::fillBeside() {
    auto made = m_files.createBeside(m_facts.target);
    if (!made) {
        return m_mayWriteOver ? prepareInPlace() : made.failure();
    }
    m_temporary = made.value().path;
    return Complete(*made.value().file, m_bytes, m_bytes);
}

Status FileChange::prepareInPlace() {
    auto before = m_files.read(m_facts.target);
    if (!before) {
        return before.failure();
    }
    m_before = std::move(before).value();
    return m_before.empty() || !m_copy.empty() ? Status() : keepCopy();
}

Status FileChange::keepCopyIn(const Path& folder) {
    const Path copy = folder / PathFromText(NameOfCopy(m_facts.target));
    Status kept = WritePrivateCopy(m_files, copy, m_before);
    if (kept) {
        m_copy = copy;
        m_ownsCopy = true;
    }
    return kept;
}

Status FileChange::keepCopy() {
    Status kept = keepCopyIn(FolderOf(m_facts.target));
    if (const Path spare = m_files.spareFolder(); !kept && !spare.empty()) {
        kept = m_files.makeFolder(spare);
        if (kept) {
            kept = keepCopyIn(spare);
        }
    }
    return kept ? kept
                : Failure{
                      kept.failure().message + "\n\"" + PathText(m_facts.target) +
                      "\" was not changed, as no copy of it could be made first."};
}

void FileChange::removeOwnCopy() {
    if (std::exchange(m_ownsCopy, false)) {
        if (m_isTouched) {
            ForgetCopy(m_files, m_copy);
        }
        (void)m_files.remove(m_copy);
    }
}

FileWritten FileChange::commit() {
    if (m_facts.kind == FileFacts::Kind::Device) {
        auto device = m_files.open(m_facts.target, Files::OpenMode::Device);
        if (!device) {
            return {.status = device.failure()};
        }
        Status done = device.value()->write(m_bytes);
        if (done) {
            done = device.value()->close();
        }
        return {.status = std::move(done)};
    }
    if (m_temporary.empty()) {
        return commitInPlace();
    }
    Status done = m_facts.kind == FileFacts::Kind::Absent ? m_files.renameNew(m_temporary, m_facts.target)
                                                          : m_files.rename(m_temporary, m_facts.target);
    if (done) {
        m_temporary.clear();
        done = m_files.flushFolder(FolderOf(m_facts.target));
        return {.status = std::move(done), .holds = FileWritten::Holds::After};
    }
    (void)m_files.remove(std::exchange(m_temporary, {}));
    // Some files can be written but not replaced.
    if (!m_mayWriteOver || !prepareInPlace()) {
        return {.status = std::move(done)};
    }
    return commitInPlace();
}

Status FileChange::overwrite(std::string_view bytes, std::size_t position) {
    auto file = m_files.open(m_facts.target, Files::OpenMode::InPlace);
    if (!file) {
        return file.failure();
    }
    if (m_ownsCopy && !m_isTouched) {
        m_note = NoteCopy(m_files, m_facts.target, m_copy);
    }
    m_isTouched = true;
    return WriteOver(*file.value(), bytes, position);
}

FileWritten FileChange::commitInPlace() {
    Status done = overwrite(m_bytes, CommonStart(m_before, m_bytes));
    using Holds = FileWritten::Holds;
    if (done || !m_isTouched || overwrite(m_before, 0)) {
        removeOwnCopy();
        return {.status = std::move(done), .holds = m_isTouched ? Holds::Restored : Holds::Before};
    }
    if (std::exchange(m_ownsCopy, false)) {
        MarkCopyTold(m_files, m_copy);
    }
    return {.status = std::move(done), .holds = Holds::Unsure, .copy = m_copy};
}

Status WriteFile(Files& files, const Path& path, std::string_view bytes, Links links) {
    auto change = FileChange::Prepare(files, path, bytes, links);
    if (!change) {
        return change.failure();
    }
    const FileWritten written = change.value()->commit();
    return written.status ? Status() : written.told();
}

Status WritePrivateCopy(Files& files, const Path& path, std::string_view bytes) {
    auto file = files.open(path, Files::OpenMode::CreatePrivate);
    if (!file) {
        return file.failure();
    }
    Status done = Complete(*file.value(), bytes, bytes);
    if (!done) {
        (void)files.remove(path);
    }
    return done;
}

Path DamagedCopyName(const Files& files, const Path& file) {
    constexpr int LastNumber = 99;
    for (int number = 1;; ++number) {
        Path copy = file;
        copy += ".damaged-" + std::to_string(number);
        if (number == LastNumber || !files.exists(copy)) {
            return copy;
        }
    }
}

} // namespace ui
