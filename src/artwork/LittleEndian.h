// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace artwork {

/// Whether `count` bytes from `offset` on lie within `size` bytes, however large the numbers are.
[[nodiscard]] constexpr bool Within(std::uint64_t size, std::uint64_t offset, std::uint64_t count) {
    return offset <= size && count <= size - offset;
}

/// The byte at an offset that lies within the bytes; likewise the numbers below.
[[nodiscard]] constexpr std::uint8_t ByteAt(std::string_view bytes, std::size_t offset) {
    assert(Within(bytes.size(), offset, 1));
    return static_cast<std::uint8_t>(bytes[offset]);
}

[[nodiscard]] constexpr std::uint16_t WordAt(std::string_view bytes, std::size_t offset) {
    return static_cast<std::uint16_t>(ByteAt(bytes, offset) | (ByteAt(bytes, offset + 1) << 8U));
}

[[nodiscard]] constexpr std::uint32_t LongAt(std::string_view bytes, std::size_t offset) {
    return WordAt(bytes, offset) | (static_cast<std::uint32_t>(WordAt(bytes, offset + 2)) << 16U);
}

} // namespace artwork
