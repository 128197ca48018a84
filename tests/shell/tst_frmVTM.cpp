// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include "editing/KeyMapFile.h"
#include "shell/GlyphButton.h"
#include "shell/TabPicture.h"
#include "ui/CopyNotes.h"
#include "ui/qt/MarkerShape.h"

#include <QApplication>
#include <QMenu>
#include <QPaintEvent>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

using editing::Page;

namespace {

class Start : public MainWindow {};

class Pages : public MainWindow {};

class Typing : public MainWindow {};

class Grid : public MainWindow {};

class Buttons : public MainWindow {};

class Exit : public MainWindow {};

const std::string Blanks15(15, ' ');

/// Collects what a widget is asked to paint.
class PaintRecorder : public QObject {
public:
    explicit PaintRecorder(QWidget* widget) { widget->installEventFilter(this); }

    QRegion region;
    std::function<void()> beforeFirst = [] {
    };

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            if (region.isEmpty()) {
                beforeFirst();
            }
            region += static_cast<QPaintEvent*>(event)->region();
        }
        return QObject::eventFilter(watched, event);
    }
};

TEST_F(Start, FirstRunOpensOnTheAnimationPage) {
    start();
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Vortigo [Animation]"));
    EXPECT_TRUE(find("AniPic")->isVisible());
    EXPECT_FALSE(find("NamePic")->isVisible());
    EXPECT_EQ(text("lblCurPos"), QStringLiteral("1,15"));
}

TEST_F(Start, PlaysThePageSwitchOnceAndNoRepaint) {
    start();
    EXPECT_EQ(played(102), 1);
    EXPECT_EQ(played(104), 0);
}

TEST_F(Start, ShowsThePageThatWasLeft) {
    fake.settings.write("options", "maketype", "2");
    start();
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Vortigo [Messages]"));
}

TEST_F(Start, MirrorsTheStoredModesOnButtonsAndLockKeys) {
    fake.settings.write("options", "insmode", "True");
    fake.settings.write("options", "nummode", "False");
    start();
    EXPECT_TRUE(find<QToolButton>("cmdKey_0")->isChecked());
    EXPECT_TRUE(find<QToolButton>("cmdKey_1")->isChecked());
    EXPECT_FALSE(find<QToolButton>("cmdKey_2")->isChecked());
    EXPECT_FALSE(find<QToolButton>("cmdKey_3")->isChecked());
    const std::vector<std::pair<ui::LockKey, bool>> expected{
        {ui::LockKey::Scroll, true},
        {ui::LockKey::Insert, true},
        {ui::LockKey::Caps, false},
        {ui::LockKey::Num, false}};
    EXPECT_EQ(fake.lockKeys.changes, expected);
}

TEST_F(Start, IgnoresTheStoreWhenToldNotToLoadIt) {
    fake.settings.write("options", "loadatstartup", "False");
    fake.settings.write("options", "insmode", "True");
    fake.settings.write("options", "maketype", "2");
    start();
    EXPECT_FALSE(workspace().settings.modes.insert);
    EXPECT_EQ(workspace().page(), Page::Animation);
    EXPECT_EQ(workspace().settings.frequent[0], 0);
}

TEST_F(Start, ReportsAMissingHelpPageAndGoesOn) {
    std::filesystem::remove(fake.directory.files / "vtmhelp.htm");
    fake.dialogs.expectWarning("The file \"vtmhelp.htm\" was not found in the VTM directory.\n"
                               "This is the help file. It is included in the zip, \"vtmhelp.zip\".\n"
                               "Please unzip it and place the files in the VTM directory!");
    start();
    EXPECT_TRUE(window->isVisible());
}

TEST_F(Start, EndsWithTheMissingFileNamedWithoutTheCharacterSetList) {
    std::filesystem::remove(fake.directory.files / "vtmtc.dat");
    shell::frmVTM frm(fake.platform);
    const ui::Status loaded = frm.Form_Load({});
    ASSERT_FALSE(loaded.ok());
    EXPECT_NE(loaded.failure().message.find("vtmtc.dat"), std::string::npos);
}

