// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "tour_driver/WaylandDesktop.h"

#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>

#include <array>
#include <cmath>
#include <cstdio>
#include <linux/input-event-codes.h>

namespace tour {

namespace {

/// What a command writes; nothing if it fails.
std::optional<QByteArray> outputOf(const std::string& command) {
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) {
        return std::nullopt;
    }
    QByteArray output;
    std::array<char, 65536> part{};
    while (const std::size_t size = std::fread(part.data(), 1, part.size(), pipe)) {
        output.append(part.data(), static_cast<int>(size));
    }
    return pclose(pipe) == 0 ? std::optional(output) : std::nullopt;
}

QJsonDocument answerOf(const std::string& query) {
    return QJsonDocument::fromJson(outputOf("swaymsg -r -t " + query).value_or(QByteArray()));
}

void tell(unsigned long window, const std::string& command) {
    outputOf("swaymsg -q '[con_id=" + std::to_string(window) + "] " + command + "'");
}

/// The window within a part of the compositor's tree that has the keyboard.
std::optional<QJsonObject> focusedWindow(const QJsonObject& node) {
    if (node["focused"].toBool() && node["app_id"].isString()) {
        return node;
    }
    for (const char* children : {"nodes", "floating_nodes"}) {
        const QJsonArray list = node[QLatin1String(children)].toArray();
        for (const auto& child : list) {
            if (auto found = focusedWindow(child.toObject())) {
                return found;
            }
        }
    }
    return std::nullopt;
}

/// The clipboard as this type, as any client gets it.
std::optional<QByteArray> clipboard(const std::string& type) {
    return outputOf("timeout 5 wl-paste --no-newline --type '" + type + "' 2>/dev/null");
}

} // namespace

WaylandDesktop::WaylandDesktop() {
    const QJsonObject screen = answerOf("get_outputs")[0].toObject();
    const QJsonObject mode = screen["current_mode"].toObject();
    m_screen = {0, 0, mode["width"].toInt(), mode["height"].toInt()};
    m_scale = screen["scale"].toDouble();
}

void WaylandDesktop::typeAsShown(std::string_view text) {
    outputOf("wtype -- '" + std::string(text) + "'");
}

void WaylandDesktop::moveTo(int x, int y) {
    m_input.moveTo(x, y, m_screen.width, m_screen.height);
}

std::optional<WindowFacts> WaylandDesktop::activeWindow() const {
    const auto window = focusedWindow(answerOf("get_tree").object());
    if (!window) {
        return std::nullopt;
    }
    const QJsonObject rect = (*window)["rect"].toObject();
    const int titleHeight = (*window)["deco_rect"]["height"].toInt();
    const auto pixels = [&](int length) {
        return static_cast<int>(std::lround(length * m_scale));
    };
    return WindowFacts{
        static_cast<unsigned long>((*window)["id"].toInt()),
        (*window)["name"].toString().toStdString(),
        (*window)["app_id"].toString().toStdString(),
        {pixels(rect["x"].toInt()), pixels(rect["y"].toInt() - titleHeight), pixels(rect["width"].toInt()),
         pixels(rect["height"].toInt() + titleHeight)}};
}

void WaylandDesktop::activate(unsigned long window) {
    tell(window, "focus");
}

void WaylandDesktop::moveToCorner(unsigned long window) {
    tell(window, "move absolute position 8 32");
}

ui::Picture WaylandDesktop::grab() const {
    return pictureOf(QImage::fromData(outputOf("grim -t ppm -").value_or(QByteArray()), "PPM"));
}

std::optional<std::string> WaylandDesktop::clipboardText() {
    const auto text = clipboard("text/plain;charset=utf-8");
    return text ? std::optional(QString::fromUtf8(*text).toLatin1().toStdString()) : std::nullopt;
}

std::optional<std::string> WaylandDesktop::clipboardImage() {
    const auto file = clipboard("image/png");
    return file ? std::optional(file->toStdString()) : std::nullopt;
}

Desktop::Key WaylandDesktop::keyOf(unsigned long symbol) const {
    const VirtualInput::Key key = m_input.keyOf(static_cast<unsigned>(symbol));
    return {key.code, key.isShifted};
}

void WaylandDesktop::sendKey(unsigned code, bool isDown) {
    m_input.sendKey(code, isDown);
}

void WaylandDesktop::sendButton(unsigned button, bool isDown) {
    constexpr std::array<unsigned, 3> Codes{BTN_LEFT, BTN_MIDDLE, BTN_RIGHT};
    m_input.sendButton(Codes.at(button - 1), isDown);
}

} // namespace tour
