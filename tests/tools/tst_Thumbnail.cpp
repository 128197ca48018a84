// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "cli/Script.h"
#include "support/GameFiles.h"
#include "thumbnail/Drawing.h"

#include <gtest/gtest.h>

namespace {

using cli::ReadScript;
using cli::Script;
using thumbnail::DrawAnimation;
using thumbnail::DrawThumbnail;

const std::string NameHeader = "// Name File Created by Vortigo\r\n";
const std::string MessageHeader = "// Macro File Created by Vortigo\r\n";

/// An animation script: its names one after the other, the last one for the rest.
std::string AnimationScript(const std::vector<std::string>& lines, int count = 15) {
    std::string script = "// Animation File Created by Vortigo\r\n// " + std::to_string(count) +
                         " Names In The Animation Sequence\r\n";
    for (const std::string& line : lines) {
        script += line + "\r\n";
    }
    return script;
}

/// Artwork whose every glyph is a plain square of a colour that tells its code; only the blank is
/// transparent.
ui::Picture PlainArtwork() {
    return support::MakePicture(128, 128, [](int x, int y) {
        const int code = y / 8 * 16 + x / 8;
        return code == 32 ? ui::Pixel(0) : ui::OpaquePixel(static_cast<unsigned>(code), 1, 2);
    });
}

/// The code of the glyph that fills a cell of a picture: a blank if it is black, 0 if it is no whole glyph.
char GlyphAt(const ui::Picture& picture, const ui::Rect& cell) {
    const ui::Pixel pixel = picture.pixel(cell.x, cell.y);
    for (int y = cell.y; y < cell.y + cell.height; ++y) {
        for (int x = cell.x; x < cell.x + cell.width; ++x) {
            if (picture.pixel(x, y) != pixel) {
                return 0;
            }
        }
    }
    return pixel == ui::OpaqueBlack ? ' ' : static_cast<char>(pixel >> 16U);
}

/// A line of glyphs of `cell` pixels each, without the blanks at its end.
std::string LineAt(const ui::Picture& picture, int left, int top, int cell) {
    std::string line;
    for (int x = left; x + cell <= picture.width(); x += cell) {
        line.push_back(GlyphAt(picture, {x, top, cell, cell}));
    }
    return line.substr(0, line.find_last_not_of(' ') + 1);
}

/// All lines from `top` on, close together, without the blank ones at the end.
std::vector<std::string> Glyphs(const ui::Picture& picture, int left, int top, int cell) {
    std::vector<std::string> lines;
    for (int y = top; y + cell <= picture.height(); y += cell) {
        lines.push_back(LineAt(picture, left, y, cell));
    }
    while (!lines.empty() && lines.back().empty()) {
        lines.pop_back();
    }
    return lines;
}

/// The smallest rectangle that holds everything which is not black.
ui::Rect Drawn(const ui::Picture& picture) {
    ui::Rect drawn;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != ui::OpaqueBlack) {
                drawn = drawn.united({x, y, 1, 1});
            }
        }
    }
    return drawn;
}

ui::Picture Thumbnail(const std::string& script, int side) {
    const auto read = ReadScript(script);
    EXPECT_TRUE(read) << read.failure().message;
    return DrawThumbnail(read ? read.value() : Script(), PlainArtwork(), side);
}

using Lines = std::vector<std::string>;

std::string Refusal(const std::string& bytes) {
    const auto script = ReadScript(bytes);
    return script ? "none" : script.failure().message;
}

} // namespace

TEST(ScriptReader, TheHeaderSaysWhatAScriptIs) {
    EXPECT_TRUE(
        std::holds_alternative<editing::NameDocument>(ReadScript(NameHeader + "name \"x\"\r\n").value()));
    EXPECT_TRUE(std::holds_alternative<editing::MessageDocument>(
        ReadScript(MessageHeader + "say \"x\"\r\n").value()));
    EXPECT_TRUE(std::holds_alternative<editing::AnimationDocument>(
        ReadScript(AnimationScript({"name \"x\""})).value()));
}

TEST(ScriptReader, WhatCannotBeReadHasAReason) {
    const std::string none = "it is not a name, animation or message script";
    EXPECT_EQ(Refusal(""), none);
    EXPECT_EQ(Refusal("bind x quit\n"), none);
    EXPECT_EQ(Refusal(NameHeader), none);
    EXPECT_EQ(Refusal(MessageHeader + "quit\n"), none);
    EXPECT_EQ(Refusal("// Animation File Created by Vortigo\r\n"), none);
    EXPECT_EQ(Refusal(NameHeader + "name \"1234567890123456\"\r\n"), "its name has more than 15 glyphs");
    EXPECT_EQ(
        Refusal(MessageHeader + "say \"" + std::string(32, 'x') + "\"\r\n"),
        "a message has more than 31 glyphs");
    EXPECT_EQ(
        Refusal(AnimationScript({"name \"x\"", "name \"1234567890123456\""})),
        "line 4: its name has more than 15 glyphs");
    EXPECT_EQ(Refusal(AnimationScript({}, 14)), "line 2: it does not declare 15 to 90 names");
}

