// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "tour_driver/Scenes.h"

#include <X11/keysym.h>

namespace tour {

void PlayAddedSet(Tour& tour) {
    Desktop& desktop = tour.desktop();
    // The fourth set, as a picture of one's own.
    tour.putCharSet(3, "my-glyphs.png");
    desktop.press(XK_Tab);
    desktop.press(XK_space);
    tour.expectWindow("Select a Picture or Game File");
    tour.chooseFile("my-glyphs.png");
    tour.expectWindow("Add a Character Set");
    tour.portrait("options-new-set");
    desktop.press(XK_Return);
    tour.expectWindow("Options");
    tour.portrait("options-added-set");
    // Past the button that adds.
    desktop.press(XK_Tab);
    desktop.press(XK_Tab);
    desktop.press(XK_space);
    tour.expectWindow("Vortigo");
    desktop.press(XK_y, {XK_Alt_L});
    tour.expectWindow("Options");
}

} // namespace tour
