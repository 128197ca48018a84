// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "makers/IconSource.h"

#include "glyphs/PngPicture.h"
#include "makers/SourceText.h"

#include <fstream>
#include <iterator>
#include <utility>

namespace makers {

ui::Picture ReadIcon(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    if (!stream) {
        throw SourceError{file + ": cannot be read"};
    }
    auto picture = glyphs::DecodePng(bytes);
    if (!picture) {
        throw SourceError{file + ": " + picture.failure().message};
    }
    ui::Picture icon = std::move(picture).value();
    if (icon.width() != icon.height()) {
        throw SourceError{file + ": is not square"};
    }
    return icon;
}

} // namespace makers
