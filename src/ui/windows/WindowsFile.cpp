// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/windows/WindowsFile.h"

#include "ui/windows/WideText.h"

#include <algorithm>
#include <array>

namespace ui::native {

namespace {

struct Cause {
    DWORD code;
    const char* text;
};

constexpr auto NotThere = "No such file or directory";
constexpr auto NotAllowed = "Permission denied";
constexpr auto Busy = "another program has opened it";
constexpr auto Exists = "File exists";
constexpr auto Full = "No space left on device";

constexpr DWORD QuotaError = 1295; // the system's ERROR_DISK_QUOTA_EXCEEDED

constexpr std::array Causes{
    Cause{ERROR_FILE_NOT_FOUND, NotThere},
    Cause{ERROR_PATH_NOT_FOUND, NotThere},
    Cause{ERROR_INVALID_DRIVE, NotThere},
    Cause{ERROR_BAD_NETPATH, NotThere},
    Cause{ERROR_BAD_NET_NAME, NotThere},
    Cause{ERROR_DIRECTORY, "Not a directory"},
    Cause{ERROR_ACCESS_DENIED, NotAllowed},
    Cause{ERROR_NETWORK_ACCESS_DENIED, NotAllowed},
    Cause{ERROR_PRIVILEGE_NOT_HELD, NotAllowed},
    Cause{ERROR_WRITE_PROTECT, "Read-only file system"},
    Cause{ERROR_SHARING_VIOLATION, Busy},
    Cause{ERROR_LOCK_VIOLATION, Busy},
    Cause{ERROR_USER_MAPPED_FILE, Busy},
    Cause{ERROR_FILE_EXISTS, Exists},
    Cause{ERROR_ALREADY_EXISTS, Exists},
    Cause{ERROR_DISK_FULL, Full},
    Cause{ERROR_HANDLE_DISK_FULL, Full},
    Cause{QuotaError, "Disk quota exceeded"},
    Cause{ERROR_FILE_TOO_LARGE, "File too large"},
    Cause{ERROR_FILENAME_EXCED_RANGE, "File name too long"},
    Cause{ERROR_INVALID_NAME, "a file cannot be called this"},
    Cause{ERROR_CANT_RESOLVE_FILENAME, "Too many levels of symbolic links"},
    Cause{ERROR_NOT_READY, "the drive is not ready"},
    Cause{IsFolderError, "Is a directory"},
};

/// What the system itself says of a code.
std::string SystemText(DWORD code) {
    std::array<wchar_t, 512> text{};
    const DWORD size = ::FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0, text.data(),
        static_cast<DWORD>(text.size()), nullptr);
    std::wstring_view whole(text.data(), size);
    while (!whole.empty() && (whole.back() <= L' ' || whole.back() == L'.')) {
        whole.remove_suffix(1);
    }
    return whole.empty() ? "error " + std::to_string(code) : NarrowText(whole);
}

constexpr std::size_t BufferSize = 65536;

class WindowsOutputFile final : public OutputFile {
public:
    WindowsOutputFile(Path path, Handle file)
        : m_path(std::move(path))
        , m_file(std::move(file)) {}

    Status write(std::string_view bytes) override {
        while (!bytes.empty()) {
            DWORD written = 0;
            const auto some = static_cast<DWORD>(std::min(bytes.size(), BufferSize));
            if (::WriteFile(m_file.get(), bytes.data(), some, &written, nullptr) == FALSE) {
                return failure();
            }
            bytes.remove_prefix(written);
        }
        return {};
    }

    Status seek(std::uintmax_t position) override {
        LARGE_INTEGER place{};
        place.QuadPart = static_cast<LONGLONG>(position);
        return ::SetFilePointerEx(m_file.get(), place, nullptr, FILE_BEGIN) == FALSE ? failure() : Status();
    }

    Status reserve(std::uintmax_t size) override {
        LARGE_INTEGER now{};
        if (::GetFileSizeEx(m_file.get(), &now) == FALSE) {
            return failure();
        }
        return static_cast<std::uintmax_t>(now.QuadPart) < size ? resize(size) : Status();
    }

    Status resize(std::uintmax_t size) override {
        FILE_END_OF_FILE_INFO end{};
        end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
        return ::SetFileInformationByHandle(m_file.get(), FileEndOfFileInfo, &end, sizeof end) == FALSE
                   ? failure()
                   : Status();
    }

