// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/AnimationPage.h"

#include "animation/AnimationDesk.h"
#include "animation/FormTest.h"
#include "ui/qt/MarkerShape.h"
#include "ui/qt/PictureWidget.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace {

using animation::AnimationPage;

struct AnimationPanel : testing::Test {
    support::AnimationDesk desk;
    std::unique_ptr<AnimationPage> page;

    void open() {
        page = std::make_unique<AnimationPage>(desk.animation(), desk.pictures.animation);
        obey();
        page->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(page.get()));
        page->refresh();
    }

    /// Does with the document what the page tells, as the window does.
    void obey() {
        QObject::connect(page.get(), &AnimationPage::cursorMoved, page.get(), [this](int column, int row) {
            desk.animation().cursorPos = column;
            desk.animation().currentName = row;
            page->refresh();
        });
        QObject::connect(page.get(), &AnimationPage::totalChosen, page.get(), [this](int count) {
            animation::SetNameCount(desk.animation(), count);
            page->refresh();
        });
        QObject::connect(page.get(), &AnimationPage::ticksChosen, page.get(), [this](int count, bool forAll) {
            const auto ticks = static_cast<std::int16_t>(count);
            if (forAll) {
                animation::SetAllTicks(desk.animation(), ticks);
            } else {
                animation::SetTicks(desk.animation(), desk.animation().currentName, ticks);
            }
            page->refresh();
        });
    }

    [[nodiscard]] support::FormHand hand() const { return support::FormHand(*page); }

    [[nodiscard]] QScrollBar& bar(const char* name) const { return hand().find<QScrollBar>(name); }

    [[nodiscard]] std::string label(const char* name) const { return hand().text<QLabel>(name); }

    [[nodiscard]] std::string shownTicks() const {
        return hand().find<QComboBox>("ThisTickList").currentText().toStdString();
    }

    [[nodiscard]] QPoint marker() const { return hand().find<QWidget>("AniPosShape").pos(); }

    /// Opens a list with the mouse and chooses an entry.
    void pick(const char* name, int index) const {
        auto& list = hand().find<QComboBox>(name);
        QTest::mousePress(&list, Qt::LeftButton, {}, QPoint(list.width() - 8, list.height() / 2));
        ASSERT_TRUE(QTest::qWaitFor([&list] { return list.view()->isVisible(); }));
        QTest::keyClick(list.view(), Qt::Key_Home);
        for (int i = 0; i < index; ++i) {
            QTest::keyClick(list.view(), Qt::Key_Down);
        }
        QTest::keyClick(list.view(), Qt::Key_Return);
        EXPECT_TRUE(QTest::qWaitFor([&list] { return !list.view()->isVisible(); }));
        QTest::mouseRelease(&list, Qt::LeftButton);
    }

    /// Turns the mouse wheel over a widget by one notch.
    void turnWheel(const char* name, bool down) const {
        auto& widget = hand().find<QWidget>(name);
        const QPoint centre = widget.rect().center();
        QWheelEvent event(
            centre, widget.mapToGlobal(centre), QPoint(), QPoint(0, down ? -120 : 120), Qt::NoButton,
            Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &event);
    }
};

} // namespace

TEST_F(AnimationPanel, KeepsItsControlsBesideTheNamesInALargeWindow) {
    open();
    page->resize(1200, 900);
    QCoreApplication::processEvents();
    const auto placeOf = [this](const char* name) {
        const auto& widget = hand().find<QWidget>(name);
        return QRect(widget.mapTo(page.get(), QPoint(0, 0)), widget.size());
    };
    const QRect names = placeOf("AniPicBox");
    EXPECT_LE(std::abs(names.center().y() - page->rect().center().y()), 20);
    for (const char* name : {"AniTotalScroll", "ThisTickList", "cmdName_3"}) {
        EXPECT_GE(placeOf(name).top(), names.top() - 2) << name;
        EXPECT_LE(placeOf(name).bottom(), names.bottom()) << name;
    }
    EXPECT_EQ(placeOf("VScroll1").height(), names.height() + 2);
}

