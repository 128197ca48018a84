// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/KeyMapFile.h"
#include "glyphs/GlyphWords.h"
#include "shell/OptionControls.h"
#include "shell/OptionsDialog.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace {

using shell::AppliedOptions;
using shell::OptionsPage;

/// While it lives, the desktop has a large font.
class LargeFont {
public:
    LargeFont()
        : m_usual(QApplication::font()) {
        QFont large = m_usual;
        large.setPixelSize(20);
        QApplication::setFont(large);
    }

    ~LargeFont() { QApplication::setFont(m_usual); }

    LargeFont(const LargeFont&) = delete;
    LargeFont& operator=(const LargeFont&) = delete;
    LargeFont(LargeFont&&) = delete;
    LargeFont& operator=(LargeFont&&) = delete;

private:
    QFont m_usual;
};

std::vector<std::string> texts(const QComboBox& box) {
    std::vector<std::string> all;
    for (int i = 0; i < box.count(); ++i) {
        all.push_back(box.itemText(i).toStdString());
    }
    return all;
}

} // namespace

TEST_F(OptionsDialog, ItsCaptionTabsAndFramesAreAsDesigned) {
    open();
    EXPECT_EQ(dialog->windowTitle(), "Options");
    EXPECT_EQ(dialog->objectName(), "frmOptions");
    auto* const tabs = find<QTabWidget>("tabOptions");
    using Frames = std::vector<std::string>;
    const std::vector<std::pair<std::string, Frames>> pages = {
        {"Other", {"Case Conversion Option", "Ranking Screen Shot", "Sounds", "Settings"}},
        {"Colors", {"Colors"}},
        {"Prompts", {"Multiple Formatting", "Binding"}},
        {"Conversion List", {"Conversion List"}},
        {"Cursors", {"Cursors"}},
        {"Key Mapping", {"Keyboard Mapping"}},
    };
    ASSERT_EQ(tabs->count(), 6);
    for (int i = 0; i < 6; ++i) {
        const auto& [caption, frames] = pages[static_cast<std::size_t>(i)];
        EXPECT_EQ(tabs->tabText(i).toStdString(), caption);
        Frames found;
        for (const auto* frame : tabs->widget(i)->findChildren<QGroupBox*>()) {
            found.push_back(frame->title().toStdString());
        }
        EXPECT_EQ(found, frames);
    }
}

TEST_F(OptionsDialog, ItsCaptionsAndTooltipsAreAsDesigned) {
    open();
    const std::vector<std::pair<const char*, const char*>> buttons = {
        {"chkCaseChoice", "Convert all characters upper-lower on format"},
        {"cmdSetSS", "Change"},
        {"cmdDefaultSS", "Default"},
        {"optSounds_0", "When hitting key"},
        {"optSounds_1", "When selecting name, animated name, macro"},
        {"optSounds_2", "When Previewing Animation"},
        {"optSounds_3", "When formatting"},
        {"SaveSettings", "Save Settings When Quitting"},
        {"LoadSettings", "Load Settings From Last Session At Startup"},
        {"optFormatVal_0", "Prompt For Names"},
        {"optFormatVal_1", "Prompt For Messages"},
        {"optPromptBinding", "Prompt For Binding When Saving Script Files"},
        {"cmdGotoTc", "Go to their website"},
        {"cmdResetKeysToDefault", "Reset"},
        {"cmdOK", "OK"},
        {"cmdCancel", "Cancel"},
    };
    for (const auto& [name, text] : buttons) {
        EXPECT_EQ(find<QAbstractButton>(name)->text(), text) << name;
    }
    const std::vector<std::pair<const char*, const char*>> labels = {
        {"lblColor_0", "Back Ground:"},      {"lblColor_1", "Grid Pointer:"},
        {"lblColor_2", "Name Pointer:"},     {"lblColor_3", "Anim Pointer:"},
        {"lblColor_4", "Macro Pointer:"},    {"lblNewCharSet", "New Character Set?"},
        {"lblMouse_0", "Grid Cursor"},       {"lblMouse_1", "Name Cursor"},
        {"lblMouse_2", "Animation Cursor"},  {"lblMouse_3", "Messages Cursor"},
        {"lblSelectKey", "Select The Key."}, {"lblSetKey", "Set The Key"},
        {"lblKeyStrip_0", "Lower Case"},     {"lblKeyStrip_1", "Upper Case"},
        {"lblKeyStrip_2", "With CTRL"},      {"lblResetKeys", "Reset To Default"},
    };
    for (const auto& [name, text] : labels) {
        EXPECT_EQ(find<QLabel>(name)->text(), text) << name;
    }
    for (const char* box : {"picColor_0", "picColor_4", "picKeyStripCont_1", "picKey_0", "picKey_2"}) {
        EXPECT_EQ(find<QWidget>(box)->toolTip(), "Click here to change") << box;
    }
    EXPECT_EQ(find<QWidget>("GridList")->toolTip(), "Select the conversion");
    EXPECT_EQ(find<QWidget>("cmbMouse_2")->toolTip(), "Select the cursor");
    EXPECT_EQ(find<QWidget>("KeyListBox")->toolTip(), "All available keys to map");
    EXPECT_EQ(find<QWidget>("cmdResetKeysToDefault")->toolTip(), "Reset to last configuration");
    EXPECT_FALSE(find<QWidget>("chkCaseChoice")->toolTip().isEmpty());
    EXPECT_FALSE(find<QWidget>("optFormatVal_0")->toolTip().isEmpty());
}

