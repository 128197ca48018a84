// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "PaintRecorder.h"
#include "ui/qt/MarkerShape.h"
#include "ui/qt/PictureWidget.h"

#include <QApplication>
#include <QImage>
#include <QTest>
#include <gtest/gtest.h>

namespace {

using ui::qt::MarkerShape;
using ui::qt::PictureWidget;
using Style = MarkerShape::Style;

constexpr QRgb Green = 0xFF00FF00U;
constexpr QRgb Black = 0xFF000000U;
constexpr QRgb White = 0xFFFFFFFFU;
constexpr QRgb Blue = 0xFF0000FFU;

/// A page of blue with a marker on it.
class MarkerTest : public testing::Test {
protected:
    MarkerTest() {
        page.setPicture(&picture);
        marker.setColour(Qt::green);
        marker.moveToCell(3, 2);
        marker.show();
        page.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&page));
        QCoreApplication::processEvents();
    }

    QImage shown(double scale = 1) {
        QImage image((QSizeF(page.size()) * scale).toSize(), QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        page.render(&image);
        return image;
    }

    /// The pixels of the outline, clockwise from its left upper corner.
    std::vector<QRgb> outline() {
        const QImage image = shown();
        std::vector<QRgb> pixels;
        for (int i = 0; i < 15; ++i) {
            pixels.push_back(image.pixel(32 + i, 16));
        }
        for (int i = 0; i < 15; ++i) {
            pixels.push_back(image.pixel(47, 16 + i));
        }
        for (int i = 0; i < 15; ++i) {
            pixels.push_back(image.pixel(47 - i, 31));
        }
        for (int i = 0; i < 15; ++i) {
            pixels.push_back(image.pixel(32, 31 - i));
        }
        return pixels;
    }

    ui::Picture picture{240, 64, 0xFF0000FFU};
    PictureWidget page;
    MarkerShape marker{&page};
};

TEST_F(MarkerTest, IsHiddenUntilItIsShown) {
    const MarkerShape fresh(&page);
    EXPECT_TRUE(fresh.isHidden());
}

TEST_F(MarkerTest, StandsOnItsCell) {
    EXPECT_EQ(marker.geometry(), QRect(32, 16, 16, 16));
    marker.moveToCell(1, 1);
    EXPECT_EQ(marker.geometry(), QRect(0, 0, 16, 16));
}

TEST_F(MarkerTest, IsDashedAtFirst) {
    EXPECT_EQ(marker.style(), Style::Dashed);
    const auto pixels = outline();
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        EXPECT_EQ(pixels[i], i % 6 < 4 ? Green : Black) << i;
    }
}

TEST_F(MarkerTest, IsDottedAfterABlink) {
    marker.toggleStyle();
    EXPECT_EQ(marker.style(), Style::Dotted);
    const auto pixels = outline();
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        EXPECT_EQ(pixels[i], i % 2 == 0 ? Green : Black) << i;
    }
    marker.toggleStyle();
    EXPECT_EQ(marker.style(), Style::Dashed);
}

TEST_F(MarkerTest, BlinksBetweenDottedAndSolidInThePicker) {
    MarkerShape frame(&page, Style::Solid);
    EXPECT_EQ(frame.style(), Style::Solid);
    frame.toggleStyle();
    EXPECT_EQ(frame.style(), Style::Dotted);
    frame.toggleStyle();
    EXPECT_EQ(frame.style(), Style::Solid);
    marker.setStyle(Style::Solid);
    for (const QRgb pixel : outline()) {
        EXPECT_EQ(pixel, Green);
    }
    marker.toggleStyle();
    EXPECT_EQ(marker.style(), Style::Dotted);
}

TEST_F(MarkerTest, TellsItsStyleByName) {
    EXPECT_EQ(marker.property("style").value<Style>(), Style::Dashed);
}

TEST_F(MarkerTest, LetsTheGlyphShowInside) {
    const QImage image = shown();
    EXPECT_EQ(image.pixel(33, 17), Blue);
    EXPECT_EQ(image.pixel(46, 30), Blue);
    EXPECT_EQ(image.pixel(31, 16), Blue);
    EXPECT_EQ(image.pixel(48, 16), Blue);
}

TEST_F(MarkerTest, IsSeenOverAGlyphOfItsOwnColour) {
    for (const QRgb colour : {Green, Black, White}) {
        picture.fill(picture.bounds(), colour);
        marker.setColour(QColor(colour));
        int unlike = 0;
        for (const QRgb pixel : outline()) {
            unlike += pixel == colour ? 0 : 1;
        }
        EXPECT_EQ(unlike, 20) << std::hex << colour;
    }
}

TEST_F(MarkerTest, StaysSharpOnAScaledScreen) {
    const QImage image = shown(2);
    const QImage small = shown(1);
    for (int y = 32; y < 64; ++y) {
        for (int x = 64; x < 96; ++x) {
            ASSERT_EQ(image.pixel(x, y), small.pixel(x / 2, y / 2)) << x << "," << y;
        }
    }
}

TEST_F(MarkerTest, IsEquallyThickOnAllSidesWhereTheScaleIsNotWhole) {
    marker.setStyle(Style::Solid);
    const QImage image = shown(1.5);
    for (int along = 48; along < 72; ++along) {
        for (const int depth : {0, 1}) {
            EXPECT_EQ(image.pixel(along, 24 + depth), Green) << "above " << along;
            EXPECT_EQ(image.pixel(along, 47 - depth), Green) << "below " << along;
            EXPECT_EQ(image.pixel(48 + depth, along - 24), Green) << "left " << along;
            EXPECT_EQ(image.pixel(71 - depth, along - 24), Green) << "right " << along;
        }
    }
    for (int along = 50; along < 70; ++along) {
        EXPECT_EQ(image.pixel(along, 26), Blue);
        EXPECT_EQ(image.pixel(along, 45), Blue);
        EXPECT_EQ(image.pixel(50, along - 24), Blue);
        EXPECT_EQ(image.pixel(69, along - 24), Blue);
    }
}

TEST_F(MarkerTest, RepaintsOnlyItsCellWhenItBlinks) {
    PaintRecorder recorder(page);
    marker.toggleStyle();
    QCoreApplication::processEvents();
    EXPECT_EQ(recorder.painted(), QRegion(32, 16, 16, 16));
    recorder.forget();
    marker.setColour(Qt::red);
    QCoreApplication::processEvents();
    EXPECT_EQ(recorder.painted(), QRegion(32, 16, 16, 16));
    recorder.forget();
    marker.setColour(Qt::red);
    marker.setStyle(marker.style());
    QCoreApplication::processEvents();
    EXPECT_TRUE(recorder.painted().isEmpty());
}

TEST_F(MarkerTest, RepaintsOnlyTwoCellsWhenItMoves) {
    PaintRecorder recorder(page);
    marker.moveToCell(7, 4);
    QCoreApplication::processEvents();
    EXPECT_EQ(recorder.painted(), QRegion(32, 16, 16, 16) + QRegion(96, 48, 16, 16));
}

TEST_F(MarkerTest, LetsTheMouseThrough) {
    QPoint pixel;
    QObject::connect(&page, &PictureWidget::pressed, [&](QPoint where) { pixel = where; });
    QWidget* target = page.childAt(40, 20);
    EXPECT_EQ(target, nullptr);
    QTest::mousePress(page.windowHandle(), Qt::LeftButton, {}, QPoint(40, 20));
    EXPECT_EQ(pixel, QPoint(40, 20));
}

} // namespace