TEST_F(Start, EndsWithTheMissingFileNamedWithoutTheArtwork) {
    std::filesystem::remove(fake.directory.files / "vtmgrid.dat");
    shell::frmVTM frm(fake.platform);
    const ui::Status loaded = frm.Form_Load({});
    ASSERT_FALSE(loaded.ok());
    EXPECT_NE(loaded.failure().message.find("vtmgrid.dat"), std::string::npos);
}

TEST_F(Start, EndsWithTheFileNamedWhenTheDataFilesAreCutShort) {
    const std::string list = fake.directory.files.content("vtmtc.dat");
    const std::string store = fake.directory.files.content("vtmgrid.dat");
    for (const auto& [name, bytes] : std::initializer_list<std::pair<const char*, std::string>>{
             {"vtmtc.dat", ""},
             {"vtmtc.dat", list.substr(0, 153)},
             {"vtmgrid.dat", ""},
             {"vtmgrid.dat", store.substr(0, 900)}}) {
        fake.directory.files.put(name, bytes);
        shell::frmVTM frm(fake.platform);
        const ui::Status loaded = frm.Form_Load({});
        ASSERT_FALSE(loaded.ok());
        EXPECT_NE(loaded.failure().message.find(name), std::string::npos) << loaded.failure().message;
        EXPECT_FALSE(frm.isVisible());
        EXPECT_EQ(fake.directory.files.content(name), bytes);
        fake.directory.files.put("vtmtc.dat", list);
    }
}

TEST_F(Start, ShowsTheFirstCharacterSetWhenTheStoredOneIsGone) {
    fake.settings.write("options", "grid", "700");
    start();
    EXPECT_EQ(workspace().charSet.listIndex, 0);
    EXPECT_FALSE(workspace().atlas.cells.empty());
}

TEST_F(Start, ReportsAMalformedKeyMapAndTypesTheDefaults) {
    const std::string damaged = "1,2\r\n";
    fake.directory.files.put("vtmkeys.ini", damaged);
    fake.settings.write("options", "maketype", "0");
    fake.settings.write("options", "colmode", "False");
    // The reason's wording belongs to the key map; here it matters that it is shown once and names the file.
    std::string shown;
    window = std::make_unique<shell::frmVTM>(fake.platform);
    const auto failure = editing::LoadKeyMap(fake.files, fake.directory).status.failure().message;
    EXPECT_NE(failure.find("vtmkeys.ini"), std::string::npos);
    fake.dialogs.expectWarning(failure);
    ASSERT_TRUE(window->Form_Load({}).ok());
    type("a");
    EXPECT_EQ(row(), "a" + std::string(14, ' '));
    EXPECT_EQ(fake.directory.files.content("vtmkeys.ini"), damaged);
}

TEST_F(Start, TellsOnceOfAFileThatAnEarlierRunCouldNotComplete) {
    fake.disk = ui::DiskFiles(fake.directory.folder());
    const ui::Path file = fake.directory.files.put("config.cfg", "half");
    const ui::Path copy = fake.directory.files.put("tempfile.cfg", "the whole");
    (void)ui::NoteCopy(fake.disk, file, copy);
    fake.dialogs.expectWarning(
        "\"" + ui::PathText(file) + "\" may be incomplete: VTM was ended while it wrote the file.\n" +
        "What it held before is kept whole as \"" + ui::PathText(copy) + "\".");
    start();
    fake.dialogs.expectAllAsked();
    start();
}

TEST_F(Start, LoadsTheIntroFilesSilently) {
    fake.directory.files.put("intro.vtn", "// Name File Created by Vortigo\r\nname \"intro\"\r\n");
    fake.directory.files.put("intro.vtm", "// Macro File Created by Vortigo\r\nsay \"hello\"\r\n");
    start();
    EXPECT_EQ(workspace().documents.name.cells[0], 'i');
    EXPECT_EQ(workspace().documents.messages.cells[0], 'h');
    EXPECT_EQ(workspace().page(), Page::Animation) << "intro files leave the page alone";
}