TEST_F(AnimationPanel, CarriesItsTexts) {
    open();
    const std::vector<std::array<const char*, 3>> buttons = {
        {"cmdName_0", "Insert", "Insert a new name at the cursor"},
        {"cmdName_1", "Delete", "Delete the current name"},
        {"cmdName_2", "Move Up", "Move current name up"},
        {"cmdName_3", "Move Dn", "Move current name down"}};
    for (const auto& [name, text, toolTip] : buttons) {
        EXPECT_EQ(hand().text<QPushButton>(name), text);
        EXPECT_EQ(hand().toolTip(name), toolTip);
    }
    EXPECT_EQ(hand().toolTip("AniPic"), "The names in the aniimation");
    EXPECT_EQ(hand().toolTip("lblAniTotalNum"), "The total names");
    EXPECT_EQ(hand().toolTip("lblAniNameNum"), "The current name");
    EXPECT_EQ(hand().toolTip("ThisTickList"), "Set this names tick");
    EXPECT_EQ(hand().toolTip("TickList"), "Set all ticks to selected number");
    std::vector<std::string> labels;
    for (const QLabel* found : page->findChildren<QLabel*>()) {
        labels.push_back(found->text().toStdString());
    }
    for (const char* text : {"Total:", "Name:", "Wait:", "Set All:"}) {
        EXPECT_NE(std::find(labels.begin(), labels.end(), text), labels.end()) << text;
    }
}

TEST_F(AnimationPanel, StartsOnNameFifteenOfFifteen) {
    open();
    EXPECT_EQ(bar("AniTotalScroll").minimum(), 15);
    EXPECT_EQ(bar("AniTotalScroll").maximum(), 90);
    EXPECT_EQ(bar("AniTotalScroll").value(), 15);
    EXPECT_EQ(bar("AniScroll").minimum(), 1);
    EXPECT_EQ(bar("AniScroll").maximum(), 15);
    EXPECT_EQ(bar("AniScroll").value(), 15);
    EXPECT_EQ(bar("AniNameScroll").minimum(), 1);
    EXPECT_EQ(bar("AniNameScroll").maximum(), 15);
    EXPECT_EQ(bar("AniNameScroll").value(), 1);
    EXPECT_EQ(bar("VScroll1").minimum(), 1);
    EXPECT_EQ(bar("VScroll1").maximum(), 1);
    EXPECT_EQ(bar("VScroll1").pageStep(), 10);
    for (const char* name : {"AniTotalScroll", "AniScroll", "AniNameScroll"}) {
        EXPECT_EQ(bar(name).pageStep(), 1) << name;
    }
    EXPECT_EQ(label("lblAniTotalNum"), "15");
    EXPECT_EQ(label("lblAniNameNum"), "15");
    EXPECT_EQ(label("lblNum_0"), "1");
    EXPECT_EQ(label("lblNum_1"), "15");
    EXPECT_EQ(shownTicks(), "2");
    EXPECT_EQ(hand().find<QComboBox>("TickList").currentIndex(), -1);
    for (const char* name : {"ThisTickList", "TickList"}) {
        const auto& list = hand().find<QComboBox>(name);
        ASSERT_EQ(list.count(), 16) << name;
        for (int ticks = 0; ticks <= 15; ++ticks) {
            EXPECT_EQ(list.itemText(ticks), QString::number(ticks));
        }
    }
    EXPECT_EQ(hand().find<QWidget>("AniPicBox").size(), QSize(240, 240));
    EXPECT_EQ(marker(), QPoint(0, 14 * 16));
}

TEST_F(AnimationPanel, LeavesTheKeyboardToTyping) {
    open();
    for (const QWidget* widget : page->findChildren<QWidget*>()) {
        if (widget->window() == page.get()) {
            EXPECT_EQ(widget->focusPolicy(), Qt::NoFocus) << widget->objectName().toStdString();
        }
    }
}

