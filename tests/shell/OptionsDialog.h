// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "shell/frmOptions.h"
#include "support/FakePlatform.h"
#include "ui/qt/PictureWidget.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QTabWidget>
#include <QTest>

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

/// The options dialog over a platform of fakes, in a program directory of its own that holds the real
/// character sets.
class OptionsDialog : public testing::Test {
protected:
    support::FakePlatform fake;
    shell::Settings settings;
    glyphs::CharSetRecord charSet;
    glyphs::GlyphAtlas atlas;
    editing::KeyMaps keys;
    std::vector<glyphs::GlyphCode> pickerStarts;
    glyphs::GlyphCode picked = 200;
    std::vector<int> removedPlaces;
    std::unique_ptr<shell::frmOptions> dialog;

    void SetUp() override {
        for (const char* name : {"vtmtc.dat", "vtmgrid.dat"}) {
            fake.directory.files.put(name, fake.disk.read(ui::Path(VTM_PROGRAM_DIR) / name).value());
        }
        shell::Defaults(settings, fake.directory.folder());
        useCharSet(0);
    }

    /// Puts the character set at a place (0-based) of the list into use.
    void useCharSet(std::int16_t place) {
        settings.charSet = place;
        const glyphs::CharSet set = glyphs::LoadCharSet(fake.files, fake.directory, place + 1).value();
        charSet = set.record;
        atlas = glyphs::BuildAtlas(set.artwork, settings.colours[0]);
    }

    /// Gives the set at a place (0-based) of the list another web address.
    void putAddress(std::size_t place, std::string_view address) const {
        std::string list = fake.directory.files.content("vtmtc.dat");
        std::string field(address);
        field.resize(glyphs::WebAddressWidth, ' ');
        list.replace(place * glyphs::CharSetRecordSize + 52, field.size(), field);
        fake.directory.files.put("vtmtc.dat", list);
    }

    /// The glyphs of the character set at a place (0-based) of the list over a background colour.
    ui::Picture gridOf(int place, ui::Pixel background) {
        return glyphs::BuildAtlas(
                   glyphs::LoadCharSet(fake.files, fake.directory, place + 1).value().artwork, background)
            .cells;
    }

    void open() {
        dialog = std::make_unique<shell::frmOptions>(
            fake.platform, settings, charSet, atlas, keys,
            [this](glyphs::GlyphCode start) {
                pickerStarts.push_back(start);
                return picked;
            },
            [this](int place) { followRemovedSet(place); });
        dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog.get()));
    }

    /// What the program does after a set was removed.
    void followRemovedSet(int place) {
        removedPlaces.push_back(place);
        useCharSet(shell::PlaceWithout(settings.charSet, place));
    }

    template <class Widget>
    Widget* find(const char* name) {
        auto* const found = dialog->findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    void showPage(int index) { find<QTabWidget>("tabOptions")->setCurrentIndex(index); }

    /// Clicks the box of a check box with the mouse.
    void tick(const char* name) {
        auto* const box = find<QCheckBox>(name);
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
    }

    void press(const char* name) { QTest::mouseClick(find<QAbstractButton>(name), Qt::LeftButton); }

    /// The pages that count as changed, by their numbers.
    [[nodiscard]] std::string changedPages() const {
        std::string pages;
        for (std::size_t page = 0; page < shell::OptionsPageCount; ++page) {
            if (dialog->model().isChanged(static_cast<shell::OptionsPage>(page))) {
                pages += std::to_string(page);
            }
        }
        return pages;
    }

    shell::AppliedOptions apply() { return dialog->model().applyTo(settings, charSet); }

    [[nodiscard]] std::map<std::string, std::string> stored() const {
        support::MemorySettings store;
        EXPECT_TRUE(shell::Save(store, settings));
        return store.sections["options"];
    }
};
