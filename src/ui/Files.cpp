// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/Files.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace ui {

namespace {

std::string CauseText(int errorNumber) {
    return std::generic_category().message(errorNumber);
}

Failure FileFailure(const char* what, const Path& path, int errorNumber) {
    return {std::string(what) + " \"" + PathText(path) + "\": " + CauseText(errorNumber) + "."};
}

/// A file descriptor that is closed when it goes out of scope.
class Descriptor {
public:
    explicit Descriptor(int number)
        : m_number(number) {}

    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor(Descriptor&&) = delete;
    Descriptor& operator=(Descriptor&&) = delete;

    ~Descriptor() {
        if (m_number >= 0) {
            ::close(m_number);
        }
    }

    [[nodiscard]] int number() const { return m_number; }

    /// Gives the descriptor up without closing it.
    int release() { return std::exchange(m_number, -1); }

private:
    int m_number;
};

/// Forces a file onto the disk. Pipes and some file systems cannot do that; for them the write itself is all
/// there is.
bool Synchronise(int number) {
    return ::fsync(number) == 0 || errno == EINVAL || errno == ENOTSUP;
}

Path FolderOf(const Path& path) {
    const Path folder = path.parent_path();
    return folder.empty() ? Path(".") : folder;
}

class DiskOutputFile final : public OutputFile {
public:
    DiskOutputFile(Path path, int number, bool isNew)
        : m_path(std::move(path))
        , m_descriptor(number)
        , m_isNew(isNew) {}

