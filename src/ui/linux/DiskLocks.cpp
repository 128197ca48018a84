// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/TryFor.h"
#include "ui/linux/PosixFile.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>

namespace ui {

using native::Descriptor;
using native::FileFailure;

namespace {

class DiskFileLock final : public FileLock {
public:
    explicit DiskFileLock(Descriptor descriptor)
        : m_descriptor(std::move(descriptor)) {}

private:
    Descriptor m_descriptor;
};

constexpr std::chrono::milliseconds Pause(5);

/// Locks an open file or folder; while another program holds the lock, tries again.
Status WaitForLock(int number, const Path& path, const char* busy, std::chrono::milliseconds patience) {
    int error = 0;
    const bool isSettled = TryFor(patience, Pause, [&] {
        error = ::flock(number, LOCK_EX | LOCK_NB) == 0 ? 0 : errno;
        return error != EWOULDBLOCK && error != EINTR;
    });
    if (!isSettled) {
        return Failure{"Could not lock \"" + PathText(path) + "\": " + busy + "."};
    }
    const bool hasLocks =
        error != ENOLCK && error != ENOTSUP && error != ENOSYS && error != EINVAL && error != EBADF;
    return error == 0 || !hasLocks ? Status() : FileFailure("Could not lock", path, error);
}

Result<std::unique_ptr<FileLock>> LockFile(const Path& path, std::chrono::milliseconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    for (;;) {
        constexpr int Common = O_CLOEXEC | O_NONBLOCK;
        int number = ::open(path.c_str(), O_RDWR | Common);
        if (number < 0 && (errno == EACCES || errno == EROFS || errno == ETXTBSY)) {
            number = ::open(path.c_str(), O_RDONLY | Common);
        }
        Descriptor descriptor(number);

        struct stat opened {};

        if (number < 0 || ::fstat(number, &opened) != 0) {
            return FileFailure("Could not lock", path, errno);
        }
        if (auto locked = WaitForLock(number, path, "another program is writing it", LeftUntil(end));
            !locked) {
            return locked.failure();
        }

        // The program that held the lock before may have replaced the file.
        struct stat now {};

        if (::stat(path.c_str(), &now) != 0) {
            return FileFailure("Could not lock", path, errno);
        }
        if (native::IsSame(opened, now)) {
            return std::unique_ptr<FileLock>(std::make_unique<DiskFileLock>(std::move(descriptor)));
        }
    }
}

} // namespace

Result<std::unique_ptr<FileLock>> DiskFiles::lockFolder(const Path& folder) {
    Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.number() < 0) {
        return FileFailure("Could not lock", folder, errno);
    }
    if (auto locked =
            WaitForLock(descriptor.number(), folder, "another program is writing in it", LockPatience);
        !locked) {
        return locked.failure();
    }
    return std::unique_ptr<FileLock>(std::make_unique<DiskFileLock>(std::move(descriptor)));
}

Result<std::unique_ptr<FileLock>> DiskFiles::lockFile(const Path& path) {
    return LockFile(path, LockPatience);
}

Result<std::unique_ptr<FileLock>> DiskFiles::tryLockFile(const Path& path) {
    return LockFile(path, {});
}

} // namespace ui