TEST_F(OptionsDialog, TheSoundBoxesStandSixteenPixelsApart) {
    open();
    for (int i = 1; i < 4; ++i) {
        const auto name = "optSounds_" + std::to_string(i);
        const auto above = "optSounds_" + std::to_string(i - 1);
        EXPECT_EQ(find<QCheckBox>(name.c_str())->y() - find<QCheckBox>(above.c_str())->y(), 16);
    }
}

TEST_F(OptionsDialog, TheSoundBoxesMakeRoomForALargeFont) {
    const LargeFont large;
    open();
    const int line = QFontMetrics(QApplication::font()).height();
    EXPECT_GT(line, 16);
    for (int i = 1; i < 4; ++i) {
        const auto* const box = find<QCheckBox>(("optSounds_" + std::to_string(i)).c_str());
        const auto* const above = find<QCheckBox>(("optSounds_" + std::to_string(i - 1)).c_str());
        EXPECT_GE(above->height(), line);
        EXPECT_GE(box->y() - above->y(), line);
    }
}

TEST_F(OptionsDialog, ShowsTheSettingsInUse) {
    settings.caseChoice = false;
    settings.screenshot = "/p/a b.bmp";
    settings.sounds = {true, false, true, false};
    settings.saveAtExit = false;
    settings.loadAtStartup = true;
    settings.colours[3] = ui::OpaquePixel(12, 34, 56);
    settings.promptNames = false;
    settings.promptMessages = true;
    settings.bindPrompt = false;
    settings.cursors = {2, 1, 0, 1};
    open();
    EXPECT_FALSE(find<QCheckBox>("chkCaseChoice")->isChecked());
    EXPECT_EQ(find<QLineEdit>("txtbmpScreenShotFileName")->text(), "/p/a b.bmp");
    EXPECT_TRUE(find<QCheckBox>("optSounds_0")->isChecked());
    EXPECT_FALSE(find<QCheckBox>("optSounds_1")->isChecked());
    EXPECT_TRUE(find<QCheckBox>("optSounds_2")->isChecked());
    EXPECT_FALSE(find<QCheckBox>("optSounds_3")->isChecked());
    EXPECT_FALSE(find<QCheckBox>("SaveSettings")->isChecked());
    EXPECT_TRUE(find<QCheckBox>("LoadSettings")->isChecked());
    EXPECT_EQ(find<shell::ColourBox>("picColor_3")->colour(), QColor(12, 34, 56));
    EXPECT_FALSE(find<QCheckBox>("optFormatVal_0")->isChecked());
    EXPECT_TRUE(find<QCheckBox>("optFormatVal_1")->isChecked());
    EXPECT_FALSE(find<QCheckBox>("optPromptBinding")->isChecked());
    const std::vector<std::string> cursors = {"None", "Arrow", "Cross"};
    for (int i = 0; i < 4; ++i) {
        const auto* const box = find<QComboBox>(("cmbMouse_" + std::to_string(i)).c_str());
        EXPECT_EQ(texts(*box), cursors);
        EXPECT_EQ(box->currentIndex(), settings.cursors[static_cast<std::size_t>(i)]);
    }
    EXPECT_EQ(changedPages(), "");
}

