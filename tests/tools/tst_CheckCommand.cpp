// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "check/Json.h"
#include "support/ToolRun.h"
#include "tools/CheckCommandRun.h"

#include <gtest/gtest.h>

namespace {

using support::CheckCommand;
using support::NameHead;

const std::string MessageHead = "// Macro File Created by Vortigo\r\n";

/// An animation of so many names, each shown for two ticks.
std::string Wave(int count, const std::string& name = "n") {
    std::string script = "// Animation File Created by Vortigo\r\n// " + std::to_string(count) +
                         " Names In The Animation Sequence\r\n";
    for (int i = 1; i <= count; ++i) {
        script += "name \"" + name + std::to_string(i) + "\"\r\nwait; wait; \r\n";
    }
    return script;
}

/// A path between quotes of JSON, in which those of Windows have their backslashes doubled.
std::string QuotedPath(const std::string& path) {
    std::string quoted = "\"";
    for (const char letter : path) {
        quoted += letter == '\\' ? "\\\\" : std::string(1, letter);
    }
    return quoted + '"';
}

} // namespace

TEST_F(CheckCommand, ANameOfLettersArrivesEverywhere) {
    const std::string script = file("clan.vtn", NameHead + "name \"Bob A\"\r\n");
    EXPECT_EQ(run({script}), 0);
    EXPECT_EQ(
        output.str(), script + ": a name, 47 bytes\n"
                               "  Quake       kept\n"
                               "  QuakeWorld  kept\n"
                               "  Quake2      kept\n");
    EXPECT_EQ(errors.str(), "");
}

TEST_F(CheckCommand, TellsWhatOthersSeeOfAName) {
    const std::string script = file("clan.vtn", NameHead + "name \"Bob \xC1#$\"\r\n");
    EXPECT_EQ(run({script}), 1);
    EXPECT_EQ(
        output.str(), script + ": a name, 49 bytes\n"
                               "  Quake       kept\n"
                               "  QuakeWorld  the server will call you \"unnamed\": # in cell 6\n"
                               "  Quake2      others see: Bob A#$\n");
    EXPECT_EQ(run({"--game", "quake", script}), 0) << "a note of one engine is no loss";
}

TEST_F(CheckCommand, OnlyTheGamesAskedForCount) {
    const std::string script = file("clan.vtn", NameHead + "set name \"Bob\"\r\n");
    EXPECT_EQ(run({script}), 1);
    EXPECT_EQ(run({"--game", "quake2,QuakeWorld", script}), 0);
    EXPECT_EQ(
        output.str(), script + ": a name, 49 bytes\n"
                               "  QuakeWorld  kept\n"
                               "  Quake2      kept\n");
    EXPECT_EQ(run({"--game=Quake", script}), 1);
    EXPECT_EQ(
        output.str(), script + ": a name, 49 bytes\n"
                               "  Quake       the command \"set\" is unknown: the old name stays\n");
}

TEST_F(CheckCommand, TellsHowAnAnimationPlays) {
    const std::string script = file("wave.vta", Wave(15));
    EXPECT_EQ(run({script}), 1);
    EXPECT_EQ(
        output.str(),
        script + ": an animation of 15 names, 458 bytes\n"
                 "  Quake       plays 0.4 s; kept\n"
                 "              note: DarkPlaces servers take one name in 5 seconds: 1 of 15\n"
                 "  QuakeWorld  plays 0.4 s; kicked at name 7, after 0.2 s\n"
                 "              note: FTE servers mute the player for 5 minutes instead\n"
                 "              note: ezQuake runs no more than 10 waits under the ruleset qcon\n"
                 "  Quake2      plays 0.5 s; kept\n"
                 "              note: Yamagi Quake II may skip name 1 and 13 others: fewer than 6 ticks\n");
}

TEST_F(CheckCommand, ShowsPeopleTheFirstOfManyRows) {
    const std::string script = file("wave.vta", Wave(16, "\x90"));
    EXPECT_EQ(run({"--game", "quake2", script}), 1);
    EXPECT_EQ(
        output.str(),
        script + ": an animation of 16 names, 484 bytes\n"
                 "  Quake2      plays 0.5 s; name 1: others see: 1\n"
                 "              name 2: others see: 2\n"
                 "              name 3: others see: 3\n"
                 "              note: Yamagi Quake II may skip name 1 and 14 others: fewer than 6 ticks\n"
                 "              and so on: 13 more\n");
}