TEST_F(AnimationPanel, FollowsTheBarsOfTheUser) {
    desk.fillNames(15);
    animation::SetTicks(desk.animation(), 14, 7);
    open();
    QSignalSpy acted(page.get(), &AnimationPage::userActed);
    QSignalSpy moved(page.get(), &AnimationPage::cursorMoved);
    hand().stepBar("AniScroll", false);
    EXPECT_EQ(desk.animation().currentName, 14);
    EXPECT_EQ(label("lblAniNameNum"), "14");
    EXPECT_EQ(shownTicks(), "7");
    EXPECT_EQ(marker(), QPoint(0, 13 * 16));
    hand().stepBar("AniNameScroll", true);
    EXPECT_EQ(desk.animation().cursorPos, 2);
    EXPECT_EQ(marker(), QPoint(16, 13 * 16));
    EXPECT_EQ(acted.count(), 2);
    EXPECT_EQ(moved.count(), 2);
}

TEST_F(AnimationPanel, RaisesAndLowersTheTotal) {
    desk.fillNames(90);
    open();
    QSignalSpy added(page.get(), &AnimationPage::namesAdded);
    hand().stepBar("AniTotalScroll", true);
    EXPECT_EQ(desk.animation().nameCount, 16);
    EXPECT_EQ(label("lblAniTotalNum"), "16");
    EXPECT_EQ(bar("AniScroll").maximum(), 16);
    EXPECT_EQ(bar("VScroll1").maximum(), 2);
    ASSERT_EQ(added.count(), 1);
    EXPECT_EQ(added[0][0].toInt(), 16);
    hand().stepBar("AniScroll", true);
    EXPECT_EQ(desk.animation().currentName, 16);
    hand().stepBar("AniTotalScroll", false);
    EXPECT_EQ(desk.animation().nameCount, 15);
    EXPECT_EQ(desk.animation().currentName, 15) << "kept within the names";
    EXPECT_EQ(label("lblAniNameNum"), "15");
    EXPECT_EQ(marker(), QPoint(0, 14 * 16));
    EXPECT_EQ(added.count(), 1);
}

TEST_F(AnimationPanel, ShowsFromRowOneOnWhenTheTotalChanges) {
    animation::SetNameCount(desk.animation(), 90);
    open();
    EXPECT_EQ(bar("VScroll1").maximum(), 76);
    bar("VScroll1").setValue(40);
    hand().stepBar("AniTotalScroll", false);
    EXPECT_EQ(bar("VScroll1").value(), 1);
    EXPECT_EQ(bar("VScroll1").maximum(), 75);
    EXPECT_EQ(label("lblNum_0"), "1");
    EXPECT_EQ(label("lblNum_1"), "15");
}

TEST_F(AnimationPanel, ScrollsTheViewByRowsAlways15OfThem) {
    animation::SetNameCount(desk.animation(), 90);
    open();
    const auto& picture = hand().find<QWidget>("AniPic");
    hand().stepBar("VScroll1", true);
    EXPECT_EQ(bar("VScroll1").value(), 2);
    EXPECT_EQ(picture.pos(), QPoint(0, -16));
    hand().pageBar("VScroll1", true);
    EXPECT_EQ(bar("VScroll1").value(), 12);
    EXPECT_EQ(picture.pos(), QPoint(0, -11 * 16));
    for (int first = 1; first <= 76; ++first) {
        bar("VScroll1").setValue(first);
        EXPECT_EQ(label("lblNum_0"), std::to_string(first));
        EXPECT_EQ(label("lblNum_1"), std::to_string(first + 14));
        EXPECT_EQ(picture.y(), -(first - 1) * 16);
    }
}

TEST_F(AnimationPanel, ScrollsWithTheWheelOverTheNames) {
    animation::SetNameCount(desk.animation(), 40);
    open();
    for (const char* name : {"AniPic", "AniPicBox"}) {
        bar("VScroll1").setValue(10);
        turnWheel(name, true);
        EXPECT_GT(bar("VScroll1").value(), 10) << name;
        EXPECT_EQ(label("lblNum_0"), std::to_string(bar("VScroll1").value()));
        turnWheel(name, false);
        EXPECT_EQ(bar("VScroll1").value(), 10) << name;
    }
    EXPECT_EQ(desk.animation().currentName, 15) << "the cursor stays";
}

TEST_F(AnimationPanel, NeverMovesTheViewToFollowTheCursor) {
    animation::SetNameCount(desk.animation(), 90);
    open();
    desk.animation().currentName = 80;
    page->refresh();
    EXPECT_EQ(bar("VScroll1").value(), 1);
    EXPECT_EQ(hand().find<QWidget>("AniPic").y(), 0);
    EXPECT_EQ(marker(), QPoint(0, 79 * 16));
    bar("VScroll1").setValue(30);
    hand().stepBar("AniScroll", false);
    EXPECT_EQ(bar("VScroll1").value(), 30);
}

