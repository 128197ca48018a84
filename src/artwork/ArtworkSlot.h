// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"
#include "ui/Picture.h"

#include <cstddef>

namespace artwork {

/// A picture made ready for a slot of the artwork store.
struct SlotImage {
    ui::Bytes gif;
    std::size_t colours = 0;         ///< opaque colours of the picture in the slot
    std::size_t originalColours = 0; ///< of the picture that was given
};

/// Makes a GIF of at most `room` bytes of a picture whose pixels are opaque or 0: in its own colours if
/// possible, else in fewer (256, 128, 64, 32). Fails when it is too large even so.
[[nodiscard]] ui::Result<SlotImage> MakeSlotImage(const ui::Picture& picture, std::size_t room);

} // namespace artwork
