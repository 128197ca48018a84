// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Picture.h"

#include <string>

namespace makers {

/// The picture of a PNG file, which must be square; throws SourceError for any other file.
[[nodiscard]] ui::Picture ReadIcon(const std::string& file);

} // namespace makers
