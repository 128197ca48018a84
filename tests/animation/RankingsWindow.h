// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "animation/frmRankings.h"

#include "animation/AnimationDesk.h"
#include "animation/FormTest.h"
#include "ui/qt/PictureWidget.h"

#include <QImage>
#include <QTimer>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>

namespace support {

/// The preview in a window of its own.
struct RankingsWindow : testing::Test {
    AnimationDesk desk;
    FakePlatform platform;
    games::FamilyChoice games{true, true, true};
    std::optional<animation::BoardLine> chosenLine;
    std::unique_ptr<animation::frmRankings> form;

    RankingsWindow() {
        desk.fillNames(15);
        animation::SetAllTicks(desk.animation(), 1);
        putScreenShot("shot.bmp", 640, 480);
    }

    void putScreenShot(const char* name, int width, int height) {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::darkGreen);
        ASSERT_TRUE(image.save(QString::fromStdString((platform.directory.files / name).string()), "BMP"));
    }

    void open(const std::string& screenShot = "shot.bmp", QSize size = {1024, 768}) {
        form = std::make_unique<animation::frmRankings>(
            desk.animation(), desk.pictures.animation.pixels(),
            animation::RankingsChoices{
                .screenShot = screenShot, .sounds = desk.soundOptions, .games = games, .line = chosenLine},
            platform.platform);
        form->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get()));
        EXPECT_TRUE(form->isFullScreen());
        form->resize(size);
        QCoreApplication::processEvents();
    }

    [[nodiscard]] FormHand hand() const { return FormHand(*form); }

    /// The name in the strip, told from where the copied picture stands.
    [[nodiscard]] int shownName() const {
        const auto& picture = hand().find<ui::qt::PictureWidget>("AniPic");
        const int row = hand().find<QWidget>("AniPicBox").height();
        EXPECT_EQ(picture.x(), 0);
        EXPECT_EQ(picture.y() % row, 0);
        return 1 - picture.y() / row;
    }

    /// A name as it is painted now.
    [[nodiscard]] QImage paintedName(int name) const {
        const ui::Picture& picture = desk.pictures.animation.pixels();
        QImage image(240, 16, QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y) {
            std::copy_n(
                picture.row((name - 1) * image.height() + y), image.width(),
                reinterpret_cast<QRgb*>(image.scanLine(y)));
        }
        return image;
    }

    [[nodiscard]] bool isPlaying() const { return hand().find<QTimer>("AniTimer").isActive(); }

    bool waitForEnd() const {
        return QTest::qWaitFor([this] { return !isPlaying(); }, 20000);
    }

    [[nodiscard]] QRect geometry(const char* name) const { return hand().find<QWidget>(name).geometry(); }
};

} // namespace support
