// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "X11Keys.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

/// The layouts of the countries that most of the players come from, with what they have on the third level.
struct Layout {
    const char* name;
    std::vector<std::pair<char, unsigned>> thirdLevel; ///< by scan code
};

const std::vector<Layout>& Layouts() {
    static const std::vector<Layout> layouts{
        {"us", {}},
        {"gb", {}},
        {"pl", {}},
        {"ro", {}},
        {"de", {{'@', 24}, {'\\', 20}, {'[', 17}, {']', 18}, {'{', 16}, {'}', 19}, {'|', 94}, {'~', 35}}},
        {"fr",
         {{'#', 12},
          {'@', 19},
          {'[', 14},
          {'\\', 17},
          {']', 20},
          {'{', 13},
          {'}', 21},
          {'|', 15},
          {'~', 11},
          {'`', 16},
          {'^', 18}}},
        {"es",
         {{'@', 11},
          {'#', 12},
          {'~', 13},
          {'{', 16},
          {'[', 17},
          {']', 18},
          {'}', 19},
          {'\\', 20},
          {'|', 10}}},
        {"it", {{'@', 24}, {'#', 48}, {'{', 16}, {'[', 17}, {']', 18}, {'}', 19}, {'`', 20}, {'~', 21}}},
        {"pt", {{'@', 11}, {'{', 16}, {'[', 17}, {']', 18}, {'}', 19}}},
        {"latam", {{'@', 11}, {'\\', 20}, {'~', 13}}},
        {"br", {{'~', 48}}},
        {"se",
         {{'@', 11},
          {'$', 13},
          {'{', 16},
          {'[', 17},
          {']', 18},
          {'}', 19},
          {'\\', 20},
          {'~', 35},
          {'|', 94}}},
        {"fi",
         {{'@', 11},
          {'$', 13},
          {'{', 16},
          {'[', 17},
          {']', 18},
          {'}', 19},
          {'\\', 20},
          {'~', 35},
          {'|', 94}}},
        {"no", {{'@', 11}, {'$', 13}, {'{', 16}, {'[', 17}, {']', 18}, {'}', 19}, {'~', 35}}},
        {"dk",
         {{'@', 11},
          {'$', 13},
          {'{', 16},
          {'[', 17},
          {']', 18},
          {'}', 19},
          {'|', 21},
          {'~', 35},
          {'\\', 94}}},
        {"ch",
         {{'|', 10},
          {'@', 11},
          {'#', 12},
          {']', 18},
          {'}', 19},
          {'~', 21},
          {'[', 34},
          {'{', 48},
          {'\\', 94}}},
        {"be",
         {{'|', 10},
          {'@', 11},
          {'#', 12},
          {'^', 15},
          {'{', 16},
          {'[', 17},
          {'}', 19},
          {'\\', 20},
          {']', 35},
          {'`', 51},
          {'~', 61}}},
        {"cz",
         {{'@', 11},
          {'#', 12},
          {'$', 13},
          {'^', 15},
          {'&', 16},
          {'*', 17},
          {'{', 18},
          {'}', 19},
          {'[', 34},
          {']', 35},
          {'~', 38},
          {'`', 43},
          {'<', 59},
          {'>', 60}}},
        {"hu",
         {{'~', 10},
          {'^', 12},
          {'`', 16},
          {'\\', 24},
          {'|', 25},
          {'[', 41},
          {']', 42},
          {'$', 47},
          {'>', 52},
          {'#', 53},
          {'&', 54},
          {'@', 55},
          {'{', 56},
          {'}', 57},
          {'<', 58},
          {';', 59},
          {'*', 61}}},
        {"hr", {{'^', 12}, {'\\', 24}, {'|', 25}, {'[', 41}, {']', 42}, {'@', 55}, {'{', 56}, {'}', 57}}},
        {"tr",
         {{'#', 12},
          {'$', 13},
          {'{', 16},
          {'[', 17},
          {']', 18},
          {'}', 19},
          {'\\', 20},
          {'|', 21},
          {'@', 24},
          {'~', 35},
          {'`', 51}}},
    };
    return layouts;
}

/// What a stroke types on a US keyboard; 0 when it is nothing that is seen.
char CharacterOf(const ui::KeyStroke& stroke) {
    constexpr std::string_view Plain = "1234567890-=[];'`\\,./";
    constexpr std::string_view Shifted = "!@#$%^&*()_+{}:\"~|<>?";
    constexpr std::array<int, Plain.size()> Keys{49,  50,  51,  52,  53,  54,  55,  56,  57,  48, 189,
                                                 187, 219, 221, 186, 222, 192, 220, 188, 190, 191};
    const int key = stroke.virtualKey;
    if (key >= 'A' && key <= 'Z') {
        return static_cast<char>(stroke.isShift ? key : key - 'A' + 'a');
    }
    for (std::size_t i = 0; i < Keys.size(); ++i) {
        if (key == Keys[i]) {
            return (stroke.isShift ? Shifted : Plain)[i];
        }
    }
    return 0;
}

