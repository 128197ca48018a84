// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Dialogs.h"

namespace ui::qt {

/// Message boxes, file choosers and the colour chooser of the toolkit, over the window that is active.
class QtDialogs final : public Dialogs {
public:
    Answer box(const Message& message) override;
    std::optional<Path> chooseFileToOpen(const FileDialogRequest& request) override;
    std::optional<Path> chooseFileToSave(const FileDialogRequest& request) override;
    std::optional<Pixel> chooseColour(Pixel initial) override;
};

} // namespace ui::qt
