// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/Files.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
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

class DiskOutputFile final : public OutputFile {
public:
    DiskOutputFile(Path path, int number)
        : m_path(std::move(path))
        , m_descriptor(number) {}

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
        // Pipes and some file systems cannot be synchronised; for them the write itself is all there is.
        if (::fsync(m_descriptor.number()) != 0 && errno != EINVAL && errno != ENOTSUP) {
            return FileFailure("Could not write", m_path, errno);
        }
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
};

} // namespace

std::string PathText(const Path& path) {
    return path.native();
}

Status WriteFile(Files& files, const Path& path, std::string_view bytes, Files::OpenMode mode) {
    auto file = files.open(path, mode);
    if (!file) {
        return file.failure();
    }
    if (auto written = file.value()->write(bytes); !written) {
        return written;
    }
    return file.value()->close();
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
        flags |= O_EXCL;
        break;
    }
    const int number = ::open(path.c_str(), flags, 0666);
    if (number < 0) {
        return FileFailure(mode == OpenMode::CreateNew ? "Could not create" : "Could not open", path, errno);
    }
    return std::unique_ptr<OutputFile>(std::make_unique<DiskOutputFile>(path, number));
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

} // namespace ui
