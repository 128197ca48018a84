// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "tour_driver/X11Desktop.h"

#include "ui/TryFor.h"

#include <X11/XKBlib.h>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>

#include <algorithm>
#include <chrono>
#include <poll.h>
#include <utility>
#include <vector>

namespace tour {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds ButtonPatience{5000};
constexpr milliseconds ButtonGlance{1};

/// A window may go away between two requests: that is no error here.
int ignoreError(Display* /*display*/, XErrorEvent* /*error*/) {
    return 0;
}

} // namespace

struct X11Desktop::Connection {
    Display* display = XOpenDisplay(nullptr);
    Window root = display == nullptr ? None : DefaultRootWindow(display);
    Window own = None;

    Connection() {
        if (display != nullptr) {
            XSetErrorHandler(&ignoreError);
            own = XCreateSimpleWindow(display, root, 0, 0, 1, 1, 0, 0, 0);
        }
    }

    ~Connection() {
        if (display != nullptr) {
            XCloseDisplay(display);
        }
    }

    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    [[nodiscard]] Atom atom(const char* name) const { return XInternAtom(display, name, False); }

    /// A property's value as bytes; 32-bit items come as longs.
    [[nodiscard]] std::string property(Window window, Atom name) const {
        Atom type = None;
        int format = 0;
        unsigned long items = 0;
        unsigned long rest = 0;
        unsigned char* data = nullptr;
        if (XGetWindowProperty(
                display, window, name, 0, 65536, False, AnyPropertyType, &type, &format, &items, &rest,
                &data) != Success ||
            data == nullptr) {
            return {};
        }
        const std::size_t width = format == 32 ? sizeof(long) : static_cast<std::size_t>(format / 8);
        std::string value(reinterpret_cast<const char*>(data), items * width);
        XFree(data);
        return value;
    }

    [[nodiscard]] Window windowProperty(Window window, const char* name) const {
        const std::string value = property(window, atom(name));
        return value.size() < sizeof(Window) ? None : *reinterpret_cast<const Window*>(value.data());
    }

    [[nodiscard]] std::string className(Window window) const {
        // The name of this very program, then the class, each ended by a zero.
        std::string names = property(window, XA_WM_CLASS);
        names.erase(0, names.find('\0') + 1);
        return names.substr(0, names.find('\0'));
    }

    /// Whether the display has seen this button go down and not yet up.
    [[nodiscard]] bool isHeld(unsigned button) const {
        Window tree = None;
        Window child = None;
        int ignored = 0;
        unsigned held = 0;
        XQueryPointer(display, root, &tree, &child, &ignored, &ignored, &ignored, &ignored, &held);
        return (held & (static_cast<unsigned>(Button1Mask) << (button - Button1))) != 0;
    }

    /// The part of the screen that a window and its frame take.
    [[nodiscard]] ui::Rect frameOf(Window window) const {
        Window outermost = window;
        Window above = window;
        while (above != root && above != None) {
            outermost = above;
            Window tree = None;
            Window* children = nullptr;
            unsigned count = 0;
            if (XQueryTree(display, outermost, &tree, &above, &children, &count) == 0) {
                break;
            }
            XFree(children);
        }
        XWindowAttributes attributes;
        if (XGetWindowAttributes(display, outermost, &attributes) == 0) {
            return {};
        }
        return onScreen({attributes.x, attributes.y, attributes.width, attributes.height});
    }

    /// The part of a rectangle that is on the screen.
    [[nodiscard]] ui::Rect onScreen(const ui::Rect& rect) const {
        const int screen = DefaultScreen(display);
        const int left = std::max(rect.x, 0);
        const int top = std::max(rect.y, 0);
        return {
            left, top, std::min(rect.x + rect.width, DisplayWidth(display, screen)) - left,
            std::min(rect.y + rect.height, DisplayHeight(display, screen)) - top};
    }

    /// The windows on the screen that lie in no other, with the parts of the screen that they take.
    [[nodiscard]] std::vector<std::pair<Window, ui::Rect>> outermostWindows() const {
        Window tree = None;
        Window above = None;
        Window* children = nullptr;
        unsigned count = 0;
        std::vector<std::pair<Window, ui::Rect>> windows;
        if (XQueryTree(display, root, &tree, &above, &children, &count) == 0) {
            return windows;
        }
        for (unsigned index = 0; index < count; ++index) {
            XWindowAttributes attributes;
            if (XGetWindowAttributes(display, children[index], &attributes) == 0 ||
                attributes.map_state != IsViewable || attributes.c_class != InputOutput) {
                continue;
            }
            const ui::Rect shown =
                onScreen({attributes.x, attributes.y, attributes.width, attributes.height});
            // The window manager keeps tiny windows of its own outside the screen.
            if (shown.width > 4 && shown.height > 4) {
                windows.emplace_back(children[index], shown);
            }
        }
        XFree(children);
        return windows;
    }

    /// What the clipboard's owner gives as this type; nothing if it gives nothing.
    [[nodiscard]] std::optional<std::string> clipboard(Atom type) const;
};

X11Desktop::X11Desktop(std::string classOfProgram)
    : m_connection(std::make_unique<Connection>())
    , m_class(std::move(classOfProgram)) {}

X11Desktop::~X11Desktop() = default;

