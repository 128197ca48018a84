// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "FileDialogs.h"
#include "ModalDialogs.h"
#include "support/MemorySettings.h"
#include "ui/qt/QtDialogs.h"

#include <QCheckBox>
#include <QTest>
#include <QUrl>
#include <filesystem>
#include <gtest/gtest.h>

namespace {

using modal::Listed;
using modal::NameRequest;
using modal::TypeName;
using modal::WhenShown;
using support::TempFolder;
using ui::qt::QtDialogs;

/// A request that says nothing about the folder.
ui::FileDialogRequest AnywhereRequest() {
    ui::FileDialogRequest request;
    request.initialName = "*.vtn";
    request.filters = {{"All", {"*"}}};
    return request;
}

/// The folder that a dialog starts in.
ui::Path StartOf(QtDialogs& dialogs, const ui::FileDialogRequest& request) {
    ui::Path folder;
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        folder = dialog.directory().absolutePath().toStdString();
        dialog.reject();
    });
    (void)dialogs.chooseFileToOpen(request);
    return folder;
}

void Choose(QtDialogs& dialogs, const ui::Path& file) {
    WhenShown<QFileDialog> shown(
        [&](QFileDialog& dialog) { TypeName(dialog, QString::fromStdString(file.native())); });
    EXPECT_EQ(dialogs.chooseFileToOpen(AnywhereRequest()), file);
}

TEST(FileDialogFolders, StartsWhereTheLastOneEnded) {
    const TempFolder folder;
    const ui::Path file = folder.put("inner/a.vtn", "");
    QtDialogs dialogs;
    EXPECT_EQ(StartOf(dialogs, AnywhereRequest()), std::filesystem::current_path());
    Choose(dialogs, file);
    EXPECT_EQ(StartOf(dialogs, AnywhereRequest()), file.parent_path());
    EXPECT_EQ(StartOf(dialogs, NameRequest(folder)), folder.path()) << "a folder that is asked for counts";
    EXPECT_EQ(StartOf(dialogs, AnywhereRequest()), file.parent_path())
        << "a cancelled dialog changes nothing";
    std::filesystem::remove_all(file.parent_path());
    EXPECT_EQ(StartOf(dialogs, AnywhereRequest()), std::filesystem::current_path());
}

TEST(FileDialogFolders, OffersTheLastFoldersAtItsSide) {
    const QList<QUrl> before = QFileDialog().sidebarUrls();
    const TempFolder folder;
    const ui::Path first = folder.put("one/a.vtn", "");
    const ui::Path second = folder.put("two/a.vtn", "");
    support::MemorySettings store;
    {
        QtDialogs dialogs(store);
        Choose(dialogs, first);
        Choose(dialogs, second);
    }
    const auto url = [](const ui::Path& file) {
        return QUrl::fromLocalFile(QString::fromStdString(file.parent_path().native()));
    };
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.sidebarUrls(), before + QList<QUrl>({url(second), url(first)}));
        dialog.reject();
    });
    QtDialogs next(store);
    (void)next.chooseFileToOpen(NameRequest(folder));
    EXPECT_EQ(QFileDialog().sidebarUrls(), before) << "other programs are not bothered";
}

TEST(FileDialogFolders, ShowsHiddenFoldersOnDemandAndGoesOnDoingSo) {
    const TempFolder folder;
    folder.put(".quakespasm/id1/a.vtn", "");
    folder.put("games/a.vtn", "");
    const QStringList all{QStringLiteral(".quakespasm"), QStringLiteral("games")};
    QtDialogs dialogs;
    for (const bool isFirst : {true, false}) {
        WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
            auto* box = dialog.findChild<QCheckBox*>(QStringLiteral("chkHidden"));
            EXPECT_EQ(box->isChecked(), !isFirst);
            if (isFirst) {
                EXPECT_TRUE(QTest::qWaitFor([&] { return Listed(dialog) == all.mid(1); }));
                QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
            }
            EXPECT_TRUE(QTest::qWaitFor([&] { return Listed(dialog) == all; }));
            dialog.reject();
        });
        (void)dialogs.chooseFileToOpen(NameRequest(folder));
    }
}

} // namespace