TEST_F(CheckCommand, JudgesTheNamesThatTheFileHolds) {
    std::string script = Wave(15);
    script.replace(script.find("// 15"), 5, "// 16");
    EXPECT_EQ(run({"--game", "quake2", file("wave.vta", script)}), 0)
        << "a row that is not there is not empty";
    EXPECT_NE(output.str().find("an animation of 15 names"), std::string::npos);
}

TEST_F(CheckCommand, TellsWhatBecomesOfMessages) {
    const std::string script = file("m.vtm", MessageHead + "say \"a\"\r\nsay \"b\xFF\"\r\n");
    EXPECT_EQ(run({script}), 1);
    EXPECT_EQ(
        output.str(), script +
                          ": 2 messages, 53 bytes\n"
                          "  Quake       kept\n"
                          "              note: original Quake shows a closing quote behind each message\n"
                          "              note, message 2: original Quake ends the text there\n"
                          "  QuakeWorld  message 2: players see: b\n"
                          "  Quake2      kept\n"
                          "              note, message 2: original Quake II ends the text there\n");
}

TEST_F(CheckCommand, TellsOfALineThatANameBreaks) {
    const std::string script = file("clan.vtn", NameHead + "name \"ab\nquit\"\r\n");
    EXPECT_EQ(run({"--game", "quake", script}), 1);
    EXPECT_EQ(
        output.str(), script + ": a name, 49 bytes\n"
                               "  Quake       line 2 does not end with its quote\n"
                               "              line 3 holds another command\n");
}

TEST_F(CheckCommand, TellsOfAGlyphThatAGameRunsNoScriptWith) {
    const std::string script = file("clan.vtn", NameHead + std::string("name \"ab\0cd\"\r\n", 14));
    EXPECT_EQ(run({"--game", "quake", script}), 1);
    EXPECT_EQ(
        output.str(), script + ": a name, 47 bytes\n"
                               "  Quake       cut off in cell 3; others see: ab\n");
    const std::string message = file("m.vtm", MessageHead + std::string("say \"ab\0\"\r\n", 11));
    EXPECT_EQ(run({"--game", "quake2", message}), 1);
    EXPECT_EQ(
        output.str(), message + ": 1 message, 45 bytes\n"
                                "  Quake2      message 1: cut off in cell 3; players see: ab\n"
                                "              note: Q2PRO does not run a script with glyph 0\n");
}

TEST_F(CheckCommand, ACarriageReturnInANameIsAGlyph) {
    const std::string script = file("clan.vtn", NameHead + "name \"a\rb\"\r\n");
    EXPECT_EQ(run({script}), 1);
    EXPECT_EQ(
        output.str(), script + ": a name, 45 bytes\n"
                               "  Quake       kept\n"
                               "              note: DarkPlaces ends the text there\n"
                               "  QuakeWorld  others see: ab\n"
                               "  Quake2      others see: ab\n");
}

TEST_F(CheckCommand, SaysOnceWhatBecomesOfSeveralRows) {
    std::string script = Wave(15, "a#");
    script.replace(script.find("a#4"), 3, "a\x90");
    script.replace(script.find("a#6"), 2, "b");
    EXPECT_EQ(run({"--game", "quakeworld,quake2", file("wave.vta", script)}), 1);
    EXPECT_NE(
        output.str().find(
            "              names 1 to 3, 5 and 7 to 15: the server will call you \"unnamed\": # in cell 2\n"
            "              note:"),
        std::string::npos)
        << output.str();
    EXPECT_NE(output.str().find("  Quake2      plays 0.5 s; name 4: others see: a\n"), std::string::npos);
    const std::string messages =
        file("m.vtm", MessageHead + "say \"a\xFF\"\r\nsay \"a\xFF\"\r\nsay \"b\xFF\"\r\n");
    EXPECT_EQ(run({"--game", "quakeworld", messages}), 1);
    EXPECT_EQ(
        output.str(), messages + ": 3 messages, 64 bytes\n"
                                 "  QuakeWorld  messages 1 and 2: players see: a\n"
                                 "              message 3: players see: b\n");
}

