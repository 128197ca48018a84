// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "MainWindow.h"
#include "animation/RowTimes.h"
#include "ui/qt/PictureWidget.h"

#include <QAbstractScrollArea>

#include <QFont>
#include <QScrollBar>

using animation::RowTimes;
using editing::Page;

namespace {

/// Counts how often a widget is asked to lay itself out.
class LayoutCounter final : public QObject {
public:
    explicit LayoutCounter(QWidget& widget) { widget.installEventFilter(this); }

    int count = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        count += event->type() == QEvent::LayoutRequest ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
};

class Zoom : public MainWindow {
protected:
    [[nodiscard]] int zoomOf(const char* picture) const {
        return find<ui::qt::PictureWidget>(picture)->zoom();
    }

    void resize(int width, int height) const {
        window->resize(width, height);
        QApplication::processEvents();
    }
};

TEST_F(Zoom, EnlargesGridAndPagesAndIsRemembered) {
    startOn(Page::Name);
    const QSize before = window->size();
    choose("mnuViewZoom_2");
    EXPECT_EQ(find("ImgGrid")->size(), QSize(512, 512));
    EXPECT_EQ(find("NamePic")->size(), QSize(480, 32));
    EXPECT_EQ(find("MacPic")->size(), QSize(992, 96));
    EXPECT_EQ(find("AniPicBox")->size(), QSize(480, 480));
    EXPECT_TRUE(QTest::qWaitFor([&] { return window->height() > before.height(); }));
    window->close();
    EXPECT_EQ(fake.settings.read("view", "zoom"), "2");
    start();
    EXPECT_EQ(find("ImgGrid")->size(), QSize(512, 512));
    EXPECT_TRUE(find<QAction>("mnuViewZoom_2")->isChecked());
}

TEST_F(Zoom, TakesNothingElseFromTheStore) {
    for (const char* const stored : {"7", "-1", "x", ""}) {
        fake.settings.write("view", "zoom", stored);
        start();
        EXPECT_EQ(zoomOf("ImgGrid"), 1) << stored;
        window.reset();
    }
}

TEST_F(Zoom, LeavesTheMouseWhereItPoints) {
    startOn(Page::Name);
    choose("mnuViewZoom_3");
    click("ImgGrid", {16 * 3 * 1 + 20, 16 * 3 * 6 + 20});
    EXPECT_EQ(row().front(), 'a');
    click("NamePic", {16 * 3 * 4 + 20, 20});
    EXPECT_EQ(column(), 5);
    EXPECT_EQ(find("NamePosShape")->geometry(), QRect(16 * 3 * 4, 0, 48, 48));
}

TEST_F(Zoom, FitsTheWindow) {
    startOn(Page::Name);
    choose("mnuViewZoom_0");
    resize(1900, 1000);
    EXPECT_GE(zoomOf("ImgGrid"), 2);
    EXPECT_GE(zoomOf("NamePic"), 3);
    EXPECT_FALSE(find<QScrollBar>("NameScroll")->isHidden());
    const auto fits = [this] {
        const auto* const centre = find<QAbstractScrollArea>("center");
        return centre->horizontalScrollBar()->maximum() == 0 && centre->verticalScrollBar()->maximum() == 0;
    };
    for (const char* const page : {"mnuView_1", "mnuView_2", "mnuView_0"}) {
        choose(page);
        EXPECT_TRUE(QTest::qWaitFor(fits)) << page;
    }
    resize(100, 100);
    EXPECT_EQ(zoomOf("ImgGrid"), 1);
    EXPECT_EQ(zoomOf("AniPic"), 1);
    EXPECT_TRUE(QTest::qWaitFor(fits));
}

TEST_F(Zoom, ComesToRestInAWindowOfAnySize) {
    startOn(Page::Animation);
    QFont large = window->font();
    large.setPointSizeF(1.3 * large.pointSizeF());
    window->setFont(large);
    choose("mnuViewZoom_0");
    LayoutCounter requests(*find<QAbstractScrollArea>("center")->viewport()->findChild<QWidget*>());
    for (int width = 1000; width < 1500; width += 4) {
        resize(width, 1100);
        for (int round = 0; round < 10; ++round) {
            QApplication::processEvents();
        }
        requests.count = 0;
        QApplication::processEvents();
        QApplication::processEvents();
        EXPECT_EQ(requests.count, 0) << width;
    }
}

TEST_F(Zoom, ShowsTicksAndTimesWhereThereIsRoom) {
    startOn(Page::Animation);
    resize(1600, 1000);
    auto* const times = find<RowTimes>("rowTimes");
    ASSERT_TRUE(times->isVisible());
    EXPECT_EQ(times->texts()[1], (RowTimes::RowText{"2", "0.10 s"}));
    EXPECT_EQ(text("lblLength"), "15 names, 30 ticks, 1.50 s");
    workspace().documents.animation.ticks(1) = 15;
    press(Qt::Key_Home);
    EXPECT_EQ(times->texts()[0], (RowTimes::RowText{"15", "0.00 s"}));
    EXPECT_EQ(times->texts()[1], (RowTimes::RowText{"2", "0.75 s"}));
    EXPECT_EQ(text("lblLength"), "15 names, 43 ticks, 2.15 s");
    find<QScrollBar>("AniTotalScroll")->setValue(20);
    find<QScrollBar>("VScroll1")->setValue(6);
    EXPECT_EQ(times->texts()[14], (RowTimes::RowText{"2", "2.55 s"}));
    resize(100, 100);
    EXPECT_FALSE(times->isVisible());
    EXPECT_FALSE(find("lblLength")->isVisible());
}

} // namespace
