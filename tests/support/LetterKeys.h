// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/System.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <string_view>

namespace support {

/// Presses the key of a letter of a US keyboard on a layout that has `typed`, a capital, there.
inline void PressLetterKey(QWidget& widget, char usLetter, char16_t typed, Qt::KeyboardModifiers held) {
    // X11 has a code for the place. Windows has a number for the key, the same one on such layouts.
    constexpr std::string_view Places = "QWERTYUIOP    ASDFGHJKL     ZXCVBNM";
    constexpr unsigned FirstPlace = 24;
    constexpr unsigned AnyPlace = 1;
    const bool isNumbered = ui::ThisSystem() == ui::System::Windows;
    const unsigned scanCode =
        isNumbered ? AnyPlace : FirstPlace + static_cast<unsigned>(Places.find(usLetter));
    const unsigned number = isNumbered ? static_cast<unsigned char>(usLetter) : 0;
    QKeyEvent event(QEvent::KeyPress, typed, held, scanCode, number, 0, QString(QChar(typed)).toLower());
    QApplication::sendEvent(&widget, &event);
}

} // namespace support
