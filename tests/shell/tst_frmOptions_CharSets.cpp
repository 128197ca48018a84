// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/OptionsDialog.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include <filesystem>

namespace {

using Step = support::FailingFiles::Step;

class OptionsCharSets : public OptionsDialog {
protected:
    /// Opens the dialog on the page of the character sets.
    QListWidget& openList() {
        open();
        showPage(3);
        return *find<QListWidget>("GridList");
    }

    static void click(const QListWidget& list, int row) {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(row)).center());
    }

    /// The picture of the glyphs that the list shows.
    [[nodiscard]] const ui::Picture& shownGrid() {
        return *find<ui::qt::PictureWidget>("ImgGrid")->picture();
    }

    /// The rows that the list highlights.
    static std::vector<int> highlighted(const QListWidget& list) {
        std::vector<int> rows;
        for (const auto* const item : list.selectedItems()) {
            rows.push_back(list.row(item));
        }
        return rows;
    }

    /// Lets the dialog say that a set cannot be read, and waits until it has.
    void waitForWarning() {
        EXPECT_TRUE(QTest::qWaitFor([this] { return fake.dialogs.left() == 0; }));
        QCoreApplication::processEvents();
    }
};

} // namespace

TEST_F(OptionsCharSets, TheListShowsAllSetsAndTheOneInUse) {
    const auto names = glyphs::LoadCharSetNames(fake.files, fake.directory);
    putAddress(1, "mailto:steel@example.org");
    useCharSet(1);
    auto* const list = &openList();
    ASSERT_EQ(list->count(), static_cast<int>(names.size()));
    for (int i = 0; i < list->count(); ++i) {
        EXPECT_EQ(list->item(i)->text().toLatin1().toStdString(), names[static_cast<std::size_t>(i)]);
        EXPECT_EQ(list->item(i)->text().size(), 50);
    }
    EXPECT_EQ(list->currentRow(), 1);
    EXPECT_EQ(highlighted(*list), std::vector<int>{1});
    EXPECT_EQ(shownGrid(), gridOf(1, settings.colours[0]));
    EXPECT_EQ(find<QWidget>("ImgGrid")->size(), QSize(256, 256));
    const QString address = QStringLiteral("mailto:steel@example.org");
    EXPECT_EQ(find<QLabel>("lblWebAddress")->text(), address);
    EXPECT_EQ(find<QLabel>("lblWebAddress")->toolTip(), address);
    EXPECT_TRUE(find<QPushButton>("cmdGotoTc")->isEnabled());
    EXPECT_EQ(changedPages(), "");
}

TEST_F(OptionsCharSets, AChosenSetIsPreviewedAndInUseOnlyAfterOk) {
    const QListWidget& list = openList();
    ASSERT_GE(list.count(), 2);
    click(list, 1);
    EXPECT_EQ(changedPages(), "3");
    const auto expected = glyphs::LoadCharSet(fake.files, fake.directory, 2);
    ASSERT_TRUE(expected);
    EXPECT_EQ(shownGrid(), gridOf(1, settings.colours[0]));
    EXPECT_EQ(settings.charSet, 0);
    EXPECT_EQ(charSet.listIndex, 0);
    press("cmdOK");
    EXPECT_EQ(apply(), (shell::AppliedOptions{false, false, true, false}));
    EXPECT_EQ(settings.charSet, 1);
    EXPECT_EQ(charSet, expected.value().record);
}

TEST_F(OptionsCharSets, TheArrowKeysChooseASetToo) {
    open();
    showPage(3);
    QTest::keyClick(find<QListWidget>("GridList"), Qt::Key_Down);
    EXPECT_EQ(changedPages(), "3");
    EXPECT_EQ(dialog->model().settings().charSet, 1);
}

TEST_F(OptionsCharSets, ThePreviewFollowsANewBackground) {
    open();
    fake.dialogs.expectColour(ui::OpaquePixel(0, 0, 0), ui::OpaquePixel(9, 8, 7));
    showPage(1);
    press("picColor_0");
    EXPECT_EQ(shownGrid(), gridOf(0, ui::OpaquePixel(9, 8, 7)));
    EXPECT_EQ(changedPages(), "1");
}

TEST_F(OptionsCharSets, ASetThatCannotBeLoadedIsReportedOnceAndTheOldOneStays) {
    for (const bool withTheMouse : {false, true}) {
        QListWidget& list = openList();
        const ui::Picture before = shownGrid();
        fake.directory.files.put("vtmgrid.dat", "");
        const auto failure = glyphs::LoadCharSet(fake.files, fake.directory, 2);
        ASSERT_FALSE(failure);
        fake.dialogs.expectWarning(
            "The character set \"Quake2 Steel\" cannot be read, so \"Classic Stone\" stays chosen.\n\n" +
            failure.failure().message);
        if (withTheMouse) {
            click(list, 1);
        } else {
            QTest::keyClick(&list, Qt::Key_Down);
        }
        waitForWarning();
        EXPECT_EQ(list.currentRow(), 0);
        EXPECT_EQ(highlighted(list), std::vector<int>{0});
        EXPECT_EQ(changedPages(), "");
        EXPECT_EQ(shownGrid(), before);
    }
}

