// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/UsKeyboard.h"
#include "ui/qt/KeyNames.h"
#include "ui/qt/KeyTranslation.h"
#include "ui/windows/KeyPress.h"

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <utility>
#include <windows.h>

namespace ui::qt {

namespace {

/// Bits of what the toolkit passes on of a message.
constexpr quint32 LeftControl = 0x08;
constexpr quint32 RightAlt = 0x80;
constexpr quint32 ExtendedKey = 0x01000000;

native::KeyPress FactsOf(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held = event.modifiers();
    const quint32 nativeHeld = event.nativeModifiers();
    native::KeyPress press;
    press.virtualKey = static_cast<int>(event.nativeVirtualKey());
    press.scanCode = event.nativeScanCode() & 0xFFU;
    press.isExtended = (nativeHeld & ExtendedKey) != 0;
    press.shift = held.testFlag(Qt::ShiftModifier);
    press.ctrl = held.testFlag(Qt::ControlModifier);
    press.alt = held.testFlag(Qt::AltModifier);
    press.meta = held.testFlag(Qt::MetaModifier);
    press.altGr = (nativeHeld & RightAlt) != 0 && (nativeHeld & LeftControl) != 0;
    press.isRepeat = event.isAutoRepeat();
    if (press.virtualKey == VK_PACKET) {
        // A program types a character that need not be on any key.
        press.typed = event.text().isEmpty() ? 0 : event.text().front().unicode();
    } else if (press.altGr || native::MayBeDead(press.virtualKey)) {
        native::AskWhatIsTyped(press);
    }
    return press;
}

/// A press that no keyboard made: what the toolkit calls the key is all there is.
KeyStroke TranslateNamed(const QKeyEvent& event) {
    const int key = event.key();
    const Qt::KeyboardModifiers held = event.modifiers();
    KeyStroke stroke;
    stroke.isShift = held.testFlag(Qt::ShiftModifier);
    stroke.isCtrl = held.testFlag(Qt::ControlModifier);
    stroke.isAlt = held.testFlag(Qt::AltModifier);
    stroke.isRepeat = event.isAutoRepeat();
    if (held.testFlag(Qt::MetaModifier)) {
        return stroke;
    }
    if (held.testFlag(Qt::KeypadModifier)) {
        stroke.isOnNumberPad = true;
        if (const auto pad = PadKeyOf(key)) {
            stroke.virtualKey = key > Qt::Key_Space && key < Qt::Key_Escape ? pad->digit : pad->movement;
        } else {
            stroke.virtualKey = PadOperator(key) != 0 ? PadOperator(key) : NamedVirtualKey(key);
        }
        return stroke;
    }
    const int symbol = DeadKeyBase(key) != 0 ? DeadKeyBase(key) : key;
    const auto us = symbol > 0 ? UsKeyOf(static_cast<char32_t>(symbol)) : std::nullopt;
    stroke.virtualKey = us ? us->virtualKey : NamedVirtualKey(key);
    return stroke;
}

bool IsDown(int virtualKey) {
    return ::GetKeyState(virtualKey) < 0;
}

/// Shift+F10, which the toolkit leaves to the system for a context menu. In the window only texts have one.
class MenuKey final : public QObject, public QAbstractNativeEventFilter {
public:
    explicit MenuKey(QWidget& window)
        : QObject(&window)
        , m_window(window) {
        QCoreApplication::instance()->installNativeEventFilter(this);
    }

    bool nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) override {
        const auto* const told = static_cast<const MSG*>(message);
        if (told->wParam != VK_F10) {
            return false;
        }
        if (told->message == WM_KEYUP || told->message == WM_SYSKEYUP) {
            return std::exchange(m_isTaken, false);
        }
        if ((told->message != WM_KEYDOWN && told->message != WM_SYSKEYDOWN) || !isWanted()) {
            return false;
        }
        m_isTaken = true;
        constexpr LPARAM WasDown = 1 << 30;
        QWidget* const focus = QApplication::focusWidget();
        QKeyEvent press(QEvent::KeyPress, Qt::Key_F10, Qt::ShiftModifier, {}, (told->lParam & WasDown) != 0);
        QCoreApplication::sendEvent(focus == nullptr ? &m_window : focus, &press);
        return true;
    }

private:
    [[nodiscard]] bool isWanted() const {
        const QWidget* const focus = QApplication::focusWidget();
        const bool isText = focus != nullptr && focus->testAttribute(Qt::WA_InputMethodEnabled);
        return !isText && IsDown(VK_SHIFT) && !IsDown(VK_CONTROL) && !IsDown(VK_MENU) &&
               m_window.isActiveWindow() && QApplication::activePopupWidget() == nullptr;
    }

    QWidget& m_window;
    bool m_isTaken = false;
};

} // namespace

KeyStroke TranslateKey(const QKeyEvent& event) {
    return event.nativeVirtualKey() == 0 ? TranslateNamed(event) : native::TranslateKey(FactsOf(event));
}

void DropFalseReleases() {
    // Here a held key repeats as presses alone.
}

void HearEveryKey(QWidget& window) {
    new MenuKey(window);
}

} // namespace ui::qt
