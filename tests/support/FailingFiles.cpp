// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/FailingFiles.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace support {

namespace {

const char* StepText(FailingFiles::Step step) {
    switch (step) {
    case FailingFiles::Step::Look:
        return "look";
    case FailingFiles::Step::Read:
        return "read";
    case FailingFiles::Step::Open:
        return "open";
    case FailingFiles::Step::Create:
        return "create";
    case FailingFiles::Step::Resize:
        return "resize";
    case FailingFiles::Step::Folder:
        return "folder";
    case FailingFiles::Step::Write:
        return "write";
    case FailingFiles::Step::Flush:
        return "flush";
    case FailingFiles::Step::Close:
        return "close";
    case FailingFiles::Step::Remove:
        return "remove";
    case FailingFiles::Step::Rename:
        return "rename";
    case FailingFiles::Step::Lock:
        return "lock";
    }
    return "";
}

ui::Failure InjectedFailure(FailingFiles::Step step, const ui::Path& path) {
    return {
        std::string("Could not ") + StepText(step) + " \"" + ui::PathText(path) + "\": injected failure."};
}

} // namespace

class FailingFiles::File final : public ui::OutputFile {
public:
    File(FailingFiles& files, ui::Path path, std::unique_ptr<ui::OutputFile> file)
        : m_files(files)
        , m_path(std::move(path))
        , m_file(std::move(file)) {}

    ui::Status write(std::string_view bytes) override {
        if (m_files.m_lifetime == 1) {
            (void)m_file->write(bytes.substr(0, bytes.size() / 2));
        }
        if (auto failure = m_files.take(Step::Write, m_path)) {
            return *failure;
        }
        const std::size_t fitting = std::min(bytes.size(), m_files.m_room);
        if (m_files.m_room != std::numeric_limits<std::size_t>::max()) {
            m_files.m_room -= fitting;
        }
        if (auto written = m_file->write(bytes.substr(0, fitting)); !written) {
            return written;
        }
        if (fitting < bytes.size()) {
            return InjectedFailure(Step::Write, m_path);
        }
        return {};
    }

    ui::Status seek(std::uintmax_t position) override { return m_file->seek(position); }

    ui::Status reserve(std::uintmax_t size) override {
        const auto failure = m_files.take(Step::Resize, m_path);
        return failure ? ui::Status(*failure) : m_file->reserve(size);
    }

    ui::Status resize(std::uintmax_t size) override {
        const auto failure = m_files.take(Step::Resize, m_path);
        return failure ? ui::Status(*failure) : m_file->resize(size);
    }

    ui::Status check(std::string_view bytes) override {
        const auto failure = m_files.take(Step::Read, m_path);
        return failure ? ui::Status(*failure) : m_file->check(bytes);
    }

    ui::Status flush() override {
        if (auto failure = m_files.take(Step::Flush, m_path)) {
            return *failure;
        }
        return m_file->flush();
    }

    ui::Status close() override {
        if (auto failure = m_files.take(Step::Close, m_path)) {
            // A failed close still closes.
            (void)m_file->close();
            return *failure;
        }
        return m_file->close();
    }

private:
    FailingFiles& m_files;
    ui::Path m_path;
    std::unique_ptr<ui::OutputFile> m_file;
};

void FailingFiles::failOnce(Step step, int number) {
    Counter& counter = this->counter(step);
    counter.failFirst = counter.count + number;
    counter.failLast = counter.failFirst;
}

void FailingFiles::failFrom(Step step, int number) {
    Counter& counter = this->counter(step);
    counter.failFirst = counter.count + number;
    counter.failLast = std::numeric_limits<int>::max();
}

void FailingFiles::failWritesAfter(std::size_t bytes) {
    m_room = bytes;
}

void FailingFiles::dieAt(int number) {
    m_lifetime = number;
}

void FailingFiles::failNothing() {
    m_lifetime = 0;
    for (Counter& counter : m_counters) {
        counter.failFirst = 0;
        counter.failLast = 0;
    }
    m_room = std::numeric_limits<std::size_t>::max();
}

int FailingFiles::count(Step step) const {
    return counter(step).count;
}

