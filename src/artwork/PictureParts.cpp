// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "artwork/PictureParts.h"

#include <algorithm>

namespace artwork {

void DropEmptyAlpha(ui::Picture& picture) {
    for (int y = 0; y < picture.height(); ++y) {
        const ui::Pixel* row = picture.row(y);
        if (std::any_of(row, row + picture.width(), [](ui::Pixel pixel) { return (pixel >> 24U) != 0; })) {
            return;
        }
    }
    for (int y = 0; y < picture.height(); ++y) {
        ui::Pixel* row = picture.row(y);
        std::transform(
            row, row + picture.width(), row, [](ui::Pixel pixel) { return pixel | ui::OpaqueBlack; });
    }
}

bool HasTransparentPixel(const ui::Picture& picture) {
    for (int y = 0; y < picture.height(); ++y) {
        const ui::Pixel* row = picture.row(y);
        if (std::find(row, row + picture.width(), 0U) != row + picture.width()) {
            return true;
        }
    }
    return false;
}

} // namespace artwork
