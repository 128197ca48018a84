// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/TryFor.h"
#include "ui/windows/FileSecurity.h"
#include "ui/windows/WideText.h"
#include "ui/windows/WindowsFile.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <random>
#include <winioctl.h>

namespace ui {

using native::FileFailure;
using native::Handle;
using native::IsAbsence;
using native::SystemPath;

namespace {

/// How often another random name is tried when one is taken.
constexpr int NameAttempts = 16;

/// What is known of an open file or folder.
std::optional<BY_HANDLE_FILE_INFORMATION> InformationOf(const Handle& handle) {
    BY_HANDLE_FILE_INFORMATION information{};
    return ::GetFileInformationByHandle(handle.get(), &information) == FALSE ? std::nullopt
                                                                             : std::optional(information);
}

bool HasFolderAttribute(DWORD attributes) {
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// Whether what was opened without following links is one. Other reparse points are files that the system
/// keeps elsewhere.
bool IsLink(const Handle& entry) {
    FILE_ATTRIBUTE_TAG_INFO tag{};
    return ::GetFileInformationByHandleEx(entry.get(), FileAttributeTagInfo, &tag, sizeof tag) != FALSE &&
           (tag.FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           IsReparseTagNameSurrogate(tag.ReparseTag);
}

/// Where an open file lies in the end.
std::optional<Path> FinalPath(const Handle& file) {
    std::wstring path(::GetFinalPathNameByHandleW(file.get(), nullptr, 0, FILE_NAME_NORMALIZED), L'\0');
    const DWORD size = ::GetFinalPathNameByHandleW(
        file.get(), path.data(), static_cast<DWORD>(path.size()), FILE_NAME_NORMALIZED);
    if (size == 0 || size > path.size()) {
        return {};
    }
    path.resize(size);
    constexpr std::wstring_view Network = LR"(\\?\UNC\)";
    constexpr std::wstring_view Plain = LR"(\\?\)";
    if (path.starts_with(Network)) {
        return LR"(\\)" + path.substr(Network.size());
    }
    return path.starts_with(Plain) ? path.substr(Plain.size()) : path;
}

/// Whether a file has data beside its content: where it was loaded down from, for instance.
bool HasStreams(const Path& path) {
    WIN32_FIND_STREAM_DATA stream{};
    HANDLE found = ::FindFirstStreamW(SystemPath(path).c_str(), FindStreamInfoStandard, &stream, 0);
    if (found == INVALID_HANDLE_VALUE) {
        return false;
    }
    // The first is the content.
    const bool hasMore = ::FindNextStreamW(found, &stream) != FALSE;
    ::FindClose(found);
    return hasMore;
}

/// Whether a file has attributes that a new file would not be given.
bool HasAttributes(const Path& path, DWORD attributes) {
    constexpr DWORD Own = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ENCRYPTED |
                          FILE_ATTRIBUTE_COMPRESSED | FILE_ATTRIBUTE_SPARSE_FILE |
                          FILE_ATTRIBUTE_REPARSE_POINT | FILE_ATTRIBUTE_OFFLINE;
    return (attributes & Own) != 0 || HasStreams(path) || native::IsOfSomebodyElse(path);
}

Handle CreateNewFile(const Path& path, SECURITY_ATTRIBUTES* attributes) {
    return Handle(::CreateFileW(
        SystemPath(path).c_str(), GENERIC_READ | GENERIC_WRITE,
        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, attributes, CREATE_NEW, FILE_ATTRIBUTE_NORMAL,
        nullptr));
}

/// Renames a file. What looks into new files, as virus scanners do, has them open for a moment: the file that
/// is moved is shared with nobody then, and the one to be replaced denies access.
DWORD Move(const Path& from, const Path& to, DWORD flags) {
    constexpr std::chrono::milliseconds Patience(200);
    constexpr std::chrono::milliseconds Pause(20);
    DWORD error = ERROR_SUCCESS;
    TryFor(Patience, Pause, [&] {
        const bool hasMoved = ::MoveFileExW(SystemPath(from).c_str(), SystemPath(to).c_str(), flags) != FALSE;
        error = hasMoved ? ERROR_SUCCESS : ::GetLastError();
        return error != ERROR_SHARING_VIOLATION && error != ERROR_ACCESS_DENIED;
    });
    return error;
}

/// Makes a folder and those above it, unless they are there.
DWORD MakeFolders(const Path& folder) {
    const std::wstring path = SystemPath(folder);
    if (::CreateDirectoryW(path.c_str(), nullptr) != FALSE) {
        return ERROR_SUCCESS;
    }
    DWORD error = ::GetLastError();
    if (error == ERROR_PATH_NOT_FOUND && folder.parent_path() != folder) {
        error = MakeFolders(folder.parent_path());
        if (error == ERROR_SUCCESS && ::CreateDirectoryW(path.c_str(), nullptr) == FALSE) {
            error = ::GetLastError();
        }
    }
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return error;
    }
    return HasFolderAttribute(attributes) ? ERROR_SUCCESS : ERROR_DIRECTORY;
}

} // namespace

std::string RandomName() {
    std::random_device numbers;
    std::uint64_t number = std::uint64_t{numbers()} << 32U | numbers();
    std::string name;
    for (int digit = 0; digit < 13; ++digit, number >>= 5U) {
        name += "0123456789abcdefghijklmnopqrstuv"[number & 31U];
    }
    return name;
}

void SurviveFileSizeLimit() {
    // Here a write that is too large fails like any other.
}

DiskFiles::DiskFiles(Path spareFolder)
    : m_spareFolder(std::move(spareFolder)) {}

PathKind DiskFiles::kindOf(const Path& path) const {
    const Handle handle = native::LookAt(path);
    if (!handle) {
        return IsAbsence(::GetLastError()) ? PathKind::Nothing : PathKind::File;
    }
    if (!native::IsOnDisk(handle)) {
        return PathKind::Device;
    }
    const auto information = InformationOf(handle);
    return information && HasFolderAttribute(information->dwFileAttributes) ? PathKind::Folder
                                                                            : PathKind::File;
}

Result<Bytes> DiskFiles::read(const Path& path) const {
    const Handle file = native::OpenExisting(path, GENERIC_READ, FILE_FLAG_BACKUP_SEMANTICS);
    if (!file) {
        return FileFailure("Could not open", path, ::GetLastError());
    }
    if (!native::IsOnDisk(file)) {
        return Failure{"Could not read \"" + PathText(path) + "\": it is not a file."};
    }
    const auto information = InformationOf(file);
    if (!information) {
        return FileFailure("Could not read", path, ::GetLastError());
    }
    if (HasFolderAttribute(information->dwFileAttributes)) {
        return FileFailure("Could not read", path, native::IsFolderError);
    }
    const std::uint64_t size = std::uint64_t{information->nFileSizeHigh} << 32U | information->nFileSizeLow;
    Bytes bytes;
    bytes.reserve(static_cast<std::size_t>(std::min<std::uint64_t>(size, MaxFileSize)));
    Bytes buffer(65536, '\0');
    for (;;) {
        const auto count = native::ReadAt(file.get(), bytes.size(), buffer.data(), buffer.size());
        if (!count) {
            return Failure{"Could not read \"" + PathText(path) + "\": " + count.failure().message + "."};
        }
        if (count.value() == 0) {
            return bytes;
        }
        bytes.append(buffer, 0, count.value());
        if (bytes.size() > MaxFileSize) {
            return FileFailure("Could not read", path, ERROR_FILE_TOO_LARGE);
        }
    }
}

Result<FileFacts> DiskFiles::inspect(const Path& path, Links links) const {
    FileFacts facts{.target = path};
    const Handle entry = native::LookAt(path, FILE_FLAG_OPEN_REPARSE_POINT);
    if (!entry) {
        return IsAbsence(::GetLastError())
                   ? Result<FileFacts>(facts)
                   : Result<FileFacts>(FileFailure("Could not open", path, ::GetLastError()));
    }
    if (!native::IsOnDisk(entry)) {
        if (links == Links::Replace) {
            return Failure{"Could not open \"" + PathText(path) + "\": it is not a file."};
        }
        facts.kind = FileFacts::Kind::Device;
        return facts;
    }
    const bool isLink = IsLink(entry);
    const Handle file =
        native::LookAt(path, isLink && links == Links::Replace ? FILE_FLAG_OPEN_REPARSE_POINT : 0);
    const auto information = file ? InformationOf(file) : std::nullopt;
    if (!information) {
        return FileFailure("Could not open", path, ::GetLastError());
    }
    if (HasFolderAttribute(information->dwFileAttributes)) {
        return FileFailure("Could not open", path, native::IsFolderError);
    }
    facts.kind = FileFacts::Kind::File;
    if (isLink && links == Links::Replace) {
        facts.standsAlone = true;
        return facts;
    }
    if (isLink) {
        const auto target = FinalPath(file);
        if (!target) {
            return FileFailure("Could not open", path, ::GetLastError());
        }
        facts.target = *target;
    }
    // A file that may not be written must not be replaced either, even where the folder allows it; nor one
    // that another program keeps for itself.
    if ((information->dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0) {
        return FileFailure("Could not open", path, ERROR_ACCESS_DENIED);
    }
    if (!native::OpenExisting(facts.target, GENERIC_READ | GENERIC_WRITE)) {
        return FileFailure("Could not open", path, ::GetLastError());
    }
    facts.standsAlone =
        information->nNumberOfLinks == 1 && !HasAttributes(facts.target, information->dwFileAttributes);
    return facts;
}

Result<std::unique_ptr<OutputFile>> DiskFiles::open(const Path& path, OpenMode mode) {
    if (mode == OpenMode::CreateNew || mode == OpenMode::CreatePrivate) {
        native::PrivateAttributes onlyUser;
        Handle made = CreateNewFile(path, mode == OpenMode::CreatePrivate ? onlyUser.get() : nullptr);
        return made ? Result<std::unique_ptr<OutputFile>>(native::MakeOutputFile(path, std::move(made)))
                    : Result<std::unique_ptr<OutputFile>>(
                          FileFailure("Could not create", path, ::GetLastError()));
    }
    if (mode == OpenMode::InPlace) {
        if (const Handle entry = native::LookAt(path, FILE_FLAG_OPEN_REPARSE_POINT); entry && IsLink(entry)) {
            return FileFailure("Could not open", path, ERROR_CANT_RESOLVE_FILENAME);
        }
    }
    const DWORD access = mode == OpenMode::InPlace ? GENERIC_READ | GENERIC_WRITE : GENERIC_WRITE;
    Handle file = native::OpenExisting(path, access);
    return file ? Result<std::unique_ptr<OutputFile>>(native::MakeOutputFile(path, std::move(file)))
                : Result<std::unique_ptr<OutputFile>>(FileFailure("Could not open", path, ::GetLastError()));
}

Result<TemporaryFile> DiskFiles::createBeside(const Path& target) {
    const Handle old = native::LookAt(target, FILE_FLAG_OPEN_REPARSE_POINT);
    if (!old && !IsAbsence(::GetLastError())) {
        return FileFailure("Could not open", target, ::GetLastError());
    }
    Path path;
    Handle made(nullptr);
    DWORD error = ERROR_FILE_EXISTS;
    for (int attempt = 0; attempt < NameAttempts && error == ERROR_FILE_EXISTS; ++attempt) {
        path = native::TemporaryName(target);
        Handle attempted = CreateNewFile(path, nullptr);
        error = attempted ? ERROR_SUCCESS : ::GetLastError();
        if (attempted) {
            auto file = native::MakeOutputFile(target, std::move(attempted));
            error = old && !IsLink(old) ? native::TakePermissions(target, path) : ERROR_SUCCESS;
            if (error == ERROR_SUCCESS) {
                return TemporaryFile{std::move(path), std::move(file)};
            }
            file.reset();
            (void)remove(path);
            break;
        }
    }
    return FileFailure("Could not open", target, error);
}

Status DiskFiles::remove(const Path& path) {
    if (::DeleteFileW(SystemPath(path).c_str()) == FALSE) {
        return FileFailure("Could not delete", path, ::GetLastError());
    }
    return {};
}

Status DiskFiles::rename(const Path& from, const Path& to) {
    const DWORD error = Move(from, to, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
    return error == ERROR_SUCCESS ? Status() : FileFailure("Could not replace", to, error);
}

Status DiskFiles::renameNew(const Path& from, const Path& to) {
    const DWORD error = Move(from, to, MOVEFILE_WRITE_THROUGH);
    return error == ERROR_SUCCESS ? Status() : FileFailure("Could not create", to, error);
}

Status DiskFiles::flushFolder(const Path& folder) {
    // Here names are written through as they are made.
    return native::LookAt(folder) ? Status() : FileFailure("Could not write", folder, ::GetLastError());
}

Status DiskFiles::makeFolder(const Path& folder) {
    const DWORD error = MakeFolders(folder);
    return error == ERROR_SUCCESS ? Status() : FileFailure("Could not create", folder, error);
}

std::vector<std::string> DiskFiles::list(const Path& folder) const {
    std::vector<std::string> names;
    WIN32_FIND_DATAW entry{};
    HANDLE found = ::FindFirstFileW((SystemPath(folder) + LR"(\*)").c_str(), &entry);
    for (bool isMore = found != INVALID_HANDLE_VALUE; isMore;
         isMore = ::FindNextFileW(found, &entry) != FALSE) {
        const std::wstring_view name(entry.cFileName);
        if (name != L"." && name != L"..") {
            names.push_back(native::NarrowText(name));
        }
    }
    if (found != INVALID_HANDLE_VALUE) {
        ::FindClose(found);
    }
    std::ranges::sort(names);
    return names;
}

bool DiskFiles::sameFile(const Path& first, const Path& second) const {
    std::optional<native::FileIdentity> known;
    std::optional<bool> isOnDisk;
    for (const Path& path : {first, second}) {
        const Handle handle = native::LookAt(path);
        if (!handle && IsAbsence(::GetLastError())) {
            return false;
        }
        // A device has no identity, and would count as the same as any file.
        if (const DWORD type = ::GetFileType(handle.get()); handle && type != FILE_TYPE_UNKNOWN) {
            const bool isThisOnDisk = type == FILE_TYPE_DISK;
            if (isOnDisk.value_or(isThisOnDisk) != isThisOnDisk) {
                return false;
            }
            isOnDisk = isThisOnDisk;
        }
        const auto identity = native::IdentityOf(handle);
        if (!identity) {
            continue;
        }
        if (known && *known != *identity) {
            return false;
        }
        known = identity;
    }
    return true;
}

} // namespace ui
