// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "artwork/InstalledSets.h"
#include "editing/mdlKey.h"
#include "glyphs/PngPicture.h"
#include "shell/MainWindow.h"
#include "shell/frmOptions.h"
#include "ui/qt/PictureWidget.h"

#include <QAbstractButton>
#include <QListWidget>
#include <QStatusBar>
#include <QTabWidget>

#include <filesystem>

namespace {

using DialogStep = support::FailingFiles::Step;

/// The main window and what the options dialog does to it.
class WindowOptions : public MainWindow {
protected:
    static constexpr ui::Pixel NewBackground = ui::OpaquePixel(1, 2, 3);

    static void press(const shell::frmOptions& options, const char* button) {
        QTest::mouseClick(options.findChild<QAbstractButton*>(QLatin1String(button)), Qt::LeftButton);
    }

    /// Chooses another background colour in an open dialog.
    void chooseBackground(shell::frmOptions& options) {
        fake.dialogs.expectColour(workspace().settings.colours[0], NewBackground);
        options.findChild<QTabWidget*>()->setCurrentIndex(1);
        press(options, "picColor_0");
    }

    /// Chooses the second character set in an open dialog.
    static void chooseSecondSet(shell::frmOptions& options) {
        options.findChild<QTabWidget*>()->setCurrentIndex(3);
        QTest::keyClick(options.findChild<QListWidget*>(QStringLiteral("GridList")), Qt::Key_Down);
    }

    /// The glyphs of a character set (1-based) over the new background.
    glyphs::GlyphAtlas onNewBackground(int set) {
        return glyphs::BuildAtlas(
            glyphs::LoadCharSet(fake.disk, fake.directory, set).value().artwork, NewBackground);
    }
};

} // namespace

TEST_F(WindowOptions, ANewBackgroundNeedsNoFile) {
    start();
    const glyphs::GlyphAtlas expected = onNewBackground(1);
    int read = 0;
    chooseAndUse<shell::frmOptions>("mnuToolsSettings", [&](shell::frmOptions& options) {
        std::filesystem::remove(fake.directory.files / "vtmgrid.dat");
        std::filesystem::remove(fake.directory.files / "vtmtc.dat");
        read = fake.files.count(DialogStep::Read);
        chooseBackground(options);
        press(options, "cmdOK");
    });
    EXPECT_EQ(fake.files.count(DialogStep::Read), read);
    EXPECT_EQ(workspace().atlas.cells, expected.cells);
    EXPECT_EQ(*find<ui::qt::PictureWidget>("ImgGrid")->picture(), expected.cells);
    EXPECT_EQ(workspace().pictures.name.pixels().pixel(0, 0), NewBackground) << "the pages are painted anew";
}

TEST_F(WindowOptions, ASetThatIsGoneByOkLeavesTheOldOneOnTheNewBackground) {
    start();
    const glyphs::GlyphAtlas expected = onNewBackground(1);
    const glyphs::CharSetRecord before = workspace().charSet;
    chooseAndUse<shell::frmOptions>("mnuToolsSettings", [&](shell::frmOptions& options) {
        chooseSecondSet(options);
        chooseBackground(options);
        std::filesystem::remove(fake.directory.files / "vtmgrid.dat");
        fake.dialogs.expectWarning(
            "The character set \"Quake2 Steel\" cannot be read, so \"Classic Stone\" stays in use.\n\n" +
            glyphs::LoadCharSet(fake.disk, fake.directory, 2).failure().message);
        press(options, "cmdOK");
    });
    EXPECT_EQ(fake.dialogs.left(), 0U);
    EXPECT_EQ(workspace().charSet, before);
    EXPECT_EQ(workspace().settings.charSet, 0);
    EXPECT_EQ(workspace().atlas.cells, expected.cells);
    EXPECT_EQ(workspace().pictures.name.pixels().pixel(0, 0), NewBackground);
}

TEST_F(WindowOptions, AChosenSetIsInUseAfterOk) {
    start();
    const glyphs::GlyphAtlas expected = onNewBackground(2);
    chooseAndUse<shell::frmOptions>("mnuToolsSettings", [&](shell::frmOptions& options) {
        chooseBackground(options);
        chooseSecondSet(options);
        press(options, "cmdOK");
    });
    EXPECT_EQ(workspace().charSet.listIndex, 1);
    EXPECT_EQ(workspace().settings.charSet, 1);
    EXPECT_EQ(workspace().atlas.cells, expected.cells);
}

