// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/frmAniWiz.h"

#include "animation/AnimationDesk.h"
#include "animation/FormTest.h"
#include "animation/PatternFiles.h"
#include "animation/mdlAniServer.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>

#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

using support::PatternFile;

constexpr const char* MissingText = "The Animation Data file/s needed by VTM 'vtmani01.dat or vtmani02.dat' "
                                    "is not in the programs directory!\n"
                                    "Automatic animation has been disabled.";

struct AnimationWizard : testing::Test {
    support::AnimationDesk desk;
    support::FakePlatform platform;
    std::unique_ptr<animation::frmAniWiz> form;

    AnimationWizard() {
        const auto straight = [](int, int position) {
            return position;
        };
        const auto reversed = [](int, int position) {
            return 16 - position;
        };
        const auto all = [](int, int) {
            return 1;
        };
        platform.directory.files.put(
            "vtmani01.dat", PatternFile({{"Stand", straight}, {"Turn, and turn", reversed}}));
        platform.directory.files.put("vtmani02.dat", PatternFile({{"Flash", all}, {"Blink", all}}));
        desk.fillNames(90);
        desk.setName(15, "abcdefghijklmno");
    }

    void open() {
        form = std::make_unique<animation::frmAniWiz>(
            desk.animation(), glyphs::CaseChoice::LettersOnly, desk.atlas, platform.dialogs, platform.files,
            platform.directory);
        form->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get()));
    }

    [[nodiscard]] support::FormHand hand() const { return support::FormHand(*form); }

    void showTab(int index) const { hand().find<QTabWidget>("SSTab2").setCurrentIndex(index); }

    /// Chooses an entry of a list with the keyboard.
    void pick(const char* list, int index) const {
        auto& combo = hand().find<QComboBox>(list);
        combo.setFocus();
        QTest::keyClick(&combo, Qt::Key_Home);
        for (int i = 0; i < index; ++i) {
            QTest::keyClick(&combo, Qt::Key_Down);
        }
        EXPECT_EQ(combo.currentIndex(), index) << list;
    }

    [[nodiscard]] std::vector<std::string> entries(const char* list) const {
        std::vector<std::string> texts;
        const auto& combo = hand().find<QComboBox>(list);
        for (int i = 0; i < combo.count(); ++i) {
            texts.push_back(combo.itemText(i).toStdString());
        }
        return texts;
    }
};

} // namespace

TEST_F(AnimationWizard, CarriesItsTexts) {
    open();
    EXPECT_EQ(form->objectName().toStdString(), "frmAniWiz");
    EXPECT_EQ(form->windowTitle().toStdString(), "Animation Wizard");
    const auto& tabs = hand().find<QTabWidget>("SSTab2");
    ASSERT_EQ(tabs.count(), 3);
    EXPECT_EQ(tabs.tabText(0).toStdString(), "Position");
    EXPECT_EQ(tabs.tabText(1).toStdString(), "Color");
    EXPECT_EQ(tabs.tabText(2).toStdString(), "Case");
    EXPECT_EQ(tabs.currentIndex(), 0);
    EXPECT_EQ(hand().toolTip("cmboPos_1"), "Select something from the list");
    EXPECT_EQ(hand().toolTip("NameToUseScroll"), "Name to use in the selected Automatic Animation");
    EXPECT_EQ(hand().toolTip("lblNameToUse"), "Name to use in the selected Automatic Animation");
    EXPECT_EQ(hand().toolTip("lblStartName"), "First name to place the animation in");
    EXPECT_EQ(hand().toolTip("lblEndName"), "The last name to place the animation in");
    EXPECT_EQ(hand().text<QPushButton>("cmdBuild"), "Build");
    EXPECT_EQ(hand().toolTip("cmdBuild"), "Build the animation using these settings");
    EXPECT_EQ(hand().text<QPushButton>("cmdCancel"), "Cancel");
    const std::vector<std::pair<const char*, const char*>> options = {
        {"optColor_0", "Color1"}, {"optColor_1", "Color2"}, {"optColor_2", "Switch"},
        {"optCase_0", "Lower"},   {"optCase_1", "Upper"},   {"optCase_2", "Switch"}};
    for (const auto& [name, text] : options) {
        EXPECT_EQ(hand().text<QRadioButton>(name), text);
    }
    EXPECT_TRUE(hand().find<QRadioButton>("optColor_0").isChecked());
    EXPECT_TRUE(hand().find<QRadioButton>("optCase_0").isChecked());

    std::vector<std::string> headings;
    for (const QLabel* label : form->findChildren<QLabel*>()) {
        headings.push_back(label->text().toStdString());
    }
    headings.push_back(form->findChild<QWidget*>("fraStart")->property("title").toString().toStdString());
    for (const char* heading :
         {"1. Choose the first positional option", "2. Choose the second positional option",
          "3. Choose the name to use", "4. Choose a color change option", "5. Choose which color to change",
          "6. Choose a case change option", "7. Choose which case to change",
          "8. Choose where to put the first name", "Start", "End"}) {
        EXPECT_NE(std::find(headings.begin(), headings.end(), heading), headings.end()) << heading;
    }
}