TEST_F(Start, TheStatusLineStillTellsOfAnIntroFileAfterTheNextOne) {
    const ui::Path animation = fake.directory.files.put(
        "intro.vta", "// Animation File Created by Vortigo\r\n// 15 Names In The Animation Sequence\r\n"
                     "name \"much longer than a name\"\r\n");
    fake.directory.files.put("intro.vtn", "// Name File Created by Vortigo\r\nname \"intro\"\r\n");
    start();
    EXPECT_EQ(workspace().documents.name.cells[0], 'i');
    const std::string shown = find<QStatusBar>("statusbar")->currentMessage().toStdString();
    EXPECT_NE(shown.find(ui::PathText(animation)), std::string::npos) << shown;
}

TEST_F(Start, LoadsTheFileOfTheCommandLineAndShowsTheOddPage) {
    const ui::Path file =
        fake.directory.files.put("x.vtn", "// Name File Created by Vortigo\r\nname \"cmd\"\r\n");
    fake.directory.files.put("intro.vtm", "// Macro File Created by Vortigo\r\nsay \"hello\"\r\n");
    fake.settings.write("options", "maketype", "2");
    const ui::Path before = std::filesystem::current_path();
    start({" /name " + ui::PathText(file)});
    EXPECT_EQ(workspace().documents.name.cells[0], 'c');
    EXPECT_EQ(workspace().documents.messages.cells[0], ' ') << "a command line leaves the intro files out";
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Vortigo [Animation]"));
    EXPECT_EQ(std::filesystem::current_path(), fake.directory.files.path());
    std::filesystem::current_path(before);
}

TEST_F(Start, ReportsAnUnreadableFileOfTheCommandLineByItsFilePart) {
    const ui::Path before = std::filesystem::current_path();
    fake.dialogs.expectInform("Error reading name from x.vtn.");
    start({" /name " + ui::PathText(fake.directory.files / "x.vtn")});
    EXPECT_EQ(workspace().page(), Page::Animation);
    std::filesystem::current_path(before);
}

TEST_F(Start, TakesNoOtherFileOfTheNameWhenTheFolderOfTheCommandLineIsNotThere) {
    fake.directory.files.put("x.vtn", "// Name File Created by Vortigo\r\nname \"other\"\r\n");
    const ui::Path before = std::filesystem::current_path();
    std::filesystem::current_path(fake.directory.files.path());
    const ui::Path missing = fake.directory.files / "gone" / "x.vtn";
    fake.dialogs.expectInform("Error reading name from " + ui::PathText(missing) + ".");
    start({" /name " + ui::PathText(missing)});
    EXPECT_EQ(workspace().documents.name.cells[0], ' ');
    EXPECT_EQ(workspace().page(), Page::Animation);
    std::filesystem::current_path(before);
}

TEST_F(Start, NamesAnUnreadableSettingInTheStatusLineAlsoAfterAnIntroFile) {
    fake.settings.write("options", "cursor1", "many");
    fake.directory.files.put("intro.vtn", "// Name File Created by Vortigo\r\nname \"intro\"\r\n");
    start();
    const QString shown = find<QStatusBar>("statusbar")->currentMessage();
    EXPECT_TRUE(shown.contains(QStringLiteral("cursor1"))) << shown.toStdString();
    EXPECT_TRUE(shown.contains(QStringLiteral("many"))) << shown.toStdString();
    EXPECT_EQ(workspace().settings.cursors[0], 0);
}