TEST_F(OptionsDialog, OpeningAndPressingOkAppliesNothing) {
    open();
    const auto before = stored();
    press("cmdOK");
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(apply(), AppliedOptions{});
    EXPECT_EQ(stored(), before);
    EXPECT_TRUE(fake.settings.writes.empty());
}

TEST_F(OptionsDialog, LookingAtEveryPageAppliesNothing) {
    open();
    for (int page = 0; page < 6; ++page) {
        showPage(page);
        EXPECT_TRUE(find<QTabWidget>("tabOptions")->currentWidget()->isVisible());
    }
    QTest::keyClick(dialog.get(), Qt::Key_Return);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(changedPages(), "");
}

TEST_F(OptionsDialog, EscapeCancels) {
    open();
    tick("chkCaseChoice");
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_TRUE(settings.caseChoice);
}

TEST_F(OptionsDialog, CancelLeavesTheSettings) {
    open();
    tick("optSounds_2");
    press("cmdCancel");
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_TRUE(settings.sounds[2]);
}

TEST_F(OptionsDialog, EveryBoxOfThePageOtherSetsItsOption) {
    open();
    tick("chkCaseChoice");
    tick("optSounds_0");
    tick("optSounds_1");
    tick("optSounds_2");
    tick("optSounds_3");
    tick("SaveSettings");
    tick("LoadSettings");
    EXPECT_EQ(changedPages(), "0");
    EXPECT_TRUE(settings.caseChoice);
    EXPECT_EQ(apply(), AppliedOptions{});
    EXPECT_FALSE(settings.caseChoice);
    EXPECT_EQ(settings.sounds, (glyphs::SoundOptions{false, false, false, false}));
    EXPECT_FALSE(settings.saveAtExit);
    EXPECT_FALSE(settings.loadAtStartup);
}

TEST_F(OptionsDialog, EachSoundBoxSetsItsOwnSound) {
    open();
    tick("optSounds_2");
    (void)apply();
    EXPECT_EQ(settings.sounds, (glyphs::SoundOptions{true, true, false, true}));
}

TEST_F(OptionsDialog, SpaceTicksABoxAsTheMouseDoes) {
    open();
    QTest::keyClick(find<QCheckBox>("chkCaseChoice"), Qt::Key_Space);
    EXPECT_EQ(changedPages(), "0");
    EXPECT_FALSE(dialog->model().settings().caseChoice);
}

TEST_F(OptionsDialog, ABoxTickedTwiceStillCountsAsAChange) {
    open();
    tick("chkCaseChoice");
    tick("chkCaseChoice");
    EXPECT_EQ(changedPages(), "0");
    EXPECT_TRUE(dialog->model().settings().caseChoice);
}

TEST_F(OptionsDialog, AScreenshotIsChosenInAFileDialog) {
    const ui::Path pictures = std::filesystem::temp_directory_path() / "pictures";
    settings.screenshot = ui::PathText(pictures / "old.bmp");
    open();
    support::ExpectedFileDialog expected;
    expected.title = "Select the Screen Shot";
    expected.initialName = "old.bmp";
    expected.filters = {{"Quake Screen Shot (*.bmp)", {"*.bmp"}}};
    expected.folder = pictures;
    const ui::Path chosen = pictures / ui::PathFromText("new \xE9.bmp");
    fake.dialogs.expectOpen(expected, chosen);
    press("cmdSetSS");
    EXPECT_EQ(changedPages(), "0");
    (void)apply();
    EXPECT_EQ(settings.screenshot, ui::PathText(chosen)); // where names are bytes, its own
}

TEST_F(OptionsDialog, ACancelledFileDialogChangesNothing) {
    open();
    support::ExpectedFileDialog expected;
    expected.title = "Select the Screen Shot";
    expected.initialName = "quake00.bmp";
    expected.filters = {{"Quake Screen Shot (*.bmp)", {"*.bmp"}}};
    expected.folder = fake.directory.folder();
    fake.dialogs.expectOpen(expected, std::nullopt);
    press("cmdSetSS");
    EXPECT_EQ(changedPages(), "");
}

