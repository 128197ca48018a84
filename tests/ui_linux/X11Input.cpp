// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "X11Input.h"

#include <QGuiApplication>
#include <QProcess>
#include <QtGui/qguiapplication_platform.h>
#include <dlfcn.h>

#include <X11/XKBlib.h>

namespace {

using FakeKey = int (*)(Display*, unsigned, int, unsigned long);

FakeKey FindFakeKey() {
    static const auto found = [] {
        void* library = ::dlopen("libXtst.so.6", RTLD_NOW | RTLD_LOCAL);
        return library == nullptr ? nullptr
                                  : reinterpret_cast<FakeKey>(::dlsym(library, "XTestFakeKeyEvent"));
    }();
    return found;
}

template <class Function>
Function FindX11(const char* name) {
    return reinterpret_cast<Function>(::dlsym(::dlopen("libX11.so.6", RTLD_NOW | RTLD_LOCAL), name));
}

Display* ServerDisplay() {
    return qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->display();
}

void Flush() {
    // Waits until the server has taken the input.
    FindX11<decltype(&XSync)>("XSync")(ServerDisplay(), False);
}

void SetFocus(Window window) {
    FindX11<decltype(&XSetInputFocus)>("XSetInputFocus")(ServerDisplay(), window, RevertToNone, CurrentTime);
    Flush();
}

} // namespace

bool X11Input::IsAvailable() {
    return FindFakeKey() != nullptr;
}

void X11Input::press(unsigned scanCode) {
    FindFakeKey()(ServerDisplay(), scanCode, True, 0);
    Flush();
}

void X11Input::release(unsigned scanCode) {
    FindFakeKey()(ServerDisplay(), scanCode, False, 0);
    Flush();
}

void X11Input::click(unsigned scanCode) {
    press(scanCode);
    release(scanCode);
}

bool X11Input::chooseLayout(const QString& layout, const QString& variant) {
    return QProcess::execute(
               QStringLiteral("setxkbmap"),
               {QStringLiteral("-layout"), layout, QStringLiteral("-variant"), variant}) == 0;
}

std::array<X11Input::Levels, 256> X11Input::layout() {
    // A new connection knows what was chosen last.
    Display* display = FindX11<decltype(&XOpenDisplay)>("XOpenDisplay")(nullptr);
    const auto symbolOf = FindX11<decltype(&XkbKeycodeToKeysym)>("XkbKeycodeToKeysym");
    std::array<Levels, 256> keys{};
    constexpr unsigned FirstCode = 8;
    for (unsigned code = FirstCode; code < keys.size(); ++code) {
        for (unsigned level = 0; level < keys[code].size(); ++level) {
            keys[code][level] = static_cast<unsigned>(
                symbolOf(display, static_cast<KeyCode>(code), 0, static_cast<int>(level)));
        }
    }
    FindX11<decltype(&XCloseDisplay)>("XCloseDisplay")(display);
    return keys;
}

void X11Input::setSymbol(unsigned scanCode, unsigned symbol) {
    std::array<KeySym, 2> symbols{symbol, symbol};
    FindX11<decltype(&XChangeKeyboardMapping)>("XChangeKeyboardMapping")(
        ServerDisplay(), static_cast<int>(scanCode), symbols.size(), symbols.data(), 1);
    Flush();
}

void X11Input::lockAsAnotherProgram(unsigned modifiers, bool on) {
    Display* display = FindX11<decltype(&XOpenDisplay)>("XOpenDisplay")(nullptr);
    FindX11<decltype(&XkbLockModifiers)>("XkbLockModifiers")(
        display, XkbUseCoreKbd, modifiers, on ? modifiers : 0);
    FindX11<decltype(&XCloseDisplay)>("XCloseDisplay")(display);
}

void X11Input::dropFocus() {
    SetFocus(None);
}

void X11Input::giveFocus(const QWidget& window) {
    SetFocus(static_cast<Window>(window.winId()));
}