TEST(Thumbnail, ANameStandsInTheMiddleWithoutTheBlanksAroundIt) {
    const ui::Picture picture = Thumbnail(NameHeader + "set name \"   Ab c\"\r\n", 128);
    // Four glyphs of 32 pixels fill the width.
    EXPECT_EQ(Drawn(picture), (ui::Rect{0, 48, 128, 32}));
    EXPECT_EQ(Glyphs(picture, 0, 48, 32), (Lines{"Ab c"}));
}

TEST(Thumbnail, ANameIsEnlargedByAWholeFactorOnly) {
    const std::string script = NameHeader + "name \"123456789012345\"\r\n";
    EXPECT_EQ(Drawn(Thumbnail(script, 128)), (ui::Rect{4, 60, 120, 8}));
    EXPECT_EQ(Drawn(Thumbnail(script, 239)), (ui::Rect{59, 115, 120, 8}));
    EXPECT_EQ(Drawn(Thumbnail(script, 240)), (ui::Rect{0, 112, 240, 16}));
    EXPECT_EQ(Drawn(Thumbnail(script, 1024)), (ui::Rect{32, 480, 960, 64}));
    EXPECT_EQ(Drawn(Thumbnail(NameHeader + "name \"x\"\r\n", 128)), (ui::Rect{48, 48, 32, 32}));
}

TEST(Thumbnail, ANameGoesOnInTheNextLineWhereItDoesNotFit) {
    EXPECT_EQ(
        Glyphs(Thumbnail(NameHeader + "name \"123456789012345\"\r\n", 64), 0, 24, 8),
        (Lines{"12345678", "9012345"}));
    EXPECT_EQ(Glyphs(Thumbnail(NameHeader + "name \"12345 678901234\"\r\n", 64), 0, 20, 8).size(), 3U);
    // The smallest picture holds four glyphs of a name, and as much of it is shown.
    EXPECT_EQ(Glyphs(Thumbnail(NameHeader + "name \"12345678\"\r\n", 16), 0, 0, 8), (Lines{"12", "34"}));
}

TEST(Thumbnail, ABlankScriptIsBlack) {
    const ui::Picture black(64, 64, ui::OpaqueBlack);
    EXPECT_EQ(Thumbnail(NameHeader + "name \"\"\r\n", 64), black);
    EXPECT_EQ(Thumbnail(MessageHeader + "say \"\"\r\n", 64), black);
    EXPECT_EQ(Thumbnail(AnimationScript({}), 64), black);
}

TEST(Thumbnail, TransparentPixelsAreBlack) {
    const auto script = ReadScript(NameHeader + "name \"a\"\r\n");
    EXPECT_EQ(
        DrawThumbnail(script.value(), ui::Picture(128, 128, 0), 64), ui::Picture(64, 64, ui::OpaqueBlack));
}

TEST(Thumbnail, MessagesStandBelowEachOtherWithHalfAGlyphBetween) {
    const ui::Picture picture =
        Thumbnail(MessageHeader + "say \"one\"\r\nsay \"three\"\r\nsay \"two\"\r\n", 160);
    // The factor is 4: 5 glyphs of 32 pixels fill the width, 3 rows of 32 and 2 gaps of 16 the height.
    EXPECT_EQ(Drawn(picture), (ui::Rect{0, 16, 160, 128}));
    EXPECT_EQ(LineAt(picture, 0, 16, 32), "one");
    EXPECT_EQ(LineAt(picture, 0, 64, 32), "three");
    EXPECT_EQ(LineAt(picture, 0, 112, 32), "two");
}

TEST(Thumbnail, LongMessagesAreBrokenBeforeAWord) {
    const ui::Picture picture = Thumbnail(
        MessageHeader + "say \"incoming at the quad, hold\"\r\nsay \"1234567890123456789012345678901\"\r\n",
        128);
    const ui::Rect drawn = Drawn(picture);
    const auto line = [&](int number) {
        return LineAt(picture, drawn.x, drawn.y + number * 12, 8);
    };
    EXPECT_EQ(drawn.width, 128);
    EXPECT_EQ(drawn.height, 4 * 8 + 3 * 4);
    EXPECT_EQ(line(0), "incoming at the");
    EXPECT_EQ(line(1), "quad, hold");
    EXPECT_EQ(line(2), "1234567890123456");
    EXPECT_EQ(line(3), "789012345678901");
}

