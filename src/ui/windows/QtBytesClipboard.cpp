// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/windows/QtBytesClipboard.h"

#include "ui/windows/ClipboardText.h"

namespace ui::native {

void QtBytesClipboard::setText(std::string_view bytes) {
    if (!PutClipboardBytes(bytes)) {
        m_toolkits.setText(bytes);
    }
}

} // namespace ui::native