/// The ASCII character that a symbol is, or that it stands for as a dead key; 0 for any other.
char AsciiOf(unsigned symbol) {
    constexpr unsigned FirstDead = 0xFE50;
    constexpr std::string_view Dead = "`'^~";
    constexpr unsigned DeadDiaeresis = 0xFE57;
    if (symbol > ' ' && symbol <= '~') {
        return static_cast<char>(symbol);
    }
    if (symbol >= FirstDead && symbol < FirstDead + Dead.size()) {
        return Dead[symbol - FirstDead];
    }
    return symbol == DeadDiaeresis ? '"' : '\0';
}

class X11Layouts : public X11Keys {
protected:
    char typed(unsigned scanCode, const std::vector<unsigned>& held) {
        const auto stroke = strokeOf({"sign", scanCode, held, 0});
        return stroke ? CharacterOf(*stroke) : '\0';
    }
};

TEST_F(X11Layouts, TypeTheSignsOfTheThirdLevel) {
    for (const Layout& layout : Layouts()) {
        ASSERT_TRUE(X11Input::chooseLayout(QString::fromLatin1(layout.name)));
        for (const auto& [sign, scanCode] : layout.thirdLevel) {
            EXPECT_EQ(typed(scanCode, {AltGrCode}), sign) << layout.name << " " << scanCode;
        }
    }
}

TEST_F(X11Layouts, TypeEveryAsciiSign) {
    static const std::array<std::vector<unsigned>, 4> chords{
        {{}, {ShiftCode}, {AltGrCode}, {AltGrCode, ShiftCode}}};
    const std::string signs = "!\"#$%&'()*+,-./0123456789:;<=>?@[\\]^_`{|}~";
    for (const Layout& layout : Layouts()) {
        ASSERT_TRUE(X11Input::chooseLayout(QString::fromLatin1(layout.name)));
        const auto keys = X11Input::layout();
        std::string missing = signs;
        for (unsigned scanCode = 10; scanCode <= 97; ++scanCode) {
            for (std::size_t level = 0; level < chords.size(); ++level) {
                const char sign = AsciiOf(keys[scanCode][level]);
                if (const auto found = missing.find(sign); found != std::string::npos) {
                    EXPECT_EQ(typed(scanCode, chords[level]), sign) << layout.name << " " << scanCode;
                    missing.erase(found, 1);
                }
            }
        }
        EXPECT_EQ(missing, "") << layout.name;
    }
}

TEST_F(X11Layouts, TypeNothingForTheOtherSymbolsOfTheThirdLevel) {
    constexpr unsigned KeyOfE = 26;
    int checked = 0;
    for (const Layout& layout : Layouts()) {
        ASSERT_TRUE(X11Input::chooseLayout(QString::fromLatin1(layout.name)));
        const unsigned symbol = X11Input::layout()[KeyOfE][2];
        if (symbol == 0 || AsciiOf(symbol) != 0) {
            continue;
        }
        const auto stroke = strokeOf({"e", KeyOfE, {AltGrCode}, 0});
        ASSERT_TRUE(stroke);
        EXPECT_EQ(stroke->virtualKey, 0) << layout.name;
        ++checked;
    }
    EXPECT_GT(checked, 15);
}

TEST_F(X11Layouts, KeepTheLettersOfTheMenusOnTheDigitRow) {
    ASSERT_TRUE(X11Input::chooseLayout(QStringLiteral("us"), QStringLiteral("dvorak-l")));
    check({{"Alt+F", 14, {AltCode}, 'F'}});
}

TEST_F(X11Layouts, GiveAVirtualKeyboardWhatItShows) {
    ASSERT_TRUE(X11Input::chooseLayout(QStringLiteral("us")));
    // A key that no keyboard has, one of the number pad, and one of those beyond F12.
    for (const unsigned scanCode : {8U, 83U, 191U}) {
        for (const char sign : std::string_view("Hello@[]{}|\\~#7")) {
            X11Input::setSymbol(scanCode, static_cast<unsigned char>(sign));
            EXPECT_EQ(typed(scanCode, {}), sign) << scanCode;
        }
    }
}

} // namespace
