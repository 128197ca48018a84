// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/Text.h"

namespace ui::qt {

QString FromPath(const Path& path) {
    return QString::fromStdWString(path.native());
}

Path ToPath(const QString& text) {
    // The toolkit has slashes where the system has none.
    return Path(text.toStdWString()).make_preferred();
}

} // namespace ui::qt