TEST_F(OptionsDialog, TheScreenshotCanBeTypedAndEmptied) {
    open();
    auto* const box = find<QLineEdit>("txtbmpScreenShotFileName");
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Delete);
    EXPECT_EQ(changedPages(), "0");
    EXPECT_EQ(dialog->model().settings().screenshot, "");
    QTest::keyClicks(box, QStringLiteral("shots/mine.bmp"));
    (void)apply();
    EXPECT_EQ(settings.screenshot, ui::PathText(ui::Path("shots") / "mine.bmp"));
}

TEST_F(OptionsDialog, DefaultPutsBackTheScreenshotThatComesWithTheProgram) {
    settings.screenshot = "/other.bmp";
    open();
    press("cmdDefaultSS");
    EXPECT_EQ(changedPages(), "0");
    const std::string expected = ui::PathText(fake.directory.files / "quake00.bmp");
    EXPECT_EQ(find<QLineEdit>("txtbmpScreenShotFileName")->text().toStdString(), expected);
    (void)apply();
    EXPECT_EQ(settings.screenshot, expected);
}

TEST_F(OptionsDialog, AColourIsChosenInTheColourChooser) {
    open();
    showPage(1);
    fake.dialogs.expectColour(ui::OpaquePixel(255, 255, 0), ui::OpaquePixel(1, 2, 3));
    press("picColor_1");
    EXPECT_EQ(find<shell::ColourBox>("picColor_1")->colour(), QColor(1, 2, 3));
    EXPECT_EQ(changedPages(), "1");
    EXPECT_EQ(settings.colours[1], ui::OpaquePixel(255, 255, 0));
    EXPECT_EQ(apply(), (AppliedOptions{true, false, true, false}));
    EXPECT_EQ(settings.colours[1], ui::OpaquePixel(1, 2, 3));
    EXPECT_EQ(settings.colours[2], ui::OpaquePixel(0, 255, 0));
}

TEST_F(OptionsDialog, ACancelledColourChooserChangesNothing) {
    open();
    showPage(1);
    fake.dialogs.expectColour(ui::OpaquePixel(0, 255, 0), std::nullopt);
    QTest::keyClick(find<QWidget>("picColor_4"), Qt::Key_Space);
    EXPECT_EQ(changedPages(), "");
    EXPECT_EQ(find<shell::ColourBox>("picColor_4")->colour(), QColor(0, 255, 0));
}

TEST_F(OptionsDialog, TheColourBoxShowsItsColour) {
    settings.colours[2] = ui::OpaquePixel(200, 100, 50);
    open();
    showPage(1);
    auto* const box = find<shell::ColourBox>("picColor_2");
    const auto shown = [box] {
        return box->grab().toImage().pixelColor(box->width() / 2, box->height() / 2);
    };
    EXPECT_EQ(shown(), QColor(200, 100, 50));
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    box->setFocus();
    EXPECT_EQ(shown(), QColor(200, 100, 50));
}

TEST_F(OptionsDialog, ThePromptsSetTheirOptions) {
    open();
    showPage(2);
    tick("optFormatVal_0");
    EXPECT_EQ(changedPages(), "2");
    EXPECT_FALSE(dialog->model().settings().promptNames);
    EXPECT_TRUE(dialog->model().settings().promptMessages);
    tick("optFormatVal_1");
    tick("optPromptBinding");
    EXPECT_EQ(apply(), AppliedOptions{});
    EXPECT_FALSE(settings.promptNames);
    EXPECT_FALSE(settings.promptMessages);
    EXPECT_FALSE(settings.bindPrompt);
}

TEST_F(OptionsDialog, TheListOfCharacterSetsTakesTheRoomThatALargeFontGivesTheDialog) {
    const LargeFont large;
    open();
    showPage(3);
    QCoreApplication::processEvents();
    const auto* const list = find<QListWidget>("GridList");
    const auto* const preview = find<QWidget>("ImgGrid");
    EXPECT_GT(dialog->width(), 510);
    EXPECT_LE(list->x(), 12);
    EXPECT_LE(preview->x() - list->geometry().right(), 12);
    EXPECT_LE(preview->parentWidget()->width() - preview->geometry().right(), 12);
}

