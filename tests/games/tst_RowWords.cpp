// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "games/RowWords.h"

#include "Rows.h"

#include <gtest/gtest.h>

namespace {

using games::Audience;
using games::Family;
using games_test::Row;
using games_test::Shown;

/// The words of what others see of a name, with the row as it is seen.
std::string Words(Family family, std::string_view name, Audience audience = Audience::Others) {
    const auto row = Row(name);
    const auto verdict = games::JudgeName(family, audience, row);
    const auto words = games::WordsOf(verdict, row);
    return words.text + (words.showsRow ? " " + Shown(verdict) : "");
}

std::string MessageWords(Family family, std::string_view message) {
    const auto row = Row(message);
    const auto verdict = games::JudgeMessage(family, row);
    const auto words = games::WordsOf(verdict, row);
    return words.text + (words.showsRow ? " " + Shown(verdict) : "");
}

/// The notes on a row, each with its cell and engine.
std::string Notes(Family family, games::Station station, std::string_view bytes) {
    std::string text;
    for (const games::EngineNote& note : games::NotesOn(family, station, Row(bytes))) {
        text += std::to_string(note.column) + " " + std::string(games::FactsOf(note.seen.engine).name) + " " +
                std::string(note.text) + "\n";
        EXPECT_NE(games::VersionOf(note.seen), "") << text;
    }
    return text;
}

} // namespace

TEST(RowWords, SayWhatBecomesOfAName) {
    EXPECT_EQ(Words(Family::Quake, "Bob"), "kept");
    EXPECT_EQ(Words(Family::QuakeWorld, "abc#"), "the server will call you \"unnamed\": # in cell 4");
    EXPECT_EQ(Words(Family::QuakeWorld, ""), "the server will call you \"unnamed\": the name is empty");
    EXPECT_EQ(
        Words(Family::QuakeWorld, "\1"), "the server will call you \"unnamed\": nothing is left of the name");
    EXPECT_EQ(
        Words(Family::QuakeWorld, "console"),
        "the server will call you \"unnamed\": the name is the server's own");
    EXPECT_EQ(Words(Family::QuakeWorld, "a$b"), "refused, except from ezQuake: $ in cell 2");
    EXPECT_EQ(Words(Family::QuakeWorld, "a$\rb"), "refused, except from ezQuake: $ in cell 2");
    EXPECT_EQ(Words(Family::QuakeWorld, "a$"), "the server refuses the name: $ in cell 2");
    EXPECT_EQ(Words(Family::QuakeWorld, "a$#"), "the server will call you \"unnamed\": # in cell 3");
    EXPECT_EQ(Words(Family::QuakeWorld, "a$b#"), "the server will call you \"unnamed\": # in cell 4");
    EXPECT_EQ(Words(Family::QuakeWorld, "a\xDC"), "the server refuses the name: a colored \\ in cell 2");
    EXPECT_EQ(Words(Family::QuakeWorld, "a\\b"), "the game does not send the name: \\ in cell 2");
    EXPECT_EQ(Words(Family::QuakeWorld, "Tom&cat"), "the old name stays: &c in cell 4 is a color code");
    EXPECT_EQ(Words(Family::QuakeWorld, "rock&roll"), "the old name stays: &r in cell 5 is a color code");
    EXPECT_EQ(Words(Family::QuakeWorld, " ab"), "others see: ab");
    EXPECT_EQ(Words(Family::Quake, "a\"b"), "the name breaks off: \" in cell 2");
    EXPECT_EQ(
        Words(Family::Quake, "ab\ncd"),
        "cut off in cell 3, and the rest is run as a command; others see: ab");
    EXPECT_EQ(Words(Family::Quake, std::string_view("ab\0cd", 5)), "cut off in cell 3; others see: ab");
    EXPECT_EQ(
        Words(Family::Quake, std::string_view("\0cd", 3)), "cut off in cell 1; others see an empty name");
    EXPECT_EQ(Words(Family::Quake2, "Bob \xC1"), "others see: Bob A");
    EXPECT_EQ(Words(Family::Quake2, "\x10\x11"), "others see an empty name");
    EXPECT_EQ(Words(Family::Quake2, "a;b"), "the game refuses the name: ; in cell 2");
    EXPECT_EQ(Words(Family::Quake2, "a\nb"), "the game refuses the name: a line feed in cell 2");
    EXPECT_EQ(Words(Family::Quake2, "a\xA2"), "the server will call you \"badinfo\": a colored \" in cell 2");
    EXPECT_EQ(Words(Family::QuakeWorld, "a\rb", Audience::Player), "you see: ab");
}

