// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "FileDialogs.h"
#include "ModalDialogs.h"
#include "support/TempProgramDirectory.h"
#include "ui/qt/QtDialogs.h"
#include "ui/qt/Text.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <filesystem>
#include <gtest/gtest.h>

namespace {

using modal::AnswerBoxOver;
using modal::Listed;
using modal::NameEdit;
using modal::NameRequest;
using modal::PressKey;
using modal::TypeName;
using modal::WhenShown;
using support::TempFolder;
using ui::qt::QtDialogs;

TEST(FileDialog, OpensWithTheNameSelectedAndTheFilterAsGiven) {
    const TempFolder folder;
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Save as a Script File"));
        EXPECT_TRUE(dialog.isModal());
        EXPECT_EQ(NameEdit(dialog)->text(), QStringLiteral("*.vtn"));
        EXPECT_EQ(NameEdit(dialog)->selectedText(), QStringLiteral("*.vtn"));
        EXPECT_TRUE(NameEdit(dialog)->hasFocus());
        const auto* types = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        ASSERT_EQ(types->count(), 1);
        EXPECT_EQ(types->itemText(0), QStringLiteral("VTM Name Script (*.vtn;*.scr)"));
        EXPECT_EQ(ui::qt::ToPath(dialog.directory().absolutePath()), folder.path());
        dialog.reject();
    });
    EXPECT_EQ(QtDialogs().chooseFileToSave(NameRequest(folder)), std::nullopt);
}

TEST(FileDialog, OpensWithTheSameWhenAFileIsToBeOpened) {
    const TempFolder folder;
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        EXPECT_EQ(NameEdit(dialog)->text(), QStringLiteral("*.vtn"));
        EXPECT_EQ(NameEdit(dialog)->selectedText(), QStringLiteral("*.vtn"));
        EXPECT_TRUE(NameEdit(dialog)->hasFocus());
        PressKey(dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(QtDialogs().chooseFileToOpen(NameRequest(folder)), std::nullopt);
}

TEST(FileDialog, KeepsTheToolkitsTitleWhenNoneIsGiven) {
    const TempFolder folder;
    auto request = NameRequest(folder);
    request.title.clear();
    {
        WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Save As"));
            dialog.reject();
        });
        (void)QtDialogs().chooseFileToSave(request);
    }
    {
        WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Open"));
            dialog.reject();
        });
        (void)QtDialogs().chooseFileToOpen(request);
    }
}

TEST(FileDialog, OffersSeveralKindsOfFiles) {
    const TempFolder folder;
    auto request = NameRequest(folder);
    request.filters = {
        {"VTM Name Script (*.vtn)", {"*.vtn"}},
        {"Script File (*.scr)", {"*.scr"}},
        {"VTM Animation Script (*.vta)", {"*.vta"}},
        {"VTM Message Script (*.vtm)", {"*.vtm"}}};
    folder.put("a.vtn", "");
    folder.put("b.scr", "");
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        auto* types = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        ASSERT_EQ(types->count(), 4);
        EXPECT_EQ(types->itemText(0), QStringLiteral("VTM Name Script (*.vtn)"));
        EXPECT_EQ(types->itemText(3), QStringLiteral("VTM Message Script (*.vtm)"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return Listed(dialog) == QStringList{QStringLiteral("a.vtn")}; }));
        types->setFocus();
        QTest::keyClick(types, Qt::Key_Down);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Listed(dialog) == QStringList{QStringLiteral("b.scr")}; }));
        dialog.reject();
    });
    (void)QtDialogs().chooseFileToOpen(request);
}

TEST(FileDialog, ListsFilesWhateverTheCaseOfTheirExtension) {
    const TempFolder folder;
    folder.put("small.vtn", "");
    folder.put("LARGE.VTN", "");
    folder.put("mixed.Scr", "");
    folder.put("other.cfg", "");
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        const QStringList expected{
            QStringLiteral("LARGE.VTN"), QStringLiteral("mixed.Scr"), QStringLiteral("small.vtn")};
        EXPECT_TRUE(QTest::qWaitFor([&] { return Listed(dialog) == expected; })) << Listed(dialog).size();
        dialog.reject();
    });
    (void)QtDialogs().chooseFileToOpen(NameRequest(folder));
}

TEST(FileDialog, ReturnsTheFileThatIsTyped) {
    const TempFolder folder;
    folder.put("there.vtn", "");
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) { TypeName(dialog, QStringLiteral("there.vtn")); });
    EXPECT_EQ(QtDialogs().chooseFileToOpen(NameRequest(folder)), folder / "there.vtn");
}

