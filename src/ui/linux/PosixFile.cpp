// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/linux/PosixFile.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace ui::native {

namespace {

std::string CauseText(int errorNumber) {
    return std::generic_category().message(errorNumber);
}

/// Forces a file onto the disk. Pipes and some file systems cannot do that; for them the write itself is all
/// there is.
bool Synchronise(int number) {
    return ::fsync(number) == 0 || errno == EINVAL || errno == ENOTSUP;
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
                return failure(errno);
            }
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return {};
    }

    Status seek(std::uintmax_t position) override {
        return ::lseek(m_descriptor.number(), static_cast<off_t>(position), SEEK_SET) < 0 ? failure(errno)
                                                                                          : Status();
    }

    Status reserve(std::uintmax_t size) override {
        int error = EINTR;
        while (size > 0 && error == EINTR) {
            error = ::posix_fallocate(m_descriptor.number(), 0, static_cast<off_t>(size));
        }
        // File systems that cannot reserve room report a full disk at the write.
        return size == 0 || error == 0 || error == EINVAL || error == EOPNOTSUPP ? Status() : failure(error);
    }

    Status resize(std::uintmax_t size) override {
        int error = EINTR;
        while (error == EINTR) {
            error = ::ftruncate(m_descriptor.number(), static_cast<off_t>(size)) == 0 ? 0 : errno;
        }
        return error == 0 ? Status() : failure(error);
    }

    Status flush() override {
        if (!Synchronise(m_descriptor.number())) {
            return failure(errno);
        }
        if (!m_isNew) {
            return {};
        }
        Status done = SynchroniseFolder(FolderOf(m_path), m_path);
        m_isNew = !done;
        return done;
    }

    Status check(std::string_view bytes) override {
        std::array<char, 65536> buffer{};
        for (std::size_t place = 0;;) {
            const ssize_t count =
                ::pread(m_descriptor.number(), buffer.data(), buffer.size(), static_cast<off_t>(place));
            if (count < 0) {
                if (errno == EINTR) {
                    continue;
                }
                return FileFailure("Could not read", m_path, errno);
            }
            const std::string_view read(buffer.data(), static_cast<std::size_t>(count));
            if (read != bytes.substr(place, read.size()) || (read.empty() && place != bytes.size())) {
                return Failure{"Could not write \"" + PathText(m_path) + "\": it holds something else."};
            }
            if (read.empty()) {
                return {};
            }
            place += read.size();
        }
    }

    Status close() override {
        return ::close(m_descriptor.release()) != 0 && errno != EINTR ? failure(errno) : Status();
    }

private:
    [[nodiscard]] Status failure(int errorNumber) const {
        return FileFailure("Could not write", m_path, errorNumber);
    }

    Path m_path;
    Descriptor m_descriptor;
    bool m_isNew; ///< the folder may not know of the file yet
};

} // namespace

Failure FileFailure(const char* what, const Path& path, int errorNumber) {
    return {std::string(what) + " \"" + PathText(path) + "\": " + CauseText(errorNumber) + "."};
}

/// Whether a failure to look at a path means that nothing is there. No other failure does.
bool IsAbsence(int errorNumber) {
    return errorNumber == ENOENT || errorNumber == ENOTDIR;
}

bool IsSame(const struct stat& first, const struct stat& second) {
    return first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

Descriptor::~Descriptor() {
    if (m_number >= 0) {
        ::close(m_number);
    }
}

Path TemporaryName(const Path& target) {
    return FolderOf(target) / (std::string(TemporaryPrefix) + RandomName());
}

Status PutLink(const Path& link, const Path& target) {
    const Path temporary = TemporaryName(link);
    if (::symlink(target.c_str(), temporary.c_str()) != 0) {
        return FileFailure("Could not create", link, errno);
    }
    if (::rename(temporary.c_str(), link.c_str()) != 0) {
        const Failure failure = FileFailure("Could not create", link, errno);
        ::unlink(temporary.c_str());
        return failure;
    }
    return {};
}

Status SynchroniseFolder(const Path& folder, const Path& shown) {
    // A folder that may be written but not read cannot be opened: then its names are left to the system.
    const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.number() < 0 ? errno != EACCES : !Synchronise(descriptor.number())) {
        return FileFailure("Could not write", shown, errno);
    }
    return {};
}

std::unique_ptr<OutputFile> MakeOutputFile(Path shown, int number, bool isNew) {
    return std::make_unique<DiskOutputFile>(std::move(shown), number, isNew);
}

} // namespace ui::native