bool X11Desktop::connected() const {
    int event = 0;
    int error = 0;
    int major = 0;
    int minor = 0;
    return m_connection->display != nullptr &&
           XTestQueryExtension(m_connection->display, &event, &error, &major, &minor) != 0;
}

Desktop::Key X11Desktop::keyOf(unsigned long symbol) const {
    Display* display = m_connection->display;
    const KeyCode code = XKeysymToKeycode(display, symbol);
    return {
        code, XkbKeycodeToKeysym(display, code, 0, 0) != symbol &&
                  XkbKeycodeToKeysym(display, code, 0, 1) == symbol};
}

void X11Desktop::sendKey(unsigned code, bool isDown) {
    XTestFakeKeyEvent(m_connection->display, code, isDown ? True : False, CurrentTime);
    XFlush(m_connection->display);
}

void X11Desktop::sendButton(unsigned button, bool isDown) {
    XTestFakeButtonEvent(m_connection->display, button, isDown ? True : False, CurrentTime);
    // The window manager sees a press first and may lose what follows before it has passed the press on.
    const auto isSeen = [&] {
        return m_connection->isHeld(button) == isDown;
    };
    if (!ui::TryFor(ButtonPatience, ButtonGlance, isSeen)) {
        throw TourFailure("the display does not see the button");
    }
}

void X11Desktop::moveTo(int x, int y) {
    XTestFakeMotionEvent(m_connection->display, -1, x, y, CurrentTime);
    XFlush(m_connection->display);
}

std::optional<WindowFacts> X11Desktop::activeWindow() const {
    const Connection& connection = *m_connection;
    const Window window = connection.windowProperty(connection.root, "_NET_ACTIVE_WINDOW");
    XWindowAttributes attributes;
    if (window == None || XGetWindowAttributes(connection.display, window, &attributes) == 0 ||
        attributes.map_state != IsViewable) {
        return std::nullopt;
    }
    return WindowFacts{
        window, connection.property(window, connection.atom("_NET_WM_NAME")), connection.className(window),
        connection.frameOf(window)};
}

void X11Desktop::activate(unsigned long window) {
    const Connection& connection = *m_connection;
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = connection.atom("_NET_ACTIVE_WINDOW");
    event.xclient.format = 32;
    event.xclient.data.l[0] = 2; // on behalf of the user
    XSendEvent(
        connection.display, connection.root, False, SubstructureNotifyMask | SubstructureRedirectMask,
        &event);
    XFlush(connection.display);
}

void X11Desktop::moveToCorner(unsigned long window) {
    XMoveWindow(m_connection->display, window, 8, 32);
    XFlush(m_connection->display);
}

ui::Picture X11Desktop::grab() const {
    Display* display = m_connection->display;
    const int width = DisplayWidth(display, DefaultScreen(display));
    const int height = DisplayHeight(display, DefaultScreen(display));
    XImage* image = XGetImage(
        display, m_connection->root, 0, 0, static_cast<unsigned>(width), static_cast<unsigned>(height),
        AllPlanes, ZPixmap);
    ui::Picture picture(width, height);
    if (image == nullptr) {
        return picture;
    }
    const bool isPlain = image->bits_per_pixel == 32 && image->byte_order == LSBFirst;
    for (int y = 0; y < height; ++y) {
        const auto* line = reinterpret_cast<const ui::Pixel*>(image->data + y * image->bytes_per_line);
        ui::Pixel* row = picture.row(y);
        for (int x = 0; x < width; ++x) {
            row[x] = ui::OpaqueBlack | (isPlain ? line[x] : static_cast<ui::Pixel>(XGetPixel(image, x, y)));
        }
    }
    XDestroyImage(image);
    return picture;
}

ui::Rect X11Desktop::windowsArea() const {
    ui::Rect area;
    for (const auto& [window, frame] : m_connection->outermostWindows()) {
        area = area.united(frame);
    }
    return area;
}

std::optional<bool> X11Desktop::isMenuOpen() const {
    // Its other windows lie in frames of the window manager.
    const auto windows = m_connection->outermostWindows();
    return std::any_of(windows.begin(), windows.end(), [this](const auto& window) {
        return m_connection->className(window.first) == classOfProgram();
    });
}

std::optional<std::string> X11Desktop::Connection::clipboard(Atom type) const {
    const Atom target = atom("TOUR_CLIPBOARD");
    XConvertSelection(display, atom("CLIPBOARD"), type, target, own, CurrentTime);
    XFlush(display);
    using Clock = std::chrono::steady_clock;
    const auto deadline = Clock::now() + std::chrono::seconds(5);
    while (Clock::now() < deadline) {
        XEvent event;
        if (XCheckTypedWindowEvent(display, own, SelectionNotify, &event) != 0) {
            if (event.xselection.property == None) {
                return std::nullopt;
            }
            return property(own, target);
        }
        pollfd readable{ConnectionNumber(display), POLLIN, 0};
        poll(&readable, 1, 100);
    }
    return std::nullopt;
}

std::optional<std::string> X11Desktop::clipboardText() {
    return m_connection->clipboard(XA_STRING);
}

std::optional<std::string> X11Desktop::clipboardImage() {
    // Wine offers pictures in the form of Windows alone.
    for (const char* const type : {"image/png", "image/bmp"}) {
        if (auto image = m_connection->clipboard(m_connection->atom(type))) {
            return image;
        }
    }
    return std::nullopt;
}

} // namespace tour
