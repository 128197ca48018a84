// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "charset/TerminalPicture.h"

#include "glyphs/mdlData.h"

#include <algorithm>

namespace charset {

namespace {

constexpr std::string_view UpperHalf = "\u2580";
constexpr std::string_view LowerHalf = "\u2584";

std::string ColourText(ui::Pixel pixel) {
    return std::to_string((pixel >> 16U) & 0xFFU) + ';' + std::to_string((pixel >> 8U) & 0xFFU) + ';' +
           std::to_string(pixel & 0xFFU);
}

/// Writes cells of two pixels; a colour is only named where it changes.
class Line {
public:
    explicit Line(std::string& text)
        : m_text(text) {}

    /// Transparent pixels (0) show the terminal's own background.
    void addCell(ui::Pixel upper, ui::Pixel lower) {
        if (upper == 0 && lower == 0) {
            setBackground(0);
            m_text += ' ';
        } else if (upper == 0) {
            setBackground(0);
            setForeground(lower);
            m_text += LowerHalf;
        } else {
            setBackground(lower);
            setForeground(upper);
            m_text += UpperHalf;
        }
    }

    void end() { m_text += "\x1B[0m\n"; }

private:
    void setForeground(ui::Pixel pixel) {
        if (m_foreground != pixel) {
            m_foreground = pixel;
            m_text += "\x1B[38;2;" + ColourText(pixel) + 'm';
        }
    }

    void setBackground(ui::Pixel pixel) {
        if (m_background != pixel) {
            m_background = pixel;
            m_text += pixel == 0 ? "\x1B[49m" : "\x1B[48;2;" + ColourText(pixel) + 'm';
        }
    }

    std::string& m_text;
    ui::Pixel m_foreground = 0; ///< 0: the terminal's own, as at the start of a line
    ui::Pixel m_background = 0;
};

} // namespace

std::string TerminalPicture(const ui::Picture& picture, int columns) {
    const int band = std::max(columns / glyphs::ArtworkCell, 1) * glyphs::ArtworkCell;
    std::string text;
    for (int left = 0; left < picture.width(); left += band) {
        if (left > 0) {
            text += '\n';
        }
        const int right = std::min(left + band, picture.width());
        for (int y = 0; y < picture.height(); y += 2) {
            Line line(text);
            for (int x = left; x < right; ++x) {
                line.addCell(picture.pixel(x, y), y + 1 < picture.height() ? picture.pixel(x, y + 1) : 0);
            }
            line.end();
        }
    }
    return text;
}

} // namespace charset