TEST(FileDialog, ReturnsAFileWithoutExtensionAsItIsWhenOpening) {
    const TempFolder folder;
    folder.put("there", "");
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) { TypeName(dialog, QStringLiteral("there")); });
    EXPECT_EQ(QtDialogs().chooseFileToOpen(NameRequest(folder)), folder / "there");
}

TEST(FileDialog, AddsTheExtensionThatWasNotTyped) {
    const TempFolder folder;
    {
        WhenShown<QFileDialog> shown(
            [&](QFileDialog& dialog) { TypeName(dialog, QStringLiteral("my name")); });
        EXPECT_EQ(QtDialogs().chooseFileToSave(NameRequest(folder)), folder / "my name.vtn");
    }
    {
        WhenShown<QFileDialog> shown([&](QFileDialog& dialog) { TypeName(dialog, QStringLiteral("a.scr")); });
        EXPECT_EQ(QtDialogs().chooseFileToSave(NameRequest(folder)), folder / "a.scr");
    }
    {
        auto request = NameRequest(folder);
        request.extension.clear();
        WhenShown<QFileDialog> shown([&](QFileDialog& dialog) { TypeName(dialog, QStringLiteral("bare")); });
        EXPECT_EQ(QtDialogs().chooseFileToSave(request), folder / "bare");
    }
}

TEST(FileDialog, ReturnsNamesThatAreNotAscii) {
    const TempFolder folder;
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        NameEdit(dialog)->setText(QString::fromUtf8("Gr\xC3\xBC\xC3\x9F"
                                                    "e % $.vtn"));
        QTest::keyClick(NameEdit(dialog), Qt::Key_Return);
    });
    EXPECT_EQ(
        QtDialogs().chooseFileToSave(NameRequest(folder)), folder / ui::PathFromText("Gr\xC3\xBC\xC3\x9F"
                                                                                     "e % $.vtn"));
}

TEST(FileDialog, AsksBeforeAFileIsReplaced) {
    const TempFolder folder;
    folder.put("there.vtn", "old");
    {
        WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
            AnswerBoxOver(dialog, QMessageBox::Yes);
            TypeName(dialog, QStringLiteral("there.vtn"));
        });
        EXPECT_EQ(QtDialogs().chooseFileToSave(NameRequest(folder)), folder / "there.vtn");
    }
    {
        WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
            AnswerBoxOver(dialog, QMessageBox::No);
            TypeName(dialog, QStringLiteral("there"));
            EXPECT_TRUE(dialog.isVisible());
            TypeName(dialog, QStringLiteral("new"));
        });
        EXPECT_EQ(QtDialogs().chooseFileToSave(NameRequest(folder)), folder / "new.vtn");
    }
}

TEST(FileDialog, AddsAnExtensionThatIsNeededToAnyOther) {
    const TempFolder folder;
    folder.put("there.png", "");
    const ui::Path old = folder.put("there.png.vtn", "old");
    auto request = NameRequest(folder);
    request.needsExtension = true;
    for (const auto& [typed, chosen] :
         {std::pair("e.png", "e.png.vtn"), std::pair("e", "e.vtn"), std::pair("v1.2", "v1.2.vtn"),
          std::pair("e.vtn", "e.vtn"), std::pair("e.VTN", "e.VTN")}) {
        WhenShown<QFileDialog> shown(
            [&, name = typed](QFileDialog& dialog) { TypeName(dialog, QLatin1String(name)); });
        EXPECT_EQ(QtDialogs().chooseFileToSave(request), folder / chosen);
    }
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        AnswerBoxOver(dialog, QMessageBox::Yes);
        TypeName(dialog, QStringLiteral("there.png"));
    });
    EXPECT_EQ(QtDialogs().chooseFileToSave(request), old) << "it is asked about";
}

TEST(FileDialog, StaysWhenAFileWithDoubleQuotesInItsNameIsMissing) {
    const TempFolder folder;
    folder.put("y.vtn", "another file");
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        AnswerBoxOver(dialog, QMessageBox::Ok);
        TypeName(dialog, QStringLiteral("x\"y.vtn"));
        EXPECT_TRUE(dialog.isVisible());
        dialog.reject();
    });
    EXPECT_EQ(QtDialogs().chooseFileToOpen(NameRequest(folder)), std::nullopt);
}

TEST(FileDialog, AsksNothingWhereTheFileIsAlteredOnly) {
    const TempFolder folder;
    folder.put("autoexec.cfg", "old");
    auto request = NameRequest(folder);
    request.asksToOverwrite = false;
    WhenShown<QFileDialog> shown(
        [&](QFileDialog& dialog) { TypeName(dialog, QStringLiteral("autoexec.cfg")); });
    EXPECT_EQ(QtDialogs().chooseFileToSave(request), folder / "autoexec.cfg");
}