TEST_F(Start, RegistersTheFileTypesOnceTheWindowIsPainted) {
    class Order final : public QObject {
    public:
        explicit Order(const support::FakeFileTypes& fileTypes)
            : m_fileTypes(fileTypes) {
            qApp->installEventFilter(this);
        }

        std::optional<bool> registeredFirst;

    protected:
        bool eventFilter(QObject* /*watched*/, QEvent* event) override {
            if (event->type() == QEvent::Paint && !registeredFirst) {
                registeredFirst = !m_fileTypes.registrations.empty();
            }
            return false;
        }

    private:
        const support::FakeFileTypes& m_fileTypes;
    };

    Order order(fake.fileTypes);
    start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return order.registeredFirst.has_value(); }));
    EXPECT_EQ(order.registeredFirst, false);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !fake.fileTypes.registrations.empty(); }));
    ASSERT_EQ(fake.fileTypes.registrations.front().types.size(), 3U);
    EXPECT_EQ(fake.fileTypes.registrations.front().types[0].extension, ".vtn");
    window->close();
    EXPECT_EQ(fake.fileTypes.registrations.size(), 1U) << "once is enough";
}

TEST_F(Start, RegistersTheFileTypesOfAProgramThatEndsAtOnceToo) {
    start();
    window->close();
    EXPECT_EQ(fake.fileTypes.registrations.size(), 1U);
    fake.settings.write("options", "saveatexit", "False");
    start();
    EXPECT_TRUE(window->Form_Unload());
    EXPECT_EQ(fake.fileTypes.registrations.size(), 2U);
    window->close();
    EXPECT_EQ(fake.fileTypes.registrations.size(), 2U);
}

TEST_F(Pages, SwitchingPlaysTheSoundAndShowsTitleTabAndButton) {
    startOn(Page::Name);
    choose("mnuView_2");
    EXPECT_EQ(played(102), 1);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Vortigo [Messages]"));
    EXPECT_TRUE(find("MacPic")->isVisible());
    EXPECT_FALSE(find<shell::TabPicture>("picTab_0")->isActive());
    EXPECT_TRUE(find<shell::TabPicture>("picTab_2")->isActive());
    EXPECT_TRUE(find<QAction>("smess")->isChecked());
    EXPECT_FALSE(find<QAction>("sname")->isChecked());
    EXPECT_EQ(played(104), 0) << "a switch repaints no page";
}

TEST_F(Pages, TabsHaveTheSameGreysInEveryTheme) {
    startOn(Page::Name);
    const auto colourOf = [this](const char* tab) {
        const QImage image = find(tab)->grab().toImage();
        return image.pixelColor(2, 2);
    };
    EXPECT_EQ(colourOf("picTab_0"), QColor(192, 192, 192));
    EXPECT_EQ(colourOf("picTab_1"), QColor(128, 128, 128));
    EXPECT_EQ(colourOf("picTab_2"), QColor(128, 128, 128));
}

TEST_F(Pages, TheTabOfThePageInViewDoesNothingButMenuAndToolbarPlayAgain) {
    startOn(Page::Name);
    click("picTab_0", {3, 3});
    EXPECT_EQ(played(102), 0);
    choose("mnuView_0");
    EXPECT_EQ(played(102), 1);
    QTest::mouseClick(find<QToolButton>("sname"), Qt::LeftButton);
    EXPECT_EQ(played(102), 2);
    EXPECT_TRUE(find<QAction>("sname")->isChecked()) << "a page button that is down stays down";
    click("picTab_1", {3, 3});
    EXPECT_EQ(workspace().page(), Page::Animation);
}

TEST_F(Pages, SoundOptionOneSilencesTheSwitch) {
    fake.settings.write("options", "sound1", "False");
    startOn(Page::Name);
    choose("mnuView_1");
    EXPECT_EQ(played(102), 0);
}

TEST_F(Pages, ThePageButtonsAreFiveSixAndSevenOfTheToolbar) {
    startOn(Page::Name);
    const QList<QAction*> actions = find<QToolBar>("Toolbar1")->actions();
    EXPECT_TRUE(actions[3]->isSeparator());
    EXPECT_EQ(actions[4]->objectName(), QStringLiteral("sname"));
    EXPECT_EQ(actions[5]->objectName(), QStringLiteral("sani"));
    EXPECT_EQ(actions[6]->objectName(), QStringLiteral("smess"));
}