TEST(RowWords, SayWhatBecomesOfAMessage) {
    EXPECT_EQ(MessageWords(Family::Quake2, "\x80\xFF"), "kept");
    EXPECT_EQ(MessageWords(Family::QuakeWorld, "a\xFF"), "players see: a");
    EXPECT_EQ(MessageWords(Family::QuakeWorld, "\xFF"), "players see an empty message");
    EXPECT_EQ(MessageWords(Family::Quake, "a\"b"), "cut off in cell 2; players see: a");
    EXPECT_EQ(
        MessageWords(Family::Quake, "a\nquit"),
        "cut off in cell 2, and the rest is run as a command; players see: a");
}

TEST(RowWords, TellWhatSingleEnginesDo) {
    using games::Station;
    EXPECT_EQ(Notes(Family::Quake, Station::Others, "Bob^a"), "");
    EXPECT_EQ(
        Notes(Family::Quake, Station::Others, "a\r$\\^1\xFF"),
        "2 DarkPlaces ends the text there\n"
        "4 DarkPlaces cannot store \\\n"
        "5 DarkPlaces shows ^ and a digit as a color\n"
        "7 original Quake ends the text there, and the player is disconnected\n");
    EXPECT_EQ(
        Notes(Family::QuakeWorld, Station::Others, "x$b$c"), "2 ezQuake makes one glyph of $ and the next\n");
    for (const std::string_view name : {"a$b", "a$Z", "a$$", "a${fov}"}) {
        EXPECT_EQ(Notes(Family::Quake, Station::Own, name), "2 DarkPlaces fills in $variables\n") << name;
    }
    for (const std::string_view name : {"a$", "a$   ", "a$ b", "a$1", "a$["}) {
        EXPECT_EQ(Notes(Family::Quake, Station::Own, name), "") << name;
    }
    for (const std::string_view name : {"a$", "a$  ", "a$$", "a$\xE1"}) {
        EXPECT_EQ(Notes(Family::QuakeWorld, Station::Own, name), "") << name;
    }
    for (const Station station : {Station::Own, Station::Message}) {
        EXPECT_EQ(
            Notes(Family::Quake, station, "ab\\  "),
            "3 DarkPlaces takes the closing quote for a part of the text\n");
    }
    EXPECT_EQ(
        Notes(Family::Quake2, Station::Own, "a\xA2\xBB\xDC"), "2 Q2PRO refuses the name\n"
                                                              "3 Q2PRO refuses the name\n"
                                                              "4 Q2PRO refuses the name\n");
    EXPECT_EQ(
        Notes(Family::Quake, Station::Message, "\1a\r\\\xFF"),
        "3 DarkPlaces ends the text there\n"
        "5 original Quake ends the text there\n"
        "1 vkQuake may take the glyph for a color mark\n");
    EXPECT_EQ(
        Notes(Family::QuakeWorld, Station::Message, "a%b$c^\2"),
        "4 ezQuake makes one glyph of $ and the next\n"
        "2 ezQuake puts other words in the place of % and a letter\n"
        "6 ezQuake takes ^ and what stands behind it for a color\n");
    EXPECT_EQ(Notes(Family::Quake, Station::Message, "a\\b\\\\c"), "4 DarkPlaces makes one \\ of two\n");
    EXPECT_EQ(
        Notes(Family::Quake2, Station::Message, "\2$%\xFF"),
        "4 original Quake II ends the text there\n"
        "1 Yamagi Quake II may take the glyph for a color mark\n");
}
