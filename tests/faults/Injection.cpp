// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
// The headers define some of the functions themselves otherwise.
#undef _FORTIFY_SOURCE

#include "faults/Injection.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <dlfcn.h>
#include <sys/types.h>
#include <unistd.h>

namespace faults {

namespace {

constexpr int MaxCalls = 4096;

struct State {
    bool isOn = false;
    Fault fault = Fault::None;
    int place = 0;
    int count = 0;
    bool hasHappened = false;
    char calls[MaxCalls] = {}; ///< no string: allocating memory may come by here
};

State state;

template <class Function>
Function Next(Function& known, const char* name) {
    if (known == nullptr) {
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): what dlsym() is for
        known = reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
    }
    return known;
}

enum class Kind {
    Other,
    Room,  ///< takes room on the disk
    Bytes, ///< writes some
    Read,  ///< reads some
    Close  ///< happens even if it fails
};

/// What shall happen to the call that comes now.
Fault Take(Kind kind) {
    if (!state.isOn) {
        return Fault::None;
    }
    const int number = ++state.count;
    if (number <= MaxCalls) {
        state.calls[number - 1] = kind == Kind::Bytes || kind == Kind::Read ? 'm' : 'o';
    }
    const bool isForEver = state.fault == Fault::FullDisk || state.fault == Fault::BrokenDisk;
    if (isForEver ? number < state.place : number != state.place) {
        return Fault::None;
    }
    if (state.fault == Fault::FullDisk && kind != Kind::Room && kind != Kind::Bytes) {
        return Fault::None;
    }
    state.hasHappened = true;
    if (state.fault == Fault::Death ||
        (state.fault == Fault::HalfDeath && kind != Kind::Bytes && kind != Kind::Read)) {
        ::_exit(DeathStatus);
    }
    return state.fault;
}

/// The error that a call reports; 0: it goes ahead.
int ErrorOf(Fault fault, Kind kind) {
    switch (fault) {
    case Fault::NoSpace:
    case Fault::FullDisk:
        return ENOSPC;
    case Fault::NoAccess:
        return EACCES;
    case Fault::InputOutput:
    case Fault::BrokenDisk:
        return EIO;
    case Fault::HalfWrite:
        return kind == Kind::Bytes ? 0 : EIO;
    default:
        return 0;
    }
}

/// Calls `call`, or fails in its stead.
template <class Result, class Call>
Result Pass(Kind kind, Result failed, Call call) {
    const int error = ErrorOf(Take(kind), kind);
    if (error == 0) {
        return call();
    }
    if (kind == Kind::Close) {
        (void)call();
    }
    errno = error;
    return failed;
}

/// The same for a call that moves `size` bytes.
template <class Call>
ssize_t Move(bool isWrite, std::size_t size, Call call) {
    const Fault fault = Take(isWrite ? Kind::Bytes : Kind::Read);
    if (const int error = ErrorOf(fault, Kind::Bytes); error != 0) {
        errno = error;
        return -1;
    }
    if (fault == Fault::ShortWrite || fault == Fault::HalfWrite || fault == Fault::HalfDeath) {
        const ssize_t moved = call(size > 1 ? size / 2 : size);
        if (fault == Fault::HalfDeath) {
            ::_exit(DeathStatus);
        }
        if (fault == Fault::HalfWrite) {
            errno = EIO;
            return -1;
        }
        return moved;
    }
    return call(size);
}

} // namespace

void Begin(Fault fault, int place) {
    state = State();
    state.fault = fault;
    state.place = place;
    state.isOn = true;
}

std::string End() {
    state.isOn = false;
    return {state.calls, static_cast<std::size_t>(std::min<int>(state.count, MaxCalls))};
}

bool HasHappened() {
    return state.hasHappened;
}

} // namespace faults

// What is defined here is called by this program and by every library in it.
using faults::Kind;
using faults::Move;
using faults::Next;
using faults::Pass;

// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,cert-dcl50-cpp,readability-identifier-naming,bugprone-macro-parentheses)
#define NEXT(name)                                                                                           \
    static decltype(&name) next_##name = nullptr;                                                            \
    Next(next_##name, #name)

extern "C" {

constexpr int CreatesFile = 0100; // O_CREAT

#define DEFINE_OPEN(name)                                                                                    \
    int name(const char* path, int flags, ...) {                                                             \
        va_list list;                                                                                        \
        va_start(list, flags);                                                                               \
        const mode_t mode = (flags & CreatesFile) != 0 ? va_arg(list, mode_t) : 0;                           \
        va_end(list);                                                                                        \
        NEXT(name);                                                                                          \
        return Pass((flags & CreatesFile) != 0 ? Kind::Room : Kind::Other, -1, [&] {                         \
            return next_##name(path, flags, mode);                                                           \
        });                                                                                                  \
    }
DEFINE_OPEN(open)
DEFINE_OPEN(open64)

#define DEFINE_OPENAT(name)                                                                                  \
    int name(int folder, const char* path, int flags, ...) {                                                 \
        va_list list;                                                                                        \
        va_start(list, flags);                                                                               \
        const mode_t mode = (flags & CreatesFile) != 0 ? va_arg(list, mode_t) : 0;                           \
        va_end(list);                                                                                        \
        NEXT(name);                                                                                          \
        return Pass((flags & CreatesFile) != 0 ? Kind::Room : Kind::Other, -1, [&] {                         \
            return next_##name(folder, path, flags, mode);                                                   \
        });                                                                                                  \
    }
DEFINE_OPENAT(openat)
DEFINE_OPENAT(openat64)

#define DEFINE(kind, failed, result, name, parameters, arguments, ...)                                       \
    result name parameters __VA_ARGS__ {                                                                     \
        NEXT(name);                                                                                          \
        return Pass(kind, static_cast<result>(failed), [&] { return next_##name arguments; });               \
    }

DEFINE(Kind::Other, -1, int, __open_2, (const char* path, int flags), (path, flags))
DEFINE(Kind::Other, -1, int, __open64_2, (const char* path, int flags), (path, flags))
DEFINE(Kind::Other, -1, int, __openat_2, (int folder, const char* path, int flags), (folder, path, flags))
DEFINE(Kind::Other, -1, int, __openat64_2, (int folder, const char* path, int flags), (folder, path, flags))
DEFINE(Kind::Close, -1, int, close, (int number), (number))
DEFINE(Kind::Other, -1, int, rename, (const char* from, const char* to), (from, to), noexcept)
DEFINE(
    Kind::Other, -1, int, renameat, (int f, const char* from, int t, const char* to), (f, from, t, to),
    noexcept)
DEFINE(
    Kind::Other, -1, int, renameat2, (int f, const char* from, int t, const char* to, unsigned flags),
    (f, from, t, to, flags), noexcept)
DEFINE(Kind::Room, -1, int, link, (const char* from, const char* to), (from, to), noexcept)
DEFINE(
    Kind::Room, -1, int, linkat, (int f, const char* from, int t, const char* to, int flags),
    (f, from, t, to, flags), noexcept)
DEFINE(Kind::Other, -1, int, unlink, (const char* path), (path), noexcept)
DEFINE(
    Kind::Other, -1, int, unlinkat, (int folder, const char* path, int flags), (folder, path, flags),
    noexcept)
DEFINE(Kind::Room, -1, int, symlink, (const char* to, const char* path), (to, path), noexcept)
DEFINE(Kind::Room, -1, int, mkdir, (const char* path, mode_t mode), (path, mode), noexcept)
DEFINE(Kind::Other, -1, int, rmdir, (const char* path), (path), noexcept)
DEFINE(Kind::Other, -1, int, chmod, (const char* path, mode_t mode), (path, mode), noexcept)
DEFINE(Kind::Other, -1, int, fchmod, (int number, mode_t mode), (number, mode), noexcept)
DEFINE(Kind::Other, -1, int, fchown, (int number, uid_t user, gid_t group), (number, user, group), noexcept)
DEFINE(Kind::Other, -1, int, flock, (int number, int operation), (number, operation), noexcept)
DEFINE(Kind::Room, -1, int, ftruncate, (int number, off_t size), (number, size), noexcept)
DEFINE(Kind::Room, -1, int, ftruncate64, (int number, off64_t size), (number, size), noexcept)
DEFINE(Kind::Other, -1, off_t, lseek, (int number, off_t place, int from), (number, place, from), noexcept)
DEFINE(
    Kind::Other, -1, off64_t, lseek64, (int number, off64_t place, int from), (number, place, from), noexcept)
DEFINE(Kind::Other, -1, int, access, (const char* path, int mode), (path, mode), noexcept)
DEFINE(
    Kind::Other, -1, int, faccessat, (int folder, const char* path, int mode, int flags),
    (folder, path, mode, flags), noexcept)
DEFINE(Kind::Other, -1, int, stat, (const char* path, void* facts), (path, facts), noexcept)
DEFINE(Kind::Other, -1, int, stat64, (const char* path, void* facts), (path, facts), noexcept)
DEFINE(Kind::Other, -1, int, lstat, (const char* path, void* facts), (path, facts), noexcept)
DEFINE(Kind::Other, -1, int, lstat64, (const char* path, void* facts), (path, facts), noexcept)
DEFINE(Kind::Other, -1, int, fstat, (int number, void* facts), (number, facts), noexcept)
DEFINE(Kind::Other, -1, int, fstat64, (int number, void* facts), (number, facts), noexcept)
DEFINE(
    Kind::Other, -1, int, fstatat, (int folder, const char* path, void* facts, int flags),
    (folder, path, facts, flags), noexcept)
DEFINE(
    Kind::Other, -1, int, fstatat64, (int folder, const char* path, void* facts, int flags),
    (folder, path, facts, flags), noexcept)
DEFINE(
    Kind::Other, -1, int, statx, (int folder, const char* path, int flags, unsigned mask, void* facts),
    (folder, path, flags, mask, facts), noexcept)
DEFINE(
    Kind::Other, -1, ssize_t, readlink, (const char* path, char* buffer, std::size_t size),
    (path, buffer, size), noexcept)
DEFINE(
    Kind::Other, -1, ssize_t, listxattr, (const char* path, char* buffer, std::size_t size),
    (path, buffer, size), noexcept)

// The disk itself is not waited for: what a process leaves behind when it ends is there all the same.
int fsync(int /*number*/) {
    return Pass(Kind::Other, -1, [] { return 0; });
}

int fdatasync(int /*number*/) {
    return Pass(Kind::Other, -1, [] { return 0; });
}

// Its error is what it returns.
int posix_fallocate(int number, off_t offset, off_t size) {
    NEXT(posix_fallocate);
    const int error = faults::ErrorOf(faults::Take(Kind::Room), Kind::Room);
    return error != 0 ? error : next_posix_fallocate(number, offset, size);
}

#define DEFINE_MOVE(isWrite, name, parameters, arguments)                                                    \
    ssize_t name parameters {                                                                                \
        NEXT(name);                                                                                          \
        return Move(isWrite, size, [&](std::size_t count) { return next_##name arguments; });                \
    }

DEFINE_MOVE(false, read, (int number, void* bytes, std::size_t size), (number, bytes, count))
DEFINE_MOVE(
    false, __read_chk, (int number, void* bytes, std::size_t size, std::size_t room),
    (number, bytes, count, room))
DEFINE_MOVE(
    false, pread, (int number, void* bytes, std::size_t size, off_t place), (number, bytes, count, place))
DEFINE_MOVE(
    false, pread64, (int number, void* bytes, std::size_t size, off64_t place), (number, bytes, count, place))
DEFINE_MOVE(
    false, __pread_chk, (int number, void* bytes, std::size_t size, off_t place, std::size_t room),
    (number, bytes, count, place, room))
DEFINE_MOVE(true, write, (int number, const void* bytes, std::size_t size), (number, bytes, count))
DEFINE_MOVE(
    true, pwrite, (int number, const void* bytes, std::size_t size, off_t place),
    (number, bytes, count, place))
DEFINE_MOVE(
    true, pwrite64, (int number, const void* bytes, std::size_t size, off64_t place),
    (number, bytes, count, place))

} // extern "C"
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,cert-dcl50-cpp,readability-identifier-naming,bugprone-macro-parentheses)
