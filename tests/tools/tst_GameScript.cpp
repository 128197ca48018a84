// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "check/GameScript.h"

#include "animation/mdlAniScript.h"
#include "check/Judgement.h"
#include "scripts/mdlMacro.h"
#include "scripts/mdlName.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

using namespace std::string_literals;

const std::vector<games::Family> AllFamilies(games::Families.begin(), games::Families.end());

std::string NameFile(const std::string& lines) {
    return "// Name File Created by Vortigo\r\n" + lines;
}

std::string MessageFile(const std::string& lines) {
    return "// Macro File Created by Vortigo\r\n" + lines;
}

std::string AnimationFile(const std::string& lines) {
    return "// Animation File Created by Vortigo\r\n// 15 Names In The Animation Sequence\r\n" + lines;
}

/// The rows of a script as text, each in brackets with the ticks behind it; '?': nobody knows.
std::string RowsOf(const std::string& script) {
    const auto read = check::ReadGameScript(script);
    if (!read) {
        return read.failure().message;
    }
    std::string text;
    for (const check::ScriptRow& row : read.value().rows) {
        text += row.isKnown ? "[" + std::string(row.glyphs.begin(), row.glyphs.end()) + "]" : "?";
        text += row.ticks == 0 ? "" : std::to_string(row.ticks);
    }
    return text;
}

/// The losses that a script's lines are to blame for, in Quake.
std::string LossesOf(const std::string& script) {
    const auto judged = check::Judge("a.scr", script, {games::Family::Quake});
    if (!judged) {
        return judged.failure().message;
    }
    std::string text;
    for (const games::Finding& finding : judged.value().families.front().findings) {
        if (finding.weight == games::Weight::Loss) {
            text += (text.empty() ? "" : "; ") + finding.text;
        }
    }
    return text;
}

/// Whether a script arrives in none of the families.
bool IsLostEverywhere(const std::string& script) {
    const auto judged = check::Judge("a.scr", script, AllFamilies);
    return judged.ok() &&
           std::ranges::none_of(judged.value().families, [](const auto& family) { return family.arrives(); });
}

/// A name of any glyphs; those that end it, its line or the command in a few of the rows only.
void FillRow(std::span<glyphs::GlyphCode> row, std::mt19937& random) {
    constexpr std::string_view Ends("\r\n\";\\$#\0", 8);
    const bool isWild = random() % 4 == 0;
    for (auto& cell : row) {
        const bool isEnd = isWild && random() % 4 == 0;
        const auto end = static_cast<unsigned char>(Ends[random() % Ends.size()]);
        cell = isEnd ? end : static_cast<unsigned char>(128 + random() % 128);
    }
}

bool Holds(std::span<const glyphs::GlyphCode> row, std::string_view codes) {
    return std::ranges::any_of(row, [codes](glyphs::GlyphCode code) {
        return codes.find(static_cast<char>(code)) != std::string_view::npos;
    });
}

} // namespace

TEST(GameScript, HoldsTheRowsThatAGameReads) {
    EXPECT_EQ(RowsOf(NameFile("name \"Bob A\"\r\n")), "[Bob A]");
    EXPECT_EQ(RowsOf(NameFile("  set\tname   \"Bob\"  ")), "[Bob]")
        << "blanks do not matter, nor the last end";
    EXPECT_EQ(RowsOf(NameFile("// set name \"x#y\"\nname \"Bob\"\n")), "[Bob]");
    EXPECT_EQ(RowsOf(NameFile("name \"a\rb\"\r\n")), "[a\rb]") << "a line ends at a line feed";
    EXPECT_EQ(RowsOf(NameFile("name \"a\"b\"\r\n")), "[a\"b]");
    EXPECT_EQ(RowsOf(NameFile("name \"a;b\";\r\n")), "[a;b]");
    EXPECT_EQ(RowsOf(NameFile("name \"// a\" ; // mine\r\n")), "[// a]");
    EXPECT_EQ(RowsOf(MessageFile("say \"a\"\r\n\r\nsay_team \"b\"\r\n")), "[a][b]");
    EXPECT_EQ(
        RowsOf(AnimationFile("name \"a\"\nwait; wait; \nname \"\"\nwait\n wait ;wait\nname \"c\"\n")),
        "[a]2[]3[c]");
}

TEST(GameScript, OfANameScriptTheLastNameStays) {
    EXPECT_EQ(RowsOf(NameFile("name \"a\"\r\nname \"b\"\r\n")), "[b]");
    EXPECT_EQ(LossesOf(NameFile("name \"a\"\r\nname \"b\"\r\n")), "line 3 holds another name");
    EXPECT_EQ(
        LossesOf(NameFile("name \"a\"\r\nname \"b\"\r\nname \"c\"\r\nname \"d\"\r\n")),
        "line 3 and 2 others hold other names");
    EXPECT_EQ(
        LossesOf(MessageFile("say \"a\"\r\nsay \"b\"\r\nsay \"c\"\r\nsay \"d\"\r\nsay \"e\"\r\n")),
        "line 5 and 1 other hold other messages");
}

