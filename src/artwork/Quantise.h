// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Picture.h"

#include <cstddef>

namespace artwork {

/// How many colours the opaque pixels of a picture have.
[[nodiscard]] std::size_t CountColours(const ui::Picture& picture);

/// The picture with at most `most` (at least 1) opaque colours, chosen by median cut; as it is if it has no
/// more. Transparent pixels (0) stay.
[[nodiscard]] ui::Picture WithFewerColours(const ui::Picture& picture, std::size_t most);

} // namespace artwork