TEST(Thumbnail, AMessageIsBrokenForItsGlyphsToBeLarger) {
    const ui::Picture picture = Thumbnail(MessageHeader + "say \"need backup at the quad\"\r\n", 128);
    const ui::Rect drawn = Drawn(picture);
    EXPECT_EQ(LineAt(picture, drawn.x, drawn.y, 16), "need");
    EXPECT_EQ(LineAt(picture, drawn.x, drawn.y + 24, 16), "backup");
    EXPECT_EQ(LineAt(picture, drawn.x, drawn.y + 48, 16), "at the");
    EXPECT_EQ(LineAt(picture, drawn.x, drawn.y + 72, 16), "quad");
}

TEST(Thumbnail, AnAnimationIsAStackOfItsFirstNames) {
    Lines lines{"name \"   \"", "name \"  abcdefgh\"", "name \"   bcdefghi\""};
    for (int count = 0; count < 12; ++count) {
        lines.push_back(std::string("name \"   ") + static_cast<char>('A' + count) + '"');
    }
    const ui::Picture picture = Thumbnail(AnimationScript(lines), 80);
    // Columns that are blank in all names are left out; nine are left.
    EXPECT_EQ(
        Glyphs(picture, 4, 0, 8),
        (Lines{"abcdefgh", " bcdefghi", " A", " B", " C", " D", " E", " F", " G", " H"}));
}

TEST(Thumbnail, HiddenNamesOfAnAnimationAreNotShown) {
    Lines lines(15, "name \"\"");
    lines.emplace_back("name \"hidden\"");
    EXPECT_EQ(Thumbnail(AnimationScript(lines), 64), ui::Picture(64, 64, ui::OpaqueBlack));
}

TEST(AnimationPicture, EveryNameIsShownForItsTicks) {
    const auto script = ReadScript(AnimationScript(
        {"name \"first\"", "wait; ", "set name \"second\"", "name \"third\"", "wait; wait; wait; "}));
    const auto frames =
        DrawAnimation(std::get<editing::AnimationDocument>(script.value()), PlainArtwork(), 240);
    // The second name has no ticks, nor have those that the script leaves out.
    ASSERT_EQ(frames.size(), 2U);
    EXPECT_EQ(frames[0].delay, 5);
    EXPECT_EQ(frames[1].delay, 15);
    EXPECT_EQ(frames[0].picture.width(), 240);
    EXPECT_EQ(frames[0].picture.height(), 16);
    EXPECT_EQ(Glyphs(frames[0].picture, 0, 0, 16), (Lines{"first"}));
    EXPECT_EQ(Glyphs(frames[1].picture, 0, 0, 16), (Lines{"third"}));
}

TEST(AnimationPicture, NamesKeepTheirPlace) {
    const auto script = ReadScript(AnimationScript({"name \"   x\"", "wait;"}));
    const auto frames =
        DrawAnimation(std::get<editing::AnimationDocument>(script.value()), PlainArtwork(), 120);
    ASSERT_EQ(frames.size(), 1U);
    EXPECT_EQ(Glyphs(frames[0].picture, 0, 0, 8), (Lines{"   x"}));
}

TEST(AnimationPicture, TheFactorIsWholeAndAtLeastOne) {
    editing::AnimationDocument animation;
    EXPECT_EQ(DrawAnimation(animation, PlainArtwork(), 16)[0].picture.width(), 120);
    EXPECT_EQ(DrawAnimation(animation, PlainArtwork(), 239)[0].picture.width(), 120);
    EXPECT_EQ(DrawAnimation(animation, PlainArtwork(), 1024)[0].picture.width(), 960);
}

TEST(AnimationPicture, WaitsThatAFrameCannotHoldAreShared) {
    editing::AnimationDocument animation;
    animation.nameTicks.fill(0);
    animation.ticks(1) = 32767;
    const auto frames = DrawAnimation(animation, PlainArtwork(), 120);
    ASSERT_EQ(frames.size(), 3U);
    EXPECT_EQ(frames[0].delay, 65535);
    EXPECT_EQ(frames[1].delay, 65535);
    EXPECT_EQ(frames[2].delay, 32767 * 5 - 2 * 65535);
}

TEST(AnimationPicture, WithoutAnyTicksTheLastNameStays) {
    editing::AnimationDocument animation;
    animation.nameTicks.fill(0);
    animation.rows().cell(15, 1) = 'z';
    animation.rows().cell(1, 1) = 'a';
    const auto frames = DrawAnimation(animation, PlainArtwork(), 120);
    ASSERT_EQ(frames.size(), 1U);
    EXPECT_EQ(Glyphs(frames[0].picture, 0, 0, 8), (Lines{"z"}));
}
