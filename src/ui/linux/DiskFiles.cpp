// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/linux/PosixFile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <optional>
#include <sys/random.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace ui {

using native::Descriptor;
using native::FileFailure;
using native::IsAbsence;
using native::TemporaryName;

namespace {

/// Where a link leads to. Another user's link in a folder that everybody may write is refused: it may lead to
/// a file that only this user can write.
Result<Path> Followed(const Path& link, const struct stat& information) {
    struct stat folder {};

    if (::stat(FolderOf(link).c_str(), &folder) != 0) {
        return FileFailure("Could not open", link, errno);
    }
    if ((folder.st_mode & S_IWOTH) != 0 && information.st_uid != ::geteuid() &&
        information.st_uid != folder.st_uid) {
        return Failure{"Could not open \"" + PathText(link) + "\": it is a link of another user."};
    }
    std::error_code error;
    const Path target = std::filesystem::read_symlink(link, error);
    if (error) {
        return FileFailure("Could not open", link, error.value());
    }
    return target.is_absolute() ? target : link.parent_path() / target;
}

/// Whether a file has attributes of its own: an access list, or somebody's notes. Attributes that the system
/// gives every file do not count.
bool HasAttributes(const Path& path) {
    std::array<char, 4096> names{};
    const ssize_t size = ::listxattr(path.c_str(), names.data(), names.size());
    if (size < 0) {
        // A file whose attributes cannot be read may have some.
        return errno != ENOTSUP;
    }
    for (std::string_view rest(names.data(), static_cast<std::size_t>(size)); !rest.empty();) {
        const std::string_view name = rest.substr(0, rest.find('\0'));
        if (name.starts_with("user.") || name.starts_with("system.posix_acl")) {
            return true;
        }
        rest.remove_prefix(std::min(rest.size(), name.size() + 1));
    }
    return false;
}

/// How often another random name is tried when one is taken.
constexpr int NameAttempts = 16;

/// Gives a new file the owner and the permissions of an old one.
Status TakeAttributes(int number, const struct stat& old, const Path& path) {
    struct stat now {};

    if (::fstat(number, &now) != 0) {
        return FileFailure("Could not open", path, errno);
    }
    if ((now.st_uid != old.st_uid || now.st_gid != old.st_gid) &&
        ::fchown(number, old.st_uid, old.st_gid) != 0) {
        return FileFailure("Could not open", path, errno);
    }
    constexpr mode_t Permissions = 07777;
    if ((now.st_mode & Permissions) != (old.st_mode & Permissions) &&
        ::fchmod(number, old.st_mode & Permissions) != 0) {
        return FileFailure("Could not open", path, errno);
    }
    return {};
}

extern "C" void OnFileSizeLimit(int /*signalNumber*/) {
    // The write that goes too far fails and tells.
}

} // namespace

std::string RandomName() {
    std::uint64_t number = 0;
    if (::getrandom(&number, sizeof number, 0) != sizeof number) {
        // Only tidiness depends on it: no name that is taken is ever used.
        number = static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
    }
    std::string name;
    for (int digit = 0; digit < 13; ++digit, number >>= 5U) {
        name += "0123456789abcdefghijklmnopqrstuv"[number & 31U];
    }
    return name;
}

void SurviveFileSizeLimit() {
    // A handler, and not an order to ignore the signal: that would be handed on to every program started.
    struct sigaction action {};

    action.sa_handler = &OnFileSizeLimit;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    ::sigaction(SIGXFSZ, &action, nullptr);
}

DiskFiles::DiskFiles(Path spareFolder)
    : m_spareFolder(std::move(spareFolder)) {}

