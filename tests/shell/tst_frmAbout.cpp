// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/mdlData.h"
#include "shell/AboutBanner.h"
#include "shell/Product.h"
#include "shell/frmAbout.h"
#include "support/FakePlatform.h"
#include "ui/qt/PictureWidget.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class AboutBox : public testing::Test {
protected:
    support::FakePlatform fake;
    glyphs::GlyphAtlas atlas;
    std::unique_ptr<shell::frmAbout> box;

    void SetUp() override {
        ui::Picture artwork(128, 128, ui::OpaquePixel(10, 20, 30));
        artwork.fill({0, 8, 128, 120}, ui::OpaquePixel(200, 100, 0));
        atlas = glyphs::BuildAtlas(artwork, ui::OpaqueBlack);
        open();
    }

    void open() {
        box = std::make_unique<shell::frmAbout>(fake.platform, atlas);
        box->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(box.get()));
    }

    QPushButton* button(const char* name) {
        auto* const found = box->findChild<QPushButton*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
};

} // namespace

TEST_F(AboutBox, SaysWhatTheProgramIs) {
    EXPECT_EQ(box->windowTitle(), "About VTM");
    EXPECT_EQ(box->objectName(), "frmAbout");
    EXPECT_TRUE(box->findChild<QLabel*>("lblVersion")->text().contains(shell::ProductVersion));
    EXPECT_TRUE(box->findChild<QLabel*>("lblLicence")->text().contains("MIT"));
    EXPECT_EQ(*box->findChild<ui::qt::PictureWidget*>("picBanner")->picture(), shell::AboutBanner(atlas));
}

TEST_F(AboutBox, OkClosesIt) {
    QTest::mouseClick(button("cmdOK"), Qt::LeftButton);
    EXPECT_FALSE(box->isVisible());
    EXPECT_TRUE(fake.launcher.launches.empty());
}

TEST_F(AboutBox, TheWebSiteOpensAndTheBoxStays) {
    QTest::mouseClick(button("cmdGotoVTM"), Qt::LeftButton);
    ASSERT_EQ(fake.launcher.launches.size(), 1U);
    EXPECT_EQ(fake.launcher.launches[0].address, shell::WebSiteAddress);
    EXPECT_TRUE(box->isVisible());
    fake.launcher.finish(33);
}

TEST_F(AboutBox, AMailIsStarted) {
    QTest::mouseClick(button("cmdEmailMe"), Qt::LeftButton);
    ASSERT_EQ(fake.launcher.launches.size(), 1U);
    EXPECT_EQ(
        fake.launcher.launches[0].address,
        std::string("mailto:") + shell::SupportMailAddress + "?subject=VTM Help");
    fake.launcher.finish(33);
}

TEST_F(AboutBox, ALaunchErrorIsShownOverTheBox) {
    QTest::mouseClick(button("cmdGotoVTM"), Qt::LeftButton);
    fake.dialogs.expectInform("No association for file extension");
    fake.launcher.finish(31);
    EXPECT_TRUE(box->isVisible());
}

TEST_F(AboutBox, AnyKeyClosesIt) {
    for (const auto key :
         {Qt::Key_A, Qt::Key_Space, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab, Qt::Key_F5, Qt::Key_Left,
          Qt::Key_Delete}) {
        open();
        QTest::keyClick(box.get(), key);
        EXPECT_FALSE(box->isVisible()) << key;
    }
    EXPECT_TRUE(fake.launcher.launches.empty());
}

TEST_F(AboutBox, SpaceOnAButtonClosesItAndPressesNothing) {
    for (const char* name : {"cmdGotoVTM", "cmdEmailMe", "cmdOK"}) {
        open();
        button(name)->setFocus();
        QTest::keyClick(button(name), Qt::Key_Space);
        EXPECT_FALSE(box->isVisible()) << name;
    }
    EXPECT_TRUE(fake.launcher.launches.empty());
}

TEST_F(AboutBox, AModifierAloneLeavesItOpen) {
    for (const auto key : {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_Meta}) {
        QTest::keyClick(box.get(), key);
        EXPECT_TRUE(box->isVisible()) << key;
    }
}

TEST_F(AboutBox, TheButtonsAreReachedByTheirMnemonics) {
    box->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(box.get()));
    QTest::keyClick(box.get(), Qt::Key_W, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return fake.launcher.launches.size() == 1; }));
    QTest::keyClick(box.get(), Qt::Key_E, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return fake.launcher.launches.size() == 2; }));
    EXPECT_TRUE(box->isVisible());
    fake.launcher.finish(33);
    fake.launcher.finish(33);
}

TEST(AboutBanner, PaintsTheNameInTheGlyphsInUse) {
    // Artwork in which every glyph is a plain square of a colour of its own.
    ui::Picture artwork(128, 128);
    for (int code = 0; code < 256; ++code) {
        artwork.fill(
            {code % 16 * 8, code / 16 * 8, 8, 8}, ui::OpaquePixel(static_cast<unsigned>(code), 1, 2));
    }
    const auto banner = shell::AboutBanner(glyphs::BuildAtlas(artwork, ui::OpaqueBlack));
    ASSERT_EQ(banner.bounds(), (ui::Rect{0, 0, 320, 96}));
    const int left = (320 - 7 * 32) / 2;
    const std::vector<unsigned> codes = {'V' + 128U, 'o', 'r', 't', 'i', 'g', 'o'};
    for (std::size_t i = 0; i < codes.size(); ++i) {
        EXPECT_EQ(banner.pixel(left + static_cast<int>(i) * 32 + 16, 48), ui::OpaquePixel(codes[i], 1, 2));
    }
    EXPECT_EQ(banner.pixel(8, 8), ui::OpaquePixel(29, 1, 2));
    EXPECT_EQ(banner.pixel(160, 8), ui::OpaquePixel(30, 1, 2));
    EXPECT_EQ(banner.pixel(311, 87), ui::OpaquePixel(31, 1, 2));
    EXPECT_EQ(banner.pixel(0, 0), ui::OpaquePixel(32, 1, 2));
}
