// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "games/Script.h"

#include "animation/mdlAniScript.h"
#include "scripts/mdlBind.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>

namespace {

using games::Engine;
using games::Family;
using games::Fit;
using games::NameCommand;
using games::NameTrouble;
using games::ScriptSize;

games::TimedNames NamesOf(const editing::AnimationDocument& animation) {
    const auto count = static_cast<std::size_t>(animation.nameCount);
    return {
        std::span(animation.nameGlyphs).first(count * games::CellsOfName),
        std::span(animation.nameTicks).first(count)};
}

/// An animation of so many names of so many glyphs, shown for so many ticks.
editing::AnimationDocument AnimationOf(int count, std::size_t length, std::int16_t ticks) {
    editing::AnimationDocument animation;
    animation.nameCount = count;
    for (int name = 1; name <= count; ++name) {
        std::ranges::fill(animation.rows().row(name).first(length), 'x');
        animation.ticks(name) = ticks;
    }
    return animation;
}

const games::ScriptLimit& LimitOf(Engine engine) {
    return *std::ranges::find_if(
        games::ScriptLimits(), [engine](const auto& limit) { return limit.seen.engine == engine; });
}

Fit FitIn(Engine engine, std::size_t bytes, std::size_t line = 100) {
    return games::FitOf(LimitOf(engine), {bytes, line});
}

} // namespace

TEST(Script, SizeOfAnAnimationIsWhatIsWritten) {
    std::mt19937 random(1);
    const auto number = [&random](int most) {
        return static_cast<int>(random() % static_cast<unsigned>(most + 1));
    };
    for (int round = 0; round < 200; ++round) {
        editing::AnimationDocument animation;
        animation.nameCount = 15 + number(75);
        for (int name = 1; name <= animation.nameCount; ++name) {
            const auto row = animation.rows().row(name);
            for (auto& cell : row) {
                // Bytes that end lines make others of them.
                const int code = number(40) + round % 2;
                cell = static_cast<glyphs::GlyphCode>(code == 10 || code == 13 ? 32 : code);
            }
            animation.ticks(name) = static_cast<std::int16_t>(number(4) * number(100));
        }
        for (const NameCommand command : {NameCommand::Name, NameCommand::SetName}) {
            const ui::Bytes written = animation::EncodeAnimationScript(animation, command);
            EXPECT_EQ(games::SizeOfAnimation(NamesOf(animation), command), games::SizeOf(written));
        }
    }
}

TEST(Script, OneGlyphZeroOfAnAnimationIsEnough) {
    auto animation = AnimationOf(15, 15, 1);
    EXPECT_FALSE(games::SizeOfAnimation(NamesOf(animation), NameCommand::Name).hasZero);
    for (const int name : {1, 8, 15}) {
        animation = AnimationOf(15, 15, 1);
        animation.rows().row(name)[14] = 0;
        EXPECT_TRUE(games::SizeOfAnimation(NamesOf(animation), NameCommand::Name).hasZero) << name;
    }
}

TEST(Script, TheLargestAnimationIsTooLongForTheFirstEngines) {
    const auto largest = AnimationOf(90, 15, 15);
    const ScriptSize size = games::SizeOfAnimation(NamesOf(largest), NameCommand::Name);
    EXPECT_EQ(size.bytes, 10517U);
    EXPECT_EQ(games::SizeOfAnimation(NamesOf(largest), NameCommand::SetName).bytes, 10877U);
    for (const games::ScriptLimit& limit : games::ScriptLimits()) {
        const bool isFirst =
            limit.seen.engine == Engine::FirstQuake || limit.seen.engine == Engine::FirstQuake2;
        EXPECT_EQ(games::FitOf(limit, size), isFirst ? Fit::TooLong : Fit::Fits);
        EXPECT_NE(games::VersionOf(limit.seen), "");
        EXPECT_EQ(limit.takesZero, limit.seen.engine != Engine::Q2Pro);
        EXPECT_EQ(limit.takesCrLf, limit.seen.engine != Engine::FirstQuake);
        EXPECT_EQ(limit.needsEnd, isFirst);
    }
    EXPECT_EQ(
        games::SizeOfAnimation(NamesOf(AnimationOf(15, 0, 0)), NameCommand::Name).bytes, 77U + 15U * 9U);
    EXPECT_EQ(
        games::SizeOfAnimation(NamesOf(AnimationOf(15, 2, 3)), NameCommand::SetName).bytes, 77U + 15U * 35U);
}

