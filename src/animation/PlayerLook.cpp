// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/PlayerLook.h"

#include <QColor>

namespace animation {

namespace {

constexpr QColor Light(0xDD, 0xDD, 0xDD);
constexpr QColor Dim(0x77, 0x77, 0x77);
constexpr QColor Dark(0x1C, 0x1C, 0x1C);
constexpr QColor Field(0x30, 0x30, 0x30);
constexpr QColor Chosen(0x3C, 0x64, 0x96);

} // namespace

QPalette PlayerPalette() {
    QPalette palette(Light, Dark, Dim, Qt::black, Dim, Light, Light, Field, Qt::black);
    palette.setColor(QPalette::Highlight, Chosen);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, Dark);
    palette.setColor(QPalette::ToolTipText, Light);
    for (const auto role : {QPalette::ButtonText, QPalette::WindowText, QPalette::Text}) {
        palette.setColor(QPalette::Disabled, role, Dim);
    }
    return palette;
}

QString PlayerButtonStyle() {
    return QStringLiteral(
        "QPushButton { color: #dddddd; background: #1c1c1c; border: 1px solid #1c1c1c;"
        " border-radius: 2px; padding: 4px 9px; outline: none; }"
        "QPushButton:hover { background: #303030; border-color: #303030; }"
        "QPushButton:focus { border-color: #dddddd; }"
        "QPushButton:pressed { background: #505050; }"
        "QPushButton:disabled { color: #777777; background: #101010; border-color: #101010; }"
        "QPushButton#cmdQuit { padding: 0; }");
}

} // namespace animation