TEST_F(AnimationPanel, SetsTheTicksOfTheCurrentName) {
    animation::SetNameCount(desk.animation(), 20);
    open();
    QSignalSpy acted(page.get(), &AnimationPage::userActed);
    pick("ThisTickList", 9);
    EXPECT_EQ(desk.animation().ticks(15), 9);
    EXPECT_EQ(desk.animation().ticks(14), 2);
    EXPECT_EQ(desk.animation().ticks(16), 2);
    EXPECT_EQ(shownTicks(), "9");
    EXPECT_EQ(acted.count(), 1);
    pick("ThisTickList", 0);
    EXPECT_EQ(desk.animation().ticks(15), 0);
    pick("ThisTickList", 0);
    EXPECT_EQ(desk.animation().ticks(15), 0);
    EXPECT_EQ(shownTicks(), "0");
}

TEST_F(AnimationPanel, SetsTheTicksOfAllNamesInUse) {
    animation::SetNameCount(desk.animation(), 20);
    open();
    pick("TickList", 11);
    for (int name = 1; name <= 90; ++name) {
        EXPECT_EQ(desk.animation().ticks(name), name <= 20 ? 11 : 2) << "row " << name;
    }
    EXPECT_EQ(shownTicks(), "11");
    EXPECT_EQ(hand().find<QComboBox>("TickList").currentText().toStdString(), "11");
}

TEST_F(AnimationPanel, SetsNoTicksWhenTheWheelPassesOverItsLists) {
    animation::SetTicks(desk.animation(), 15, 7);
    open();
    for (const char* name : {"TickList", "ThisTickList"}) {
        turnWheel(name, true);
        turnWheel(name, false);
        turnWheel(name, true);
    }
    EXPECT_EQ(desk.animation().ticks(1), 2);
    EXPECT_EQ(desk.animation().ticks(15), 7);
    EXPECT_EQ(shownTicks(), "7");
    EXPECT_EQ(hand().find<QComboBox>("TickList").currentText(), QString());
}

TEST_F(AnimationPanel, ShowsTicksThatAreNotOffered) {
    animation::SetTicks(desk.animation(), 15, 40);
    animation::SetTicks(desk.animation(), 14, 3);
    open();
    EXPECT_EQ(shownTicks(), "40");
    EXPECT_TRUE(hand().find<QComboBox>("ThisTickList").lineEdit()->isReadOnly());
    hand().stepBar("AniScroll", false);
    EXPECT_EQ(shownTicks(), "3");
    EXPECT_EQ(hand().find<QComboBox>("ThisTickList").currentIndex(), 3);
    hand().stepBar("AniScroll", true);
    EXPECT_EQ(shownTicks(), "40");
    EXPECT_EQ(desk.animation().ticks(15), 40) << "showing a count sets nothing";
    pick("ThisTickList", 2);
    EXPECT_EQ(desk.animation().ticks(15), 2);
}

TEST_F(AnimationPanel, UnfoldsItsListsByTheirTextToo) {
    open();
    for (const char* name : {"ThisTickList", "TickList"}) {
        auto& list = hand().find<QComboBox>(name);
        QTest::mouseClick(list.lineEdit(), Qt::LeftButton);
        ASSERT_TRUE(QTest::qWaitFor([&list] { return list.view()->isVisible(); })) << name;
        EXPECT_FALSE(list.lineEdit()->hasSelectedText()) << "it is no text to be edited or copied";
        list.hidePopup();
    }
    EXPECT_EQ(desk.animation().ticks(15), 2);
}

TEST_F(AnimationPanel, RefreshShowsTicksThatChangedElsewhere) {
    open();
    animation::SetAllTicks(desk.animation(), 6);
    page->refresh();
    EXPECT_EQ(shownTicks(), "6");
}

