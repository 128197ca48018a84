// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/TryFor.h"
#include "ui/windows/WindowsFile.h"

#include <array>
#include <chrono>
#include <cwchar>

namespace ui {

using native::FileFailure;
using native::FileIdentity;
using native::Handle;

namespace {

/// A lock is an object of the system that only its holder makes: it goes with the holder, however that ends.
/// A file that is open cannot be replaced, so the lock keeps none open.
class NamedLock final : public FileLock {
public:
    explicit NamedLock(Handle object)
        : m_object(std::move(object)) {}

private:
    Handle m_object;
};

constexpr std::chrono::milliseconds Pause(5);

/// The object of that name if nobody else has it. Another user's may not even be looked at.
Handle TakeName(const wchar_t* name) {
    Handle object(::CreateEventW(nullptr, TRUE, FALSE, name));
    return object && ::GetLastError() == ERROR_ALREADY_EXISTS ? Handle(nullptr) : std::move(object);
}

/// Takes the lock of a file or folder; none when another program has held it all the time.
std::unique_ptr<FileLock> WaitForLock(const FileIdentity& identity, std::chrono::milliseconds patience) {
    if (identity.number == 0) {
        return std::make_unique<NamedLock>(Handle(nullptr));
    }
    std::array<wchar_t, 64> name{};
    std::swprintf(
        name.data(), name.size(), L"Global\\vtm-lock-%08lx-%016llx",
        static_cast<unsigned long>(identity.volume), static_cast<unsigned long long>(identity.number));
    std::unique_ptr<FileLock> lock;
    TryFor(patience, Pause, [&] {
        if (Handle object = TakeName(name.data())) {
            lock = std::make_unique<NamedLock>(std::move(object));
        }
        return lock != nullptr;
    });
    return lock;
}

Failure BusyFailure(const Path& path, const char* busy) {
    return {"Could not lock \"" + PathText(path) + "\": " + busy + "."};
}

Result<std::unique_ptr<FileLock>> LockFile(const Path& path, std::chrono::milliseconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    for (;;) {
        const auto opened = native::IdentityOf(native::LookAt(path));
        if (!opened) {
            return FileFailure("Could not lock", path, ::GetLastError());
        }
        auto lock = WaitForLock(*opened, LeftUntil(end));
        if (lock == nullptr) {
            return BusyFailure(path, "another program is writing it");
        }
        // The program that held the lock before may have replaced the file.
        const auto now = native::IdentityOf(native::LookAt(path));
        if (!now) {
            return FileFailure("Could not lock", path, ::GetLastError());
        }
        if (*now == *opened) {
            return lock;
        }
    }
}

} // namespace

Result<std::unique_ptr<FileLock>> DiskFiles::lockFolder(const Path& folder) {
    const auto identity = native::IdentityOf(native::LookAt(folder));
    if (!identity) {
        return FileFailure("Could not lock", folder, ::GetLastError());
    }
    auto lock = WaitForLock(*identity, LockPatience);
    return lock != nullptr
               ? Result<std::unique_ptr<FileLock>>(std::move(lock))
               : Result<std::unique_ptr<FileLock>>(BusyFailure(folder, "another program is writing in it"));
}

Result<std::unique_ptr<FileLock>> DiskFiles::lockFile(const Path& path) {
    return LockFile(path, LockPatience);
}

Result<std::unique_ptr<FileLock>> DiskFiles::tryLockFile(const Path& path) {
    return LockFile(path, {});
}

} // namespace ui
