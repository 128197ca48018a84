// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/PlayerLook.h"
#include "ui/qt/OwnColors.h"

#include <QApplication>
#include <QComboBox>
#include <QStyle>
#include <gtest/gtest.h>

namespace {

int LightnessOf(QComboBox& list) {
    list.addItem({});
    list.setPalette(animation::PlayerPalette());
    const QImage picture = list.grab().toImage();
    return picture.pixelColor(picture.rect().center()).lightness();
}

TEST(OwnColors, ShowWhereTheStyleOfTheSystemHasOthers) {
    ASSERT_NE(QApplication::style()->name(), QStringLiteral("fusion"));
    QComboBox list;
    ui::qt::ShowOwnColors(list);
    EXPECT_LT(LightnessOf(list), 100);
}

} // namespace
