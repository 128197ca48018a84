// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/TempProgramDirectory.h"
#include "ui/Dialogs.h"

#include <QAbstractButton>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

/// Working the toolkit's file dialog.
namespace modal {

inline ui::FileDialogRequest NameRequest(const support::TempFolder& folder) {
    ui::FileDialogRequest request;
    request.title = "Save as a Script File";
    request.initialName = "*.vtn";
    request.filters = {{"VTM Name Script (*.vtn;*.scr)", {"*.vtn", "*.scr"}}};
    request.folder = folder.path();
    request.extension = ".vtn";
    return request;
}

inline QLineEdit* NameEdit(const QFileDialog& dialog) {
    return dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
}

inline void TypeName(const QFileDialog& dialog, const QString& text) {
    QLineEdit* edit = NameEdit(dialog);
    edit->selectAll();
    QTest::keyClicks(edit, text);
    QTest::keyClick(edit, Qt::Key_Return);
}

/// The names that the dialog lists.
inline QStringList Listed(const QFileDialog& dialog) {
    const auto* list = dialog.findChild<QListView*>(QStringLiteral("listView"));
    QStringList names;
    for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row) {
        names << list->model()->index(row, 0, list->rootIndex()).data().toString();
    }
    names.sort();
    return names;
}

/// The box over a file dialog.
inline QMessageBox* BoxOver(const QFileDialog& dialog) {
    return dialog.findChild<QMessageBox*>();
}

/// Answers the question that comes over a dialog.
inline void AnswerBoxOver(QFileDialog& dialog, QMessageBox::StandardButton answer) {
    auto* timer = new QTimer(&dialog);
    QObject::connect(timer, &QTimer::timeout, &dialog, [&dialog, timer, answer] {
        if (QMessageBox* box = BoxOver(dialog); box != nullptr && box->isVisible()) {
            timer->deleteLater();
            box->button(answer)->click();
        }
    });
    timer->start(1);
}

} // namespace modal