std::optional<ui::Failure>
FailingFiles::take(Step step, const ui::Path& path, const std::string& more) const {
    if (m_lifetime > 0 && --m_lifetime == 0) {
        std::_Exit(Death);
    }
    const auto known = m_temporaries.find(path);
    const ui::Path& shown = known == m_temporaries.end() ? path : known->second;
    m_steps.push_back(std::string(StepText(step)) + " " + ui::PathText(shown.filename()) + more);
    Counter& counter = this->counter(step);
    ++counter.count;
    if (counter.failFirst > 0 && counter.count >= counter.failFirst && counter.count <= counter.failLast) {
        return InjectedFailure(step, shown);
    }
    return {};
}

ui::PathKind FailingFiles::kindOf(const ui::Path& path) const {
    return m_files.kindOf(path);
}

ui::Result<ui::Bytes> FailingFiles::read(const ui::Path& path) const {
    if (auto failure = take(Step::Read, path)) {
        return *failure;
    }
    return m_files.read(path);
}

ui::Result<std::unique_ptr<ui::OutputFile>> FailingFiles::open(const ui::Path& path, OpenMode mode) {
    if (auto failure = take(Step::Open, path)) {
        return *failure;
    }
    auto file = m_files.open(path, mode);
    if (!file) {
        return file.failure();
    }
    return std::unique_ptr<ui::OutputFile>(std::make_unique<File>(*this, path, std::move(file).value()));
}

ui::Status FailingFiles::remove(const ui::Path& path) {
    if (auto failure = take(Step::Remove, path)) {
        return *failure;
    }
    return m_files.remove(path);
}

ui::Result<ui::FileFacts> FailingFiles::inspect(const ui::Path& path, ui::Links links) const {
    if (auto failure = take(Step::Look, path)) {
        return *failure;
    }
    return m_files.inspect(path, links);
}

ui::Result<ui::TemporaryFile> FailingFiles::createBeside(const ui::Path& target) {
    if (auto failure = take(Step::Create, target)) {
        return *failure;
    }
    auto made = m_files.createBeside(target);
    if (!made) {
        return made.failure();
    }
    ui::TemporaryFile temporary = std::move(made).value();
    m_temporaries[temporary.path] = target;
    temporary.file = std::make_unique<File>(*this, target, std::move(temporary.file));
    return temporary;
}

ui::Status FailingFiles::rename(const ui::Path& from, const ui::Path& to) {
    if (auto failure = take(Step::Rename, from, " " + ui::PathText(to.filename()))) {
        return *failure;
    }
    return m_files.rename(from, to);
}

ui::Status FailingFiles::renameNew(const ui::Path& from, const ui::Path& to) {
    if (auto failure = take(Step::Rename, from, " " + ui::PathText(to.filename()))) {
        return *failure;
    }
    return m_files.renameNew(from, to);
}

ui::Status FailingFiles::flushFolder(const ui::Path& folder) {
    if (auto failure = take(Step::Folder, folder)) {
        return *failure;
    }
    return m_files.flushFolder(folder);
}

ui::Status FailingFiles::makeFolder(const ui::Path& folder) {
    if (auto failure = take(Step::Folder, folder)) {
        return *failure;
    }
    return m_files.makeFolder(folder);
}

bool FailingFiles::sameFile(const ui::Path& first, const ui::Path& second) const {
    return m_files.sameFile(first, second);
}

ui::Result<std::unique_ptr<ui::FileLock>> FailingFiles::lockFolder(const ui::Path& folder) {
    if (auto failure = take(Step::Lock, folder)) {
        return *failure;
    }
    return m_files.lockFolder(folder);
}

ui::Result<std::unique_ptr<ui::FileLock>> FailingFiles::lockFile(const ui::Path& path) {
    if (auto failure = take(Step::Lock, path)) {
        return *failure;
    }
    return m_files.lockFile(path);
}

ui::Result<std::unique_ptr<ui::FileLock>> FailingFiles::tryLockFile(const ui::Path& path) {
    if (auto failure = take(Step::Lock, path)) {
        return *failure;
    }
    return m_files.tryLockFile(path);
}

} // namespace support
