// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/WizardStrip.h"

#include "animation/AnimationDesk.h"
#include "animation/FormTest.h"
#include "animation/PatternFiles.h"
#include "animation/PatternList.h"
#include "animation/frmAniWiz.h"
#include "ui/qt/LineLabel.h"
#include "ui/qt/PictureWidget.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QProxyStyle>
#include <QRadioButton>
#include <QScreen>
#include <QStyleFactory>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>

#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

/// A desktop on which nothing moves by itself.
class StillStyle final : public QProxyStyle {
public:
    StillStyle()
        : QProxyStyle(QStringLiteral("fusion")) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* data)
        const override {
        return hint == SH_Widget_Animation_Duration ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

struct StripOfWizard : testing::Test {
    support::AnimationDesk desk;
    support::FakePlatform platform;
    std::unique_ptr<animation::frmAniWiz> form;

    StripOfWizard() {
        const auto typed = [](int step, int position) {
            return position <= step ? position : 0;
        };
        const auto reversed = [](int, int position) {
            return 16 - position;
        };
        std::vector<std::pair<std::string, support::PatternCell>> movements = {
            {"Typed", typed}, {"Turned", reversed}};
        while (movements.size() < 60) {
            movements.emplace_back("Movement " + std::to_string(movements.size()), typed);
        }
        platform.directory.files.put("vtmani01.dat", support::PatternFile(movements));
        platform.directory.files.put("vtmani02.dat", support::PatternFile({{"All", [](int, int) {
                                                                                return 1;
                                                                            }}}));
        desk.fillNames(90);
        desk.setName(15, "abcdefghijklmno");
    }

    void open() {
        form = std::make_unique<animation::frmAniWiz>(
            desk.animation(), glyphs::CaseChoice::LettersOnly, desk.atlas, platform.dialogs, platform.files,
            platform.directory);
        form->show();
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }

    [[nodiscard]] support::FormHand hand() const { return support::FormHand(*form); }

    [[nodiscard]] animation::PatternList& list(const char* name) const {
        return hand().find<animation::PatternList>(name);
    }

    [[nodiscard]] bool plays() const { return hand().find<QTimer>("StripTimer").isActive(); }

    [[nodiscard]] std::string note() const { return hand().text<ui::qt::LineLabel>("lblTrial"); }

    /// Whether the strip shows these glyphs, and blanks after them.
    [[nodiscard]] bool shows(const std::string& text) const {
        glyphs::PagePicture expected(editing::NameLength, 1);
        for (int column = 1; column <= editing::NameLength; ++column) {
            const auto at = static_cast<std::size_t>(column - 1);
            const glyphs::GlyphCode code =
                at < text.size() ? static_cast<unsigned char>(text[at]) : glyphs::BlankGlyph;
            glyphs::PaintGlyph(expected.canvas(), desk.atlas, code, column, 1);
        }
        return *hand().find<ui::qt::PictureWidget>("picTrial").picture() == expected.pixels();
    }

    [[nodiscard]] bool comesToShow(const std::string& text) const {
        return QTest::qWaitFor([&] { return shows(text); });
    }
};

} // namespace

TEST_F(StripOfWizard, ShowsTheNameWithoutATimerAsLongAsNothingIsChosen) {
    open();
    EXPECT_TRUE(shows("abcdefghijklmno"));
    EXPECT_FALSE(plays());
    EXPECT_EQ(note(), " ");
    hand().stepBar("NameToUseScroll", false);
    EXPECT_TRUE(shows("name 14"));
}

TEST_F(StripOfWizard, PlaysWhatIsChosenAgainAndAgain) {
    open();
    for (int row = 1; row <= 15; ++row) {
        desk.animation().ticks(row) = 1;
    }
    const editing::AnimationDocument before = desk.animation();
    list("cmboPos_1").setCurrentIndex(1);
    EXPECT_TRUE(plays());
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(comesToShow("abc"));
        EXPECT_TRUE(comesToShow("abcdefghijk"));
        EXPECT_TRUE(comesToShow("abcdefghijklmno"));
    }
    EXPECT_EQ(desk.animation(), before);
    EXPECT_EQ(platform.files.count(support::FailingFiles::Step::Read), 2) << "patterns are in memory";
}

TEST_F(StripOfWizard, FollowsEveryChoice) {
    open();
    desk.setName(15, "ab");
    list("cmboPos_1").setCurrentIndex(2);
    EXPECT_TRUE(shows("             ba"));
    EXPECT_TRUE(plays());
    hand().find<QTabWidget>("SSTab2").setCurrentIndex(1);
    list("cmboColor").setCurrentIndex(1);
    EXPECT_TRUE(shows("             \xE2\xE1"));
    hand().choose("optColor_1");
    EXPECT_TRUE(shows("             ba"));
    hand().find<QTabWidget>("SSTab2").setCurrentIndex(2);
    list("cmboCase").setCurrentIndex(1);
    hand().choose("optCase_1");
    EXPECT_TRUE(shows("             BA"));
    list("cmboPos_1").setCurrentIndex(0);
    EXPECT_TRUE(shows("NAME 1"));
    hand().stepBar("StartNameScroll", true);
    EXPECT_TRUE(shows("NAME 2"));
}

TEST_F(StripOfWizard, ShowsTheFiveNamesThatAreSafeForServers) {
    open();
    list("cmboPos_1").setCurrentIndex(1);
    EXPECT_TRUE(shows("a"));
    hand().find<QCheckBox>("chkSafeForServers").click();
    EXPECT_TRUE(shows("abc"));
}

TEST_F(StripOfWizard, HasNoTimerWhileItIsNotSeen) {
    open();
    list("cmboPos_1").setCurrentIndex(1);
    ASSERT_TRUE(plays());
    form->hide();
    EXPECT_FALSE(plays());
    form->show();
    EXPECT_TRUE(plays());
}