    Status flush() override {
        const bool isDone = ::FlushFileBuffers(m_file.get()) != FALSE;
        // Some file systems over a network cannot do that; for them the write itself is all there is.
        const bool isUnknown = !isDone && (::GetLastError() == ERROR_INVALID_FUNCTION ||
                                           ::GetLastError() == ERROR_NOT_SUPPORTED);
        return isDone || isUnknown ? Status() : failure();
    }

    Status check(std::string_view bytes) override {
        std::string buffer(BufferSize, '\0');
        for (std::size_t place = 0;;) {
            const auto count = ReadAt(m_file.get(), place, buffer.data(), buffer.size());
            if (!count) {
                return Failure{
                    "Could not read \"" + PathText(m_path) + "\": " + count.failure().message + "."};
            }
            const std::string_view read(buffer.data(), count.value());
            if (read != bytes.substr(place, read.size()) || (read.empty() && place != bytes.size())) {
                return Failure{"Could not write \"" + PathText(m_path) + "\": it holds something else."};
            }
            if (read.empty()) {
                return {};
            }
            place += read.size();
        }
    }

    Status close() override { return ::CloseHandle(m_file.release()) == FALSE ? failure() : Status(); }

private:
    [[nodiscard]] Status failure() const { return FileFailure("Could not write", m_path, ::GetLastError()); }

    Path m_path;
    Handle m_file;
};

} // namespace

std::string CauseText(DWORD code) {
    const auto* const found = std::ranges::find(Causes, code, &Cause::code);
    return found == Causes.end() ? SystemText(code) : found->text;
}

Failure FileFailure(const char* what, const Path& path, DWORD code) {
    return {std::string(what) + " \"" + PathText(path) + "\": " + CauseText(code) + "."};
}

bool IsAbsence(DWORD code) {
    // A name that no file can have is nobody's.
    return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND || code == ERROR_INVALID_DRIVE ||
           code == ERROR_INVALID_NAME || code == ERROR_DIRECTORY;
}

std::wstring SystemPath(const Path& path) {
    const std::wstring& given = path.native();
    const auto isPlain = [](const std::wstring& text) {
        return text.starts_with(LR"(\\?\)") || text.starts_with(LR"(\\.\)");
    };
    if (isPlain(given)) {
        return given;
    }
    std::wstring full(::GetFullPathNameW(given.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(::GetFullPathNameW(given.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    if (full.empty() || isPlain(full)) {
        return full;
    }
    // Only in this form the system takes paths of more than 260 characters on every computer.
    return full.starts_with(LR"(\\)") ? LR"(\\?\UNC\)" + full.substr(2) : LR"(\\?\)" + full;
}

Handle OpenExisting(const Path& path, DWORD access, DWORD flags) {
    constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    return Handle(::CreateFileW(
        SystemPath(path).c_str(), access, ShareAll, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL | flags,
        nullptr));
}

Handle LookAt(const Path& path, DWORD flags) {
    return OpenExisting(path, FILE_READ_ATTRIBUTES, FILE_FLAG_BACKUP_SEMANTICS | flags);
}

std::optional<FileIdentity> IdentityOf(const Handle& handle) {
    BY_HANDLE_FILE_INFORMATION information{};
    if (!handle || ::GetFileInformationByHandle(handle.get(), &information) == FALSE) {
        return {};
    }
    return FileIdentity{
        information.dwVolumeSerialNumber,
        std::uint64_t{information.nFileIndexHigh} << 32U | information.nFileIndexLow};
}

bool IsOnDisk(const Handle& handle) {
    return ::GetFileType(handle.get()) == FILE_TYPE_DISK;
}

Path TemporaryName(const Path& target) {
    return FolderOf(target) / PathFromText(std::string(TemporaryPrefix) + RandomName());
}

Result<std::size_t> ReadAt(HANDLE file, std::uint64_t place, char* buffer, std::size_t size) {
    OVERLAPPED from{};
    from.Offset = static_cast<DWORD>(place & 0xFFFFFFFFU);
    from.OffsetHigh = static_cast<DWORD>(place >> 32U);
    DWORD count = 0;
    const auto some = static_cast<DWORD>(std::min(size, BufferSize));
    if (::ReadFile(file, buffer, some, &count, &from) == FALSE && ::GetLastError() != ERROR_HANDLE_EOF) {
        return Failure{CauseText(::GetLastError())};
    }
    return std::size_t{count};
}

std::unique_ptr<OutputFile> MakeOutputFile(Path shown, Handle file) {
    return std::make_unique<WindowsOutputFile>(std::move(shown), std::move(file));
}

} // namespace ui::native
