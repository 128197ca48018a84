// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/QtClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <gtest/gtest.h>

namespace {

TEST(QtClipboard, CarriesEveryByteAsOneCharacter) {
    std::string bytes;
    for (int i = 0; i < 256; ++i) {
        bytes.push_back(static_cast<char>(i));
    }
    ui::qt::QtClipboard().setText(bytes);
    const QString text = QGuiApplication::clipboard()->text();
    ASSERT_EQ(text.size(), 256);
    for (int i = 0; i < 256; ++i) {
        EXPECT_EQ(text.at(i).unicode(), i);
    }
}

TEST(QtClipboard, ReplacesWhatWasThere) {
    ui::qt::QtClipboard clipboard;
    clipboard.setPicture(ui::Picture(16, 16));
    clipboard.setText("name");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("name"));
    EXPECT_TRUE(QGuiApplication::clipboard()->image().isNull());
    clipboard.setText("");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QString());
}

TEST(QtClipboard, CarriesUnicodeBothWays) {
    ui::qt::QtClipboard clipboard;
    clipboard.setUtf8("⟦é😀");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("⟦é😀"));
    const auto text = clipboard.text(10);
    ASSERT_EQ(text.size(), 3U);
    EXPECT_EQ(text[0].code, U'⟦');
    EXPECT_EQ(text[0].parts, U"⟦");
    EXPECT_EQ(text[1].code, U'é');
    EXPECT_EQ(text[1].parts, U"e\u0301") << "the letter and its accent";
    EXPECT_EQ(text[2].code, U'😀');
}

TEST(QtClipboard, ReadsNoMoreThanIsWanted) {
    ui::qt::QtClipboard clipboard;
    clipboard.setUtf8("a😀é😀b");
    const auto read = [&clipboard](std::size_t most) {
        std::u32string codes;
        for (const ui::TextCharacter& character : clipboard.text(most)) {
            codes.push_back(character.code);
        }
        return codes;
    };
    EXPECT_EQ(read(5), U"a😀é😀b");
    EXPECT_EQ(read(4), U"a😀é😀");
    EXPECT_EQ(read(2), U"a😀");
    EXPECT_EQ(read(1), U"a");
    EXPECT_EQ(read(0), U"");
}

TEST(QtClipboard, HoldsNoTextWhenItHoldsAPicture) {
    ui::qt::QtClipboard clipboard;
    clipboard.setPicture(ui::Picture(16, 16));
    EXPECT_TRUE(clipboard.text(10).empty());
}

TEST(QtClipboard, KeepsThePictureWhenItsMemoryIsGone) {
    ui::qt::QtClipboard clipboard;
    clipboard.setText("name");
    {
        ui::Picture picture(16, 16);
        picture.setPixel(3, 5, 0xFF123456U);
        clipboard.setPicture(picture);
        picture.fill(picture.bounds(), 0xFFFFFFFFU);
    }
    const QImage image = QGuiApplication::clipboard()->image();
    ASSERT_EQ(image.size(), QSize(16, 16));
    EXPECT_EQ(image.pixel(3, 5), 0xFF123456U);
    EXPECT_EQ(image.pixel(0, 0), 0xFF000000U);
    EXPECT_FALSE(QGuiApplication::clipboard()->mimeData()->hasText());
}

} // namespace