TEST_F(AnimationWizard, OffersTheTitlesAfterNoChange) {
    open();
    const std::vector<std::string> positions = {"No Change", "Stand", "Turn, and turn"};
    const std::vector<std::string> changes = {"No Change", "Flash", "Blink"};
    EXPECT_EQ(entries("cmboPos_1"), positions);
    EXPECT_EQ(entries("cmboPos_2"), positions);
    EXPECT_EQ(entries("cmboColor"), changes);
    EXPECT_EQ(entries("cmboCase"), changes);
    for (const char* list : {"cmboPos_1", "cmboPos_2", "cmboColor", "cmboCase"}) {
        EXPECT_EQ(hand().find<QComboBox>(list).currentIndex(), 0) << list;
    }
}

TEST_F(AnimationWizard, HasBarsWithTheirRangesAndLabels) {
    open();
    const auto& name = hand().find<QScrollBar>("NameToUseScroll");
    EXPECT_EQ(name.minimum(), 1);
    EXPECT_EQ(name.maximum(), 15);
    EXPECT_EQ(name.value(), 15);
    EXPECT_EQ(name.pageStep(), 1);
    EXPECT_EQ(hand().text<QLabel>("lblNameToUse"), "15");
    hand().stepBar("NameToUseScroll", false);
    EXPECT_EQ(hand().text<QLabel>("lblNameToUse"), "14");

    auto& start = hand().find<QScrollBar>("StartNameScroll");
    EXPECT_EQ(start.minimum(), 1);
    EXPECT_EQ(start.maximum(), 76);
    EXPECT_EQ(start.value(), 1);
    EXPECT_EQ(start.pageStep(), 1);
    EXPECT_EQ(hand().text<QLabel>("lblStartName"), "1");
    EXPECT_EQ(hand().text<QLabel>("lblEndName"), "15");
    hand().stepBar("StartNameScroll", true);
    EXPECT_EQ(hand().text<QLabel>("lblStartName"), "2");
    EXPECT_EQ(hand().text<QLabel>("lblEndName"), "16");
    start.setFocus();
    QTest::keyClick(&start, Qt::Key_End);
    EXPECT_EQ(hand().text<QLabel>("lblStartName"), "76");
    EXPECT_EQ(hand().text<QLabel>("lblEndName"), "90");
}

TEST_F(AnimationWizard, SaysThatThereIsNothingToDoAndStays) {
    open();
    platform.dialogs.expectInform("Nothing to do!");
    hand().click("cmdBuild");
    EXPECT_TRUE(form->isVisible());
    EXPECT_FALSE(form->built());
}

TEST_F(AnimationWizard, BuildsWhatIsChosenAndCloses) {
    open();
    pick("cmboPos_1", 2);
    hand().stepBar("NameToUseScroll", false);
    hand().stepBar("NameToUseScroll", false);
    hand().stepBar("StartNameScroll", true);
    hand().stepBar("StartNameScroll", true);
    showTab(1);
    pick("cmboColor", 1);
    hand().choose("optColor_2");
    desk.setName(13, "thirteen");
    hand().click("cmdBuild");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->result(), QDialog::Accepted);
    EXPECT_TRUE(form->built());
    EXPECT_EQ(desk.name(2), "name 2");
    for (int step = 1; step <= 14; ++step) {
        EXPECT_EQ(desk.name(2 + step), "       \xEE\xE5\xE5\xF4\xF2\xE9\xE8\xF4");
    }
    EXPECT_EQ(desk.name(17), "thirteen");
    EXPECT_EQ(desk.name(18), "name 18");
}