TEST(FileDialog, TellsWhatIsGoingToHappenToTheTypedFile) {
    const TempFolder folder;
    folder.put("inner/a.vtn", "");
    auto request = NameRequest(folder);
    request.forecast = [&folder](const ui::Path& path) {
        return std::filesystem::relative(path, folder.path()).generic_string() + " will be made";
    };
    request.advice = [](const ui::Path& path) {
        return path.extension() == ".scr" ? std::string("Better not") : std::string();
    };
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        const auto* line = dialog.findChild<QLabel*>(QStringLiteral("lblForecast"));
        const auto* advice = dialog.findChild<QLabel*>(QStringLiteral("lblAdvice"));
        EXPECT_TRUE(line->isVisible());
        EXPECT_LT(advice->font().pointSizeF(), line->font().pointSizeF());
        EXPECT_EQ(line->text().trimmed(), QString()) << "a pattern is no file";
        const auto tells = [&](const char* typed, const char* told) {
            NameEdit(dialog)->selectAll();
            QTest::keyClicks(NameEdit(dialog), QLatin1String(typed));
            EXPECT_TRUE(QTest::qWaitFor([&] { return line->text().trimmed() == QLatin1String(told); }))
                << typed << ": " << line->text().toStdString();
        };
        tells("new", "new.vtn will be made");
        tells("in", "in.vtn will be made");
        tells("inner", "");
        tells("inner/a.vtn", "inner/a.vtn will be made");
        EXPECT_EQ(advice->text().trimmed(), QString());
        tells("x\"y.scr", "x\"y.scr will be made");
        EXPECT_EQ(advice->text(), QStringLiteral("Better not"));
        tells("*.vtn", "");
        dialog.reject();
    });
    EXPECT_EQ(QtDialogs().chooseFileToSave(request), std::nullopt);
}

TEST(FileDialog, TellsNothingWhereThereIsNothingToTell) {
    const TempFolder folder;
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QLabel*>(QStringLiteral("lblForecast")), nullptr);
        EXPECT_EQ(dialog.findChild<QLabel*>(QStringLiteral("lblAdvice")), nullptr);
        dialog.reject();
    });
    EXPECT_EQ(QtDialogs().chooseFileToSave(NameRequest(folder)), std::nullopt);
}

TEST(FileDialog, TakesANameWithWildcardsAsAFilter) {
    const TempFolder folder;
    folder.put("a.vtn", "");
    folder.put("b.cfg", "");
    folder.put("c.CFG", "");
    for (const bool saves : {true, false}) {
        WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
            QTest::keyClick(NameEdit(dialog), Qt::Key_Return);
            EXPECT_TRUE(dialog.isVisible()) << "the initial name is not a file";
            TypeName(dialog, QStringLiteral("*.cfg"));
            EXPECT_TRUE(dialog.isVisible());
            const QStringList expected{QStringLiteral("b.cfg"), QStringLiteral("c.CFG")};
            EXPECT_TRUE(QTest::qWaitFor([&] { return Listed(dialog) == expected; }));
            EXPECT_EQ(NameEdit(dialog)->selectedText(), QStringLiteral("*.cfg"));
            TypeName(dialog, QStringLiteral("?.vtn;b*"));
            EXPECT_TRUE(dialog.isVisible());
            const QStringList others{QStringLiteral("a.vtn"), QStringLiteral("b.cfg")};
            EXPECT_TRUE(QTest::qWaitFor([&] { return Listed(dialog) == others; }));
            dialog.reject();
        });
        const auto request = NameRequest(folder);
        EXPECT_EQ(
            saves ? QtDialogs().chooseFileToSave(request) : QtDialogs().chooseFileToOpen(request),
            std::nullopt);
    }
}

TEST(FileDialog, ListsAnotherFolderByAPattern) {
    const TempFolder folder;
    folder.put("inner/a.cfg", "");
    folder.put("inner/b.vtn", "");
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        TypeName(dialog, QStringLiteral("inner/*.cfg"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return Listed(dialog) == QStringList{QStringLiteral("a.cfg")}; }));
        EXPECT_EQ(NameEdit(dialog)->text(), QStringLiteral("*.cfg"));
        TypeName(dialog, QStringLiteral("a.cfg"));
    });
    EXPECT_EQ(QtDialogs().chooseFileToOpen(NameRequest(folder)), folder / "inner/a.cfg");
}

TEST(FileDialog, StaysWhenTheFileToOpenIsMissing) {
    const TempFolder folder;
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        AnswerBoxOver(dialog, QMessageBox::Ok);
        TypeName(dialog, QStringLiteral("missing.vtn"));
        EXPECT_TRUE(dialog.isVisible());
        dialog.reject();
    });
    EXPECT_EQ(QtDialogs().chooseFileToOpen(NameRequest(folder)), std::nullopt);
}

} // namespace
