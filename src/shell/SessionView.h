// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Documents.h"

#include <string>

namespace shell {

/// What a session is shown on: the main window, or whatever a test puts in its place. It is told while a
/// command runs, since message boxes stand over what the command has shown by then.
class SessionView {
public:
    virtual ~SessionView() = default;

    /// Brings a page into view.
    virtual void viewPage(editing::Page page) = 0;

    /// Sets everything but its picture from a page's document, and shows what has changed in the pictures.
    virtual void showDocument(editing::Page page) = 0;

    /// A command has ended: the cursor comes into sight and the page in view gets the keyboard.
    virtual void followCursor() = 0;

    /// Shows 0 to 100, at once.
    virtual void showProgress(int percentage) = 0;

    /// Tells a text in the status line; an empty one leaves what stands there.
    virtual void showStatus(const std::string& text) = 0;

    /// Puts a way to Session::showReadNames() behind the status text, or takes both away.
    virtual void offerReadNames() = 0;
    virtual void withdrawReadNames() = 0;

    virtual void showRecentFiles() = 0;

    /// The controls that show settings or the atlas show them as they are now; the pages' pictures do not.
    virtual void showAtlas() = 0;
    virtual void showColours() = 0;
    virtual void showPointers() = 0;
    virtual void showModes() = 0;

    /// Shows what the games that are played make of the page in view.
    virtual void showGames() = 0;

    /// Shows what was chosen in the View menu but for pages and games.
    virtual void showViewChoices() = 0;
};

} // namespace shell