TEST_F(AnimationWizard, PassesEveryOptionButtonOn) {
    struct Case {
        const char* list;
        int tab;
        const char* option;
        const char* expected;
    };

    for (const Case& c :
         {Case{"cmboColor", 1, "optColor_0", "\xE1\xE1"}, Case{"cmboColor", 1, "optColor_1", "aa"},
          Case{
              "cmboColor", 1, "optColor_2",
              "\xE1"
              "a"},
          Case{"cmboCase", 2, "optCase_0", "a\xE1"}, Case{"cmboCase", 2, "optCase_1", "A\xC1"},
          Case{"cmboCase", 2, "optCase_2", "A\xC1"}}) {
        SCOPED_TRACE(c.option);
        desk.setName(1, "a\xE1");
        open();
        showTab(c.tab);
        pick(c.list, 1);
        hand().choose(c.option);
        EXPECT_TRUE(hand().find<QRadioButton>(c.option).isChecked());
        hand().click("cmdBuild");
        EXPECT_EQ(desk.name(1), c.expected);
    }
}

TEST_F(AnimationWizard, KeepsColourAndCaseOptionsApart) {
    open();
    showTab(1);
    hand().choose("optColor_2");
    showTab(2);
    hand().choose("optCase_1");
    EXPECT_TRUE(hand().find<QRadioButton>("optColor_2").isChecked());
    EXPECT_TRUE(hand().find<QRadioButton>("optCase_1").isChecked());
}

TEST_F(AnimationWizard, LeavesTheAnimationWhenItIsCancelled) {
    const auto before = desk.animation().nameGlyphs;
    for (const bool byKey : {false, true}) {
        open();
        pick("cmboPos_1", 1);
        if (byKey) {
            QTest::keyClick(form.get(), Qt::Key_Escape);
        } else {
            hand().click("cmdCancel");
        }
        EXPECT_FALSE(form->isVisible());
        EXPECT_EQ(form->result(), QDialog::Rejected);
        EXPECT_FALSE(form->built());
    }
    open();
    pick("cmboPos_1", 1);
    form->close();
    EXPECT_FALSE(form->built());
    EXPECT_EQ(desk.animation().nameGlyphs, before);
}

TEST_F(AnimationWizard, StaysSilentlyWhenAPatternIsMalformed) {
    platform.directory.files.put("vtmani01.dat", "1\r\nShort\r\n1,2,3\r\n");
    open();
    pick("cmboPos_1", 1);
    hand().click("cmdBuild");
    EXPECT_TRUE(form->isVisible());
    EXPECT_FALSE(form->built());
    EXPECT_EQ(desk.name(1), "name 1");
    EXPECT_TRUE(platform.dialogs.calls().empty());
}

TEST_F(AnimationWizard, RemembersThatRowsWereWrittenBeforeItWasCancelled) {
    platform.directory.files.put("vtmani02.dat", "1\r\nShort\r\n1,2,3\r\n");
    open();
    pick("cmboPos_1", 2);
    showTab(1);
    pick("cmboColor", 1);
    hand().click("cmdBuild");
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(desk.name(1), "onmlkjihgfedcba");
    hand().click("cmdCancel");
    EXPECT_TRUE(form->built());
}

TEST_F(AnimationWizard, IsDisabledWithoutItsFilesAndSaysSoOnce) {
    std::filesystem::remove(platform.directory.files / "vtmani02.dat");
    platform.dialogs.expectInform(MissingText);
    open();
    EXPECT_TRUE(QTest::qWaitFor([this] { return platform.dialogs.left() == 0; }));
    for (const char* name :
         {"cmboPos_1", "cmboPos_2", "cmboColor", "cmboCase", "cmdBuild", "NameToUseScroll", "lblNameToUse",
          "StartNameScroll", "lblStartName", "lblEndName"}) {
        EXPECT_FALSE(hand().find<QWidget>(name).isEnabled()) << name;
    }
    for (const char* name : {"SSTab2", "optColor_0", "optCase_2", "cmdCancel"}) {
        EXPECT_TRUE(hand().find<QWidget>(name).isEnabled()) << name;
    }
    EXPECT_EQ(hand().find<QComboBox>("cmboPos_1").count(), 0);
    form->hide();
    form->show();
    QCoreApplication::processEvents();
    EXPECT_EQ(platform.dialogs.calls().size(), 1U);
    hand().click("cmdCancel");
    EXPECT_FALSE(form->built());
}