TEST_F(Pages, EveryToolbarButtonHasItsTooltipInOrder) {
    startOn(Page::Name);
    QStringList shown;
    for (const QAction* action : find<QToolBar>("Toolbar1")->actions()) {
        if (!action->isSeparator()) {
            shown << action->objectName() + QLatin1Char('=') + action->toolTip();
        }
    }
    const QStringList expected{
        "fnew=File New",
        "fopen=File Open",
        "fsave=File Save",
        "sname=Switch To Name",
        "sani=Switch To Animate",
        "smess=Switch To Messages",
        "cut=Cut",
        "copy=Copy",
        "paste=Paste",
        "aleft=Align Left",
        "acenter=Align Center",
        "aright=Align Right",
        "lcase=Upper To Lower Case",
        "ucase=Lower To Upper Case",
        "scase=Switch Case",
        "color1=Color2 To Color1",
        "color2=Color1 To Color2",
        "scolor=Switch Color",
        "revorder=Reverse Name Order",
        "revchar=Reverse Character Order",
        "wiz=Animation Wizard",
        "view=Full Screen Preview",
        "config=Configure",
        "about=About VTM",
        "help=VTM Help",
    };
    EXPECT_EQ(shown, expected);
}

TEST_F(Pages, TheColourButtonsRunTheOppositeOfTheirTooltips) {
    startOn(Page::Name);
    type("a");
    QTest::mouseClick(find<QToolButton>("color1"), Qt::LeftButton);
    EXPECT_EQ(workspace().documents.name.cells[0], 'a' + 128);
    QTest::mouseClick(find<QToolButton>("color2"), Qt::LeftButton);
    EXPECT_EQ(workspace().documents.name.cells[0], 'a');
}

TEST_F(Pages, NewMessagesShowsItsPageBlanksItAndPlaysTheRepaint) {
    startOn(Page::Name);
    workspace().documents.messages.cells.fill(65);
    choose("mnuNewMessages");
    EXPECT_EQ(workspace().page(), Page::Messages);
    EXPECT_EQ(row(1), std::string(31, ' '));
    EXPECT_EQ(row(3), std::string(31, ' '));
    EXPECT_EQ(played(104), 1);
}

TEST_F(Pages, NewAnimationKeepsTheNumberOfNamesAndTheCursor) {
    startOn(Page::Animation);
    find<QScrollBar>("AniTotalScroll")->setValue(20);
    find<QScrollBar>("AniScroll")->setValue(17);
    type("xyz");
    choose("mnuNewAni");
    EXPECT_EQ(row(17), Blanks15);
    EXPECT_EQ(workspace().documents.animation.nameCount, 20);
    EXPECT_EQ(text("lblCurPos"), QStringLiteral("4,17"));
}

TEST_F(Typing, ANewUserTypesInColourTwoAndOverwrites) {
    fake.settings.write("options", "maketype", "0");
    start();
    type("a");
    EXPECT_EQ(workspace().documents.name.cells[0], 225);
    EXPECT_EQ(column(), 2);
    EXPECT_EQ(text("lblCurPos"), QStringLiteral("2"));
}

TEST_F(Typing, OverwritingStaysOnTheLastCell) {
    startOn(Page::Name);
    find<QScrollBar>("NameScroll")->setValue(15);
    type("ab");
    EXPECT_EQ(row(), std::string(14, ' ') + "b");
    EXPECT_EQ(column(), 15);
}

TEST_F(Typing, InsertingKeepsTheCursorOnTheNewGlyph) {
    startOn(Page::Name);
    type("ABC");
    press(Qt::Key_Home);
    press(Qt::Key_Insert);
    type("x");
    EXPECT_EQ(row(), "xabc" + std::string(11, ' '));
    EXPECT_EQ(column(), 1);
    type("y");
    EXPECT_EQ(row(), "yxabc" + std::string(10, ' '));
}