    Status write(std::string_view bytes) override {
        while (!bytes.empty()) {
            const ssize_t written = ::write(m_descriptor.number(), bytes.data(), bytes.size());
            if (written < 0) {
                if (errno == EINTR) {
                    continue;
                }
                return FileFailure("Could not write", m_path, errno);
            }
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return {};
    }

    Status flush() override {
        if (!Synchronise(m_descriptor.number())) {
            return FileFailure("Could not write", m_path, errno);
        }
        if (!m_isNew) {
            return {};
        }
        // A folder that may be written but not read cannot be opened: then its names are left to the system.
        const Descriptor folder(::open(FolderOf(m_path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (folder.number() >= 0 && !Synchronise(folder.number())) {
            return FileFailure("Could not write", m_path, errno);
        }
        m_isNew = false;
        return {};
    }

    Status close() override {
        if (::close(m_descriptor.release()) != 0 && errno != EINTR) {
            return FileFailure("Could not write", m_path, errno);
        }
        return {};
    }

private:
    Path m_path;
    Descriptor m_descriptor;
    bool m_isNew; ///< the folder may not know of the file yet
};

Status WriteAndClose(std::unique_ptr<OutputFile> file, std::string_view bytes) {
    if (auto written = file->write(bytes); !written) {
        return written;
    }
    return file->close();
}

class DiskFileLock final : public FileLock {
public:
    explicit DiskFileLock(int number)
        : m_folder(number) {}

private:
    Descriptor m_folder;
};

} // namespace

std::string PathText(const Path& path) {
    return path.native();
}

Status WriteFile(Files& files, const Path& path, std::string_view bytes, Files::OpenMode mode) {
    auto file = files.open(path, mode);
    return file ? WriteAndClose(std::move(file).value(), bytes) : file.failure();
}

Status OverwriteFile(Files& files, const Path& path, std::string_view bytes) {
    const bool isNew = !files.exists(path);
    const Result<Bytes> before = isNew ? Result<Bytes>(Bytes()) : files.read(path);
    auto file = files.open(path, Files::OpenMode::Truncate);
    if (!file) {
        // Nothing has changed that could be put back.
        return file.failure();
    }
    Status written = WriteAndClose(std::move(file).value(), bytes);
    if (written) {
        return written;
    }
    // The first failure is the one to tell; a device or a pipe is neither new nor to be removed.
    if (isNew) {
        if (files.exists(path)) {
            (void)files.remove(path);
        }
    } else if (before) {
        (void)WriteFile(files, path, before.value());
    }
    return written;
}

Status WriteFileAtomically(Files& files, const Path& path, std::string_view bytes) {
    Path temporary = path;
    temporary += ".new";
    auto file = files.open(temporary, Files::OpenMode::Truncate);
    if (!file) {
        return file.failure();
    }
    Status done = file.value()->write(bytes);
    if (done) {
        done = file.value()->flush();
    }
    if (done) {
        done = file.value()->close();
    }
    if (done) {
        done = files.rename(temporary, path);
    }
    if (!done) {
        // The old file is whole; what is left of the new one is of no use. Its removal may fail like the
        // write did.
        (void)files.remove(temporary);
    }
    return done;
}

bool DiskFiles::exists(const Path& path) const {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

Result<Bytes> DiskFiles::read(const Path& path) const {
    // O_NONBLOCK: opening a named pipe must not wait for a writer; the type test below then refuses it.
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.number() < 0) {
        return FileFailure("Could not open", path, errno);
    }

    struct stat information {};

    if (::fstat(file.number(), &information) != 0) {
        return FileFailure("Could not read", path, errno);
    }
    if (S_ISDIR(information.st_mode)) {
        return FileFailure("Could not read", path, EISDIR);
    }
    if (!S_ISREG(information.st_mode)) {
        return Failure{"Could not read \"" + PathText(path) + "\": it is not a file."};
    }
    Bytes bytes;
    bytes.reserve(static_cast<std::size_t>(std::min<std::uintmax_t>(
        static_cast<std::uintmax_t>(std::max<off_t>(information.st_size, 0)), MaxFileSize)));
    std::array<char, 65536> buffer{};
    for (;;) {
        const ssize_t count = ::read(file.number(), buffer.data(), buffer.size());
        if (count < 0) {
            if (errno == EINTR) {
                continue;
            }
            return FileFailure("Could not read", path, errno);
        }
        if (count == 0) {
            return bytes;
        }
        bytes.append(buffer.data(), static_cast<std::size_t>(count));
        if (bytes.size() > MaxFileSize) {
            return FileFailure("Could not read", path, EFBIG);
        }
    }
}

Result<std::unique_ptr<OutputFile>> DiskFiles::open(const Path& path, OpenMode mode) {
    int flags = O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK;
    switch (mode) {
    case OpenMode::Truncate:
        flags |= O_TRUNC;
        break;
    case OpenMode::Append:
        flags |= O_APPEND;
        break;
    case OpenMode::CreateNew:
    case OpenMode::CreatePrivate:
        flags |= O_EXCL;
        break;
    }
    const bool isNew = (flags & O_EXCL) != 0;
    const int number = ::open(path.c_str(), flags, mode == OpenMode::CreatePrivate ? 0600 : 0666);
    if (number < 0) {
        return FileFailure(isNew ? "Could not create" : "Could not open", path, errno);
    }
    return std::unique_ptr<OutputFile>(std::make_unique<DiskOutputFile>(path, number, isNew));
}

Status DiskFiles::remove(const Path& path) {
    if (::unlink(path.c_str()) != 0) {
        return FileFailure("Could not delete", path, errno);
    }
    return {};
}

Status DiskFiles::rename(const Path& from, const Path& to) {
    if (::rename(from.c_str(), to.c_str()) != 0) {
        return FileFailure("Could not replace", to, errno);
    }
    return {};
}

bool DiskFiles::sameFile(const Path& first, const Path& second) const {
    std::error_code error;
    return std::filesystem::equivalent(first, second, error) && !error;
}

Result<std::unique_ptr<FileLock>> DiskFiles::lockFolder(const Path& folder) {
    Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.number() < 0) {
        return FileFailure("Could not lock", folder, errno);
    }
    // What holds such a lock is done in moments: rather than wait for ever for one that hangs, give up.
    constexpr int Attempts = 50;
    constexpr std::chrono::milliseconds Pause(20);
    for (int attempt = 1; ::flock(descriptor.number(), LOCK_EX | LOCK_NB) != 0; ++attempt) {
        if (errno != EWOULDBLOCK && errno != EINTR) {
            break;
        }
        if (attempt == Attempts) {
            return Failure{"Could not lock \"" + PathText(folder) + "\": another program is writing in it."};
        }
        std::this_thread::sleep_for(Pause);
    }
    return std::unique_ptr<FileLock>(std::make_unique<DiskFileLock>(descriptor.release()));
}

} // namespace ui
