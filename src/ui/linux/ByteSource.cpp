// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/ByteSource.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace ui {

namespace {

Failure SystemFailure(int errorNumber) {
    return {std::generic_category().message(errorNumber)};
}

class FileSource final : public ByteSource {
public:
    explicit FileSource(int number)
        : m_number(number) {}

    FileSource(const FileSource&) = delete;
    FileSource& operator=(const FileSource&) = delete;
    FileSource(FileSource&&) = delete;
    FileSource& operator=(FileSource&&) = delete;

    ~FileSource() override { ::close(m_number); }

    /// Finds out the size; fails unless it is a regular file.
    Status inspect() {
        struct stat information {};

        if (::fstat(m_number, &information) != 0) {
            return SystemFailure(errno);
        }
        if (S_ISDIR(information.st_mode)) {
            return SystemFailure(EISDIR);
        }
        if (!S_ISREG(information.st_mode)) {
            return Failure{"it is not a file"};
        }
        m_size = static_cast<std::uint64_t>(information.st_size);
        return {};
    }

    [[nodiscard]] std::uint64_t size() const override { return m_size; }

    [[nodiscard]] Result<Bytes> read(std::uint64_t offset, std::size_t count) const override {
        if (offset > m_size || count > m_size - offset) {
            return EndsTooEarly();
        }
        Bytes bytes(count, '\0');
        for (std::size_t done = 0; done < count;) {
            const ssize_t got =
                ::pread(m_number, bytes.data() + done, count - done, static_cast<off_t>(offset + done));
            if (got < 0 && errno != EINTR) {
                return SystemFailure(errno);
            }
            if (got == 0) {
                return EndsTooEarly();
            }
            done += static_cast<std::size_t>(got > 0 ? got : 0);
        }
        return bytes;
    }

private:
    int m_number;
    std::uint64_t m_size = 0;
};

} // namespace

Result<std::unique_ptr<ByteSource>> OpenSource(const Path& path) {
    // O_NONBLOCK: opening a named pipe must not wait for a writer; it is refused below.
    const int number = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (number < 0) {
        return SystemFailure(errno);
    }
    auto file = std::make_unique<FileSource>(number);
    if (auto inspected = file->inspect(); !inspected) {
        return inspected.failure();
    }
    return std::unique_ptr<ByteSource>(std::move(file));
}

} // namespace ui
