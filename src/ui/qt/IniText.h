// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"

#include <map>
#include <optional>
#include <string>

namespace ui::qt {

/// Values by their keys.
using IniSection = std::map<std::string, std::string>;

/// Values by their sections and keys.
using IniSections = std::map<std::string, IniSection>;

/// What an INI file holds: by its sections and keys the values, and nothing for one that is no text.
using IniValues = std::map<std::string, std::map<std::string, std::optional<std::string>>>;

/// The values of a file, none if the file is missing; nothing if it cannot be read.
[[nodiscard]] std::optional<IniValues> ReadIniFile(const Path& file);

/// An INI file with new values in it.
struct IniText {
    Bytes bytes;
    IniValues values;        ///< all that it holds
    bool wasDamaged = false; ///< whether there was something in it that is no setting
};

/// Puts values into the text of an INI file. Fails unless every one of them, and every one that stood there,
/// can be read again from what comes out. The toolkit writes to files only, so it needs a folder for
/// temporary ones.
[[nodiscard]] Result<IniText> WithIniValues(std::string_view before, const IniSections& values);

} // namespace ui::qt
