// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"
#include "ui/Picture.h"

#include <functional>
#include <span>
#include <string_view>

namespace glyphs {

/// One picture of an animated GIF and how long it is shown, in hundredths of a second.
struct GifFrame {
    ui::Picture picture;
    int delay = 0;
};

/// The first image of a GIF, at most 1024 x 1024 pixels. Bytes after its trailer are ignored. Transparent
/// pixels, and those that the image does not cover, come out as 0. The failure says what is wrong, without a
/// file name.
[[nodiscard]] ui::Result<ui::Picture> DecodeGif(std::string_view bytes);

/// A GIF of one picture of at most 256 colours; pixels that are not opaque become transparent.
[[nodiscard]] ui::Result<ui::Bytes> EncodeGif(const ui::Picture& picture);

/// A GIF that plays the frames for ever. All have the first one's size and at most 256 colours between them.
/// Every frame is two steps of the work, which ends with a failure when `goesOn`, asked after each how it is
/// with so many done, says no.
[[nodiscard]] ui::Result<ui::Bytes>
EncodeAnimatedGif(std::span<const GifFrame> frames, const std::function<bool(int done)>& goesOn = {});

} // namespace glyphs
