// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <windows.h>

/// Files as Windows has them: what the sources of DiskFiles share.
namespace ui::native {

/// What an error code of the system means, in English on every system.
[[nodiscard]] std::string CauseText(DWORD code);

[[nodiscard]] Failure FileFailure(const char* what, const Path& path, DWORD code);

/// The cause where a file is wanted and a folder is found.
constexpr DWORD IsFolderError = 336; // the system's ERROR_DIRECTORY_NOT_SUPPORTED

/// Whether a failure to look at a path means that nothing is there. No other failure does.
[[nodiscard]] bool IsAbsence(DWORD code);

/// A path as the system's functions take it, of whatever length.
[[nodiscard]] std::wstring SystemPath(const Path& path);

/// A handle of the system that is closed when it goes out of scope.
class Handle {
public:
    explicit Handle(HANDLE handle)
        : m_handle(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}

    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    Handle(Handle&& other) noexcept
        : m_handle(other.release()) {}

    Handle& operator=(Handle&&) = delete;

    ~Handle() {
        if (m_handle != nullptr) {
            ::CloseHandle(m_handle);
        }
    }

    explicit operator bool() const { return m_handle != nullptr; }

    [[nodiscard]] HANDLE get() const { return m_handle; }

    /// Gives the handle up without closing it.
    HANDLE release() { return std::exchange(m_handle, nullptr); }

private:
    HANDLE m_handle;
};

/// Opens what is there, and lets others go on with it. None: GetLastError() says why.
[[nodiscard]] Handle OpenExisting(const Path& path, DWORD access, DWORD flags = 0);

/// Opens what is there, a folder as well, only to look at it.
[[nodiscard]] Handle LookAt(const Path& path, DWORD flags = 0);

/// What a file or folder is, by whatever name.
struct FileIdentity {
    std::uint32_t volume = 0;
    std::uint64_t number = 0; ///< 0: the file system does not tell

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

[[nodiscard]] std::optional<FileIdentity> IdentityOf(const Handle& handle);

/// Whether a handle is of a file or folder on a disk; others are devices and pipes.
[[nodiscard]] bool IsOnDisk(const Handle& handle);

/// A name for the temporary file that is to replace `target`.
[[nodiscard]] Path TemporaryName(const Path& target);

/// Reads from a place in a file on; how many bytes there were.
[[nodiscard]] Result<std::size_t> ReadAt(HANDLE file, std::uint64_t place, char* buffer, std::size_t size);

/// Writes to an open file, which failures call `shown`.
[[nodiscard]] std::unique_ptr<OutputFile> MakeOutputFile(Path shown, Handle file);

} // namespace ui::native