TEST(GameScript, OneNameSetByAnUnknownCommandIsEnough) {
    EXPECT_EQ(
        LossesOf(AnimationFile("name \"a\"\r\nset name \"b\"\r\nname \"c\"\r\n")),
        "the command \"set\" is unknown: the old name stays");
}

TEST(GameScript, TellsOfLinesThatHoldMore) {
    const std::string bob = "name \"Bob\"\r\n";
    EXPECT_EQ(LossesOf(NameFile(bob + "unbindall\r\n")), "line 3 holds another command");
    EXPECT_EQ(LossesOf(NameFile("alias name \"quit\"\r\n" + bob)), "line 2 holds another command");
    EXPECT_EQ(LossesOf("quit // Name File Created by Vortigo\r\n" + bob), "line 1 holds another command");
    EXPECT_EQ(
        LossesOf(NameFile("name \"Bob\r\nquit\r\nunbindall\r\n")),
        "line 2 does not end with its quote; line 3 and 1 other hold other commands");
    EXPECT_EQ(RowsOf(NameFile("name \"Bob\"; quit\r\n")), "?");
    EXPECT_EQ(LossesOf(NameFile("name \"Bob\"; quit\r\n")), "line 2 holds another command");
    EXPECT_EQ(LossesOf(NameFile("name \"Bob\" b\r\n")), "line 2 does not end with its quote");
    EXPECT_EQ(LossesOf(NameFile("name Bob\r\n")), "line 2 does not end with its quote");
    EXPECT_EQ(
        LossesOf(NameFile("name \"\r\nname \"\r\n")),
        "line 2 and 1 other do not end with their quotes; line 3 holds another name");
}

TEST(GameScript, NothingIsHiddenFromIt) {
    const std::string bob = "name \"Bob\"\r\n";
    const std::string ann = "name \"Ann\"\r\nwait; \r\n";
    const std::vector<std::string> hostile{
        NameFile(bob + "unbindall\r\n"),
        NameFile(bob + "  quit"),
        NameFile(bob + "NAME \"x#y\"\r\n"),
        NameFile(bob + "seta name \"Rob\"\r\n"),
        NameFile(bob + "bind x \"name Rob\"\r\n"),
        NameFile(bob + "rcon_password \"name\"\r\n"),
        NameFile("name \"Bob\";quit\r\n"),
        NameFile("name \"Bob\" ; bind x \"unbindall \"\r\n"),
        NameFile("name\"Bob\"\r\nname \"Bob\"\r\n"),
        NameFile(bob + "// a comment; quit\r\n"),
        NameFile(bob + "// a \"comment\"; quit\r\n"),
        NameFile(bob + "// a comment\rquit\r\n"),
        NameFile(bob + "// a comment\0quit\r\n"s),
        NameFile(bob + "/* a comment */ quit\r\n"),
        NameFile(bob + "wait; wait; quit\r\n"),
        NameFile(bob + "wait 5\r\n"),
        NameFile(bob + "wait;\rquit\r\n"),
        NameFile(bob + "say \"I am Bob\"\r\n"),
        NameFile(bob + "\0\r\n"s),
        NameFile(bob + "\xA0quit\r\n"),
        NameFile("exec name.cfg\r\n" + bob),
        NameFile("set name \"Bob\"\r\nset rate \"1\"\r\n"),
        "// Name File Created by Vortigo; quit\r\n" + bob,
        "// \" Name File Created by Vortigo\rquit\r\n" + bob,
        "\xEF\xBB\xBF// Name File Created by Vortigo\r\n" + bob,
        MessageFile("say \"a\"\r\nquit\r\n"),
        MessageFile("say \"a\"\r\nname \"say\"\r\n"),
        MessageFile("say \"a\"\r\nsay_quit \"b\"\r\n"),
        MessageFile("say \"a\"; quit\r\n"),
        MessageFile("say \"a\"\r\nsay \"b\"\r\nsay \"c\"\r\nquit\r\n"),
        AnimationFile(ann + "say \"I am Ann\"\r\n"),
        AnimationFile(ann + "wait; wait; unbindall; wait; \r\n"),
        AnimationFile(ann + "await; \r\n"),
        "// Animation File Created by Vortigo\r\nsv 15 Names In The Animation Sequence\r\n" + ann,
    };
    for (const std::string& script : hostile) {
        EXPECT_TRUE(IsLostEverywhere(script)) << script;
    }
}

TEST(GameScript, WhatIsHarmlessIsNoLoss) {
    for (const std::string& lines :
         {"name \"Bob\"\n"s, "\r\n\t\r\n// name \"x#y\"\r\nname \"Bob\"\r\n"s, "name \"Bob\";\r\nwait;\r\n"s,
          " name \"Bob\" ;; // that's me\r\n"s, "// \"Bob; the builder\"\r\nname \"Bob\""s}) {
        EXPECT_EQ(LossesOf(NameFile(lines)), "") << lines;
    }
}

