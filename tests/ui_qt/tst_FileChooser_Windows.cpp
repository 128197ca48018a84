// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "FileDialogs.h"
#include "ModalDialogs.h"
#include "ui/qt/QtDialogs.h"

#include <gtest/gtest.h>

namespace {

using modal::Listed;
using modal::NameEdit;
using modal::NameRequest;
using modal::TypeName;
using modal::WhenShown;
using support::TempFolder;
using ui::qt::QtDialogs;

TEST(WindowsFileDialog, TakesBackslashesBetweenFolders) {
    const TempFolder folder;
    const ui::Path file = folder.put("inner/deep/a.cfg", "");
    folder.put("inner/deep/b.vtn", "");
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        TypeName(dialog, QStringLiteral("inner\\deep\\*.cfg"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return Listed(dialog) == QStringList{QStringLiteral("a.cfg")}; }));
        EXPECT_EQ(NameEdit(dialog)->text(), QStringLiteral("*.cfg"));
        TypeName(dialog, QStringLiteral("a.cfg"));
    });
    EXPECT_EQ(QtDialogs().chooseFileToOpen(NameRequest(folder)), file);
}

TEST(WindowsFileDialog, LeavesANameWithDoubleQuotesToTheSystem) {
    const TempFolder folder;
    folder.put("y.vtn", "");
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) { TypeName(dialog, QStringLiteral("\"y.vtn\"")); });
    EXPECT_EQ(QtDialogs().chooseFileToSave(NameRequest(folder)), folder / "\"y.vtn\"")
        << "which refuses it when it is to be written";
}

} // namespace
