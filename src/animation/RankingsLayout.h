// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Picture.h"

#include <optional>

namespace animation {

/// The distance of the OK button's corner from the right and the bottom edge.
constexpr int QuitDistance = 40;

/// The screenshot begins below such a part of the window.
constexpr int TopPart = 10;

/// Where on a screenshot a player's name begins, in the screenshot's pixels; also beyond its edge.
struct BoardLine {
    int x = 0;
    int y = 0;
    friend bool operator==(const BoardLine&, const BoardLine&) = default;
};

/// Widths and heights in pixels.
struct RankingsSizes {
    int windowWidth = 0;
    int windowHeight = 0;
    int screenShotWidth = 0; ///< 0: there is no screenshot
    int screenShotHeight = 0;
    int playerWidth = 0;
    int playerHeight = 0;
    double devicePixelRatio = 1;                  ///< pixels of the screen in one of the window
    bool isDoubled = false;                       ///< names and screenshot are, see IsDoubled
    std::optional<BoardLine> line = std::nullopt; ///< where the name is to stand, if that was chosen
};

/// Where everything stands in the preview's window.
struct RankingsLayout {
    int enlarge = 1; ///< the screenshot has so many pixels of the screen
    int reduce = 1;  ///< for so many of its own
    int nameEnlarge = 1;
    int nameReduce = 1;  ///< likewise the names
    ui::Rect screenShot; ///< empty: there is none
    ui::Rect strip;      ///< the one-name frame over the line of the board where the player's name stands
    int insetX = 0;  ///< where in the frame the name begins, in pixels of the screen: less than a pixel of
    int insetY = 0;  ///< the window
    BoardLine line;  ///< where the name stands
    ui::Rect player; ///< the bar of the player buttons
    ui::Rect quit;   ///< the OK button
};

/// Nothing in it is larger than the window, however small or large the screenshot is, unless the player
/// buttons are. Pictures are enlarged and reduced by whole numbers, so that their pixels are alike on the
/// screen, or by one and a half and so on where they are doubled. Names are never reduced, unless the window
/// is narrower than one: over a screenshot that is, they stand with their middle where it would be.
[[nodiscard]] RankingsLayout LayOutRankings(const RankingsSizes& sizes);

/// Whether a picture is made of squares of two by two pixels.
[[nodiscard]] bool IsDoubled(const ui::Picture& picture);

} // namespace animation
