// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/linux/X11Keyboard.h"

#include "ui/linux/Symbols.h"

#include <QGuiApplication>
#include <QScreen>
#include <QtGui/qguiapplication_platform.h>
#include <dlfcn.h>

// X11's headers define names as macros that the toolkit's headers use, so they come last.
#include <X11/XKBlib.h>
#include <X11/extensions/XKBproto.h>
#include <X11/keysym.h>

namespace ui::native {

namespace {

constexpr auto ScrollLightName = "Scroll Lock";

} // namespace

/// What is used of libX11. The toolkit has loaded it already wherever it is connected to an X server; linking
/// it would load it on every other desktop as well.
struct X11Keyboard::Library {
    decltype(&XQueryExtension) queryExtension = nullptr;
    decltype(&XInternAtom) internAtom = nullptr;
    decltype(&XFlush) flush = nullptr;
    decltype(&XGetInputFocus) getInputFocus = nullptr;
    decltype(&XkbQueryExtension) queryKeyboard = nullptr;
    decltype(&XkbLockModifiers) lockModifiers = nullptr;
    decltype(&XkbKeysymToModifiers) keysymToModifiers = nullptr;
    decltype(&XkbGetState) getState = nullptr;
    decltype(&XkbGetNamedIndicator) getIndicator = nullptr;
    decltype(&XkbSetNamedIndicator) setIndicator = nullptr;
    decltype(&XkbSetDetectableAutoRepeat) setDetectableAutoRepeat = nullptr;

    static const Library* Load() {
        static const std::unique_ptr<const Library> loaded = [] {
            void* library = ::dlopen("libX11.so.6", RTLD_NOW | RTLD_LOCAL);
            auto functions = std::make_unique<Library>();
            return library != nullptr && functions->findIn(library) ? std::move(functions)
                                                                    : std::unique_ptr<Library>();
        }();
        return loaded.get();
    }

    bool findIn(void* library) {
        return FindSymbol(library, "XQueryExtension", queryExtension) &&
               FindSymbol(library, "XInternAtom", internAtom) && FindSymbol(library, "XFlush", flush) &&
               FindSymbol(library, "XGetInputFocus", getInputFocus) &&
               FindSymbol(library, "XkbQueryExtension", queryKeyboard) &&
               FindSymbol(library, "XkbLockModifiers", lockModifiers) &&
               FindSymbol(library, "XkbKeysymToModifiers", keysymToModifiers) &&
               FindSymbol(library, "XkbGetState", getState) &&
               FindSymbol(library, "XkbGetNamedIndicator", getIndicator) &&
               FindSymbol(library, "XkbSetNamedIndicator", setIndicator) &&
               FindSymbol(library, "XkbSetDetectableAutoRepeat", setDetectableAutoRepeat);
    }
};

std::unique_ptr<X11Keyboard> X11Keyboard::Connect() {
    auto* native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (native == nullptr || native->display() == nullptr) {
        return {};
    }
    const Library* library = Library::Load();
    if (library == nullptr) {
        return {};
    }
    // Xwayland lets a program set the locks, but the desktop knows nothing of it. Versions without the
    // extension are known by the names of their screens.
    int code = 0;
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (library->queryExtension(native->display(), "XWAYLAND", &code, &code, &code) != 0 ||
        (screen != nullptr && screen->name().startsWith(QLatin1String("XWAYLAND")))) {
        return {};
    }
    return std::unique_ptr<X11Keyboard>(new X11Keyboard(native->display(), library));
}

X11Keyboard::X11Keyboard(_XDisplay* display, const Library* library)
    : m_display(display)
    , m_library(library) {
    int code = 0;
    int major = XkbMajorVersion;
    int minor = XkbMinorVersion;
    m_library->queryKeyboard(m_display, &code, &m_firstEvent, &code, &major, &minor);
}

unsigned X11Keyboard::mask(Lock lock) const {
    return lock == Lock::Caps ? unsigned{LockMask} : m_library->keysymToModifiers(m_display, XK_Num_Lock);
}

bool X11Keyboard::isLocked(Lock lock) const {
    XkbStateRec state{};
    return m_library->getState(m_display, XkbUseCoreKbd, &state) == Success &&
           (state.locked_mods & mask(lock)) != 0;
}

void X11Keyboard::setLocked(Lock lock, bool locked) {
    const unsigned modifier = mask(lock);
    m_library->lockModifiers(m_display, XkbUseCoreKbd, modifier, locked ? modifier : 0);
    m_library->flush(m_display);
}

std::optional<bool> X11Keyboard::lockSetByProgram(const void* event, Lock lock) const {
    const auto& state = *static_cast<const xkbStateNotify*>(event);
    constexpr int SentByProgram = 0x80;
    if (m_firstEvent == 0 || (state.type & ~SentByProgram) != m_firstEvent ||
        state.xkbType != XkbStateNotify || (state.changed & XkbModifierLockMask) == 0 || state.keycode != 0) {
        return {};
    }
    const unsigned modifier = mask(lock);
    return modifier == 0 ? std::nullopt : std::optional((state.lockedMods & modifier) != 0);
}

bool X11Keyboard::hasFocus(unsigned long window) const {
    Window focused = None;
    int revert = 0;
    m_library->getInputFocus(m_display, &focused, &revert);
    return focused == window;
}

bool X11Keyboard::scrollLight() const {
    int on = False;
    const Atom name = m_library->internAtom(m_display, ScrollLightName, False);
    return m_library->getIndicator(m_display, name, nullptr, &on, nullptr, nullptr) != False && on != False;
}

void X11Keyboard::setScrollLight(bool on) {
    const Atom name = m_library->internAtom(m_display, ScrollLightName, False);
    m_library->setIndicator(m_display, name, True, on ? True : False, False, nullptr);
    m_library->flush(m_display);
}

void X11Keyboard::dropFalseReleases() {
    int isSupported = False;
    m_library->setDetectableAutoRepeat(m_display, True, &isSupported);
    m_library->flush(m_display);
}

} // namespace ui::native