PathKind DiskFiles::kindOf(const Path& path) const {
    struct stat information {};

    if (::stat(path.c_str(), &information) != 0) {
        return IsAbsence(errno) ? PathKind::Nothing : PathKind::File;
    }
    if (S_ISDIR(information.st_mode)) {
        return PathKind::Folder;
    }
    return S_ISREG(information.st_mode) ? PathKind::File : PathKind::Device;
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

Result<FileFacts> DiskFiles::inspect(const Path& path, Links links) const {
    struct stat information {};

    FileFacts facts{.target = path};
    if (links == Links::Follow && ::stat(path.c_str(), &information) == 0 && !S_ISREG(information.st_mode) &&
        !S_ISDIR(information.st_mode)) {
        facts.kind = FileFacts::Kind::Device;
        return facts;
    }
    constexpr int MaxLinks = 40;
    for (int followed = 0;; ++followed) {
        if (::lstat(facts.target.c_str(), &information) != 0) {
            return IsAbsence(errno) ? Result<FileFacts>(facts)
                                    : Result<FileFacts>(FileFailure("Could not open", path, errno));
        }
        if (!S_ISLNK(information.st_mode)) {
            break;
        }
        if (links == Links::Replace) {
            facts.kind = FileFacts::Kind::File;
            facts.standsAlone = true;
            return facts;
        }
        if (followed == MaxLinks) {
            return FileFailure("Could not open", path, ELOOP);
        }
        auto next = Followed(facts.target, information);
        if (!next) {
            return next.failure();
        }
        facts.target = std::move(next).value();
    }
    if (S_ISDIR(information.st_mode)) {
        return FileFailure("Could not open", path, EISDIR);
    }
    if (!S_ISREG(information.st_mode)) {
        return Failure{"Could not open \"" + PathText(path) + "\": it is not a file."};
    }
    // A file that may not be written must not be replaced either, even where the folder allows it.
    if (::faccessat(AT_FDCWD, facts.target.c_str(), W_OK, AT_EACCESS) != 0) {
        return FileFailure("Could not open", path, errno);
    }
    facts.kind = FileFacts::Kind::File;
    facts.standsAlone = information.st_nlink == 1 && !HasAttributes(facts.target);
    return facts;
}

Result<std::unique_ptr<OutputFile>> DiskFiles::open(const Path& path, OpenMode mode) {
    constexpr int Common = O_CLOEXEC | O_NONBLOCK;
    int number = -1;
    switch (mode) {
    case OpenMode::InPlace:
        number = ::open(path.c_str(), O_RDWR | O_NOFOLLOW | Common);
        break;
    case OpenMode::Device:
        number = ::open(path.c_str(), O_WRONLY | Common);
        break;
    case OpenMode::CreateNew:
    case OpenMode::CreatePrivate:
        number = ::open(
            path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | Common,
            mode == OpenMode::CreatePrivate ? 0600 : 0666);
        break;
    }
    const bool isNew = mode == OpenMode::CreateNew || mode == OpenMode::CreatePrivate;
    if (number < 0) {
        return FileFailure(isNew ? "Could not create" : "Could not open", path, errno);
    }
    return native::MakeOutputFile(path, number, isNew);
}

Result<TemporaryFile> DiskFiles::createBeside(const Path& target) {
    struct stat old {};

    const bool isThere = ::lstat(target.c_str(), &old) == 0;
    if (!isThere && !IsAbsence(errno)) {
        return FileFailure("Could not open", target, errno);
    }
    const bool hasAttributes = isThere && S_ISREG(old.st_mode);
    Path path;
    int number = -1;
    for (int attempt = 0; attempt < NameAttempts && number < 0; ++attempt) {
        path = TemporaryName(target);
        number = ::open(
            path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, hasAttributes ? 0600 : 0666);
        if (number < 0 && errno != EEXIST) {
            break;
        }
    }
    if (number < 0) {
        return FileFailure("Could not open", target, errno);
    }
    auto file = native::MakeOutputFile(target, number, false);
    if (hasAttributes) {
        if (auto taken = TakeAttributes(number, old, target); !taken) {
            ::unlink(path.c_str());
            return taken.failure();
        }
    }
    return TemporaryFile{std::move(path), std::move(file)};
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

Status DiskFiles::renameNew(const Path& from, const Path& to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
        return {};
    }
    if (errno != EINVAL && errno != ENOSYS) {
        return FileFailure("Could not create", to, errno);
    }
    // Some file systems lack that rename. A second name is refused as well if it is taken.
    if (::link(from.c_str(), to.c_str()) == 0) {
        // A temporary name that stays behind does no harm.
        (void)::unlink(from.c_str());
        return {};
    }
    if (errno != EPERM && errno != ENOTSUP && errno != EMLINK) {
        return FileFailure("Could not create", to, errno);
    }

    struct stat information {};

    if (::lstat(to.c_str(), &information) == 0) {
        errno = EEXIST;
    }
    return errno == ENOENT ? rename(from, to) : FileFailure("Could not create", to, errno);
}

Status DiskFiles::flushFolder(const Path& folder) {
    return native::SynchroniseFolder(folder, folder);
}

Status DiskFiles::makeFolder(const Path& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    return error ? FileFailure("Could not create", folder, error.value()) : Status();
}

std::vector<std::string> DiskFiles::list(const Path& folder) const {
    std::vector<std::string> names;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        names.push_back(PathText(entry->path().filename()));
    }
    std::ranges::sort(names);
    return names;
}

bool DiskFiles::sameFile(const Path& first, const Path& second) const {
    std::optional<struct stat> known;
    for (const Path& path : {first, second}) {
        struct stat information {};

        if (::stat(path.c_str(), &information) != 0) {
            if (IsAbsence(errno)) {
                return false;
            }
            continue;
        }
        if (known && !native::IsSame(*known, information)) {
            return false;
        }
        known = information;
    }
    return true;
}

} // namespace ui