TEST(Script, SizeIsReadOffAnyScript) {
    EXPECT_EQ(games::SizeOf(""), (ScriptSize{0, 0, false}));
    EXPECT_EQ(games::SizeOf("// x\r\nname \"abc\"\r\n"), (ScriptSize{18, 10, false, true}));
    EXPECT_EQ(games::SizeOf(std::string_view("a\0b\n", 4)), (ScriptSize{4, 3, true}));
    EXPECT_EQ(games::SizeOf("a\nbc"), (ScriptSize{4, 2, false, false, true}));
}

TEST(Script, EnginesHaveBuffersOfTheirOwn) {
    for (const Engine engine : {Engine::FirstQuake, Engine::FirstQuake2}) {
        EXPECT_EQ(FitIn(engine, 7965), Fit::Fits);
        EXPECT_EQ(FitIn(engine, 7966), Fit::MayNotFit);
        EXPECT_EQ(FitIn(engine, 8191), Fit::MayNotFit);
        EXPECT_EQ(FitIn(engine, 8192), Fit::TooLong);
    }
    for (const Engine engine :
         {Engine::QuakeSpasm, Engine::VkQuake, Engine::Ironwail, Engine::EzQuake, Engine::Fte}) {
        EXPECT_EQ(FitIn(engine, 262143), Fit::Fits);
        EXPECT_EQ(FitIn(engine, 262144), Fit::TooLong);
    }
    EXPECT_EQ(FitIn(Engine::Yamagi, 32767), Fit::Fits);
    EXPECT_EQ(FitIn(Engine::Yamagi, 32768), Fit::TooLong);
    EXPECT_EQ(FitIn(Engine::Q2Pro, 65535), Fit::Fits);
    EXPECT_EQ(FitIn(Engine::Q2Pro, 65536), Fit::TooLong);
    EXPECT_EQ(FitIn(Engine::DarkPlaces, 17'000'000), Fit::Fits);

    EXPECT_EQ(FitIn(Engine::QuakeSpasm, 5000, 1023), Fit::Fits);
    EXPECT_EQ(FitIn(Engine::QuakeSpasm, 5000, 1024), Fit::LineTooLong);
    EXPECT_EQ(FitIn(Engine::DarkPlaces, 50000, 16383), Fit::Fits);
    EXPECT_EQ(FitIn(Engine::DarkPlaces, 50000, 16384), Fit::LineTooLong);
}

TEST(Script, QuakeDoesNotKnowSetName) {
    EXPECT_EQ(games::FamiliesThatRun(NameCommand::Name), "Quake, QuakeWorld and Quake2");
    EXPECT_EQ(games::FamiliesThatRun(NameCommand::SetName), "QuakeWorld and Quake2");
    EXPECT_FALSE(games::RuleOf(Family::Quake, NameCommand::SetName).runs);
    for (const Family family : games::Families) {
        EXPECT_TRUE(games::RuleOf(family, NameCommand::Name).runs);
        for (const NameCommand command : {NameCommand::Name, NameCommand::SetName}) {
            EXPECT_EQ(games::FactsOf(games::RuleOf(family, command).seen.engine).family, family);
            EXPECT_NE(games::VersionOf(games::RuleOf(family, command).seen), "");
        }
    }
}

TEST(Script, ACommandIsToldWithTheFamiliesThatRunIt) {
    EXPECT_EQ(
        games::CommandText(NameCommand::Name),
        "writes \"name\": runs in Quake, QuakeWorld and Quake2.\nQuake2 runs no \"name\" in an autoexec.cfg "
        "before its first start");
    EXPECT_EQ(
        games::CommandText(NameCommand::SetName), "writes \"set name\": runs in QuakeWorld and Quake2 only");
}