TEST_F(Typing, ShiftTypesTheSecondColumnOfTheKeyMap) {
    startOn(Page::Name);
    press(Qt::Key_A, Qt::ShiftModifier);
    press(Qt::Key_Apostrophe, Qt::ShiftModifier);
    type("b");
    EXPECT_EQ(row(), "A b" + std::string(12, ' '));
}

TEST_F(Typing, TabSpaceEscapeAndFunctionKeysReachThePage) {
    startOn(Page::Name);
    type("abcdef");
    press(Qt::Key_Home);
    press(Qt::Key_Tab);
    press(Qt::Key_Space);
    press(Qt::Key_Escape);
    press(Qt::Key_F1);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(row(), std::string("   \x80 f") + std::string(9, ' '));
}

TEST_F(Typing, BackspaceAtTheFirstColumnAndEnterDoNothingOnTheNamePage) {
    startOn(Page::Name);
    type("abc");
    press(Qt::Key_Home);
    press(Qt::Key_Backspace);
    press(Qt::Key_Return);
    EXPECT_EQ(row(), "abc" + std::string(12, ' '));
    EXPECT_EQ(column(), 1);
}

TEST_F(Typing, DeleteClosesTheRowAndKeepsTheCursor) {
    startOn(Page::Name);
    type("xabc");
    press(Qt::Key_Home);
    press(Qt::Key_Delete);
    EXPECT_EQ(row(), "abc" + std::string(12, ' '));
    EXPECT_EQ(column(), 1);
}

TEST_F(Typing, EnterGoesToTheStartOfTheNextMessage) {
    startOn(Page::Messages);
    type("ab");
    press(Qt::Key_Return);
    type("c");
    EXPECT_EQ(row(1), "ab" + std::string(29, ' '));
    EXPECT_EQ(row(2), "c" + std::string(30, ' '));
}

TEST_F(Typing, CtrlWithInsertOnTheNamePageShowsTheAnimationAndInsertsAName) {
    startOn(Page::Name);
    press(Qt::Key_Insert, Qt::ControlModifier);
    EXPECT_EQ(workspace().page(), Page::Animation);
    EXPECT_EQ(workspace().documents.animation.nameCount, 16);
    EXPECT_FALSE(workspace().settings.modes.insert) << "the mode is toggled by the key without Ctrl";
}

TEST_F(Typing, KeysHeldWithAltTypeNothing) {
    startOn(Page::Name);
    press(Qt::Key_Z, Qt::AltModifier);
    EXPECT_EQ(row(), Blanks15);
}

TEST_F(Typing, TheMarkerOfTheGridFollowsWhatIsTyped) {
    startOn(Page::Name);
    auto* marker = find("GridPosShape");
    type("a");
    EXPECT_TRUE(marker->isVisible());
    EXPECT_EQ(marker->pos(), QPoint(97 % 16 * 16, 97 / 16 * 16));
    press(Qt::Key_AsciiTilde, Qt::ShiftModifier);
    EXPECT_EQ(row(), "a~" + std::string(13, ' ')) << "a key may type what the grid refuses";
    EXPECT_FALSE(marker->isVisible());
}

TEST_F(Typing, OneKeyPaintsOneCell) {
    startOn(Page::Name);
    type("abc");
    QCoreApplication::processEvents();
    PaintRecorder recorder(find("NamePic"));
    press(Qt::Key_D);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !recorder.region.isEmpty(); }));
    // The new glyph's cell, and that of the marker, which moves on.
    EXPECT_EQ(recorder.region.boundingRect(), QRect(48, 0, 32, 16));
}

TEST_F(Typing, AKeyIsPaintedBeforeOtherEventsAreLookedFor) {
    startOn(Page::Name);
    QCoreApplication::processEvents();
    PaintRecorder recorder(find("NamePic"));
    press(Qt::Key_D);
    EXPECT_TRUE(recorder.region.contains(QRect(0, 0, 16, 16)));
}

