// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/KeyNames.h"

#include "ui/KeyStroke.h"

#include <Qt>
#include <algorithm>
#include <array>

namespace ui::qt {

namespace {

/// Keys that mean the same on every keyboard.
struct NamedKey {
    int key;
    int virtualKey;
};

constexpr std::array<NamedKey, 27> NamedKeys = {{
    {Qt::Key_Backspace, KeyBackspace},
    {Qt::Key_Tab, KeyTab},
    {Qt::Key_Backtab, KeyTab},
    {Qt::Key_Clear, KeyClear},
    {Qt::Key_Return, KeyEnter},
    {Qt::Key_Enter, KeyEnter},
    {Qt::Key_Shift, KeyShift},
    {Qt::Key_Control, KeyCtrl},
    {Qt::Key_Alt, KeyAlt},
    {Qt::Key_Pause, KeyPause},
    {Qt::Key_CapsLock, KeyCapsLock},
    {Qt::Key_Escape, KeyEscape},
    {Qt::Key_Space, KeySpace},
    {Qt::Key_PageUp, KeyPageUp},
    {Qt::Key_PageDown, KeyPageDown},
    {Qt::Key_End, KeyEnd},
    {Qt::Key_Home, KeyHome},
    {Qt::Key_Left, KeyLeft},
    {Qt::Key_Up, KeyUp},
    {Qt::Key_Right, KeyRight},
    {Qt::Key_Down, KeyDown},
    {Qt::Key_Insert, KeyInsert},
    {Qt::Key_Delete, KeyDelete},
    {Qt::Key_Menu, KeyMenu},
    {Qt::Key_NumLock, KeyNumLock},
    {Qt::Key_ScrollLock, KeyScrollLock},
    {Qt::Key_Cancel, KeyCancel},
}};

constexpr std::array<PadKey, 11> PadKeys = {{
    {KeyPad0, KeyInsert},
    {KeyPad0 + 1, KeyEnd},
    {KeyPad0 + 2, KeyDown},
    {KeyPad0 + 3, KeyPageDown},
    {KeyPad0 + 4, KeyLeft},
    {KeyPad0 + 5, KeyClear},
    {KeyPad0 + 6, KeyRight},
    {KeyPad0 + 7, KeyHome},
    {KeyPad0 + 8, KeyUp},
    {KeyPad0 + 9, KeyPageUp},
    {KeyPadDecimal, KeyDelete},
}};

} // namespace

int NamedVirtualKey(int key) {
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24) {
        return KeyF1 + (key - Qt::Key_F1);
    }
    const auto* found = std::find_if(
        NamedKeys.begin(), NamedKeys.end(), [key](const NamedKey& named) { return named.key == key; });
    return found == NamedKeys.end() ? 0 : found->virtualKey;
}

int DeadKeyBase(int key) {
    switch (key) {
    case Qt::Key_Dead_Acute:
        return '\'';
    case Qt::Key_Dead_Grave:
        return '`';
    case Qt::Key_Dead_Circumflex:
        return '^';
    case Qt::Key_Dead_Tilde:
        return '~';
    case Qt::Key_Dead_Diaeresis:
        return '"';
    default:
        return 0;
    }
}

PadKey NumberedPadKey(int number) {
    return PadKeys.at(static_cast<std::size_t>(number));
}

std::optional<PadKey> PadKeyOf(int key) {
    if (key >= Qt::Key_0 && key <= Qt::Key_9) {
        return PadKeys[static_cast<std::size_t>(key - Qt::Key_0)];
    }
    if (key == Qt::Key_Period || key == Qt::Key_Comma) {
        return PadKeys.back();
    }
    const int movement = NamedVirtualKey(key);
    const auto* found = std::find_if(
        PadKeys.begin(), PadKeys.end(), [movement](const PadKey& pad) { return pad.movement == movement; });
    if (movement == 0 || found == PadKeys.end()) {
        return {};
    }
    return *found;
}

int PadOperator(int key) {
    switch (key) {
    case Qt::Key_Asterisk:
        return KeyPadMultiply;
    case Qt::Key_Plus:
        return KeyPadAdd;
    case Qt::Key_Minus:
        return KeyPadSubtract;
    case Qt::Key_Slash:
        return KeyPadDivide;
    case Qt::Key_Enter:
        return KeyEnter;
    default:
        return 0;
    }
}

} // namespace ui::qt
