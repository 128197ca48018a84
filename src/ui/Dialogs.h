// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"
#include "ui/Picture.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace ui {

enum class Buttons { Ok, YesNo, YesNoCancel };

enum class Answer { Ok, Yes, No, Cancel };

enum class Icon { None, Exclamation };

/// A message box.
struct Message {
    std::string text;
    Buttons buttons = Buttons::Ok;
    Icon icon = Icon::None;
    std::string detail = {}; ///< a smaller line below the text; empty: none
    bool prefersNo = false;  ///< whether No is the default button; otherwise it is the first one
};

/// One entry of a file dialog's type list: the text shown and the patterns that it matches ("*.vtn").
struct FileFilter {
    std::string text;
    std::vector<std::string> patterns;
};

/// A folder and what it is called.
struct NamedFolder {
    Path path;
    std::string name;
};

/// Finds folders to offer; asked each time that a file dialog opens.
using FolderOffer = std::function<std::vector<NamedFolder>()>;

/// What a file dialog is opened with.
struct FileDialogRequest {
    std::string title;       ///< empty: the platform's own title
    std::string initialName; ///< what stands in the file-name box, for example "*.vtn"
    std::vector<FileFilter> filters;
    Path folder;                 ///< where it starts; empty: where the last one ended, or the current folder
    std::string extension;       ///< added to a saved name that has none, with its dot; empty: none
    bool needsExtension = false; ///< whether `extension` is also added to a name that has another one
    bool asksToOverwrite = true; ///< save dialogs: whether an existing file is asked about

    /// What is going to happen to a file, in a line below the dialog's controls; no function: no line.
    std::function<std::string(const Path&)> forecast = {};

    /// What to know of a file before it is chosen, in a smaller line below that; no function: no line.
    std::function<std::string(const Path&)> advice = {};
};

/// Asked by work after each of its steps, with the number of those done: whether it goes on.
using GoesOn = std::function<bool(int done)>;

/// Message boxes, file choosers and the colour chooser. Texts are UTF-8; a message's lines end with '\n'.
/// Every call is modal; the boxes carry the application's title.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    /// Shows a message. Escape answers No (YesNo) or Cancel (YesNoCancel).
    virtual Answer box(const Message& message) = 0;

    /// The chosen existing file; nothing when cancelled.
    virtual std::optional<Path> chooseFileToOpen(const FileDialogRequest& request) = 0;

    /// The chosen path to write; nothing when cancelled. Never a name with '*' or '?' in it.
    virtual std::optional<Path> chooseFileToSave(const FileDialogRequest& request) = 0;

    /// The chosen colour; nothing when cancelled.
    virtual std::optional<Pixel> chooseColour(Pixel initial) = 0;

    /// Runs work of so many steps. If it takes more than half a second, a bar shows how far it is, and Cancel
    /// ends it.
    virtual void
    follow(const std::string& text, int steps, const std::function<void(const GoesOn&)>& work) = 0;

    /// Shows a message with one OK button and no icon.
    void inform(const std::string& text) { box({text}); }

    /// Shows a message with one OK button and an exclamation icon.
    void warn(const std::string& text) { box({text, Buttons::Ok, Icon::Exclamation}); }

    /// Asks with Yes and No; true for Yes.
    bool askYesNo(const std::string& text) { return box({text, Buttons::YesNo}) == Answer::Yes; }
};

} // namespace ui