TEST_F(AnimationPanel, DoesNotTakeProgrammaticChangesForTheUsers) {
    open();
    QSignalSpy acted(page.get(), &AnimationPage::userActed);
    QSignalSpy moved(page.get(), &AnimationPage::cursorMoved);
    QSignalSpy chosen(page.get(), &AnimationPage::totalChosen);
    animation::SetNameCount(desk.animation(), 60);
    desk.animation().currentName = 50;
    desk.animation().cursorPos = 9;
    page->refresh();
    EXPECT_EQ(acted.count() + moved.count() + chosen.count(), 0);
    EXPECT_EQ(desk.animation().nameCount, 60);
    EXPECT_EQ(desk.animation().currentName, 50);
    EXPECT_EQ(desk.animation().cursorPos, 9);
    EXPECT_EQ(bar("AniTotalScroll").value(), 60);
    EXPECT_EQ(bar("AniScroll").value(), 50);
    EXPECT_EQ(bar("AniNameScroll").value(), 9);
    EXPECT_EQ(bar("VScroll1").maximum(), 46);
    EXPECT_EQ(marker(), QPoint(8 * 16, 49 * 16));
}

TEST_F(AnimationPanel, AsksForNamesThatAnOperationBroughtIntoUse) {
    open();
    QSignalSpy added(page.get(), &AnimationPage::namesAdded);
    animation::SetNameCount(desk.animation(), 30);
    page->refresh();
    ASSERT_EQ(added.count(), 1);
    EXPECT_EQ(added[0][0].toInt(), 16);
    animation::SetNameCount(desk.animation(), 15);
    page->refresh();
    EXPECT_EQ(added.count(), 1);
}

TEST_F(AnimationPanel, TellsItsButtonsApart) {
    open();
    QSignalSpy clicked(page.get(), &AnimationPage::nameButtonClicked);
    for (const char* name : {"cmdName_0", "cmdName_1", "cmdName_2", "cmdName_3"}) {
        hand().click(name);
    }
    ASSERT_EQ(clicked.count(), 4);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(clicked[i][0].toInt(), i);
    }
}

TEST_F(AnimationPanel, TellsWhereItsPictureIsPressed) {
    animation::SetNameCount(desk.animation(), 40);
    open();
    bar("VScroll1").setValue(11);
    QSignalSpy pressed(page.get(), &AnimationPage::picturePressed);
    // The frame's fourth row shows name 14.
    QTest::mouseClick(
        &hand().find<QWidget>("AniPic"), Qt::RightButton, {},
        hand().find<QWidget>("AniPic").mapFrom(
            &hand().find<QWidget>("AniPicBox"), QPoint(5 * 16 + 3, 3 * 16 + 2)));
    ASSERT_EQ(pressed.count(), 1);
    EXPECT_EQ(pressed[0][0].toInt() / 16, 5);
    EXPECT_EQ(pressed[0][1].toInt() / 16, 13);
    EXPECT_EQ(pressed[0][2].value<Qt::MouseButton>(), Qt::RightButton);
}

TEST_F(AnimationPanel, SaysWhichGlyphsBreakTheScript) {
    desk.setName(2, "a\"b");
    open();
    auto& picture = hand().find<QWidget>("AniPic");
    const auto toolTipAt = [&picture](QPoint pixel) {
        QHelpEvent help(QEvent::ToolTip, pixel, picture.mapToGlobal(pixel));
        QApplication::sendEvent(&picture, &help);
        return QToolTip::text().toStdString();
    };
    EXPECT_EQ(toolTipAt({8, 24}), "The names in the aniimation");
    EXPECT_EQ(
        toolTipAt({24, 24}), "The names in the aniimation\nGlyph 34 breaks the line that it is saved in");
}

TEST_F(AnimationPanel, ShowsThePaintedNames) {
    desk.fillNames(15);
    open();
    const QImage shown =
        hand().find<QWidget>("AniPicBox").grab().toImage().convertToFormat(QImage::Format_RGB32);
    const ui::Picture& painted = desk.pictures.animation.pixels();
    for (int y = 0; y < 240; ++y) {
        for (int x = 0; x < 240; ++x) {
            // The marker lies over the first cell of name 15.
            if (x >= 16 || y < 224) {
                ASSERT_EQ(shown.pixel(x, y), painted.pixel(x, y)) << x << ',' << y;
            }
        }
    }
}
