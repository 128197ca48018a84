// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"
#include "ui/System.h"

#include <QString>
#include <string>
#include <string_view>

/// The toolkit's texts and the bytes that everything else is made of.
namespace ui::qt {

/// A path as the toolkit's files and texts have it; what is no text comes back as it was.
[[nodiscard]] QString FromPath(const Path& path);
[[nodiscard]] Path ToPath(const QString& text);

/// A typed path in which the "~/" at its beginning stands for the user's home.
[[nodiscard]] inline QString WithHome(const QString& text) {
    const Path home = HomeFolder();
    const bool isAtHome = text.startsWith(QLatin1String("~/")) && !home.empty();
    return isAtHome ? FromPath(home) + text.mid(1) : text;
}

/// Text that has one character a byte: names of keys and files of the program's own.
[[nodiscard]] inline QString FromLatin1(std::string_view bytes) {
    return QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

/// The bytes of such a text.
[[nodiscard]] inline std::string ToLatin1(const QString& text) {
    return text.toLatin1().toStdString();
}

} // namespace ui::qt