TEST_F(WindowOptions, ASetThatStandsInIsTheOneInUse) {
    fake.settings.write("options", "grid", "1");
    std::string store = fake.directory.files.content("vtmgrid.dat");
    store.replace(glyphs::ArtworkSlotSize, 6, "damage");
    fake.directory.files.put("vtmgrid.dat", store);
    {
        shell::frmVTM ended(fake.platform);
        const ui::Status loaded = ended.Form_Load({});
        ASSERT_FALSE(loaded);
        EXPECT_NE(loaded.failure().message.find("\"Quake2 Steel\""), std::string::npos)
            << loaded.failure().message;
    }
    start();
    EXPECT_EQ(
        find<QStatusBar>("statusbar")->currentMessage().toStdString(),
        "The character set \"Quake2 Steel\" cannot be read; \"Classic Stone\" is shown instead.");
    chooseAndUse<shell::frmOptions>("mnuToolsSettings", [](const shell::frmOptions& options) {
        EXPECT_EQ(options.findChild<QListWidget*>(QStringLiteral("GridList"))->currentRow(), 0);
    });
    EXPECT_TRUE(window->Form_Unload());
    EXPECT_EQ(fake.settings.sections["options"]["grid"], "0") << "what was in use at the end is stored";
}

TEST_F(WindowOptions, AKeyMapThatCannotBeWrittenIsReported) {
    start();
    editing::KeyMaps expected = workspace().keys;
    fake.files.failFrom(DialogStep::Create);
    const auto failure = editing::WriteKeyMap(fake.files, fake.directory, expected).failure().message;
    EXPECT_NE(failure.find("vtmkeys.ini"), std::string::npos) << failure;
    chooseAndUse<shell::frmOptions>("mnuToolsSettings", [&](shell::frmOptions& options) {
        options.findChild<QTabWidget*>()->setCurrentIndex(5);
        QTimer::singleShot(0, &options, [] {
            auto* const picker = QApplication::activeModalWidget();
            ASSERT_EQ(picker->objectName(), "frmGetChar");
            QTest::keyClick(picker, Qt::Key_Right);
            QTest::keyClick(picker, Qt::Key_Return);
        });
        QTest::mouseClick(options.findChild<QWidget*>(QStringLiteral("picKey_0")), Qt::LeftButton);
        fake.dialogs.expectWarning(
            "The keys type what you chose, but only until the program ends: the key map could not be "
            "stored.\n\n" +
            failure);
        press(options, "cmdOK");
    });
    EXPECT_EQ(fake.dialogs.left(), 0U);
    ++expected.used[0][0];
    EXPECT_EQ(workspace().keys.used, expected.used) << "it is in use all the same";
    EXPECT_FALSE(fake.directory.files.has("vtmkeys.ini"));
}

TEST_F(WindowOptions, TheFirstSetIsShownAtOnceWhenTheOneInUseIsRemoved) {
    const ui::Path file = fake.directory.files.put(
        "mine.png",
        glyphs::EncodePng(glyphs::LoadCharSet(fake.disk, fake.directory, 3).value().artwork).value());
    const artwork::Artwork drawn = artwork::ArtworkIn(file, std::nullopt).value();
    const auto added =
        artwork::AddSet(fake.files, fake.directory, {.name = "Mine", .webAddress = ""}, file, drawn);
    ASSERT_TRUE(added);
    fake.settings.write("options", "grid", std::to_string(added.value().place));
    start();
    ASSERT_EQ(glyphs::ShownText(workspace().charSet.name), "Mine");
    const glyphs::CharSet first = glyphs::LoadCharSet(fake.disk, fake.directory, 1).value();
    chooseAndUse<shell::frmOptions>("mnuToolsSettings", [&](shell::frmOptions& options) {
        options.findChild<QTabWidget*>()->setCurrentIndex(3);
        fake.dialogs.expectBox(
            {.text = "Remove the character set \"Mine\"?",
             .buttons = ui::Buttons::YesNo,
             .detail = "It can be added again from its file. As it is in use, \"Classic Stone\" takes its "
                       "place at once.",
             .prefersNo = true},
            ui::Answer::Yes);
        press(options, "cmdRemoveSet");
        EXPECT_EQ(workspace().atlas.artwork, first.artwork);
        EXPECT_EQ(*find<ui::qt::PictureWidget>("ImgGrid")->picture(), workspace().atlas.cells);
        press(options, "cmdCancel");
    });
    EXPECT_EQ(fake.dialogs.left(), 0U);
    EXPECT_EQ(workspace().charSet, first.record);
    EXPECT_EQ(workspace().settings.charSet, 0);
    EXPECT_EQ(fake.settings.sections["options"]["grid"], "0");
}