TEST_F(StripOfWizard, CanBePaused) {
    open();
    auto& pause = hand().find<QToolButton>("cmdPause");
    EXPECT_FALSE(pause.autoRaise()) << "a label has no frame";
    EXPECT_EQ(pause.text(), QStringLiteral("&Pause"));
    list("cmboPos_1").setCurrentIndex(1);
    QTest::keyClick(form.get(), Qt::Key_P, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !plays(); }));
    EXPECT_EQ(pause.text(), QStringLiteral("&Play"));
    list("cmboPos_1").setCurrentIndex(3);
    list("cmboPos_1").setCurrentIndex(2);
    EXPECT_TRUE(shows("onmlkjihgfedcba"));
    list("cmboPos_1").setCurrentIndex(1);
    EXPECT_TRUE(shows("abcdefgh")) << "a name from the middle";
    EXPECT_EQ(hand().find<QWidget>("picTrial").accessibleDescription(), QStringLiteral("Name 8: abcdefgh"));
    hand().click("cmdPause");
    EXPECT_TRUE(plays());
    EXPECT_TRUE(shows("a")) << "from the beginning";
}

TEST_F(StripOfWizard, IsPausedWhereTheDesktopWantsNothingToMove) {
    QApplication::setStyle(new StillStyle);
    open();
    list("cmboPos_1").setCurrentIndex(1);
    EXPECT_FALSE(plays());
    EXPECT_EQ(hand().text<QToolButton>("cmdPause"), "&Play");
    form.reset();
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("fusion")));
}

TEST_F(StripOfWizard, TellsWhenAShortNameLeavesNamesBlank) {
    open();
    EXPECT_EQ(note(), " ");
    desk.setName(14, "");
    hand().stepBar("NameToUseScroll", false);
    EXPECT_EQ(note(), "Name 14 is blank: choose another");
    EXPECT_LE(hand().find<QWidget>("lblTrial").sizeHint().width(), hand().find<QWidget>("lblTrial").width());
}

TEST_F(StripOfWizard, PlaysWhatAnOpenListOffers) {
    open();
    auto& movements = list("cmboPos_1");
    movements.setFocus();
    movements.showPopup();
    QTest::keyClick(movements.view(), Qt::Key_Down);
    EXPECT_TRUE(shows("a"));
    EXPECT_TRUE(plays());
    QTest::keyClick(movements.view(), Qt::Key_Down);
    EXPECT_TRUE(shows("onmlkjihgfedcba"));
    QTest::keyClick(movements.view(), Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !movements.view()->isVisible(); }));
    EXPECT_EQ(movements.currentIndex(), 0);
    EXPECT_TRUE(shows("abcdefghijklmno")) << "nothing is chosen after all";
    EXPECT_FALSE(plays());
    movements.showPopup();
    QTest::keyClick(movements.view(), Qt::Key_Home);
    QTest::keyClick(movements.view(), Qt::Key_Down);
    QTest::keyClick(movements.view(), Qt::Key_Return);
    EXPECT_EQ(movements.currentIndex(), 1);
    EXPECT_TRUE(plays());
}

TEST_F(StripOfWizard, IsNotCoveredByAnOpenList) {
    open();
    const QRect screen = form->screen()->availableGeometry();
    const auto& strip = hand().find<animation::WizardStrip>("strip");
    const std::vector<std::pair<const char*, int>> lists = {
        {"cmboPos_1", 0}, {"cmboPos_2", 0}, {"cmboColor", 1}, {"cmboCase", 2}};
    for (const QPoint corner :
         {screen.topLeft(), screen.center() - form->rect().center(),
          screen.bottomRight() - form->rect().bottomRight(),
          QPoint(screen.right() - form->width(), screen.bottom() - 150),
          QPoint(screen.left(), screen.bottom() - 150)}) {
        form->move(corner);
        for (const auto& [name, page] : lists) {
            hand().find<QTabWidget>("SSTab2").setCurrentIndex(page);
            auto& movements = list(name);
            for (const int chosen : {0, movements.count() - 1}) {
                movements.setCurrentIndex(chosen);
                movements.showPopup();
                const QRect opened = movements.view()->window()->geometry();
                EXPECT_FALSE(opened.intersects(strip.globalArea()))
                    << name << ' ' << corner.x() << ' ' << corner.y();
                EXPECT_TRUE(screen.contains(opened)) << name << ' ' << corner.x() << ' ' << corner.y();
                movements.hidePopup();
            }
        }
    }
}

TEST_F(StripOfWizard, ComesAfterTheChoicesForTheKeyboard) {
    open();
    const std::set<std::string> ofTheTabs = {"qt_tabwidget_tabbar", "ScrollLeftButton", "ScrollRightButton"};
    const QWidget* const tabs = &hand().find<QTabWidget>("SSTab2");
    std::vector<std::string> order;
    for (const QWidget* widget = tabs->nextInFocusChain(); widget != tabs;
         widget = widget->nextInFocusChain()) {
        const std::string name = widget->objectName().toStdString();
        if ((widget->focusPolicy() & Qt::TabFocus) != 0 && !ofTheTabs.contains(name)) {
            order.push_back(name);
        }
    }
    const std::vector<std::string> expected = {
        "cmboPos_1",  "cmboPos_2",       "NameToUseScroll",   "cmboColor", "optColor_0",
        "optColor_1", "optColor_2",      "cmboCase",          "optCase_0", "optCase_1",
        "optCase_2",  "StartNameScroll", "chkSafeForServers", "cmdPause"};
    order.resize(std::min(order.size(), expected.size()));
    EXPECT_EQ(order, expected);
}
