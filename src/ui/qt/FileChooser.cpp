// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/FileChooser.h"

#include "ui/qt/LineLabel.h"
#include "ui/qt/SmallPrint.h"
#include "ui/qt/Text.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QGridLayout>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QSplitter>

#include <algorithm>

namespace ui::qt {

namespace {

/// Names of the parts of the toolkit's dialog.
constexpr QLatin1String NameEditName("fileNameEdit");
constexpr QLatin1String ListName("listView");
constexpr QLatin1String FileModelName("qt_filesystem_model");
constexpr QLatin1String SideBarName("sidebar");

constexpr QLatin1String SplitterName("splitter");

/// The part of a dialog that the side bar takes at most unless the user wants more.
constexpr int MostOfSideBar = 3;

/// Where the side bar keeps the address of a place.
constexpr int PlaceRole = Qt::UserRole + 1;

/// The filters as the toolkit reads them: the patterns in the last brackets are matched, and hidden; the text
/// before them is shown, its own brackets included.
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

/// Whether the toolkit would take a name for a list of names, each between double quotes.
bool IsList(const QString& name) {
    return name.contains(QLatin1Char('"'));
}

bool IsPattern(const QString& name) {
    return name.contains(QLatin1Char('*')) || name.contains(QLatin1Char('?'));
}

} // namespace

FileChooser::FileChooser(
    const FileDialogRequest& request, AcceptMode mode, const FolderHistory& history,
    const std::vector<NamedFolder>& offered, QWidget* parent)
    : QFileDialog(parent, QString::fromStdString(request.title))
    , m_needsExtension(mode == AcceptSave && request.needsExtension) {
    setOption(DontUseNativeDialog);
    setOption(HideNameFilterDetails);
    setOption(DontConfirmOverwrite, !request.asksToOverwrite);
    setAcceptMode(mode);
    setFileMode(mode == AcceptSave ? AnyFile : ExistingFile);
    const QString start = FromPath(request.folder.empty() ? history.last() : request.folder);
    setDirectory(start.isEmpty() || !QFileInfo(start).isDir() ? QDir::currentPath() : start);
    addPlaces(history, offered);
    setNameFilters(NameFilters(request.filters));
    // When opening, a file without an extension is chosen as it is.
    if (mode == AcceptSave && !request.extension.empty()) {
        setDefaultSuffix(QString::fromStdString(request.extension));
    }
    selectFile(QString::fromStdString(request.initialName));
    auto& rows = dynamic_cast<QGridLayout&>(*layout());
    m_hidden = new QCheckBox(tr("Show &hidden folders"), this);
    m_hidden->setObjectName(QStringLiteral("chkHidden"));
    rows.addWidget(m_hidden, rows.rowCount(), 1);
    connect(m_hidden, &QCheckBox::toggled, this, [this](bool isShown) {
        setFilter(isShown ? filter() | QDir::Hidden : filter() & ~QDir::Hidden);
    });
    addRemark(QStringLiteral("lblForecast"), request.forecast);
    if (LineLabel* const advice = addRemark(QStringLiteral("lblAdvice"), request.advice)) {
        SetSmallPrint(*advice);
    }
    // Queued: the toolkit first handles the text and selects in the list.
    connect(
        nameEdit(), &QLineEdit::textChanged, this, [this](const QString& text) { showTyped(text); },
        Qt::QueuedConnection);
}

LineLabel* FileChooser::addRemark(const QString& name, const std::function<std::string(const Path&)>& text) {
    if (!text) {
        return nullptr;
    }
    auto* const line = new LineLabel(this);
    line->setObjectName(name);
    auto& rows = dynamic_cast<QGridLayout&>(*layout());
    rows.addWidget(line, rows.rowCount(), 0, 1, -1);
    m_remarks.push_back({text, line});
    return line;
}

FileChooser::~FileChooser() {
    // The toolkit stores the side bar for all programs.
    setSidebarUrls(m_places);
}

void FileChooser::addPlaces(const FolderHistory& history, const std::vector<NamedFolder>& offered) {
    m_places = sidebarUrls();
    QList<QUrl> places = m_places;
    const auto add = [&places](const Path& folder) {
        QUrl place = QUrl::fromLocalFile(FromPath(folder));
        if (QFileInfo(place.toLocalFile()).isDir() && !places.contains(place)) {
            places << place;
        }
        return place;
    };
    for (const NamedFolder& folder : offered) {
        m_names.insert(add(folder.path), QString::fromStdString(folder.name));
    }
    for (const Path& folder : history.folders()) {
        add(folder);
    }
    setSidebarUrls(places);
    namePlaces();
    // The toolkit names a folder anew when it has looked at it.
    connect(
        findChild<QListView*>(SideBarName)->model(), &QAbstractItemModel::dataChanged, this,
        &FileChooser::namePlaces);
}

void FileChooser::namePlaces() {
    QAbstractItemModel& places = *findChild<QListView*>(SideBarName)->model();
    for (int row = 0; row < places.rowCount(); ++row) {
        const QModelIndex place = places.index(row, 0);
        const QString name = m_names.value(place.data(PlaceRole).toUrl());
        if (!name.isEmpty() && place.data().toString() != name) {
            places.setData(place, name);
        }
    }
}

bool FileChooser::showsHidden() const {
    return m_hidden->isChecked();
}

void FileChooser::showHidden(bool isShown) {
    m_hidden->setChecked(isShown);
}

Path FileChooser::chosenPath() const {
    return ToPath(m_typed.isEmpty() ? selectedFiles().constFirst() : m_typed);
}

void FileChooser::accept() {
    const QString text = nameEdit()->text();
    const bool isFile = acceptMode() == AcceptOpen && QFileInfo(directory(), text).isFile();
    if (IsPattern(text) && !isFile) {
        narrow(text);
        nameEdit()->selectAll();
        return;
    }
    if (IsList(text) || m_needsExtension) {
        acceptTyped();
        return;
    }
    deselectOthers(text);
    QFileDialog::accept();
}

void FileChooser::showEvent(QShowEvent* event) {
    QFileDialog::showEvent(event);
    nameEdit()->setFocus();
    nameEdit()->selectAll();
    if (!m_names.isEmpty()) {
        showNamesWhole();
    }
}

void FileChooser::showNamesWhole() {
    const QListView& places = *findChild<QListView*>(SideBarName);
    auto& columns = *findChild<QSplitter*>(SplitterName);
    const int wanted =
        std::min(places.sizeHintForColumn(0) + 2 * places.frameWidth(), columns.width() / MostOfSideBar);
    if (places.width() < wanted) {
        columns.setSizes({wanted, columns.width() - wanted - columns.handleWidth()});
    }
}

QLineEdit* FileChooser::nameEdit() const {
    return findChild<QLineEdit*>(NameEditName);
}

QString FileChooser::typedFile() const {
    const QString text = WithHome(nameEdit()->text());
    const QFileInfo file(directory(), text);
    const bool isBare =
        !file.fileName().contains(QLatin1Char('.')) ||
        (m_needsExtension && file.suffix().compare(defaultSuffix(), Qt::CaseInsensitive) != 0);
    return isBare && !file.isDir() && !defaultSuffix().isEmpty()
               ? file.absoluteFilePath() + QLatin1Char('.') + defaultSuffix()
               : file.absoluteFilePath();
}

void FileChooser::deselectOthers(const QString& text) {
    QItemSelectionModel& selection = *findChild<QListView*>(ListName)->selectionModel();
    if (selection.selectedRows().value(0).data().toString() != text) {
        selection.clearSelection();
    }
}

void FileChooser::showTyped(const QString& text) {
    if (IsList(text)) {
        deselectOthers(text);
        const auto accepts = acceptMode() == AcceptSave ? QDialogButtonBox::Save : QDialogButtonBox::Open;
        findChild<QDialogButtonBox*>()->button(accepts)->setEnabled(true);
    }
    const QString file = typedFile();
    const bool isFile = !text.isEmpty() && !IsPattern(text) && !QFileInfo(file).isDir();
    for (const Remark& remark : m_remarks) {
        remark.line->tell(isFile ? QString::fromStdString(remark.text(ToPath(file))) : QString());
    }
}

void FileChooser::acceptTyped() {
    const QFileInfo file(typedFile());
    if (file.isDir()) {
        setDirectory(file.absoluteFilePath());
        nameEdit()->clear();
        return;
    }
    if (acceptMode() == AcceptOpen && !file.exists()) {
        QMessageBox::warning(
            this, windowTitle(),
            QFileDialog::tr("%1\nFile not found.\nPlease verify the correct file name was given.")
                .arg(file.fileName()));
        return;
    }
    const bool replaces = acceptMode() == AcceptSave && file.exists() && !testOption(DontConfirmOverwrite);
    if (replaces &&
        QMessageBox::warning(
            this, windowTitle(),
            QFileDialog::tr("%1 already exists.\nDo you want to replace it?").arg(file.fileName()),
            QMessageBox::Yes | QMessageBox::No, QMessageBox::No) != QMessageBox::Yes) {
        return;
    }
    m_typed = file.absoluteFilePath();
    done(Accepted);
}

void FileChooser::narrow(const QString& typed) {
    const QString text = QDir::fromNativeSeparators(typed);
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