TEST(Script, AKeyRunsAScriptOfASafeName) {
    using Kind = NameTrouble::Kind;
    for (const std::string_view name :
         {"clan.vtn", "player-1_x.VTN", "abcdefghijklmnopqrstuvwxyz0.vtn", "a"}) {
        EXPECT_EQ(games::TroubleOfScriptName(name).kind, Kind::None) << name;
    }
    for (const char byte : {' ', ';', '"', '\n', '\t', '\x7F'}) {
        const NameTrouble trouble = games::TroubleOfScriptName(std::string("(a") + byte + ".vtn");
        EXPECT_EQ(trouble.kind, Kind::EveryGame);
        EXPECT_EQ(trouble.byte, byte);
    }
    for (const char byte : {'\'', '(', ')', '{', '}', '$', '\xC3'}) {
        const NameTrouble trouble = games::TroubleOfScriptName(std::string("a") + byte + ".vtn");
        EXPECT_EQ(trouble.kind, Kind::SomeGames) << byte;
        EXPECT_EQ(trouble.byte, byte);
    }
    EXPECT_EQ(games::TroubleOfScriptName("abcdefghijklmnopqrstuvwxyz01.vtn").kind, Kind::TooLong);
}

TEST(Script, WhatANameMayHoldIsAQuestionOfTheGame) {
    using Kind = NameTrouble::Kind;
    const auto kindIn = [](Family family, std::string_view name) {
        const std::array families{family};
        return games::TroubleOfScriptName(name, families).kind;
    };
    EXPECT_EQ(kindIn(Family::Quake, "a(1).vtn"), Kind::SomeGames);
    EXPECT_EQ(kindIn(Family::QuakeWorld, "a(1).vtn"), Kind::None);
    EXPECT_EQ(kindIn(Family::Quake2, "a(1).vtn"), Kind::None);
    EXPECT_EQ(kindIn(Family::Quake, "a$.vtn"), Kind::None);
    EXPECT_EQ(kindIn(Family::Quake2, "a$.vtn"), Kind::SomeGames);
    EXPECT_EQ(kindIn(Family::Quake2, "\xC3.vtn"), Kind::SomeGames);
    EXPECT_EQ(kindIn(Family::QuakeWorld, "\xC3.vtn"), Kind::None);
    EXPECT_EQ(kindIn(Family::QuakeWorld, "a b.vtn"), Kind::EveryGame);
    EXPECT_EQ(kindIn(Family::Quake, std::string(31, 'a')), Kind::None);
    EXPECT_EQ(kindIn(Family::Quake, std::string(32, 'a')), Kind::TooLong);
    EXPECT_EQ(kindIn(Family::Quake2, std::string(63, 'a')), Kind::None);
    EXPECT_EQ(kindIn(Family::Quake2, std::string(64, 'a')), Kind::TooLong);
}

TEST(Script, EnginesKnowAllKeysButAFew) {
    for (const std::string_view key : scripts::KeyNames) {
        for (const games::EngineFacts& facts : games::Engines) {
            const Engine engine = facts.engine;
            const games::KeyRule* rule = games::TroubleOfKey(std::span(&engine, 1), key);
            const bool isUseless = rule != nullptr && !rule->canBeBound;
            const bool knowsEscape = engine == Engine::Fte || engine == Engine::Mvdsv ||
                                     engine == Engine::FirstQuake || engine == Engine::FirstQuake2;
            const bool isExpected = (key == "ESC" && !knowsEscape) ||
                                    (key == "\\" && engine == Engine::DarkPlaces) ||
                                    (key == "~" && engine == Engine::Yamagi);
            EXPECT_EQ(isUseless, isExpected) << key << " in " << facts.name;
            EXPECT_TRUE(rule == nullptr || rule->seen.engine == engine);
            EXPECT_TRUE(rule == nullptr || !rule->canBeBound || key == "F10" || key == "F12") << key;
        }
    }
    EXPECT_NE(games::TroubleOfKey({}, "esc"), nullptr);
    EXPECT_EQ(games::TroubleOfKey({}, "\\")->seen.engine, Engine::DarkPlaces);
    EXPECT_TRUE(games::TroubleOfKey({}, "F12")->canBeBound);
    for (const games::KeyRule& rule : games::KeyRules()) {
        EXPECT_NE(games::VersionOf(rule.seen), "") << rule.key;
    }
}