TEST_F(OptionsCharSets, ASetThatCannotBeLoadedLeavesTheOneThatWasChosenBefore) {
    fake.directory.files.put(
        "vtmtc.dat",
        fake.directory.files.content("vtmtc.dat") + glyphs::EncodeCharSetRecord({.artworkSlot = 999}));
    QListWidget& list = openList();
    click(list, 1);
    const auto failure = glyphs::LoadCharSet(fake.files, fake.directory, list.count());
    ASSERT_FALSE(failure);
    fake.dialogs.expectWarning(
        "The character set \"\" cannot be read, so \"Quake2 Steel\" stays chosen.\n\n" +
        failure.failure().message);
    click(list, list.count() - 1);
    waitForWarning();
    EXPECT_EQ(highlighted(list), std::vector<int>{1});
    EXPECT_EQ(shownGrid(), gridOf(1, settings.colours[0]));
    EXPECT_EQ(dialog->model().settings().charSet, 1);
}

TEST_F(OptionsCharSets, TheSetInUseIsShownWhenItsFileIsGone) {
    useCharSet(1);
    const ui::Picture inUse = gridOf(1, settings.colours[0]);
    std::filesystem::remove(fake.directory.files / "vtmgrid.dat");
    QListWidget& list = openList();
    // Getting the keyboard back from a message must not choose anything either.
    list.clearFocus();
    list.setFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(highlighted(list), std::vector<int>{1});
    EXPECT_EQ(shownGrid(), inUse);
    EXPECT_TRUE(fake.dialogs.calls().empty());
    fake.dialogs.expectWarning(
        "The character set \"Classic Stone\" cannot be read, so \"Quake2 Steel\" stays chosen.\n\n" +
        glyphs::LoadCharSet(fake.files, fake.directory, 1).failure().message);
    click(list, 0);
    waitForWarning();
    list.clearFocus();
    list.setFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(highlighted(list), std::vector<int>{1});
    EXPECT_EQ(fake.dialogs.calls().size(), 1U);
    EXPECT_EQ(changedPages(), "");
}

TEST_F(OptionsCharSets, AClickBelowTheListLeavesTheHighlight) {
    const QListWidget& list = openList();
    click(list, 1);
    QTest::mouseClick(
        list.viewport(), Qt::LeftButton, {},
        QPoint(5, list.visualItemRect(list.item(list.count() - 1)).bottom() + 9));
    EXPECT_EQ(highlighted(list), std::vector<int>{1});
}

TEST_F(OptionsCharSets, ANewBackgroundReadsNoFile) {
    open();
    const int read = fake.files.count(Step::Read);
    fake.dialogs.expectColour(settings.colours[0], ui::OpaquePixel(1, 2, 3));
    showPage(1);
    press("picColor_0");
    EXPECT_EQ(fake.files.count(Step::Read), read);
}

TEST_F(OptionsCharSets, ASetOutsideTheListShowsTheFirst) {
    settings.charSet = 99;
    open();
    EXPECT_EQ(find<QListWidget>("GridList")->currentRow(), 0);
    EXPECT_EQ(changedPages(), "");
}

TEST_F(OptionsCharSets, WithoutAListTheAddressKeepsItsOwnTooltip) {
    fake.directory.files.put("vtmtc.dat", "");
    open();
    EXPECT_EQ(find<QListWidget>("GridList")->count(), 0);
    EXPECT_EQ(find<QLabel>("lblWebAddress")->text(), "");
    EXPECT_EQ(find<QLabel>("lblWebAddress")->toolTip(), "The conversions website");
    EXPECT_FALSE(find<QPushButton>("cmdGotoTc")->isEnabled());
}

TEST_F(OptionsCharSets, TheWebsiteOfTheShownSetIsOpened) {
    putAddress(1, "https://example.org/sets?game=1");
    QListWidget& list = openList();
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(find<QLabel>("lblWebAddress")->text(), "https://example.org/sets?game=1");
    press("cmdGotoTc");
    ASSERT_EQ(fake.launcher.launches.size(), 1U);
    EXPECT_EQ(fake.launcher.launches[0].address, "https://example.org/sets?game=1");
    EXPECT_TRUE(dialog->isVisible());
    fake.launcher.finish(33);
}

TEST_F(OptionsCharSets, AnAddressThatIsNoneOfTheWebIsShownAndNotOpened) {
    for (const char* const address :
         {"-version", "/bin/sh", "file:///etc/passwd", "javascript:alert(1)", "www.example.org", ""}) {
        putAddress(1, address);
        QListWidget& list = openList();
        click(list, 1);
        EXPECT_EQ(find<QLabel>("lblWebAddress")->text(), QLatin1String(address));
        EXPECT_FALSE(find<QPushButton>("cmdGotoTc")->isEnabled()) << address;
        press("cmdGotoTc");
        EXPECT_TRUE(fake.launcher.launches.empty()) << address;
    }
}
