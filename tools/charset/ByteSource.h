// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace charset {

/// Bytes of which only parts are read: a game's archive may be hundreds of megabytes large.
class ByteSource {
public:
    virtual ~ByteSource() = default;

    [[nodiscard]] virtual std::uint64_t size() const = 0;

    /// The bytes from `offset` on, `count` of them. Fails if they are not all there, or cannot be read.
    [[nodiscard]] virtual ui::Result<ui::Bytes> read(std::uint64_t offset, std::size_t count) const = 0;
};

/// Bytes in memory, which outlive the object.
class MemorySource final : public ByteSource {
public:
    explicit MemorySource(std::string_view bytes)
        : m_bytes(bytes) {}

    [[nodiscard]] std::uint64_t size() const override { return m_bytes.size(); }

    [[nodiscard]] ui::Result<ui::Bytes> read(std::uint64_t offset, std::size_t count) const override;

private:
    std::string_view m_bytes;
};

/// Opens a file. Fails on a missing, unreadable or non-regular one; the failure says why, without the file's
/// name.
[[nodiscard]] ui::Result<std::unique_ptr<ByteSource>> OpenSource(const ui::Path& path);

} // namespace charset
