// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Dialogs.h"
#include "ui/FolderHistory.h"

#include <QFileDialog>
#include <QHash>
#include <QUrl>

class QCheckBox;
class QLineEdit;

namespace ui::qt {

class LineLabel;

/// The toolkit's own file dialog, opened as a request says. A name with '*' or '?' in it is never chosen: it
/// narrows what the dialog lists, and the dialog stays.
class FileChooser final : public QFileDialog {
    Q_OBJECT

public:
    /// Starts in the folder that is asked for, or else in the last one of the history.
    /// Lists at its side the folders that are offered, by their names, and those of the history.
    FileChooser(
        const FileDialogRequest& request, AcceptMode mode, const FolderHistory& history,
        const std::vector<NamedFolder>& offered, QWidget* parent);
    FileChooser(const FileChooser&) = delete;
    FileChooser& operator=(const FileChooser&) = delete;
    FileChooser(FileChooser&&) = delete;
    FileChooser& operator=(FileChooser&&) = delete;
    ~FileChooser() override;

    /// Whether hidden folders and files are listed.
    [[nodiscard]] bool showsHidden() const;
    void showHidden(bool isShown);

    /// The chosen file, once the dialog was accepted.
    [[nodiscard]] Path chosenPath() const;

    void accept() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    /// A line below the controls, about the file that the typed name leads to.
    struct Remark {
        std::function<std::string(const Path&)> text;
        LineLabel* line;
    };

    /// Adds such a line; null when there is nothing to tell.
    LineLabel* addRemark(const QString& name, const std::function<std::string(const Path&)>& text);

    /// Adds folders that are there to the side bar.
    void addPlaces(const FolderHistory& history, const std::vector<NamedFolder>& offered);

    /// Shows offered folders by their names: the toolkit knows only what they are called on the disk.
    void namePlaces();

    /// Makes the side bar wide enough for its names, up to a part of the dialog.
    void showNamesWhole();

    [[nodiscard]] QLineEdit* nameEdit() const;

    /// The file that the typed name leads to.
    [[nodiscard]] QString typedFile() const;

    /// Accepts the typed name as the toolkit does, but to the letter.
    void acceptTyped();

    /// Shows in the list and on the button that a name with double quotes is one name, and what there is to
    /// tell of the file.
    void showTyped(const QString& text);

    /// The toolkit prefers what is selected in the list, which may be the name that was typed before.
    void deselectOthers(const QString& text);

    /// Lists only what matches the patterns that were typed, which may begin with a folder to list.
    void narrow(const QString& typed);

    QList<QUrl> m_places;         ///< the side bar's own
    QHash<QUrl, QString> m_names; ///< of the folders that are offered
    QCheckBox* m_hidden = nullptr;
    bool m_needsExtension;
    QString m_typed; ///< what acceptTyped() accepted
    std::vector<Remark> m_remarks;
};

} // namespace ui::qt