TEST(GameScript, IsNoneWithoutRowsOrWithTooManyOrTooLongOnes) {
    EXPECT_EQ(RowsOf(""), "it is not a name, animation or message script");
    EXPECT_EQ(
        RowsOf("name \"Bob\"\r\n// Name File Created by Vortigo\r\n"),
        "it is not a name, animation or message script");
    EXPECT_EQ(RowsOf(NameFile("")), "it holds no name");
    EXPECT_EQ(RowsOf(NameFile("// name \"Bob\"\r\n")), "it holds no name");
    EXPECT_EQ(RowsOf("// Name File Created by Vortigo\rname \"Bob\"\r"), "it holds no name")
        << "all of it is a comment";
    EXPECT_EQ(RowsOf(MessageFile("quit\r\n")), "it holds no message");
    EXPECT_EQ(RowsOf(NameFile("name \"1234567890123456\"\r\n")), "line 2: its name has more than 15 glyphs");
    EXPECT_EQ(
        RowsOf(MessageFile("say \"" + std::string(32, 'x') + "\"\r\n")),
        "line 2: its message has more than 31 glyphs");
    EXPECT_EQ(
        RowsOf(MessageFile("say \"" + std::string(31, 'x') + "\"\r\n")), "[" + std::string(31, 'x') + "]");
    std::string names;
    for (int i = 0; i < 91; ++i) {
        names += "name \"a\"\r\n";
    }
    EXPECT_EQ(RowsOf(AnimationFile(names)), "line 93: it holds a name after the 90th");
    EXPECT_EQ(RowsOf(AnimationFile("wait; \r\nname \"a\"\r\n")), "line 3: it waits before the first name");
    std::string waits;
    for (int i = 0; i < 32767; ++i) {
        waits += "wait; ";
    }
    EXPECT_EQ(RowsOf(AnimationFile("name \"a\"\r\n" + waits)), "[a]32767");
    EXPECT_EQ(RowsOf(AnimationFile("name \"a\"\r\n" + waits + "\r\nwait; ")), "line 5: it waits too long");
}

TEST(GameScript, WhatTheProgramWritesIsJudgedByItsGlyphs) {
    std::mt19937 random(14);
    for (int round = 0; round < 300; ++round) {
        editing::NameDocument name;
        FillRow(name.cells, random);
        const std::string script = scripts::WriteNameScript(
            round % 2 == 0 ? games::NameCommand::Name : games::NameCommand::SetName, name);
        const auto judged = check::Judge("a.vtn", script, {games::Family::QuakeWorld, games::Family::Quake2});
        ASSERT_TRUE(judged.ok()) << judged.failure().message;
        for (const check::FamilyJudgement& family : judged.value().families) {
            const auto expected = games::JudgeName(family.family, games::Audience::Others, name.cells);
            EXPECT_EQ(family.arrives(), expected.arrives()) << script;
            ASSERT_EQ(family.rows.size(), 1U);
            if (!Holds(name.cells, "\n\"")) {
                ASSERT_TRUE(family.rows.front().has_value());
                EXPECT_TRUE(std::ranges::equal(family.rows.front()->shownRow(), expected.shownRow()));
            }
        }
    }
}

TEST(GameScript, RowsOfWhatTheProgramWritesAreThoseOfThePages) {
    std::mt19937 random(15);
    for (int round = 0; round < 50; ++round) {
        editing::AnimationDocument animation;
        animation.nameCount = 15 + static_cast<int>(random() % 76);
        for (int row = 1; row <= animation.nameCount; ++row) {
            do {
                FillRow(animation.rows().row(row), random);
            } while (Holds(animation.name(row), "\n\""));
            animation.ticks(row) = static_cast<std::int16_t>(random() % 20);
        }
        const auto read =
            check::ReadGameScript(animation::EncodeAnimationScript(animation, games::NameCommand::Name));
        ASSERT_TRUE(read.ok()) << read.failure().message;
        const check::GameScript& script = read.value();
        EXPECT_EQ(script.others.count + script.unquoted.count + script.surplus.count, 0);
        ASSERT_EQ(script.rows.size(), static_cast<std::size_t>(animation.nameCount));
        for (int row = 1; row <= animation.nameCount; ++row) {
            const check::ScriptRow& that = script.rows[static_cast<std::size_t>(row - 1)];
            EXPECT_TRUE(std::ranges::equal(that.glyphs, animation.name(row)));
            EXPECT_EQ(that.ticks, animation.ticks(row));
        }

        editing::MessageDocument messages;
        FillRow(messages.cells, random);
        std::ranges::replace(messages.cells, '\n', '\r');
        std::ranges::replace(messages.cells, '"', '\'');
        const auto readMessages = check::ReadGameScript(scripts::WriteMessageScript(
            {{true, false, true}, round % 2 == 0 ? scripts::SayCommand::Say : scripts::SayCommand::SayTeam},
            messages));
        ASSERT_TRUE(readMessages.ok());
        ASSERT_EQ(readMessages.value().rows.size(), 2U);
        EXPECT_TRUE(std::ranges::equal(readMessages.value().rows.front().glyphs, messages.rows().row(1)));
        EXPECT_TRUE(std::ranges::equal(readMessages.value().rows.back().glyphs, messages.rows().row(3)));
    }
}
