// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/DirectionPad.h"

#include <QImage>
#include <QPixmap>
#include <QTransform>
#include <cmath>
#include <gtest/gtest.h>

namespace {

using editing::DirectionPad;

/// The pad in black on white, and how much of each pixel an arrow covers.
class PadPicture : public testing::Test {
protected:
    PadPicture() {
        QPalette palette;
        palette.setColor(QPalette::Button, Qt::white);
        palette.setColor(QPalette::ButtonText, Qt::black);
        pad.setPalette(palette);
    }

    /// A key without its frame.
    [[nodiscard]] QImage arrow(int index) {
        constexpr int Frame = 3;
        return pad.grab(DirectionPad::arrowRect(index).adjusted(Frame, Frame, -Frame, -Frame))
            .toImage()
            .convertToFormat(QImage::Format_Grayscale8);
    }

    static double covered(const QImage& image, int x, int y) {
        return (255 - qGray(image.pixel(x, y))) / 255.0;
    }

    static void expectAlike(const QImage& first, const QImage& second) {
        ASSERT_EQ(first.size(), second.size());
        for (int y = 0; y < first.height(); ++y) {
            for (int x = 0; x < first.width(); ++x) {
                EXPECT_NEAR(covered(first, x, y), covered(second, x, y), 0.1) << x << ',' << y;
            }
        }
    }

    DirectionPad pad;
};

} // namespace

TEST_F(PadPicture, HasNoOtherSize) {
    EXPECT_EQ(pad.minimumSize(), pad.sizeHint());
    EXPECT_EQ(pad.maximumSize(), pad.sizeHint());
}

TEST_F(PadPicture, HoldsTrianglesOfElevenByNinePixels) {
    for (int index = 0; index < 4; ++index) {
        const QImage image = arrow(index);
        double sum = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                sum += covered(image, x, y);
            }
        }
        EXPECT_NEAR(sum, 11 * 9 / 2.0, 1) << index;
    }
}

TEST_F(PadPicture, IsTheSameOnBothSides) {
    for (int index = 0; index < 4; ++index) {
        const QImage image = arrow(index);
        const bool isUpright = DirectionPad::arrowRect(index).center().x() == pad.rect().center().x();
        expectAlike(image, image.mirrored(isUpright, !isUpright));
    }
}

TEST_F(PadPicture, PointsEachArrowOutwards) {
    for (int index = 0; index < 4; ++index) {
        const QImage image = arrow(index);
        // An arrow is widest behind the middle of its key.
        double x = 0;
        double y = 0;
        for (int row = 0; row < image.height(); ++row) {
            for (int column = 0; column < image.width(); ++column) {
                x += covered(image, column, row) * (column + 0.5 - image.width() / 2.0);
                y += covered(image, column, row) * (row + 0.5 - image.height() / 2.0);
            }
        }
        const QPoint key = DirectionPad::arrowRect(index).center() - pad.rect().center();
        const bool isUpright = key.x() == 0;
        EXPECT_NEAR(isUpright ? x : y, 0, 1) << index;
        EXPECT_EQ((isUpright ? y : x) > 0, (isUpright ? key.y() : key.x()) < 0) << index;
        EXPECT_GT(std::abs(isUpright ? y : x), 20) << index;
    }
}
