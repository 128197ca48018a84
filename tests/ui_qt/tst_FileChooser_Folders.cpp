// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "FileDialogs.h"
#include "ModalDialogs.h"
#include "support/Hide.h"
#include "support/MemorySettings.h"
#include "ui/qt/QtDialogs.h"
#include "ui/qt/Text.h"

#include <QCheckBox>
#include <QListView>
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
        folder = ui::qt::ToPath(dialog.directory().absolutePath());
        dialog.reject();
    });
    (void)dialogs.chooseFileToOpen(request);
    return folder;
}

void Choose(QtDialogs& dialogs, const ui::Path& file) {
    WhenShown<QFileDialog> shown(
        [&](QFileDialog& dialog) { TypeName(dialog, QString::fromStdString(ui::PathText(file))); });
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
        return QUrl::fromLocalFile(QString::fromStdString(ui::PathText(file.parent_path())));
    };
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.sidebarUrls(), before + QList<QUrl>({url(second), url(first)}));
        dialog.reject();
    });
    QtDialogs next(store);
    (void)next.chooseFileToOpen(NameRequest(folder));
    EXPECT_EQ(QFileDialog().sidebarUrls(), before) << "other programs are not bothered";
}

/// The texts of the places at a dialog's side.
QStringList Places(const QFileDialog& dialog) {
    const auto* list = dialog.findChild<QListView*>(QStringLiteral("sidebar"));
    QStringList texts;
    for (int row = 0; row < list->model()->rowCount(); ++row) {
        texts << list->model()->index(row, 0).data().toString();
    }
    return texts;
}

TEST(FileDialogFolders, OffersFoldersByTheirNamesWhenItOpens) {
    const QList<QUrl> before = QFileDialog().sidebarUrls();
    const TempFolder folder;
    const ui::Path quake = folder.put(".quakespasm/id1/config.cfg", "").parent_path();
    const ui::Path quake2 = folder.put(".yq2/baseq2/config.cfg", "").parent_path();
    support::Hide(folder / ".quakespasm");
    support::Hide(folder / ".yq2");
    support::MemorySettings store;
    int asked = 0;
    QtDialogs dialogs(store, [&] {
        ++asked;
        return std::vector<ui::NamedFolder>{
            {quake2, "Yamagi Quake II"}, {folder / "nowhere", "None"}, {quake, "QuakeSpasm"}};
    });
    EXPECT_EQ(asked, 0);
    Choose(dialogs, folder.put("other/a.vtn", ""));
    Choose(dialogs, quake / "config.cfg");
    EXPECT_EQ(asked, 2);
    const QStringList names{
        QStringLiteral("Yamagi Quake II"), QStringLiteral("QuakeSpasm"), QStringLiteral("other")};
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        EXPECT_EQ(ui::qt::ToPath(dialog.directory().absolutePath()), folder.path());
        EXPECT_EQ(Places(dialog).mid(before.size()), names);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Listed(dialog) == QStringList{QStringLiteral("other")}; }));
        const auto* bar = dialog.findChild<QListView*>(QStringLiteral("sidebar"));
        EXPECT_GE(bar->viewport()->width(), bar->sizeHintForColumn(0));
        auto& places = *bar->model();
        places.setData(places.index(places.rowCount() - 2, 0), QStringLiteral("id1"));
        EXPECT_EQ(Places(dialog).mid(before.size()), names) << "though the toolkit has looked at it again";
        dialog.reject();
    });
    (void)dialogs.chooseFileToOpen(NameRequest(folder));
    EXPECT_EQ(QFileDialog().sidebarUrls(), before) << "other programs are not bothered";
}

TEST(FileDialogFolders, ShowsHiddenFoldersOnDemandAndGoesOnDoingSo) {
    const TempFolder folder;
    folder.put(".quakespasm/id1/a.vtn", "");
    support::Hide(folder / ".quakespasm");
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
