// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/CellMarks.h"
#include "ui/qt/PictureWidget.h"

#include <QImage>
#include <QTest>
#include <gtest/gtest.h>

namespace {

constexpr QRgb PageBlue = 0xFF0000FFU;
constexpr int MarkedSide = 16;

/// A page of blue, two cells high and four wide.
class Marks : public testing::Test {
protected:
    Marks() {
        page.setPicture(&picture);
        page.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&page));
    }

    [[nodiscard]] QImage shown(double scale = 1) {
        QImage image((QSizeF(page.size()) * scale).toSize(), QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        page.render(&image);
        return image;
    }

    /// How many pixels of a picture are not the page's.
    static int marked(const QImage& image) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                count += image.pixel(x, y) == PageBlue ? 0 : 1;
            }
        }
        return count;
    }

    ui::Picture picture{4 * MarkedSide, 2 * MarkedSide, PageBlue};
    ui::qt::PictureWidget page;
    ui::qt::CellMarks marks{&page};
};

} // namespace

TEST_F(Marks, AreHiddenAtFirstAndWithoutCells) {
    EXPECT_FALSE(marks.isVisible());
    marks.mark({{0, 0, MarkedSide, MarkedSide}});
    EXPECT_TRUE(marks.isVisible());
    marks.mark({});
    EXPECT_FALSE(marks.isVisible());
    EXPECT_EQ(marked(shown()), 0);
}

TEST_F(Marks, ALineLiesAlongTheFootOfItsCellAlone) {
    marks.mark({{2 * MarkedSide, MarkedSide, MarkedSide, MarkedSide}});
    const QImage image = shown();
    EXPECT_EQ(marked(image), 2 * MarkedSide);
    for (int x = 2 * MarkedSide; x < 3 * MarkedSide; ++x) {
        EXPECT_NE(image.pixel(x, 2 * MarkedSide - 1), PageBlue) << x;
        EXPECT_NE(image.pixel(x, 2 * MarkedSide - 2), PageBlue) << x;
    }
}

TEST_F(Marks, TheLineIsOfWholePixelsAtEveryScale) {
    marks.mark({{0, 0, MarkedSide, MarkedSide}, {3 * MarkedSide, MarkedSide, MarkedSide, MarkedSide}});
    const QImage image = shown(2);
    EXPECT_EQ(marked(image), 2 * (2 * MarkedSide) * 4);
}

TEST_F(Marks, TheMousePassesThrough) {
    marks.mark({{0, 0, MarkedSide, MarkedSide}});
    int presses = 0;
    QObject::connect(&page, &ui::qt::PictureWidget::pressed, &page, [&presses] { ++presses; });
    QTest::mouseClick(page.window()->windowHandle(), Qt::LeftButton, {}, QPoint(8, 15));
    EXPECT_EQ(presses, 1);
}