TEST_F(OptionsDialog, ChangingOnlyACursorAppliesOnlyTheCursors) {
    open();
    showPage(4);
    QTest::keyClick(find<QComboBox>("cmbMouse_0"), Qt::Key_Down);
    EXPECT_EQ(changedPages(), "4");
    press("cmdOK");
    auto expected = stored();
    expected["cursor1"] = "1";
    EXPECT_EQ(apply(), (AppliedOptions{false, true, false, false}));
    EXPECT_EQ(stored(), expected);
}

TEST_F(OptionsDialog, ACursorThatDoesNotExistIsNone) {
    settings.cursors = {3, -1, 32767, 2};
    open();
    for (const char* const name : {"cmbMouse_0", "cmbMouse_1", "cmbMouse_2"}) {
        EXPECT_EQ(find<QComboBox>(name)->currentText(), "None") << name;
    }
    EXPECT_EQ(find<QComboBox>("cmbMouse_3")->currentText(), "Cross");
    EXPECT_EQ(changedPages(), "");
}

TEST_F(OptionsDialog, ListsTheNamesOfAll83Keys) {
    open();
    const auto names = texts(*find<QComboBox>("KeyListBox"));
    ASSERT_EQ(names.size(), 83U);
    EXPECT_EQ(names[0], "Tab");
    EXPECT_EQ(names[1], "Return");
    EXPECT_EQ(names[4], "SpaceBar");
    EXPECT_EQ(names[5], "A");
    EXPECT_EQ(names[41], "NumPad 0");
    EXPECT_EQ(names[71], "F16");
    EXPECT_EQ(names[82], "\\");
}

TEST_F(OptionsDialog, ASelectedKeyShowsItsThreeGlyphs) {
    open();
    showPage(5);
    auto* const list = find<QComboBox>("KeyListBox");
    for (int i = 0; i < 5; ++i) {
        QTest::keyClick(list, Qt::Key_Down);
    }
    ASSERT_EQ(list->currentText(), "A");
    const std::vector<int> codes = {97, 65, 32};
    for (int i = 0; i < 3; ++i) {
        const auto* const picture =
            find<ui::qt::PictureWidget>(("picKey_" + std::to_string(i)).c_str())->picture();
        ASSERT_NE(picture, nullptr);
        const int code = codes[static_cast<std::size_t>(i)];
        ui::Picture expected(picture->width(), picture->height());
        glyphs::StretchCells(expected, expected.bounds(), atlas.source, {code % 16 * 8, code / 16 * 8, 8, 8});
        EXPECT_EQ(*picture, expected) << code;
        EXPECT_EQ(
            find<QWidget>(("picKeyStripCont_" + std::to_string(i)).c_str())
                ->accessibleDescription()
                .toStdString(),
            glyphs::GlyphName(static_cast<glyphs::GlyphCode>(code)));
    }
    EXPECT_EQ(changedPages(), "");
}

TEST_F(OptionsDialog, TypingCannotEnterTextIntoTheKeyList) {
    open();
    showPage(5);
    auto* const list = find<QComboBox>("KeyListBox");
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClicks(list, QStringLiteral("xyz"));
    EXPECT_EQ(list->currentText(), "");
    EXPECT_EQ(list->currentIndex(), 1);
    EXPECT_EQ(list->count(), 83);
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(list->currentText(), "Pause");
    EXPECT_EQ(changedPages(), "");
}

TEST_F(OptionsDialog, AClickOnAGlyphPicksAnotherForThatColumn) {
    open();
    showPage(5);
    find<QComboBox>("KeyListBox")->setCurrentIndex(5);
    QTest::mouseClick(find<QWidget>("picKey_1"), Qt::LeftButton);
    EXPECT_EQ(pickerStarts, std::vector<glyphs::GlyphCode>{65});
    EXPECT_EQ(keys.used[5], (editing::KeyGlyphs{97, 200, 32}));
    EXPECT_EQ(changedPages(), "5");
    EXPECT_EQ(apply(), (AppliedOptions{false, false, false, true}));
}

