// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "MainWindow.h"
#include "glyphs/GifPicture.h"
#include "glyphs/PngPicture.h"
#include "support/PaintedPages.h"

#include <QMenu>
#include <QStatusBar>

using editing::Page;

namespace {

/// Rows as text and pictures for other programs, and back.
class Exchanging : public MainWindow {
protected:
    [[nodiscard]] std::string status() const { return window->statusBar()->currentMessage().toStdString(); }

    [[nodiscard]] bool offers(const char* entry) const { return find<QAction>(entry)->isEnabled(); }

    void setRow(std::string_view bytes) const {
        const editing::PageCursor cursor = editing::CursorOf(workspace().documents, workspace().page());
        const auto row = cursor.rows.row(cursor.row);
        std::ranges::fill(row, glyphs::BlankGlyph);
        std::ranges::transform(bytes, row.begin(), [](char byte) {
            return static_cast<glyphs::GlyphCode>(static_cast<unsigned char>(byte));
        });
        press(Qt::Key_Home); // the window follows
    }
};

/// Pictures in files.
class Exporting : public Exchanging {
protected:
    static support::ExpectedFileDialog name() {
        return {"Export the Name", "name.png", {{"PNG Picture (*.png)", {"*.png"}}}, {}, ".png", {}, true};
    }

    static support::ExpectedFileDialog animation() {
        return {"Export the Animation",
                "animation.gif",
                {{"GIF Picture (*.gif)", {"*.gif"}}},
                {},
                ".gif",
                {},
                true};
    }
};

} // namespace

TEST_F(Exchanging, CopiesTheRowAsTextThatLooksLikeIt) {
    startOn(Page::Animation);
    setRow("\x10V\xD4M\x11 \x13 ");
    choose("mnuEditCopyAsText");
    EXPECT_EQ(fake.clipboard.utf8Texts, (std::vector<std::string>{"⟦VTM⟧ ¹"}));
    EXPECT_EQ(status(), "The clipboard holds this text: ⟦VTM⟧ ¹");
    EXPECT_EQ(row(15).substr(0, 8), "\x10V\xD4M\x11 \x13 ");
}

TEST_F(Exchanging, OffersNoTextOfABlankRow) {
    startOn(Page::Messages);
    EXPECT_FALSE(offers("mnuEditCopyAsText"));
    EXPECT_TRUE(offers("mnuEditPasteText"));
    type("a");
    EXPECT_TRUE(offers("mnuEditCopyAsText"));
    press(Qt::Key_Down);
    EXPECT_FALSE(offers("mnuEditCopyAsText")) << "the row of the cursor counts";
    press(Qt::Key_Up);
    press(Qt::Key_Delete);
    EXPECT_TRUE(offers("mnuEditCopyAsText"));
    press(Qt::Key_Backspace);
    EXPECT_FALSE(offers("mnuEditCopyAsText"));
}

TEST_F(Exchanging, CopiesTheRowAsAPictureAsItStandsOnThePage) {
    startOn(Page::Messages);
    press(Qt::Key_Down);
    EXPECT_FALSE(find<QMenu>("mnuEditCopyAsPicture")->menuAction()->isEnabled());
    type(" ab c");
    EXPECT_TRUE(find<QMenu>("mnuEditCopyAsPicture")->menuAction()->isEnabled());
    const ui::Picture& page = workspace().pictures.messages.pixels();
    for (const int times : {1, 2, 4}) {
        choose(("mnuEditCopyAsPicture_" + std::to_string(times)).c_str());
        const ui::Picture& copied = fake.clipboard.pictures.back();
        ASSERT_EQ(copied.width(), 4 * 16 * times) << "without the blanks at its ends";
        ASSERT_EQ(copied.height(), 16 * times);
        for (int x = 0; x < copied.width(); ++x) {
            ASSERT_EQ(copied.pixel(x, 5 * times), page.pixel(16 + x / times, 16 + 5)) << x;
        }
    }
    EXPECT_EQ(status(), "The clipboard holds a picture of 256 x 64 pixels.");
    EXPECT_EQ(fake.clipboard.pictures.size(), 3U);
}

