// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/QtDialogs.h"

#include "ui/qt/FileChooser.h"
#include "ui/qt/SmallPrint.h"

#include <QApplication>
#include <QColorDialog>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QProgressDialog>

#include <algorithm>

namespace ui::qt {

namespace {

/// The title of every message box.
constexpr auto BoxTitle = "Vortigo";

/// Name of a part of the toolkit's box.
constexpr QLatin1String DetailName("qt_msgbox_informativelabel");

/// Yes, No, Cancel in this order: some desktops would turn them round. The layout goes by its number
/// (QDialogButtonBox::WinLayout): for a word the toolkit may take any number, and read beyond its layouts.
/// The line below the text is smaller; where there is a style sheet, a label need not heed the font it is
/// given.
constexpr auto BoxStyle = "QDialogButtonBox { button-layout: 0; } QLabel#%1 { font-size: %2pt; }";

QMessageBox::StandardButtons StandardButtons(Buttons buttons) {
    switch (buttons) {
    case Buttons::Ok:
        return QMessageBox::Ok;
    case Buttons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case Buttons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    }
    return QMessageBox::Ok;
}

QMessageBox::StandardButton EscapeButton(Buttons buttons) {
    switch (buttons) {
    case Buttons::Ok:
        return QMessageBox::Ok;
    case Buttons::YesNo:
        return QMessageBox::No;
    case Buttons::YesNoCancel:
        return QMessageBox::Cancel;
    }
    return QMessageBox::Ok;
}

QMessageBox::StandardButton DefaultButton(const Message& message) {
    if (message.buttons == Buttons::Ok) {
        return QMessageBox::Ok;
    }
    return message.prefersNo ? QMessageBox::No : QMessageBox::Yes;
}

/// A message's lines end with a line feed on the screen, whatever ends them in the text.
QString BoxText(const std::string& text) {
    constexpr qsizetype LongWord = 60;
    const QString mayBreak(QChar(0x200B));
    QStringList words =
        QString::fromStdString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")).split(u' ');
    for (QString& word : words) {
        // The toolkit cuts off what is wider than the box: a long name may be wrapped anywhere.
        for (qsizetype place = LongWord; place < word.size(); place += LongWord + 1) {
            place += word[place].isLowSurrogate() ? 1 : 0;
            word.insert(place, mayBreak);
        }
    }
    return words.join(u' ');
}

/// Adds smaller lines below the text of a box. The toolkit makes the box no wider for them, so they get room
/// of their own.
void AddDetail(QMessageBox& box, const QString& text) {
    constexpr int Widest = 480;
    box.setInformativeText(text);
    auto* const label = box.findChild<QLabel*>(DetailName);
    label->setTextFormat(Qt::PlainText);
    label->ensurePolished();
    const QMargins around = label->contentsMargins();
    const int lines = label->fontMetrics().size(0, text).width() + around.left() + around.right();
    auto& rows = dynamic_cast<QGridLayout&>(*box.layout());
    const int column = rows.columnCount() - 1;
    rows.addItem(new QSpacerItem(std::min(lines, Widest), 0), rows.rowCount(), column);
}

/// The window that a dialog belongs to. Between two dialogs the window manager has not yet given the keyboard
/// back, and no window is active: a dialog without a parent would then come up anywhere, even behind.
QWidget* Parent() {
    if (QWidget* modal = QApplication::activeModalWidget(); modal != nullptr) {
        return modal;
    }
    if (QWidget* active = QApplication::activeWindow(); active != nullptr) {
        return active;
    }
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->windowType() == Qt::Window) {
            return window;
        }
    }
    return nullptr;
}

} // namespace

Answer QtDialogs::box(const Message& message) {
    QMessageBox box(Parent());
    box.setStyleSheet(QString::fromLatin1(BoxStyle).arg(DetailName).arg(SmallPrintSize(box)));
    box.setWindowTitle(QString::fromLatin1(BoxTitle));
    box.setIcon(message.icon == Icon::Exclamation ? QMessageBox::Warning : QMessageBox::NoIcon);
    // A path in the text may look like markup.
    box.setTextFormat(Qt::PlainText);
    box.setText(BoxText(message.text));
    if (!message.detail.empty()) {
        AddDetail(box, BoxText(message.detail));
    }
    box.setStandardButtons(StandardButtons(message.buttons));
    box.setDefaultButton(DefaultButton(message));
    box.setEscapeButton(EscapeButton(message.buttons));
    switch (box.exec()) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    case QMessageBox::Cancel:
        return Answer::Cancel;
    default:
        return Answer::Ok;
    }
}

std::optional<Path> QtDialogs::chooseFile(const FileDialogRequest& request, QFileDialog::AcceptMode mode) {
    const std::vector<NamedFolder> offered = m_offered ? m_offered() : std::vector<NamedFolder>();
    FileChooser chooser(request, mode, m_folders, offered, Parent());
    chooser.showHidden(m_showsHidden);
    const bool isChosen = chooser.exec() == QDialog::Accepted;
    m_showsHidden = chooser.showsHidden();
    if (!isChosen) {
        return {};
    }
    const Path chosen = chooser.chosenPath();
    m_folders.add(chosen.parent_path());
    return chosen;
}

std::optional<Path> QtDialogs::chooseFileToOpen(const FileDialogRequest& request) {
    return chooseFile(request, QFileDialog::AcceptOpen);
}

std::optional<Path> QtDialogs::chooseFileToSave(const FileDialogRequest& request) {
    return chooseFile(request, QFileDialog::AcceptSave);
}

std::optional<Pixel> QtDialogs::chooseColour(Pixel initial) {
    QColorDialog dialog(QColor(initial | OpaqueBlack), Parent());
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    if (dialog.exec() != QDialog::Accepted) {
        return {};
    }
    const QColor chosen = dialog.selectedColor();
    return OpaquePixel(
        static_cast<unsigned>(chosen.red()), static_cast<unsigned>(chosen.green()),
        static_cast<unsigned>(chosen.blue()));
}

void QtDialogs::follow(const std::string& text, int steps, const std::function<void(const GoesOn&)>& work) {
    constexpr int Patience = 500; // milliseconds
    QProgressDialog dialog(Parent());
    dialog.setWindowTitle(QString::fromLatin1(BoxTitle));
    dialog.setLabelText(QString::fromStdString(text));
    dialog.setModal(true);
    dialog.setMinimumDuration(Patience);
    dialog.setRange(0, steps);
    dialog.setValue(0);
    work([&dialog](int done) {
        dialog.setValue(done);
        return !dialog.wasCanceled();
    });
}

} // namespace ui::qt
