// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ByteSource.h"

#include <optional>
#include <string_view>

namespace artwork {

/// A part of an archive is never larger: no artwork is.
constexpr std::size_t MaxPartSize = 4U * 1024U * 1024U;

[[nodiscard]] bool IsPack(std::string_view start);
[[nodiscard]] bool IsWad(std::string_view start);

/// A file in a game's .pak archive, whatever the case of its name; nothing when it holds none of that name.
/// The failure says what is wrong with the archive, without its name.
[[nodiscard]] ui::Result<std::optional<ui::Bytes>>
FileInPack(const ui::ByteSource& pack, std::string_view name);

/// A lump of a game's .wad archive, likewise.
[[nodiscard]] ui::Result<std::optional<ui::Bytes>>
LumpInWad(const ui::ByteSource& wad, std::string_view name);

} // namespace artwork