TEST_F(Exchanging, PastesTextAtTheCursorAsOneStep) {
    startOn(Page::Name);
    type("quake");
    fake.clipboard.hold(U"⟦É…⟧");
    fake.clipboard.held[1].parts = U"E\u0301";
    fake.clipboard.held[2].parts = U"...";
    press(Qt::Key_Left);
    choose("mnuEditPasteText");
    EXPECT_EQ(
        row(), "quak\x10"
               "E...\x11     ");
    EXPECT_EQ(column(), 11);
    EXPECT_EQ(status(), "6 glyphs pasted.");
    EXPECT_TRUE(support::ArePaintedLike(workspace().documents, workspace().pictures, workspace().atlas));
    EXPECT_EQ(find<QAction>("mnuEditUndo")->text(), QStringLiteral("&Undo Paste Text"));
    choose("mnuEditUndo");
    EXPECT_EQ(row(), "quake          ");
    choose("mnuEditRedo");
    EXPECT_EQ(
        row(), "quak\x10"
               "E...\x11     ");
}

TEST_F(Exchanging, PastesInTheModesInWhichKeysType) {
    startOn(Page::Name);
    type("abc");
    press(Qt::Key_Home);
    press(Qt::Key_Insert);
    press(Qt::Key_ScrollLock);
    fake.clipboard.hold(U"12");
    choose("mnuEditPasteText");
    EXPECT_EQ(
        row(), "\xB1\xB2"
               "abc          ");
    EXPECT_EQ(column(), 1);
}

TEST_F(Exchanging, TellsWhatDidNotFitAndWhatNoGlyphLooksLike) {
    startOn(Page::Name);
    fake.clipboard.hold(U"☃ 0123456789abcdefg ☃");
    choose("mnuEditPasteText");
    EXPECT_EQ(row(), " 0123456789abcd");
    EXPECT_EQ(status(), "15 glyphs pasted. No room was left for 3 glyphs. No glyph looks like ☃");
    fake.clipboard.hold(U"x");
    choose("mnuEditPasteText");
    EXPECT_EQ(status(), "1 glyph pasted.");
    EXPECT_EQ(row(), " 0123456789abcx");
}

TEST_F(Exchanging, TellsLittleOfMuchThatNoGlyphLooksLike) {
    startOn(Page::Name);
    const int height = window->statusBar()->height();
    std::u32string text;
    for (char32_t character = 0x4E00; character < 0x9000; ++character) {
        text.push_back(character);
    }
    fake.clipboard.hold(text);
    choose("mnuEditPasteText");
    EXPECT_EQ(
        status(), "The clipboard holds no text for glyphs. No glyph looks like 一丁丂七丄丅丆万 and others");
    QCoreApplication::processEvents();
    EXPECT_EQ(window->statusBar()->height(), height);
}

TEST_F(Exchanging, CountsNoLongerThanIsOfUse) {
    startOn(Page::Name);
    fake.clipboard.hold(std::u32string(10014, U'a'));
    choose("mnuEditPasteText");
    EXPECT_EQ(status(), "15 glyphs pasted. No room was left for 9999 glyphs.");
    EXPECT_EQ(row(), std::string(15, 'a'));
    press(Qt::Key_Home);
    fake.clipboard.hold(std::u32string(10015, U'b'));
    choose("mnuEditPasteText");
    EXPECT_EQ(status(), "15 glyphs pasted. No room was left for more than 9999 glyphs.");
    press(Qt::Key_Home);
    fake.clipboard.hold(std::u32string(30000, U'c'));
    choose("mnuEditPasteText");
    EXPECT_EQ(status(), "15 glyphs pasted. No room was left for more than 9999 glyphs.");
    EXPECT_EQ(row(), std::string(15, 'c'));
    press(Qt::Key_Home);
    fake.clipboard.hold(std::u32string(19980, U'☃') + std::u32string(40, U'd'));
    choose("mnuEditPasteText");
    EXPECT_EQ(status(), "15 glyphs pasted. No room was left for more than 4 glyphs. No glyph looks like ☃")
        << "five are known of";
}

TEST_F(Exchanging, SaysSoWhenThereIsNothingToPaste) {
    startOn(Page::Name);
    type("a");
    choose("mnuEditPasteText");
    EXPECT_EQ(status(), "The clipboard holds no text for glyphs.");
    EXPECT_EQ(row(), "a              ");
    EXPECT_EQ(find<QAction>("mnuEditUndo")->text(), QStringLiteral("&Undo Typing"));
}

