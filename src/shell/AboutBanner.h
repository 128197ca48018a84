// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/mdlPaint.h"
#include "ui/Picture.h"

namespace shell {

/// Side of the squares that the banner is made of.
constexpr int BannerBlock = 2;

/// The product's name, painted in glyphs between two ornamental lines, for the about box: 320 x 96.
[[nodiscard]] ui::Picture AboutBanner(const glyphs::GlyphAtlas& atlas);

} // namespace shell
