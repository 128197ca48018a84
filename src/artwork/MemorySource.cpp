// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "artwork/MemorySource.h"

#include "artwork/LittleEndian.h"

namespace artwork {

ui::Result<ui::Bytes> MemorySource::read(std::uint64_t offset, std::size_t count) const {
    if (!Within(m_bytes.size(), offset, count)) {
        return ui::EndsTooEarly();
    }
    return ui::Bytes(m_bytes.substr(static_cast<std::size_t>(offset), count));
}

} // namespace artwork
