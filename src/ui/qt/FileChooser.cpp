// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/FileChooser.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QListView>
#include <QRegularExpression>

namespace ui::qt {

namespace {

/// Names of the parts of the toolkit's dialog.
constexpr QLatin1String NameEditName("fileNameEdit");
constexpr QLatin1String ListName("listView");
constexpr QLatin1String FileModelName("qt_filesystem_model");

QString FromPath(const Path& path) {
    return QFile::decodeName(QByteArray::fromStdString(path.native()));
}

/// The filters as the toolkit reads them: what stands in the last brackets is matched, and hidden; what
/// stands before it is shown, brackets of its own included.
QStringList NameFilters(const std::vector<FileFilter>& filters) {
    QStringList list;
    for (const FileFilter& filter : filters) {
        QStringList patterns;
        for (const std::string& pattern : filter.patterns) {
            patterns << QString::fromStdString(pattern);
        }
        list << QString::fromStdString(filter.text) + QStringLiteral(" (") + patterns.join(QLatin1Char(' ')) +
                    QLatin1Char(')');
    }
    return list;
}

bool IsPattern(const QString& name) {
    return name.contains(QLatin1Char('*')) || name.contains(QLatin1Char('?'));
}

} // namespace

FileChooser::FileChooser(const FileDialogRequest& request, AcceptMode mode, QWidget* parent)
    : QFileDialog(parent, QString::fromStdString(request.title)) {
    setOption(DontUseNativeDialog);
    setOption(HideNameFilterDetails);
    setOption(DontConfirmOverwrite, !request.asksToOverwrite);
    setAcceptMode(mode);
    setFileMode(mode == AcceptSave ? AnyFile : ExistingFile);
    setDirectory(request.folder.empty() ? QDir::currentPath() : FromPath(request.folder));
    setNameFilters(NameFilters(request.filters));
    // When opening, a file without an extension is chosen as it is.
    if (mode == AcceptSave && !request.extension.empty()) {
        setDefaultSuffix(QString::fromStdString(request.extension));
    }
    selectFile(QString::fromStdString(request.initialName));
}

Path FileChooser::chosenPath() const {
    return QFile::encodeName(selectedFiles().constFirst()).toStdString();
}

void FileChooser::accept() {
    const QString text = nameEdit()->text();
    const bool isFile = acceptMode() == AcceptOpen && QFileInfo(directory(), text).isFile();
    if (IsPattern(text) && !isFile) {
        narrow(text);
        nameEdit()->selectAll();
        return;
    }
    // The toolkit prefers what is selected in the list, which may be the name that was typed before.
    const auto* list = findChild<QListView*>(ListName);
    const QModelIndex current = list->selectionModel()->selectedRows().value(0);
    if (current.data().toString() != text) {
        list->selectionModel()->clearSelection();
    }
    QFileDialog::accept();
}

void FileChooser::showEvent(QShowEvent* event) {
    QFileDialog::showEvent(event);
    nameEdit()->setFocus();
    nameEdit()->selectAll();
}

QLineEdit* FileChooser::nameEdit() const {
    return findChild<QLineEdit*>(NameEditName);
}

void FileChooser::narrow(const QString& text) {
    const qsizetype slash = text.lastIndexOf(QLatin1Char('/'));
    if (slash >= 0) {
        const QFileInfo folder(directory(), text.left(slash + 1));
        if (!folder.isDir()) {
            return;
        }
        setDirectory(folder.absoluteFilePath());
        nameEdit()->setText(text.mid(slash + 1));
    }
    static const QRegularExpression separators(QStringLiteral("[;\\s]+"));
    const QStringList patterns = text.mid(slash + 1).split(separators, Qt::SkipEmptyParts);
    if (auto* model = findChild<QFileSystemModel*>(FileModelName); model != nullptr) {
        model->setNameFilters(patterns);
    }
}

} // namespace ui::qt
