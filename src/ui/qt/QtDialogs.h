// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Dialogs.h"
#include "ui/FolderHistory.h"

#include <QFileDialog>

#include <utility>

namespace ui::qt {

/// Message boxes, file choosers and the colour chooser of the toolkit, over the window that is active.
/// A file dialog that is asked for without a folder starts where the last one ended.
class QtDialogs final : public Dialogs {
public:
    QtDialogs() = default;

    /// Keeps the folders in which files were chosen in the store, which outlives the dialogs. `offered`: what
    /// file dialogs list at their side, too; may be empty.
    explicit QtDialogs(SettingsStore& store, FolderOffer offered = {})
        : m_folders(store)
        , m_offered(std::move(offered)) {}

    Answer box(const Message& message) override;
    std::optional<Path> chooseFileToOpen(const FileDialogRequest& request) override;
    std::optional<Path> chooseFileToSave(const FileDialogRequest& request) override;
    std::optional<Pixel> chooseColour(Pixel initial) override;
    void follow(const std::string& text, int steps, const std::function<void(const GoesOn&)>& work) override;

private:
    std::optional<Path> chooseFile(const FileDialogRequest& request, QFileDialog::AcceptMode mode);

    FolderHistory m_folders;
    FolderOffer m_offered;
    bool m_showsHidden = false;
};

} // namespace ui::qt
