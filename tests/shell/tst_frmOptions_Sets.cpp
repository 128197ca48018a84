// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/OptionsDialog.h"

#include "glyphs/PngPicture.h"
#include "shell/frmNewCharSet.h"
#include "support/CharSetWorld.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>

namespace {

using support::SmallArtwork;

/// The page of the character sets, where sets are added and removed.
class OptionsSets : public OptionsDialog {
protected:
    void openPage() {
        open();
        showPage(3);
        activate(*dialog);
    }

    static void activate(QWidget& window) {
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitFor([&window] { return QApplication::activeWindow() == &window; }));
    }

    [[nodiscard]] QListWidget& list() { return *find<QListWidget>("GridList"); }

    [[nodiscard]] std::string rowText(int row) { return list().item(row)->text().trimmed().toStdString(); }

    [[nodiscard]] bool canRemove() { return find<QPushButton>("cmdRemoveSet")->isEnabled(); }

    [[nodiscard]] const ui::Picture& shownGrid() {
        return *find<ui::qt::PictureWidget>("ImgGrid")->picture();
    }

    void choose(int row) {
        QTest::mouseClick(
            list().viewport(), Qt::LeftButton, {}, list().visualItemRect(list().item(row)).center());
    }

    /// A picture file of a shade.
    [[nodiscard]] ui::Path picture(const char* name = "my own.png", unsigned shade = 9) const {
        return folder.put(name, glyphs::EncodePng(SmallArtwork(shade)).value());
    }

    static support::ExpectedFileDialog like(const ui::FileDialogRequest& request) {
        return {
            .title = request.title,
            .initialName = request.initialName,
            .filters = request.filters,
            .folder = request.folder};
    }

    /// Presses Add..., answers with a file, and works the window that opens.
    void add(const ui::Path& file, const std::function<void(shell::frmNewCharSet&)>& use) {
        fake.dialogs.expectOpen(like(shell::CharSetRequest()), file);
        bool used = false;
        QTimer::singleShot(0, dialog.get(), [&] {
            auto* const window = qobject_cast<shell::frmNewCharSet*>(QApplication::activeModalWidget());
            ASSERT_NE(window, nullptr);
            activate(*window);
            use(*window);
            used = true;
            if (window->isVisible()) {
                window->reject();
            }
        });
        press("cmdAddSet");
        EXPECT_TRUE(used);
    }

    template <class Widget>
    static Widget& in(const shell::frmNewCharSet& window, const char* name) {
        return *window.findChild<Widget*>(QString::fromLatin1(name));
    }

    static void store(const shell::frmNewCharSet& window) {
        QTest::mouseClick(&in<QPushButton>(window, "cmdStore"), Qt::LeftButton);
    }

    static bool canStore(const shell::frmNewCharSet& window) {
        return in<QPushButton>(window, "cmdStore").isEnabled();
    }

    static void retype(const shell::frmNewCharSet& window, const char* field, const char* text) {
        auto& edit = in<QLineEdit>(window, field);
        edit.selectAll();
        QTest::keyClick(&edit, Qt::Key_Backspace);
        QTest::keyClicks(&edit, QLatin1String(text));
    }

    /// Adds a picture under the name that is suggested.
    void addPicture(const char* name, unsigned shade) {
        add(picture(name, shade), [](const shell::frmNewCharSet& window) { store(window); });
    }

    void expectRemoval(const std::string& text, const std::string& detail, ui::Answer answer) {
        fake.dialogs.expectBox(
            {.text = text, .buttons = ui::Buttons::YesNo, .detail = detail, .prefersNo = true}, answer);
    }

    support::TempFolder folder;
};

constexpr auto CanComeBack = "It can be added again from its file.";

} // namespace

