// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/linux/PosixFile.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>

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

// Locks are held for moments only: a holder that needs more than two seconds hangs.
constexpr int PatientAttempts = 400;
constexpr std::chrono::milliseconds Pause(5);

/// Locks an open file or folder; while another program holds the lock, tries again.
Status WaitForLock(int number, const Path& path, const char* busy, int attempts) {
    for (int attempt = 1; ::flock(number, LOCK_EX | LOCK_NB) != 0; ++attempt) {
        const bool hasLocks =
            errno != ENOLCK && errno != ENOTSUP && errno != ENOSYS && errno != EINVAL && errno != EBADF;
        if (!hasLocks) {
            return {};
        }
        if (errno != EWOULDBLOCK && errno != EINTR) {
            return FileFailure("Could not lock", path, errno);
        }
        if (attempt == attempts) {
            return Failure{"Could not lock \"" + PathText(path) + "\": " + busy + "."};
        }
        std::this_thread::sleep_for(Pause);
    }
    return {};
}

Result<std::unique_ptr<FileLock>> LockFile(const Path& path, int attempts) {
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
        if (auto locked = WaitForLock(number, path, "another program is writing it", attempts); !locked) {
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
            WaitForLock(descriptor.number(), folder, "another program is writing in it", PatientAttempts);
        !locked) {
        return locked.failure();
    }
    return std::unique_ptr<FileLock>(std::make_unique<DiskFileLock>(std::move(descriptor)));
}

Result<std::unique_ptr<FileLock>> DiskFiles::lockFile(const Path& path) {
    return LockFile(path, PatientAttempts);
}

Result<std::unique_ptr<FileLock>> DiskFiles::tryLockFile(const Path& path) {
    return LockFile(path, 1);
}

} // namespace ui