TEST_F(AnimationWizard, BuildsOnEnter) {
    open();
    auto& list = hand().find<QComboBox>("cmboPos_2");
    pick("cmboPos_2", 1);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(form->built());
}

TEST_F(AnimationWizard, LeadsToTheControlOfEachNumber) {
    open();
    form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    const std::vector<std::pair<int, const char*>> controls = {
        {Qt::Key_4, "cmboColor"},       {Qt::Key_1, "cmboPos_1"}, {Qt::Key_2, "cmboPos_2"},
        {Qt::Key_3, "NameToUseScroll"}, {Qt::Key_6, "cmboCase"},  {Qt::Key_8, "StartNameScroll"},
        {Qt::Key_7, "optCase_0"}};
    for (const auto& [key, name] : controls) {
        QTest::keyClick(form.get(), static_cast<Qt::Key>(key), Qt::AltModifier);
        EXPECT_TRUE(hand().find<QWidget>(name).hasFocus()) << name;
        EXPECT_TRUE(hand().find<QWidget>(name).isVisible()) << name;
    }
    showTab(1);
    hand().choose("optColor_2");
    QTest::keyClick(form.get(), Qt::Key_8, Qt::AltModifier);
    QTest::keyClick(form.get(), Qt::Key_5, Qt::AltModifier);
    EXPECT_TRUE(hand().find<QWidget>("optColor_2").hasFocus()) << "the option that is chosen";
}

TEST_F(AnimationWizard, CtrlTabTurnsThePagesWhateverHasTheFocus) {
    open();
    form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    const auto& tabs = hand().find<QTabWidget>("SSTab2");
    const std::vector<std::vector<const char*>> pages = {
        {"cmboPos_1", "cmboPos_2", "NameToUseScroll"},
        {"cmboColor", "optColor_0"},
        {"cmboCase", "optCase_0"}};
    for (int page = 0; page < tabs.count(); ++page) {
        for (const char* name : pages[static_cast<std::size_t>(page)]) {
            showTab(page);
            hand().find<QWidget>(name).setFocus();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
            EXPECT_EQ(tabs.currentIndex(), (page + 1) % 3) << name;
            showTab(page);
            hand().find<QWidget>(name).setFocus();
            QTest::keyClick(
                QApplication::focusWidget(), Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
            EXPECT_EQ(tabs.currentIndex(), (page + 2) % 3) << name;
        }
    }
    for (const char* name : {"SSTab2", "StartNameScroll", "cmdBuild"}) {
        showTab(0);
        hand().find<QWidget>(name).setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(tabs.currentIndex(), 1) << name;
    }
}

TEST_F(AnimationWizard, ShowsWhichBarHasTheKeyboard) {
    open();
    form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    hand().find<QWidget>("NameToUseScroll").setFocus();
    EXPECT_EQ(hand().find<QLabel>("lblNameToUse").backgroundRole(), QPalette::Highlight);
    hand().find<QWidget>("StartNameScroll").setFocus();
    EXPECT_NE(hand().find<QLabel>("lblNameToUse").backgroundRole(), QPalette::Highlight);
    EXPECT_EQ(hand().find<QLabel>("lblStartName").backgroundRole(), QPalette::Highlight);
}

TEST_F(AnimationWizard, BuildsForServersOnlyWhenAskedTo) {
    open();
    auto& safe = hand().find<QCheckBox>("chkSafeForServers");
    EXPECT_FALSE(safe.isChecked());
    safe.click();
    pick("cmboPos_1", 2);
    hand().click("cmdBuild");
    ASSERT_TRUE(form->built());
    std::set<std::string> names;
    for (int name = 1; name <= 15; ++name) {
        names.insert(desk.name(name));
        EXPECT_EQ(desk.name(name), desk.name((name + 2) / 3 * 3)) << name;
    }
    EXPECT_LE(names.size(), 5U);
}

TEST_F(AnimationWizard, TellsWhenOtherNamesAreTooManyForServers) {
    desk.animation().nameCount = 40;
    open();
    hand().find<QCheckBox>("chkSafeForServers").click();
    pick("cmboPos_1", 2);
    hand().click("cmdBuild");
    EXPECT_EQ(form->statusText(), animation::NotSafeText);
}

TEST_F(AnimationWizard, FitsASmallScreen) {
    open();
    EXPECT_LE(form->width(), 512);
    EXPECT_LE(form->height(), 384);
}