TEST_F(CheckCommand, TellsOfFileNamesThatNoKeyCanRun) {
    const std::string script = file("my (1).vtn", NameHead + "name \"Bob\"\r\n");
    EXPECT_EQ(run({"--game", "quakeworld", script}), 0);
    EXPECT_NE(
        output.str().find("note: ezQuake runs no file from a key that has a blank in its name\n"),
        std::string::npos)
        << output.str();
    const std::string longName = file(std::string(60, 'a') + ".vtn", NameHead + "name \"Bob\"\r\n");
    EXPECT_EQ(run({"--game", "quake2", longName}), 0);
    EXPECT_NE(output.str().find("that has so long a name\n"), std::string::npos) << output.str();
}

TEST_F(CheckCommand, WhatCannotBeJudgedIsNamedAndTheOthersAreJudged) {
    const std::string good = file("good.vtn", NameHead + "name \"Bob\"\r\n");
    const std::string bad = file("bad.vtn", "hello");
    const std::string gone = ui::PathText(folder / "gone.vtn");
    EXPECT_EQ(run({bad, good, gone}), 2);
    EXPECT_EQ(
        errors.str(), "vtm-check: \"" + bad +
                          "\" cannot be judged: it is not a name, animation or message script.\n"
                          "vtm-check: Could not open \"" +
                          gone + "\": No such file or directory.\n");
    EXPECT_TRUE(output.str().starts_with(good + ": a name"));
}

TEST_F(CheckCommand, PrintsJsonForPrograms) {
    const std::string script = file("clan.vtn", NameHead + "name \"B\xC1\"\r\n");
    EXPECT_EQ(run({"--json", "--game", "quake2", script}), 1);
    EXPECT_EQ(
        output.str(), "{\n"
                      "  \"files\": [\n"
                      "    {\n"
                      "      \"file\": " +
                          QuotedPath(script) +
                          ",\n"
                          "      \"kind\": \"name\",\n"
                          "      \"bytes\": 44,\n"
                          "      \"command\": \"name\",\n"
                          "      \"arrives\": false,\n"
                          "      \"games\": [\n"
                          "        {\n"
                          "          \"game\": \"Quake2\",\n"
                          "          \"arrives\": false,\n"
                          "          \"rows\": [\n"
                          "            {\n"
                          "              \"outcome\": \"changed\",\n"
                          "              \"seen\": [66, 65],\n"
                          "              \"reads\": \"BA\"\n"
                          "            }\n"
                          "          ],\n"
                          "          \"findings\": [\n"
                          "            {\n"
                          "              \"weight\": \"loss\",\n"
                          "              \"text\": \"others see:\",\n"
                          "              \"row\": 1,\n"
                          "              \"cell\": 2,\n"
                          "              \"seen\": [66, 65],\n"
                          "              \"engine\": \"Yamagi Quake II\",\n"
                          "              \"version\": \"8.20\",\n"
                          "              \"evidence\": \"run\"\n"
                          "            }\n"
                          "          ]\n"
                          "        }\n"
                          "      ]\n"
                          "    }\n"
                          "  ]\n"
                          "}\n");
    EXPECT_EQ(run({"--json", "--game", "quake", file("wave.vta", Wave(15)), "/nonexistent\n"}), 2);
    EXPECT_NE(output.str().find("\"milliseconds\": 420,\n"), std::string::npos);
    EXPECT_NE(
        output.str().find("\"file\": \"/nonexistent\\u000a\",\n      \"error\": \""), std::string::npos);
}

TEST_F(CheckCommand, ARowWhoseLineHoldsMoreHasNoVerdict) {
    const std::string script = file("m.vtm", MessageHead + "say \"a\"; quit\r\nsay \"b\"\r\n");
    EXPECT_EQ(run({"--json", "--game", "quake", script}), 1);
    EXPECT_NE(
        output.str().find("          \"rows\": [\n"
                          "            {\n"
                          "              \"outcome\": \"unknown\"\n"
                          "            },\n"
                          "            {\n"
                          "              \"outcome\": \"kept\",\n"
                          "              \"seen\": [98],\n"),
        std::string::npos)
        << output.str();
    std::string wave = Wave(15);
    wave.replace(wave.find("n2\""), 3, "n#;");
    EXPECT_EQ(run({"--game", "quakeworld", file("wave.vta", wave)}), 1);
    EXPECT_NE(output.str().find("line 5 does not end with its quote\n"), std::string::npos);
    EXPECT_EQ(output.str().find("unnamed"), std::string::npos) << "nobody knows what name that is";
}