TEST_F(Exporting, WritesTheNameAsAPicture) {
    startOn(Page::Name);
    EXPECT_FALSE(offers("mnuFileExportName"));
    type(" vtm");
    EXPECT_TRUE(offers("mnuFileExportName"));
    const ui::Path path = fake.directory.files / "me.png";
    fake.dialogs.expectSave(name(), path);
    choose("mnuFileExportName");
    const auto picture = glyphs::DecodePng(fake.directory.files.content("me.png"));
    ASSERT_TRUE(picture);
    EXPECT_EQ(
        picture.value(), glyphs::RowPicture(workspace().documents.name.cells, workspace().atlas.source, 4));
    EXPECT_EQ(picture.value().width(), 96);
    EXPECT_EQ(status(), "\"" + ui::PathText(path) + "\" was written: 96 x 32 pixels.");
    choose("mnuEditUndo");
    EXPECT_FALSE(offers("mnuFileExportName"));
}

TEST_F(Exporting, WritesTheAnimationAsAGifThatPlays) {
    startOn(Page::Animation);
    EXPECT_FALSE(offers("mnuFileExportAni"));
    type("wave");
    EXPECT_TRUE(offers("mnuFileExportAni"));
    workspace().documents.animation.ticks(15) = 7;
    workspace().documents.animation.ticks(1) = 0;
    const ui::Path path = fake.directory.files / "wave.gif";
    fake.dialogs.expectSave(animation(), path);
    choose("mnuFileExportAni");
    const auto first = glyphs::DecodeGif(fake.directory.files.content("wave.gif"));
    ASSERT_TRUE(first);
    EXPECT_EQ(first.value().width(), 15 * 32);
    EXPECT_EQ(first.value().height(), 32);
    EXPECT_EQ(status(), "\"" + ui::PathText(path) + "\" was written: 480 x 32 pixels, 1.65 seconds.");
    EXPECT_EQ(fake.dialogs.steps, 28) << "two steps for each of 14 names";
    EXPECT_EQ(fake.dialogs.stepsDone, 28);
}

TEST_F(Exporting, StartsInTheFolderOfTheLastTime) {
    startOn(Page::Name);
    type("a");
    fake.dialogs.expectSave(name(), fake.directory.files / "a.png");
    choose("mnuFileExportName");
    EXPECT_EQ(fake.settings.read("export", "folder"), ui::PathText(fake.directory.files.path()));
    support::ExpectedFileDialog again = name();
    again.folder = fake.directory.files.path();
    fake.dialogs.expectSave(again, {});
    choose("mnuFileExportName");
    EXPECT_EQ(status(), "") << "cancelled";
}

TEST_F(Exporting, WritesNothingWhenItIsCancelled) {
    startOn(Page::Animation);
    type("wave");
    fake.dialogs.cancelAfter = 3;
    fake.dialogs.expectSave(animation(), fake.directory.files / "wave.gif");
    choose("mnuFileExportAni");
    EXPECT_EQ(fake.dialogs.stepsDone, 3);
    EXPECT_FALSE(fake.files.exists(fake.directory.files / "wave.gif"));
    EXPECT_EQ(status(), "");
}

TEST_F(Exporting, TellsWhyNothingCouldBeWritten) {
    startOn(Page::Name);
    type("a");
    const ui::Path path = fake.directory.files / "missing" / "a.png";
    fake.dialogs.expectSave(name(), path);
    fake.dialogs.expectWarning("Could not open \"" + ui::PathText(path) + "\": No such file or directory.");
    choose("mnuFileExportName");
    EXPECT_EQ(fake.settings.read("export", "folder"), std::nullopt) << "a folder of no use is not remembered";
}

TEST_F(Exchanging, BringsARowBackThatLooksTheSame) {
    startOn(Page::Messages);
    const std::string all = "\x01\x02\x03\x04\x05\x06\x07\x08\x09\x0B\x0E\x0F\x10\x11\x12\x1B\x1C\x1D\x1E\x1F"
                            "\x80\x81\x82\x83\x8D !Az~";
    setRow(all);
    choose("mnuEditCopyAsText");
    fake.clipboard.hold(QString::fromStdString(fake.clipboard.utf8Texts.at(0)).toStdU32String());
    press(Qt::Key_Down);
    choose("mnuEditPasteText");
    EXPECT_EQ(row(2).substr(0, all.size()), all);
}
