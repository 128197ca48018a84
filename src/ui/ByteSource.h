// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"

#include <cstdint>
#include <memory>

namespace ui {

/// Bytes of which only parts are read: a game's archive may be hundreds of megabytes large.
class ByteSource {
public:
    virtual ~ByteSource() = default;

    [[nodiscard]] virtual std::uint64_t size() const = 0;

    /// The bytes from `offset` on, `count` of them. Fails if they are not all there, or cannot be read.
    [[nodiscard]] virtual Result<Bytes> read(std::uint64_t offset, std::size_t count) const = 0;
};

/// The failure of a source that holds fewer bytes than are asked for.
[[nodiscard]] inline Failure EndsTooEarly() {
    return {"it ends too early"};
}

/// Opens a file. Fails on a missing, unreadable or non-regular one; the failure says why, without the file's
/// name.
[[nodiscard]] Result<std::unique_ptr<ByteSource>> OpenSource(const Path& path);

} // namespace ui
