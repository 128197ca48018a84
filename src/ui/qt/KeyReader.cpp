// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/KeyReader.h"

#include "ui/qt/KeyTranslation.h"

#include <QKeyEvent>

namespace ui::qt {

KeyReader::KeyReader() {
    DropFalseReleases();
}

KeyStroke KeyReader::press(const QKeyEvent& event) {
    KeyStroke stroke = TranslateKey(event);
    const unsigned scanCode = event.nativeScanCode();
    if (scanCode != 0 && !m_held.insert(scanCode).second) {
        stroke.isRepeat = true;
    }
    return stroke;
}

void KeyReader::release(const QKeyEvent& event) {
    if (!event.isAutoRepeat()) {
        m_held.erase(event.nativeScanCode());
    }
}

} // namespace ui::qt
