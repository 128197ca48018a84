// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ByteSource.h"

#include <cstdint>
#include <string_view>

namespace artwork {

/// Bytes in memory, which outlive the object.
class MemorySource final : public ui::ByteSource {
public:
    explicit MemorySource(std::string_view bytes)
        : m_bytes(bytes) {}

    [[nodiscard]] std::uint64_t size() const override { return m_bytes.size(); }

    [[nodiscard]] ui::Result<ui::Bytes> read(std::uint64_t offset, std::size_t count) const override;

private:
    std::string_view m_bytes;
};

} // namespace artwork
