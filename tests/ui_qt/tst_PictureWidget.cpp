// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "PaintRecorder.h"
#include "ui/qt/MarkerShape.h"
#include "ui/qt/PictureWidget.h"

#include <QApplication>
#include <QFrame>
#include <QImage>
#include <QPainter>
#include <QTest>
#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace {

using ui::qt::MarkerShape;
using ui::qt::PictureWidget;

constexpr ui::Pixel Red = 0xFFFF0000U;

/// A picture no two neighbouring pixels of which are alike.
ui::Picture Pattern(int width, int height) {
    ui::Picture picture(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            picture.setPixel(
                x, y,
                ui::OpaquePixel(
                    static_cast<unsigned>(x * 7), static_cast<unsigned>(y * 5),
                    static_cast<unsigned>((x + y) % 2) * 255U));
        }
    }
    return picture;
}

/// What the widget shows on a screen of that scale.
QImage Shown(QWidget& widget, double scale = 1.0) {
    QImage image(widget.size() * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::magenta);
    widget.render(&image);
    return image;
}

void Show(QWidget& widget) {
    widget.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
    QCoreApplication::processEvents();
}

TEST(PictureWidget, ShowsEveryPixelAsItIs) {
    const ui::Picture picture = Pattern(37, 21);
    PictureWidget widget;
    widget.setPicture(&picture);
    EXPECT_EQ(widget.size(), QSize(37, 21));
    const QImage shown = Shown(widget);
    for (int y = 0; y < 21; ++y) {
        for (int x = 0; x < 37; ++x) {
            ASSERT_EQ(shown.pixel(x, y), picture.pixel(x, y)) << x << "," << y;
        }
    }
}

TEST(PictureWidget, ShowsEveryPixelAsAWholeBlockOnAScaledScreen) {
    const ui::Picture picture = Pattern(37, 21);
    PictureWidget widget;
    widget.setPicture(&picture);
    for (const int scale : {2, 3}) {
        const QImage shown = Shown(widget, scale);
        for (int y = 0; y < 21 * scale; ++y) {
            for (int x = 0; x < 37 * scale; ++x) {
                ASSERT_EQ(shown.pixel(x, y), picture.pixel(x / scale, y / scale)) << x << "," << y;
            }
        }
    }
}

TEST(PictureWidget, NeverMixesPixelsOnAScreenOfABrokenScale) {
    const ui::Picture picture = Pattern(32, 32);
    PictureWidget widget;
    widget.setPicture(&picture);
    for (const double scale : {1.25, 1.5, 1.75}) {
        const QImage shown = Shown(widget, scale);
        for (int y = 0; y < shown.height(); ++y) {
            for (int x = 0; x < shown.width(); ++x) {
                const auto left = static_cast<int>(x / scale);
                const auto top = static_cast<int>(y / scale);
                bool isOneOfThem = false;
                for (int dy = -1; dy <= 1; ++dy) {
                    for (int dx = -1; dx <= 1; ++dx) {
                        const int px = std::clamp(left + dx, 0, 31);
                        const int py = std::clamp(top + dy, 0, 31);
                        isOneOfThem = isOneOfThem || shown.pixel(x, y) == picture.pixel(px, py);
                    }
                }
                ASSERT_TRUE(isOneOfThem) << scale << ": " << x << "," << y;
            }
        }
    }
}

TEST(PictureWidget, PaintsAPartAsThePartOfTheWhole) {
    const ui::Picture picture = Pattern(64, 64);
    PictureWidget widget;
    widget.setPicture(&picture);
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        const QImage whole = Shown(widget, scale);
        QImage parts(whole.size(), QImage::Format_RGB32);
        parts.setDevicePixelRatio(scale);
        for (int y = 0; y < 64; y += 16) {
            for (int x = 0; x < 64; x += 16) {
                widget.render(&parts, QPoint(x, y), QRegion(x, y, 16, 16));
            }
        }
        EXPECT_EQ(parts, whole) << scale;
    }
}

TEST(PictureWidget, ShowsThePicturesOwnMemory) {
    ui::Picture picture(32, 16);
    PictureWidget widget;
    widget.setPicture(&picture);
    Shown(widget);
    picture.setPixel(5, 6, Red);
    EXPECT_EQ(Shown(widget).pixel(5, 6), Red);
}

TEST(PictureWidget, RepaintsOnlyTheDamage) {
    ui::Picture picture(240, 240);
    PictureWidget widget;
    widget.setPicture(&picture);
    Show(widget);
    PaintRecorder recorder(widget);
    widget.showDamage({32, 48, 16, 16});
    QCoreApplication::processEvents();
    EXPECT_EQ(recorder.painted(), QRegion(32, 48, 16, 16));

    recorder.forget();
    widget.showDamage({0, 0, 16, 16});
    widget.showDamage({64, 64, 16, 16});
    QCoreApplication::processEvents();
    EXPECT_EQ(recorder.pixels(), 2 * 16 * 16);

    recorder.forget();
    widget.showDamage({});
    QCoreApplication::processEvents();
    EXPECT_TRUE(recorder.painted().isEmpty());
}

TEST(PictureWidget, GrowsWithItsPicture) {
    ui::Picture picture(16, 16);
    PictureWidget widget;
    widget.setPicture(&picture);
    picture = ui::Picture(48, 32, Red);
    widget.showDamage(picture.bounds());
    EXPECT_EQ(widget.size(), QSize(48, 32));
    EXPECT_EQ(Shown(widget).pixel(47, 31), Red);
}