TEST_F(OptionsDialog, AStripIsUsedByTheKeyboardToo) {
    open();
    showPage(5);
    find<QComboBox>("KeyListBox")->setCurrentIndex(5);
    QTest::keyClick(find<QWidget>("picKeyStripCont_2"), Qt::Key_Space);
    EXPECT_EQ(pickerStarts, std::vector<glyphs::GlyphCode>{32});
    EXPECT_EQ(keys.used[5], (editing::KeyGlyphs{97, 65, 200}));
}

TEST_F(OptionsDialog, ANewGlyphIsShownAtOnce) {
    open();
    showPage(5);
    auto* const picture = find<ui::qt::PictureWidget>("picKey_0");
    const ui::Picture before = *picture->picture();
    QTest::mouseClick(picture, Qt::LeftButton);
    EXPECT_NE(*picture->picture(), before);
}

TEST_F(OptionsDialog, PickingTheSameGlyphIsNoChange) {
    open();
    showPage(5);
    picked = 32;
    QTest::mouseClick(find<QWidget>("picKey_0"), Qt::LeftButton);
    EXPECT_EQ(pickerStarts.size(), 1U);
    EXPECT_EQ(changedPages(), "");
}

TEST_F(OptionsDialog, OtherMouseButtonsDoNotPick) {
    open();
    showPage(5);
    QTest::mouseClick(find<QWidget>("picKey_0"), Qt::RightButton);
    QTest::mouseClick(find<QWidget>("picKeyStripCont_0"), Qt::RightButton, {}, QPoint(1, 1));
    EXPECT_TRUE(pickerStarts.empty());
}

TEST_F(OptionsDialog, CancelKeepsTheKeysThatWereChanged) {
    open();
    QTest::mouseClick(find<QWidget>("picKey_0"), Qt::LeftButton);
    press("cmdCancel");
    EXPECT_EQ(keys.used[0][0], 200);
    EXPECT_FALSE(fake.directory.files.has("vtmkeys.ini"));
}

TEST_F(OptionsDialog, ResetReadsTheKeyMapFromItsFileAgain) {
    editing::KeyMaps saved;
    saved.used[0] = {1, 2, 3};
    ASSERT_TRUE(editing::WriteKeyMap(fake.files, fake.directory, saved));
    open();
    showPage(5);
    auto* const picture = find<ui::qt::PictureWidget>("picKey_0");
    const ui::Picture before = *picture->picture();
    fake.dialogs.expectYesNo("Are you sure you wish to reset the current configuration?", ui::Answer::Yes);
    press("cmdResetKeysToDefault");
    EXPECT_EQ(keys.used, saved.used);
    EXPECT_EQ(keys.inFile, saved.used);
    EXPECT_NE(*picture->picture(), before);
    EXPECT_EQ(changedPages(), "");
}

TEST_F(OptionsDialog, ResetShowsTheNameOfTheSelectedKeyAgain) {
    open();
    showPage(5);
    auto* const list = find<QComboBox>("KeyListBox");
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClicks(list, QStringLiteral("x"));
    fake.dialogs.expectYesNo("Are you sure you wish to reset the current configuration?", ui::Answer::No);
    press("cmdResetKeysToDefault");
    EXPECT_EQ(list->currentText(), "");
    fake.dialogs.expectYesNo("Are you sure you wish to reset the current configuration?", ui::Answer::Yes);
    press("cmdResetKeysToDefault");
    EXPECT_EQ(list->currentText(), "Return");
    EXPECT_EQ(list->currentIndex(), 1);
}

TEST_F(OptionsDialog, ResetWithoutAFileGivesTheDefaults) {
    keys.used[7] = {9, 9, 9};
    open();
    showPage(5);
    fake.dialogs.expectYesNo("Are you sure you wish to reset the current configuration?", ui::Answer::Yes);
    press("cmdResetKeysToDefault");
    EXPECT_EQ(keys.used, editing::DefaultKeyMap());
}

TEST_F(OptionsDialog, AnsweringNoResetsNothing) {
    keys.used[7] = {9, 9, 9};
    const auto before = keys.used;
    open();
    showPage(5);
    fake.dialogs.expectYesNo("Are you sure you wish to reset the current configuration?", ui::Answer::No);
    press("cmdResetKeysToDefault");
    EXPECT_EQ(keys.used, before);
}