TEST(CheckJson, TextIsSafeWhateverItHolds) {
    EXPECT_EQ(check::JsonText("a\"b\\c"), "\"a\\\"b\\\\c\"");
    EXPECT_EQ(check::JsonText("\x01\n\x1F\x7F"), "\"\\u0001\\u000a\\u001f\\u007f\"");
    EXPECT_EQ(check::JsonText("\xC3\xA4 \xE2\x82\xAC"), "\"\xC3\xA4 \xE2\x82\xAC\"");
    EXPECT_EQ(check::JsonText("h\xE4 \xC3"), "\"h\\ufffd \\ufffd\"");
    EXPECT_EQ(check::JsonText(""), "\"\"");
}

TEST(CheckJson, BracketsHoldWhatIsWrittenBetweenThem) {
    std::ostringstream output;
    check::JsonWriter json(output);
    json.open('{');
    json.key("none");
    json.open('[');
    json.close(']');
    json.member("truth", true);
    json.numbers("numbers", std::vector<int>{});
    json.close('}');
    EXPECT_EQ(output.str(), "{\n  \"none\": [],\n  \"truth\": true,\n  \"numbers\": []\n}");
}

TEST_F(CheckCommand, WhatIsNotUnderstoodIsWrongUsage) {
    const std::string script = file("clan.vtn", NameHead + "name \"Bob\"\r\n");
    const std::vector<std::vector<std::string>> wrong{
        {},
        {"--json"},
        {"--game", "doom", script},
        {"--game", "quake,", script},
        {"--game", "", script},
        {"--xml", script},
        {"--json=1", script}};
    for (const auto& arguments : wrong) {
        EXPECT_EQ(run(arguments), 2);
        EXPECT_NE(errors.str(), "");
        EXPECT_EQ(output.str(), "");
    }
    EXPECT_EQ(run({"--help"}), 0);
    EXPECT_TRUE(output.str().starts_with("Usage: vtm-check [OPTION]... FILE...\n"));
    EXPECT_EQ(run({"--version"}), 0);
    EXPECT_EQ(output.str(), "vtm-check " VTM_VERSION "\n");
}

TEST_F(CheckCommand, OutputHoldsNothingThatATerminalActsOn) {
    const std::string script = file("clan.vtn", NameHead + ActedOnLine);
    EXPECT_EQ(run({script, ui::PathText(folder / ActedOnFile)}), 2);
    expectHarmless(output.str());
    expectHarmless(errors.str());
    EXPECT_EQ(run({"--json", script}), 1);
    expectHarmless(output.str());
}

TEST_F(CheckCommand, TheProgramPrintsWhatTheCommandDoes) {
    const std::string script =
        ui::PathText(folder.put(ui::PathFromText("\xC3\xBC \xE6\xBC\xA2.vta"), Wave(15)));
    EXPECT_EQ(run({script}), 1);
    EXPECT_EQ(support::RunProgram(VTM_CHECK, {script}).output, output.str());
    EXPECT_EQ(run({"--json", script}), 1);
    EXPECT_EQ(support::RunProgram(VTM_CHECK, {"--json", script}).output, output.str());
}

TEST_F(CheckCommand, TheProgramExitsWithTheCodeOfTheCommand) {
    EXPECT_EQ(support::RunProgram(VTM_CHECK, {file("clan.vtn", NameHead + "name \"Bob\"\r\n")}).exitCode, 0);
    EXPECT_EQ(support::RunProgram(VTM_CHECK, {file("w.vta", Wave(15))}).exitCode, 1);
    EXPECT_EQ(support::RunProgram(VTM_CHECK, {ui::PathText(folder / "none")}).exitCode, 2);
}