TEST_F(Typing, TheGlyphIsPaintedBeforeTheGridsMarkerMoves) {
    startOn(Page::Name);
    type("a");
    QCoreApplication::processEvents();
    const QWidget* const shape = find("GridPosShape");
    const QPoint before = shape->pos();
    QPoint whilePainting;
    PaintRecorder recorder(find("NamePic"));
    recorder.beforeFirst = [&] {
        whilePainting = shape->pos();
    };
    press(Qt::Key_D);
    EXPECT_NE(shape->pos(), before);
    EXPECT_EQ(whilePainting, before);
}

TEST_F(Typing, ThePictureShowsWhatTheDocumentHolds) {
    startOn(Page::Messages);
    press(Qt::Key_Insert);
    type("exact to the pixel");
    press(Qt::Key_Down);
    clickGlyph(145);
    ui::Picture expected(496, 48);
    for (int number = 1; number <= 3; ++number) {
        for (int cell = 1; cell <= 31; ++cell) {
            glyphs::PaintGlyph(
                expected, workspace().atlas, workspace().documents.messages.rows().cell(number, cell), cell,
                number);
        }
    }
    EXPECT_EQ(workspace().pictures.messages.pixels(), expected);
}

TEST_F(Grid, ALeftPressPlacesTheGlyphAndMovesTheMarker) {
    startOn(Page::Name);
    clickGlyph(145);
    EXPECT_EQ(workspace().documents.name.cells[0], 145);
    EXPECT_EQ(find("GridPosShape")->pos(), QPoint(145 % 16 * 16, 145 / 16 * 16));
    EXPECT_EQ(played(101), 1);
}

TEST_F(Grid, RefusedGlyphsChangeNothing) {
    startOn(Page::Name);
    clickGlyph(65);
    const QPoint before = find("GridPosShape")->pos();
    fake.sounds.waves.clear();
    QTest::mousePress(find("ImgGrid"), Qt::LeftButton, Qt::NoModifier, {34 % 16 * 16 + 8, 34 / 16 * 16 + 8});
    EXPECT_EQ(row(), "A" + std::string(14, ' '));
    EXPECT_EQ(find("GridPosShape")->pos(), before);
    EXPECT_TRUE(fake.sounds.waves.empty());
}

TEST_F(Grid, TheCarriageReturnIsPlacedAsItsPartner) {
    startOn(Page::Name);
    clickGlyph(13);
    EXPECT_EQ(workspace().documents.name.cells[0], 141);
}

TEST_F(Grid, ARightPressChoosesTheGlyphThatRightPressesStamp) {
    startOn(Page::Name);
    click("NamePic", {40, 8}, Qt::RightButton);
    EXPECT_EQ(workspace().documents.name.cells[2], 5) << "glyph 5 until another is chosen";
    clickGlyph(16, Qt::RightButton);
    EXPECT_EQ(workspace().rightButtonGlyph, 16);
    click("NamePic", {1, 1}, Qt::RightButton);
    EXPECT_EQ(workspace().documents.name.cells[0], 16);
    EXPECT_EQ(column(), 2);
}

TEST_F(Grid, MovingOverTheGridMovesTheMarkerAndHidesItOverRefusedGlyphs) {
    startOn(Page::Name);
    hover("ImgGrid", {5 * 16 + 4, 6 * 16 + 4});
    EXPECT_EQ(find("GridPosShape")->pos(), QPoint(80, 96));
    EXPECT_TRUE(find("GridPosShape")->isVisible());
    hover("ImgGrid", {2 * 16 + 4, 2 * 16 + 4});
    EXPECT_FALSE(find("GridPosShape")->isVisible());
    hover("ImgGrid", {13 * 16 + 4, 4});
    EXPECT_EQ(find("GridPosShape")->pos(), QPoint(13 * 16, 8 * 16)) << "13 is picked as 141";
    EXPECT_EQ(row(), Blanks15);
}