TEST_F(OptionsSets, AnAddedSetIsListedAndChosenAtOnce) {
    openPage();
    const int count = list().count();
    add(picture(), [this](const shell::frmNewCharSet& window) {
        EXPECT_EQ(
            *in<ui::qt::PictureWidget>(window, "ImgGrid").picture(),
            glyphs::BuildAtlas(SmallArtwork(9), settings.colours[0]).cells);
        EXPECT_EQ(in<QLineEdit>(window, "txtName").text(), QStringLiteral("my own"));
        EXPECT_EQ(in<QLineEdit>(window, "txtName").selectedText(), QStringLiteral("my own"));
        EXPECT_EQ(in<QLabel>(window, "lblFile").text(), QStringLiteral("my own.png"));
        EXPECT_EQ(in<QLabel>(window, "lblFacts").text(), QStringLiteral("128 x 128 pixels, 32 colors"));
        EXPECT_FALSE(in<QLabel>(window, "lblNotes").isVisible());
        EXPECT_FALSE(in<QLabel>(window, "lblObjection").isVisible());
        EXPECT_FALSE(in<QPushButton>(window, "cmdPalette").isVisible());
        retype(window, "txtName", "Five");
        retype(window, "txtAddress", "https://example.org/five");
        store(window);
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(list().count(), count + 1);
    EXPECT_EQ(list().currentRow(), count);
    EXPECT_EQ(rowText(count), "Five");
    EXPECT_EQ(shownGrid(), glyphs::BuildAtlas(SmallArtwork(9), settings.colours[0]).cells);
    EXPECT_EQ(find<QLabel>("lblWebAddress")->text(), QStringLiteral("https://example.org/five"));
    EXPECT_TRUE(canRemove());
    EXPECT_EQ(changedPages(), "3");
    EXPECT_EQ(settings.charSet, 0) << "in use only after OK";
    press("cmdOK");
    EXPECT_EQ(apply(), (shell::AppliedOptions{false, false, true, false}));
    EXPECT_EQ(settings.charSet, count);
}

TEST_F(OptionsSets, ASetStaysWhereTheOptionsAreCancelled) {
    openPage();
    addPicture("mine.png", 9);
    press("cmdCancel");
    openPage();
    EXPECT_EQ(rowText(list().count() - 1), "mine");
    EXPECT_EQ(list().currentRow(), 0);
}

TEST_F(OptionsSets, AnArchiveOfAGameIsTakenWithItsColours) {
    const std::string lump =
        support::MakeLump(128, [](int x, int y) { return static_cast<unsigned>(x / 8 + y / 64); });
    std::filesystem::create_directory(folder / "id1");
    const ui::Path pack = folder.put(
        "id1/pak0.pak", support::MakePack(
                            {{"gfx.wad", support::MakeWad({{"CONCHARS", lump}})},
                             {"gfx/palette.lmp", support::MakePalette()}}));
    openPage();
    add(pack, [](const shell::frmNewCharSet& window) {
        EXPECT_EQ(in<QLineEdit>(window, "txtName").text(), QStringLiteral("id1"));
        EXPECT_FALSE(in<QPushButton>(window, "cmdPalette").isVisible());
        QTest::keyClick(&in<QLineEdit>(window, "txtName"), Qt::Key_Return);
        EXPECT_FALSE(window.isVisible()) << "Enter stores";
    });
    EXPECT_EQ(rowText(list().count() - 1), "id1");
}

TEST_F(OptionsSets, ALumpIsShownOnceItsPaletteIsChosen) {
    const ui::Path lump = folder.put(
        "conchars.lmp", support::MakeLump(128, [](int x, int) { return static_cast<unsigned>(x / 8); }));
    const ui::Path bad = folder.put("bad.lmp", "bad");
    const ui::Path palette = folder.put("palette.lmp", support::MakePalette());
    openPage();
    add(lump, [&](const shell::frmNewCharSet& window) {
        auto& button = in<QPushButton>(window, "cmdPalette");
        EXPECT_TRUE(button.isVisible());
        EXPECT_TRUE(button.hasFocus());
        EXPECT_FALSE(canStore(window));
        EXPECT_EQ(
            in<QLabel>(window, "lblObjection").text(),
            QStringLiteral(
                "Its colors are those of the game's palette: choose gfx/palette.lmp, or the pak0.pak "
                "of the game."));
        fake.dialogs.expectOpen(like(shell::PaletteRequest(lump)), bad);
        fake.dialogs.expectWarning(
            "\"" + ui::PathText(bad) +
            "\" cannot be used: it is neither a palette of 768 bytes nor a game's pak0.pak.");
        QTest::keyClick(&button, Qt::Key_Space);
        EXPECT_FALSE(canStore(window));
        fake.dialogs.expectOpen(like(shell::PaletteRequest(lump)), std::nullopt);
        QTest::keyClick(&button, Qt::Key_Space);
        EXPECT_FALSE(canStore(window));
        fake.dialogs.expectOpen(like(shell::PaletteRequest(lump)), palette);
        QTest::keyClick(&button, Qt::Key_Space);
        EXPECT_TRUE(canStore(window));
        EXPECT_EQ(
            in<ui::qt::PictureWidget>(window, "ImgGrid").picture()->pixel(255, 255),
            support::PaletteColour(15));
        EXPECT_TRUE(in<QLineEdit>(window, "txtName").hasFocus());
        store(window);
    });
    EXPECT_EQ(list().currentRow(), list().count() - 1);
    EXPECT_TRUE(canRemove());
}

TEST_F(OptionsSets, WhatHoldsNoSetIsTold) {
    openPage();
    const ui::Path bad = folder.put("bad.png", "bad");
    const auto failure = artwork::ArtworkIn(bad, std::nullopt);
    ASSERT_FALSE(failure);
    fake.dialogs.expectOpen(like(shell::CharSetRequest()), bad);
    fake.dialogs.expectWarning(failure.failure().message);
    press("cmdAddSet");
    fake.dialogs.expectOpen(like(shell::CharSetRequest()), std::nullopt);
    press("cmdAddSet");
    EXPECT_EQ(list().count(), 4);
    EXPECT_EQ(changedPages(), "");
}

TEST_F(OptionsSets, ANameThatWillNotDoCannotBeStored) {
    openPage();
    add(picture(), [](const shell::frmNewCharSet& window) {
        retype(window, "txtName", "classic stone");
        EXPECT_FALSE(canStore(window));
        EXPECT_EQ(
            in<QLabel>(window, "lblObjection").text(),
            QStringLiteral("There is a character set \"Classic Stone\" already."));
        EXPECT_EQ(
            in<QLineEdit>(window, "txtName").accessibleDescription(),
            in<QLabel>(window, "lblObjection").text());
        QTest::keyClick(&in<QLineEdit>(window, "txtName"), Qt::Key_Return);
        EXPECT_TRUE(window.isVisible());
        retype(window, "txtName", " Mine ");
        EXPECT_TRUE(canStore(window)) << "blanks at the ends are dropped";
        retype(window, "txtAddress", "javascript:alert(1)");
        EXPECT_FALSE(canStore(window));
        QTest::keyClick(&in<QLineEdit>(window, "txtName"), Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(list().count(), 4);
    EXPECT_EQ(list().currentRow(), 0);
    EXPECT_EQ(changedPages(), "");
}

TEST_F(OptionsSets, WhatCannotBeWrittenIsToldAndTheWindowStays) {
    openPage();
    const std::string before = fake.directory.files.content("vtmgrid.dat");
    add(picture(), [this](const shell::frmNewCharSet& window) {
        fake.files.failOnce(support::FailingFiles::Step::Write);
        fake.dialogs.expectWarning(
            "Could not write \"" + ui::PathText(fake.directory.files / "vtmgrid.dat") +
            "\": injected failure.");
        store(window);
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(fake.directory.files.content("vtmtc.dat").size(), 4U * 154U);
        store(window);
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(list().count(), 5);
    EXPECT_TRUE(fake.directory.files.content("vtmgrid.dat").starts_with(before));
}

TEST_F(OptionsSets, WithoutRightsTheStandInFolderIsWritten) {
    fake.directory.isWritable = false;
    openPage();
    addPicture("mine.png", 9);
    EXPECT_EQ(list().count(), 5);
    EXPECT_TRUE(fake.directory.standIn.has("vtmtc.dat"));
    EXPECT_EQ(fake.directory.files.content("vtmtc.dat").size(), 4U * 154U);
    expectRemoval("Remove the character set \"mine\"?", CanComeBack, ui::Answer::Yes);
    press("cmdRemoveSet");
    EXPECT_EQ(list().count(), 4);
    EXPECT_FALSE(fake.directory.standIn.has("vtmtc.dat"));
}

TEST_F(OptionsSets, OnlyAddedSetsCanBeRemoved) {
    openPage();
    for (int row = 0; row < list().count(); ++row) {
        choose(row);
        EXPECT_FALSE(canRemove()) << rowText(row);
    }
    addPicture("mine.png", 9);
    EXPECT_TRUE(canRemove());
    choose(1);
    EXPECT_FALSE(canRemove());
}

TEST_F(OptionsSets, ASetIsRemovedOnlyAfterYes) {
    openPage();
    addPicture("mine.png", 9);
    expectRemoval("Remove the character set \"mine\"?", CanComeBack, ui::Answer::No);
    press("cmdRemoveSet");
    EXPECT_EQ(list().count(), 5);
    EXPECT_TRUE(removedPlaces.empty());
    expectRemoval("Remove the character set \"mine\"?", CanComeBack, ui::Answer::Yes);
    activate(*dialog);
    press("cmdRemoveSet");
    EXPECT_EQ(list().count(), 4);
    EXPECT_EQ(removedPlaces, std::vector<int>{4});
    EXPECT_EQ(list().currentRow(), 0) << "back to the one in use";
    EXPECT_TRUE(list().hasFocus());
    EXPECT_FALSE(canRemove());
    EXPECT_EQ(shownGrid(), gridOf(0, settings.colours[0]));
    EXPECT_EQ(changedPages(), "") << "nothing is chosen any more";
}

TEST_F(OptionsSets, TheOneInUseMovesUpWithTheRest) {
    openPage();
    addPicture("one.png", 1);
    addPicture("two.png", 2);
    press("cmdOK");
    useCharSet(5);
    openPage();
    EXPECT_EQ(list().currentRow(), 5);
    choose(4);
    expectRemoval("Remove the character set \"one\"?", CanComeBack, ui::Answer::Yes);
    press("cmdRemoveSet");
    EXPECT_EQ(settings.charSet, 4);
    EXPECT_EQ(list().currentRow(), 4);
    EXPECT_EQ(rowText(4), "two");
    EXPECT_EQ(shownGrid(), glyphs::BuildAtlas(SmallArtwork(2), settings.colours[0]).cells);
    EXPECT_TRUE(canRemove());
}

TEST_F(OptionsSets, TheFirstSetTakesThePlaceOfTheOneInUse) {
    openPage();
    addPicture("mine.png", 9);
    useCharSet(4);
    openPage();
    expectRemoval(
        "Remove the character set \"mine\"?",
        std::string(CanComeBack) + " As it is in use, \"Classic Stone\" takes its place at once.",
        ui::Answer::Yes);
    press("cmdRemoveSet");
    EXPECT_EQ(settings.charSet, 0);
    EXPECT_EQ(list().currentRow(), 0);
    EXPECT_EQ(shownGrid(), gridOf(0, settings.colours[0]));
    EXPECT_EQ(find<ui::qt::PictureWidget>("picKeyGrid")->picture(), &atlas.cells);
    EXPECT_EQ(changedPages(), "");
}

TEST_F(OptionsSets, AListThatAnotherProgramHasChangedIsLeftAlone) {
    openPage();
    addPicture("one.png", 1);
    addPicture("two.png", 2);
    choose(4);
    ASSERT_TRUE(artwork::RemoveSet(fake.disk, fake.directory, [](const artwork::CharSetRecords&) {
        return ui::Result<std::size_t>(4);
    }));
    expectRemoval("Remove the character set \"one\"?", CanComeBack, ui::Answer::Yes);
    fake.dialogs.expectWarning("Nothing was removed: another program has changed the list of character sets. "
                               "Open the options again to see it.");
    press("cmdRemoveSet");
    EXPECT_EQ(glyphs::LoadCharSetNames(fake.files, fake.directory).size(), 5U);
}

TEST_F(OptionsSets, TheNewSetsWindowIsWorkedByTheKeyboard) {
    openPage();
    const ui::Path lump = folder.put("conchars.lmp", support::MakeLump(128, [](int, int) { return 7U; }));
    add(lump, [](const shell::frmNewCharSet& window) {
        in<QLineEdit>(window, "txtName").setFocus();
        for (const char* const next : {"txtAddress", "cmdPalette", "cmdCancel", "txtName"}) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), next);
        }
    });
}