TEST(PictureWidget, ShowsNothingWithoutAPicture) {
    PictureWidget widget;
    EXPECT_EQ(widget.size(), QSize(0, 0));
    widget.showDamage({0, 0, 16, 16});
    const ui::Picture picture(16, 16, Red);
    widget.setPicture(&picture);
    EXPECT_EQ(widget.size(), QSize(16, 16));
    widget.setPicture(nullptr);
    EXPECT_EQ(widget.size(), QSize(0, 0));
}

struct Press {
    QPoint pixel;
    Qt::MouseButton button = Qt::NoButton;
};

TEST(PictureWidget, ReportsPressesWithTheirPixelAndButton) {
    const ui::Picture picture(64, 64);
    PictureWidget widget;
    widget.setPicture(&picture);
    Show(widget);
    std::vector<Press> presses;
    QObject::connect(&widget, &PictureWidget::pressed, [&](QPoint pixel, Qt::MouseButton button) {
        presses.push_back({pixel, button});
    });
    QTest::mousePress(&widget, Qt::LeftButton, {}, QPoint(15, 16));
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, QPoint(40, 40));
    QTest::mousePress(&widget, Qt::RightButton, {}, QPoint(63, 0));
    QTest::mouseRelease(&widget, Qt::RightButton, {}, QPoint(63, 0));
    ASSERT_EQ(presses.size(), 2U);
    EXPECT_EQ(presses[0].pixel, QPoint(15, 16));
    EXPECT_EQ(presses[0].button, Qt::LeftButton);
    EXPECT_EQ(presses[1].pixel, QPoint(63, 0));
    EXPECT_EQ(presses[1].button, Qt::RightButton);
}

TEST(PictureWidget, CountsTheLastPartOfAPixelToThatPixel) {
    const ui::Picture picture(64, 64);
    PictureWidget widget;
    widget.setPicture(&picture);
    QPoint pixel;
    QObject::connect(&widget, &PictureWidget::pressed, [&](QPoint where) { pixel = where; });
    QMouseEvent press(
        QEvent::MouseButtonPress, QPointF(15.75, 31.5), widget.mapToGlobal(QPointF(15.75, 31.5)),
        Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &press);
    EXPECT_EQ(pixel, QPoint(15, 31));
}

TEST(PictureWidget, TakesADoubleClickAsTwoPresses) {
    const ui::Picture picture(64, 64);
    PictureWidget widget;
    widget.setPicture(&picture);
    Show(widget);
    int presses = 0;
    QObject::connect(&widget, &PictureWidget::pressed, [&] { ++presses; });
    QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(5, 5));
    QTest::mouseDClick(&widget, Qt::LeftButton, {}, QPoint(5, 5));
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(presses, 2);
}

TEST(PictureWidget, FollowsThePointerOnlyWhenAsked) {
    const ui::Picture picture(64, 64);
    PictureWidget widget;
    widget.setPicture(&picture);
    Show(widget);
    std::vector<QPoint> moves;
    int leaves = 0;
    QObject::connect(&widget, &PictureWidget::pointerMoved, [&](QPoint pixel) { moves.push_back(pixel); });
    QObject::connect(&widget, &PictureWidget::pointerLeft, [&] { ++leaves; });
    // Told to the window itself: over the screen's pointer there may be another test's that is not gone yet.
    QTest::mouseMove(widget.windowHandle(), QPoint(20, 30));
    EXPECT_TRUE(moves.empty());
    widget.setHoverTracking(true);
    QTest::mouseMove(widget.windowHandle(), QPoint(21, 31));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !moves.empty() && moves.back() == QPoint(21, 31); }));
    const int leavesBefore = leaves;
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&widget, &leave);
    EXPECT_EQ(leaves, leavesBefore + 1);
}

TEST(PictureWidget, ReportsMovesWithAButtonHeldEvenOutside) {
    const ui::Picture picture(64, 64);
    PictureWidget widget;
    widget.setPicture(&picture);
    Show(widget);
    QPoint moved;
    Qt::MouseButtons held;
    QObject::connect(&widget, &PictureWidget::pointerMoved, [&](QPoint pixel, Qt::MouseButtons buttons) {
        moved = pixel;
        held = buttons;
    });
    QMouseEvent drag(
        QEvent::MouseMove, QPointF(-0.5, 70.0), widget.mapToGlobal(QPointF(-0.5, 70.0)), Qt::NoButton,
        Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &drag);
    EXPECT_EQ(moved, QPoint(-1, 70));
    EXPECT_EQ(held, Qt::LeftButton);
}

TEST(PictureWidget, MovesWithinItsFramePaintingOnlyWhatComesIntoView) {
    const ui::Picture picture = Pattern(240, 1440);
    QFrame frame;
    frame.setFixedSize(240, 240);
    PictureWidget widget(&frame);
    widget.setPicture(&picture);
    MarkerShape marker(&widget);
    marker.moveToCell(3, 4);
    marker.show();
    Show(frame);
    PaintRecorder recorder(widget);
    PaintRecorder frameRecorder(frame);
    widget.move(0, -16);
    QCoreApplication::processEvents();
    EXPECT_EQ(recorder.painted(), QRegion(0, 240, 240, 16));
    EXPECT_TRUE(frameRecorder.painted().isEmpty());
    const QImage shown = frame.grab().toImage();
    EXPECT_EQ(shown.pixel(0, 0), picture.pixel(0, 16));
    EXPECT_EQ(shown.pixel(239, 239), picture.pixel(239, 255));

    recorder.forget();
    widget.move(0, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(recorder.painted(), QRegion(0, 0, 240, 16));
}

} // namespace