TEST_F(OptionsDialog, ADamagedKeyMapIsReportedAndTheDefaultsUsed) {
    fake.directory.files.put("vtmkeys.ini", "1,2\r\n");
    keys.used[7] = {9, 9, 9};
    const auto failure = editing::LoadKeyMap(fake.files, fake.directory).status;
    ASSERT_FALSE(failure);
    open();
    showPage(5);
    fake.dialogs.expectYesNo("Are you sure you wish to reset the current configuration?", ui::Answer::Yes);
    fake.dialogs.expectWarning(failure.failure().message);
    press("cmdResetKeysToDefault");
    EXPECT_EQ(keys.used, editing::DefaultKeyMap());
    EXPECT_EQ(fake.directory.files.content("vtmkeys.ini"), "1,2\r\n");
}

TEST_F(OptionsDialog, TabReachesEveryControlOfAPage) {
    putAddress(0, "https://example.org/");
    useCharSet(0);
    open();
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    const std::vector<std::vector<std::string>> pages = {
        {"chkCaseChoice", "txtbmpScreenShotFileName", "cmdDefaultSS", "cmdSetSS", "optSounds_0",
         "optSounds_1", "optSounds_2", "optSounds_3", "SaveSettings", "LoadSettings", "cmdOK", "cmdCancel"},
        {"picColor_0", "picColor_1", "picColor_2", "picColor_3", "picColor_4", "cmdOK", "cmdCancel"},
        {"optFormatVal_0", "optFormatVal_1", "optPromptBinding", "cmdOK", "cmdCancel"},
        {"GridList", "cmdAddSet", "cmdGotoTc", "cmdOK", "cmdCancel"},
        {"cmbMouse_0", "cmbMouse_1", "cmbMouse_2", "cmbMouse_3", "cmdOK", "cmdCancel"},
        {"KeyListBox", "picKeyStripCont_0", "picKeyStripCont_1", "picKeyStripCont_2", "cmdResetKeysToDefault",
         "cmdKeyboard", "cmdOK", "cmdCancel"},
    };
    for (std::size_t page = 0; page < pages.size(); ++page) {
        SCOPED_TRACE(page);
        showPage(static_cast<int>(page));
        find<QTabWidget>("tabOptions")->setFocus();
        for (const auto& expected : pages[page]) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            ASSERT_NE(QApplication::focusWidget(), nullptr);
            EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), expected);
        }
    }
}

TEST_F(OptionsDialog, CtrlTabTurnsThePagesWhateverHasTheFocus) {
    open();
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    auto* const tabs = find<QTabWidget>("tabOptions");
    for (const int expected : {1, 2, 3, 4, 5, 0}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(tabs->currentIndex(), expected);
    }
    for (const int expected : {5, 4, 3, 2, 1, 0}) {
        QTest::keyClick(
            QApplication::focusWidget(), Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(tabs->currentIndex(), expected);
    }
    find<QPushButton>("cmdCancel")->setFocus();
    QTest::keyClick(find<QPushButton>("cmdCancel"), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(tabs->currentIndex(), 1);
    EXPECT_EQ(changedPages(), "");
}

TEST_F(OptionsDialog, FitsTheSmallestScreenAtTwiceItsSize) {
    open();
    EXPECT_LE(dialog->width(), 510);
    EXPECT_LE(dialog->height(), 370);
}

TEST_F(OptionsDialog, TheGroupsOfAllPagesHaveTheSameMargins) {
    open();
    for (const auto* const group : dialog->findChildren<QGroupBox*>()) {
        EXPECT_EQ(group->layout()->contentsMargins(), QMargins(8, 3, 8, 3))
            << group->objectName().toStdString();
        EXPECT_EQ(group->parentWidget()->layout()->contentsMargins(), QMargins(7, 4, 7, 2))
            << group->objectName().toStdString();
    }
}

TEST_F(OptionsDialog, TheKeysStripsStandUnderTheMiddleOfTheirHeadings) {
    open();
    find<QTabWidget>("tabOptions")->setCurrentIndex(5);
    for (const char* number : {"0", "1", "2"}) {
        const QRect heading = find<QLabel>((std::string("lblKeyStrip_") + number).c_str())->geometry();
        const QRect strip = find<QWidget>((std::string("picKeyStripCont_") + number).c_str())->geometry();
        EXPECT_LE(std::abs(heading.center().x() - strip.center().x()), 1) << number;
    }
}
