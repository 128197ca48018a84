// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/ByteSource.h"

#include "ui/windows/WindowsFile.h"

namespace ui {

namespace {

class FileSource final : public ByteSource {
public:
    FileSource(native::Handle file, std::uint64_t size)
        : m_file(std::move(file))
        , m_size(size) {}

    [[nodiscard]] std::uint64_t size() const override { return m_size; }

    [[nodiscard]] Result<Bytes> read(std::uint64_t offset, std::size_t count) const override {
        if (offset > m_size || count > m_size - offset) {
            return EndsTooEarly();
        }
        Bytes bytes(count, '\0');
        for (std::size_t done = 0; done < count;) {
            const auto got = native::ReadAt(m_file.get(), offset + done, bytes.data() + done, count - done);
            if (!got) {
                return got.failure();
            }
            if (got.value() == 0) {
                return EndsTooEarly();
            }
            done += got.value();
        }
        return bytes;
    }

private:
    native::Handle m_file;
    std::uint64_t m_size;
};

} // namespace

Result<std::unique_ptr<ByteSource>> OpenSource(const Path& path) {
    auto file = native::OpenExisting(path, GENERIC_READ, FILE_FLAG_BACKUP_SEMANTICS);
    BY_HANDLE_FILE_INFORMATION information{};
    if (!file) {
        return Failure{native::CauseText(::GetLastError())};
    }
    if (!native::IsOnDisk(file)) {
        return Failure{"it is not a file"};
    }
    if (::GetFileInformationByHandle(file.get(), &information) == FALSE) {
        return Failure{native::CauseText(::GetLastError())};
    }
    if ((information.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return Failure{native::CauseText(native::IsFolderError)};
    }
    const std::uint64_t size = std::uint64_t{information.nFileSizeHigh} << 32U | information.nFileSizeLow;
    return std::unique_ptr<ByteSource>(std::make_unique<FileSource>(std::move(file), size));
}

} // namespace ui
