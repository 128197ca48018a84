// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "FileDialogs.h"
#include "ModalDialogs.h"
#include "ui/qt/QtDialogs.h"
#include "ui/qt/Text.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <gtest/gtest.h>

namespace {

using modal::AnswerBoxOver;
using modal::Listed;
using modal::NameEdit;
using modal::NameRequest;
using modal::TypeName;
using modal::WhenShown;
using support::TempFolder;
using ui::qt::QtDialogs;

// Names that no file of Windows has.

TEST(PosixFileDialog, ReturnsTheNameThatIsTypedWithDoubleQuotesInIt) {
    const TempFolder folder;
    folder.put("y.vtn", "another file");
    folder.put("there\"y.vtn", "");
    for (const char* name : {"x\"y.vtn", "a\"y.vtn\"b.vtn", "\"y.vtn\""}) {
        WhenShown<QFileDialog> shown([&](QFileDialog& dialog) { TypeName(dialog, QLatin1String(name)); });
        auto request = NameRequest(folder);
        request.extension.clear();
        EXPECT_EQ(QtDialogs().chooseFileToSave(request), folder / name);
    }
    {
        WhenShown<QFileDialog> shown([&](QFileDialog& dialog) { TypeName(dialog, QStringLiteral("x\"y")); });
        EXPECT_EQ(QtDialogs().chooseFileToSave(NameRequest(folder)), folder / "x\"y.vtn");
    }
    {
        WhenShown<QFileDialog> shown(
            [&](QFileDialog& dialog) { TypeName(dialog, QStringLiteral("there\"y.vtn")); });
        EXPECT_EQ(QtDialogs().chooseFileToOpen(NameRequest(folder)), folder / "there\"y.vtn");
    }
}

TEST(PosixFileDialog, AsksBeforeAFileWithDoubleQuotesInItsNameIsReplaced) {
    const TempFolder folder;
    const ui::Path old = folder.put("x\"y.vtn", "old");
    for (const auto answer : {QMessageBox::Yes, QMessageBox::No}) {
        WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
            AnswerBoxOver(dialog, answer);
            TypeName(dialog, QStringLiteral("x\"y.vtn"));
            EXPECT_EQ(dialog.isVisible(), answer == QMessageBox::No);
            if (answer == QMessageBox::No) {
                dialog.reject();
            }
        });
        const auto chosen = QtDialogs().chooseFileToSave(NameRequest(folder));
        EXPECT_EQ(chosen, answer == QMessageBox::Yes ? std::optional(old) : std::nullopt);
    }
}

TEST(PosixFileDialog, GoesIntoAFolderWithDoubleQuotesInItsName) {
    const TempFolder folder;
    const ui::Path file = folder.put("in\"ner/z.vtn", "");
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        TypeName(dialog, QStringLiteral("in\"ner"));
        EXPECT_EQ(dialog.directory(), QDir(QString::fromStdString(ui::PathText(file.parent_path()))));
        TypeName(dialog, QStringLiteral("z.vtn"));
    });
    EXPECT_EQ(QtDialogs().chooseFileToOpen(NameRequest(folder)), file);
}

TEST(PosixFileDialog, ShowsANameWithDoubleQuotesAsOneFile) {
    const TempFolder folder;
    folder.put("x\"y.vtn", "");
    folder.put("y.vtn", "another file");
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        const auto* list = dialog.findChild<QListView*>(QStringLiteral("listView"));
        auto* button = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Listed(dialog).size() == 2; }));
        NameEdit(dialog)->selectAll();
        QTest::keyClicks(NameEdit(dialog), QStringLiteral("x\"y.vtn"));
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return button->isEnabled() && !list->selectionModel()->hasSelection(); }));
        QTest::mouseClick(button, Qt::LeftButton);
    });
    EXPECT_EQ(QtDialogs().chooseFileToOpen(NameRequest(folder)), folder / "x\"y.vtn");
}

} // namespace
