// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "tour_driver/Desktop.h"

#include "tour_driver/WaylandDesktop.h"
#include "tour_driver/X11Desktop.h"

#include <QImage>

#include <X11/keysym.h>

#include <algorithm>
#include <cstdlib>

namespace tour {

std::unique_ptr<Desktop> Desktop::open(const std::string& classOnX) {
    if (std::getenv("WAYLAND_DISPLAY") != nullptr) {
        auto desktop = std::make_unique<WaylandDesktop>();
        return desktop->connected() ? std::move(desktop) : nullptr;
    }
    auto desktop = std::make_unique<X11Desktop>(classOnX);
    return desktop->connected() ? std::move(desktop) : nullptr;
}

void Desktop::press(unsigned long symbol, std::initializer_list<unsigned long> held) {
    for (const unsigned long modifier : held) {
        sendKey(keyOf(modifier).code, true);
    }
    const Key key = keyOf(symbol);
    const unsigned shift = keyOf(XK_Shift_L).code;
    if (key.isShifted) {
        sendKey(shift, true);
    }
    sendKey(key.code, true);
    sendKey(key.code, false);
    if (key.isShifted) {
        sendKey(shift, false);
    }
    for (const unsigned long modifier : held) {
        sendKey(keyOf(modifier).code, false);
    }
}

void Desktop::type(std::string_view text) {
    for (const char character : text) {
        press(static_cast<unsigned char>(character));
    }
}

void Desktop::click(int x, int y, unsigned button) {
    moveTo(x, y);
    sendButton(button, true);
    sendButton(button, false);
}

ui::Picture Desktop::clipboardPicture() {
    const std::string file = clipboardImage().value_or("");
    return pictureOf(
        QImage::fromData(reinterpret_cast<const uchar*>(file.data()), static_cast<int>(file.size())));
}

ui::Picture Desktop::pictureOf(const QImage& image) {
    const QImage plain = image.convertToFormat(QImage::Format_RGB32);
    ui::Picture picture(plain.width(), plain.height());
    for (int y = 0; y < plain.height(); ++y) {
        const auto* line = reinterpret_cast<const ui::Pixel*>(plain.constScanLine(y));
        std::copy(line, line + plain.width(), picture.row(y));
    }
    return picture;
}

} // namespace tour