TEST_F(Grid, PressesOnThePicturesPlaceTheCursorWithinTheRowsInUse) {
    startOn(Page::Name);
    click("NamePic", {239, 15});
    EXPECT_EQ(column(), 15);
    EXPECT_EQ(find("NamePosShape")->pos(), QPoint(14 * 16, 0));
    choose("mnuView_2");
    click("MacPic", {16 * 30 + 1, 33});
    EXPECT_EQ(text("lblCurPos"), QStringLiteral("31"));
    EXPECT_EQ(workspace().documents.messages.currentMessage, 3);
    choose("mnuView_1");
    click("AniPic", {16 * 6 + 1, 16 * 2 + 1});
    EXPECT_EQ(text("lblCurPos"), QStringLiteral("7,3"));
}

TEST_F(Buttons, FavouritesSpellTheProgramInBrackets) {
    startOn(Page::Name);
    for (const char* name :
         {"cmdFavorite_0", "cmdFavorite_1", "cmdFavorite_2", "cmdFavorite_3", "cmdFavorite_4"}) {
        QTest::mousePress(find(name), Qt::LeftButton);
    }
    EXPECT_EQ(row(), "\x10VTM\x11" + std::string(10, ' '));
}

TEST_F(Buttons, CancellingThePickerOfAFavouriteKeepsItAndReplacesTheClipboard) {
    startOn(Page::Name);
    QTimer::singleShot(0, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
    QTest::mousePress(find("cmdFavorite_1"), Qt::RightButton);
    EXPECT_EQ(workspace().settings.favourites[1], 86);
    ASSERT_EQ(fake.clipboard.pictures.size(), 1U);
    EXPECT_EQ(fake.clipboard.pictures[0], glyphs::GlyphButtonPicture(workspace().atlas, 86));
}

TEST_F(Buttons, FrequentGlyphsAreCountedAndPlaced) {
    startOn(Page::Name);
    type("aab");
    QTest::mouseClick(find("cmdCalcFrequent"), Qt::LeftButton);
    const std::array<glyphs::GlyphCode, 3> expected{'a', 'b', 0};
    EXPECT_EQ(workspace().settings.frequent, expected);
    EXPECT_TRUE(fake.clipboard.pictures.empty());
    QTest::mousePress(find("cmdFrequent_1"), Qt::RightButton);
    EXPECT_EQ(row(), "aabb" + std::string(11, ' '));
    fake.sounds.waves.clear();
    QTest::mousePress(find("cmdFrequent_2"), Qt::LeftButton);
    EXPECT_EQ(row(), "aabb" + std::string(11, ' ')) << "an emptied button places nothing";
    EXPECT_TRUE(fake.sounds.waves.empty());
}

TEST_F(Exit, SavesAllSettingsOnce) {
    start();
    find<QAction>("mnuFileExit")->trigger();
    EXPECT_EQ(fake.settings.list("options").size(), 34U);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(Exit, TheWindowComesBackWithItsSize) {
    start();
    window->resize(window->minimumWidth() + 60, window->height() + 40);
    const QSize left = window->size();
    window->close();
    start();
    EXPECT_EQ(window->size(), left);
}

TEST_F(Exit, DuringTheStartKeepsThePlaceOfTheWindow) {
    fake.settings.write("window", "geometry", "kept");
    const ui::Path before = std::filesystem::current_path();
    fake.dialogs.expectInform(
        "Error reading name from x.vtn.", [this] { EXPECT_TRUE(window->Form_Unload()); });
    start({" /name " + ui::PathText(fake.directory.files / "x.vtn")});
    EXPECT_EQ(fake.settings.read("window", "geometry"), "kept");
    EXPECT_EQ(fake.settings.list("options").size(), 34U);
    std::filesystem::current_path(before);
}

TEST_F(Exit, SavesNothingWhenToldNotTo) {
    start();
    workspace().settings.saveAtExit = false;
    window->close();
    EXPECT_TRUE(fake.settings.list("options").empty());
    EXPECT_TRUE(fake.settings.list("window").empty());
}

} // namespace
