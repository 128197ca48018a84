// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/mdlAniScript.h"

#include "animation/AnimationDesk.h"
#include "animation/mdlAniName.h"

#include <algorithm>
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace animation {
namespace {

using editing::OpenFailure;
using editing::SaveOutcome;
using editing::ScriptRead;
using support::AnimationDesk;

const std::string Header = "// Animation File Created by Vortigo\r\n";

std::string countLine(int count) {
    return "// " + std::to_string(count) + " Names In The Animation Sequence\r\n";
}

/// A script that declares 15 names and goes on with `lines`.
std::string script(const std::string& lines) {
    return Header + countLine(15) + lines;
}

std::string repeated(std::string_view text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

/// The fifteen cells of a row, blanks included.
std::string cells(const AnimationDocument& animation, int name) {
    std::string text;
    for (const glyphs::GlyphCode code : animation.name(name)) {
        text += static_cast<char>(static_cast<unsigned char>(code));
    }
    return text;
}

bool same(const AnimationDocument& a, const AnimationDocument& b) {
    return a.nameGlyphs == b.nameGlyphs && a.nameTicks == b.nameTicks && a.nameCount == b.nameCount &&
           a.currentName == b.currentName && a.cursorPos == b.cursorPos;
}

/// A document in which every cell and every tick count is told apart.
AnimationDocument filled() {
    AnimationDesk desk;
    desk.fillNames(90);
    for (int name = 1; name <= 90; ++name) {
        desk.animation().ticks(name) = static_cast<std::int16_t>(100 + name);
    }
    return desk.animation();
}

struct ScriptFiles : testing::Test {
    support::FakePlatform platform;
    AnimationDesk desk;
    int repaints = 0;

    [[nodiscard]] ui::Path path() const { return platform.directory.files / "a.vta"; }

    SaveOutcome write() {
        return editing::WriteScript(
            platform.dialogs, platform.files, AnimationWriter(desk.animation()), path());
    }

    ScriptRead read(bool quiet = false, OpenFailure openFailure = OpenFailure::StatusLine) {
        return editing::LoadScript(
            platform.dialogs, platform.files, AnimationReader(desk.animation(), path()), quiet, openFailure,
            [this] { ++repaints; });
    }
};

} // namespace

TEST(EncodeAnimationScript, WritesTheExampleByteForByte) {
    AnimationDesk desk;
    desk.setName(1, "AB");
    desk.animation().ticks(2) = 0;
    const std::string expected = "// Animation File Created by Vortigo\r\n"
                                 "// 15 Names In The Animation Sequence\r\n"
                                 "name \"AB\"\r\n"
                                 "wait; wait; \r\n"
                                 "name \"\"\r\n" +
                                 repeated("name \"\"\r\nwait; wait; \r\n", 13);
    EXPECT_EQ(EncodeAnimationScript(desk.animation(), NameCommand::Name), expected);
}

TEST(EncodeAnimationScript, WritesTheOtherCommand) {
    AnimationDesk desk;
    desk.setName(1, "AB");
    SetAllTicks(desk.animation(), 0);
    const std::string expected = "// Animation File Created by Vortigo\r\n"
                                 "// 15 Names In The Animation Sequence\r\n"
                                 "set name \"AB\"\r\n" +
                                 repeated("set name \"\"\r\n", 14);
    EXPECT_EQ(EncodeAnimationScript(desk.animation(), NameCommand::SetName), expected);
}

TEST(EncodeAnimationScript, WritesTheNamesInUseOnly) {
    AnimationDocument animation = filled();
    SetNameCount(animation, 90);
    SetAllTicks(animation, 0);
    std::string expected = Header + "// 90 Names In The Animation Sequence\r\n";
    for (int name = 1; name <= 90; ++name) {
        expected += "name \"name " + std::to_string(name) + "\"\r\n";
    }
    EXPECT_EQ(EncodeAnimationScript(animation, NameCommand::Name), expected);
    SetNameCount(animation, 15);
    EXPECT_EQ(EncodeAnimationScript(animation, NameCommand::Name).find("name 16"), std::string::npos);
}

TEST(EncodeAnimationScript, WritesNothingTooLargeToBeReadAgain) {
    AnimationDocument animation = filled();
    SetNameCount(animation, 90);
    SetAllTicks(animation, INT16_MAX);
    const std::string bytes = EncodeAnimationScript(animation, NameCommand::SetName);
    EXPECT_LE(bytes.size(), ui::Files::MaxFileSize);
    AnimationDocument read;
    EXPECT_EQ(DecodeAnimationScript(bytes, read).end, ScriptEnd::Read);
    EXPECT_EQ(read.ticks(90), INT16_MAX);
}

TEST(EncodeAnimationScript, DropsTrailingBlanksAndKeepsTheOthers) {
    AnimationDesk desk;
    desk.setName(1, "  a b  ");
    desk.animation().ticks(1) = 1;
    const std::string bytes = EncodeAnimationScript(desk.animation(), NameCommand::Name);
    EXPECT_NE(bytes.find("name \"  a b\"\r\nwait; \r\n"), std::string::npos);
}

TEST(EncodeAnimationScript, WritesEveryGlyphAsItsByte) {
    AnimationDesk desk;
    for (int code = 0; code < 256; ++code) {
        desk.animation().rows().cell(1 + code / 14, 1 + code % 14) = static_cast<glyphs::GlyphCode>(code);
        // A glyph in the last cell keeps the blanks before it.
        desk.animation().rows().cell(1 + code / 14, 15) = '!';
    }
    SetNameCount(desk.animation(), 19);
    const std::string bytes = EncodeAnimationScript(desk.animation(), NameCommand::Name);
    std::string all;
    for (int name = 1; name <= 19; ++name) {
        all += "name \"" + cells(desk.animation(), name) + "\"\r\nwait; wait; \r\n";
    }
    EXPECT_EQ(bytes, Header + countLine(19) + all);
    EXPECT_NE(bytes.find('\0'), std::string::npos);
    EXPECT_NE(bytes.find('\x1A'), std::string::npos);
    EXPECT_NE(bytes.find('\xFF'), std::string::npos);
}

TEST(DecodeAnimationScript, ReadsBothCommandsAlike) {
    for (const std::string prefix : {"name \"", "set name \""}) {
        AnimationDocument animation;
        EXPECT_EQ(DecodeAnimationScript(script(prefix + "AB\"\r\n"), animation).end, ScriptEnd::Read);
        EXPECT_EQ(cells(animation, 1), "AB             ");
    }
}

TEST(DecodeAnimationScript, AcceptsAnyLineEnd) {
    const std::string crlf = script("name \"AB\"\r\nwait; wait; wait; \r\nname \"CD\"\r\n");
    std::string lf;
    std::string cr;
    for (const char byte : crlf) {
        if (byte != '\r') {
            lf += byte;
        }
        if (byte != '\n') {
            cr += byte;
        }
    }
    for (const std::string& bytes : {crlf, lf, cr, crlf.substr(0, crlf.size() - 2)}) {
        AnimationDocument animation;
        EXPECT_EQ(DecodeAnimationScript(bytes, animation).end, ScriptEnd::Read);
        EXPECT_EQ(cells(animation, 1), "AB             ");
        EXPECT_EQ(animation.ticks(1), 3);
        EXPECT_EQ(cells(animation, 2), "CD             ");
    }
}

TEST(DecodeAnimationScript, LeavesADocumentAloneThatIsNotRecognised) {
    for (const std::string& bytes : std::vector<std::string>{
             "", "\r\n", "name \"AB\"\r\n", Header, Header + "\r\n", Header + "name \"AB\"\r\n",
             "\r\n" + Header + countLine(20), countLine(20) + Header,
             "// animation file created by vortigo\r\n" + countLine(20),
             Header + "// 20 names in the animation sequence\r\n"}) {
        AnimationDocument animation = filled();
        const AnimationDocument before = animation;
        EXPECT_EQ(DecodeAnimationScript(bytes, animation).end, ScriptEnd::NotRecognised) << bytes;
        EXPECT_TRUE(same(animation, before)) << bytes;
    }
}

TEST(DecodeAnimationScript, FindsTheHeaderAnywhereInItsLine) {
    AnimationDocument animation;
    const DecodedScript result = DecodeAnimationScript(
        "xAnimation File Created by Vortigoy\n// 16? Names In The Animation Sequence!\n", animation);
    EXPECT_EQ(result.end, ScriptEnd::Read);
    EXPECT_EQ(animation.nameCount, 16);
}

TEST(DecodeAnimationScript, LooksAtTwoCharactersOfTheCountOnly) {
    const std::vector<std::pair<std::string, int>> counts = {
        {"// 15 ", 15}, {"// 90 ", 90}, {"// 150 ", 15}, {"// 900000 ", 90}, {"xyz42", 42}};
    for (const auto& [start, count] : counts) {
        AnimationDocument animation;
        const std::string bytes = Header + start + "Names In The Animation Sequence\r\n";
        EXPECT_EQ(DecodeAnimationScript(bytes, animation).end, ScriptEnd::Read) << start;
        EXPECT_EQ(animation.nameCount, count) << start;
    }
}

TEST(DecodeAnimationScript, AbandonsACountThatIsNoNumberOrOutsideFifteenToNinety) {
    for (const std::string start :
         {"// 9 ", "// 14 ", "// 91 ", "// 99 ", "// 00 ", "// 100 ", "//  15 ", "//15 ", "// 1x ", "// -9 ",
          "// +9 ", "// xx ", "", "    "}) {
        AnimationDocument animation = filled();
        const AnimationDocument before = animation;
        const DecodedScript result = DecodeAnimationScript(
            Header + start + "Names In The Animation Sequence\r\nname \"AB\"\r\n", animation);
        EXPECT_EQ(result.end, ScriptEnd::Abandoned) << start;
        EXPECT_EQ(result.line, 2) << start;
        EXPECT_TRUE(same(animation, before)) << start;
    }
}

TEST(DecodeAnimationScript, SetsTheNumberOfNamesAndKeepsTheCursorWithin) {
    AnimationDocument animation = filled();
    SetNameCount(animation, 90);
    animation.currentName = 77;
    animation.cursorPos = 4;
    EXPECT_EQ(DecodeAnimationScript(Header + countLine(20), animation).end, ScriptEnd::Read);
    EXPECT_EQ(animation.nameCount, 20);
    EXPECT_EQ(animation.currentName, 20);
    EXPECT_EQ(animation.cursorPos, 4);
}

TEST(DecodeAnimationScript, KeepsWhatTheFileDoesNotHold) {
    AnimationDocument animation = filled();
    const DecodedScript result = DecodeAnimationScript(
        script("name \"one\"\r\nwait; \r\nname \"two\"\r\nname \"three\"\r\nwait; wait; \r\n"), animation);
    EXPECT_EQ(result.end, ScriptEnd::Read);
    EXPECT_EQ(result.namesRead, 3);
    EXPECT_EQ(result.namesUntimed, 1);
    EXPECT_EQ(cells(animation, 1), "one            ");
    EXPECT_EQ(animation.ticks(1), 1);
    EXPECT_EQ(cells(animation, 2), "two            ");
    EXPECT_EQ(animation.ticks(2), 102) << "no wait line: the row keeps its ticks";
    EXPECT_EQ(animation.ticks(3), 2);
    EXPECT_EQ(cells(animation, 4), "name 4         ");
    EXPECT_EQ(animation.ticks(4), 104);
}

TEST(DecodeAnimationScript, FillsRowsBeyondTheDeclaredNames) {
    AnimationDocument animation;
    const DecodedScript result =
        DecodeAnimationScript(script(repeated("name \"x\"\r\nwait;wait;wait;\r\n", 90)), animation);
    EXPECT_EQ(result.end, ScriptEnd::Read);
    EXPECT_EQ(animation.nameCount, 15);
    EXPECT_EQ(cells(animation, 90), "x              ");
    EXPECT_EQ(animation.ticks(90), 3);
    EXPECT_EQ(result.namesUntimed, 0);
}

TEST(DecodeAnimationScript, AbandonsAtTheNinetyFirstName) {
    AnimationDocument animation;
    const DecodedScript result =
        DecodeAnimationScript(script(repeated("name \"x\"\r\n", 90) + "name \"y\"\r\nwait;\r\n"), animation);
    EXPECT_EQ(result.end, ScriptEnd::Abandoned);
    EXPECT_EQ(result.line, 93);
    EXPECT_EQ(cells(animation, 90), "x              ");
    EXPECT_EQ(animation.ticks(90), 2);
}

TEST(DecodeAnimationScript, TakesFifteenGlyphsAndAbandonsAtSixteen) {
    AnimationDocument animation = filled();
    EXPECT_EQ(DecodeAnimationScript(script("name \"abcdefghijklmno\"\r\n"), animation).end, ScriptEnd::Read);
    EXPECT_EQ(cells(animation, 1), "abcdefghijklmno");

    const DecodedScript result = DecodeAnimationScript(
        script("name \"one\"\r\nname \"abcdefghijklmnop\"\r\nname \"three\"\r\n"), animation);
    EXPECT_EQ(result.end, ScriptEnd::Abandoned);
    EXPECT_EQ(result.line, 4);
    EXPECT_EQ(cells(animation, 1), "one            ");
    EXPECT_EQ(cells(animation, 2), "abcdefghijklmno");
    EXPECT_EQ(cells(animation, 3), "name 3         ");
}

TEST(DecodeAnimationScript, CountsWaitsAndTakesOneAtLeast) {
    const std::vector<std::pair<std::string, int>> lines = {
        {"wait; wait; wait;", 3}, {"wait", 1},
        {"wait; wait; ", 2},      {"wait;wait;wait;wait;", 4},
        {"waiting", 1},           {"// wait; or not", 1},
        {"await; wait", 1},       {repeated("wait; ", 40), 40}};
    for (const auto& [line, ticks] : lines) {
        AnimationDocument animation = filled();
        EXPECT_EQ(
            DecodeAnimationScript(script("name \"a\"\r\n" + line + "\r\n"), animation).end, ScriptEnd::Read);
        EXPECT_EQ(animation.ticks(1), ticks) << line;
        EXPECT_EQ(animation.ticks(2), 102) << line;
    }
}

TEST(DecodeAnimationScript, TakesTheLastOfSeveralWaitLines) {
    AnimationDocument animation;
    EXPECT_EQ(
        DecodeAnimationScript(script("name \"a\"\r\nwait; wait; wait;\r\nwait;\r\n"), animation).end,
        ScriptEnd::Read);
    EXPECT_EQ(animation.ticks(1), 1);
}

TEST(DecodeAnimationScript, AbandonsMoreTicksThanACountHolds) {
    AnimationDocument animation = filled();
    EXPECT_EQ(
        DecodeAnimationScript(script("name \"a\"\r\n" + repeated("wait;", 32767) + "\r\n"), animation).end,
        ScriptEnd::Read);
    EXPECT_EQ(animation.ticks(1), 32767);
    const DecodedScript result = DecodeAnimationScript(
        script("name \"a\"\r\nname \"b\"\r\n" + repeated("wait;", 32768) + "\r\n"), animation);
    EXPECT_EQ(result.end, ScriptEnd::Abandoned);
    EXPECT_EQ(result.line, 5);
    EXPECT_EQ(animation.ticks(2), 102);
}

TEST(DecodeAnimationScript, AbandonsAWaitBeforeTheFirstNameWithTheTotalSet) {
    AnimationDocument animation = filled();
    const DecodedScript result =
        DecodeAnimationScript(Header + countLine(30) + "\r\nwait;\r\nname \"a\"\r\n", animation);
    EXPECT_EQ(result.end, ScriptEnd::Abandoned);
    EXPECT_EQ(result.line, 4);
    EXPECT_EQ(result.namesRead, 0);
    EXPECT_EQ(animation.nameCount, 30);
    EXPECT_EQ(cells(animation, 1), "name 1         ");
}

TEST(DecodeAnimationScript, LooksForKeywordsAnywhereInALine) {
    AnimationDocument animation = filled();
    const DecodedScript result = DecodeAnimationScript(
        script("// Names and Wait are no keywords\r\n"
               "alias x \"name y; wait;\"\r\n"
               "// my \"nickname\" here\r\n"
               "bind x y\r\n"),
        animation);
    EXPECT_EQ(result.end, ScriptEnd::Read);
    EXPECT_EQ(result.namesRead, 2);
    EXPECT_EQ(cells(animation, 1), "name y; wait;  ");
    EXPECT_EQ(animation.ticks(1), 101) << "a line with both is a name line";
    EXPECT_EQ(cells(animation, 2), "nickname\" her  ");
}

TEST(DecodeAnimationScript, DropsTheLastCharacterOfANameLineWhateverItIs) {
    const std::vector<std::pair<std::string, std::string>> lines = {
        {"name \"AB\"", "AB             "},    {"name \"AB\" ", "AB\"            "},
        {"name \"\"", "               "},      {"name \"", "               "},
        {"name x", "name           "},         {"name", "nam            "},
        {"name \"A\"B\"", "A\"B            "}, {"name \"  AB\"", "  AB           "}};
    for (const auto& [line, expected] : lines) {
        AnimationDocument animation = filled();
        EXPECT_EQ(DecodeAnimationScript(script(line + "\r\n"), animation).end, ScriptEnd::Read);
        EXPECT_EQ(cells(animation, 1), expected) << line;
    }
}

TEST(DecodeAnimationScript, TakesAllBytesButLineEndsAsTheyAre) {
    AnimationDocument animation;
    std::string bytes = Header + countLine(18);
    std::string glyphText;
    for (int code = 0; code < 256; ++code) {
        if (code != '\r' && code != '\n') {
            glyphText += static_cast<char>(static_cast<unsigned char>(code));
        }
    }
    for (std::size_t at = 0; at < glyphText.size(); at += 15) {
        bytes += "name \"" + glyphText.substr(at, 15) + "\"\r\n";
    }
    EXPECT_EQ(DecodeAnimationScript(bytes, animation).end, ScriptEnd::Read);
    std::string read;
    for (int name = 1; name <= 17; ++name) {
        read += cells(animation, name);
    }
    EXPECT_EQ(read, glyphText + " ");
}

TEST(DecodeAnimationScript, IsBrokenByALineEndInAName) {
    AnimationDesk desk;
    desk.setName(1, "ab\ncd");
    desk.setName(2, "ef");
    AnimationDocument animation = filled();
    const std::string bytes = EncodeAnimationScript(desk.animation(), NameCommand::Name);
    EXPECT_NE(bytes.find("name \"ab\ncd\"\r\n"), std::string::npos);
    EXPECT_EQ(DecodeAnimationScript(bytes, animation).end, ScriptEnd::Read);
    EXPECT_EQ(cells(animation, 1), "a              ");
    EXPECT_EQ(cells(animation, 2), "ef             ");
}

TEST(AnimationScript, ReadsBackOverAnyDocumentAllButTicksOfNone) {
    std::mt19937 random(7001);
    const auto pick = [&random](int first, int last) {
        return std::uniform_int_distribution<int>(first, last)(random);
    };
    const auto anyDocument = [&] {
        AnimationDocument animation;
        const int blanks = pick(0, 9);
        for (glyphs::GlyphCode& code : animation.nameGlyphs) {
            do {
                code = static_cast<glyphs::GlyphCode>(pick(0, 9) < blanks ? 32 : pick(0, 255));
            } while (code == '\r' || code == '\n');
        }
        for (std::int16_t& ticks : animation.nameTicks) {
            ticks = static_cast<std::int16_t>(pick(0, 3) == 0 ? 0 : pick(1, 60));
        }
        animation.nameCount = pick(15, 90);
        animation.currentName = pick(1, animation.nameCount);
        animation.cursorPos = pick(1, 15);
        return animation;
    };
    for (int round = 0; round < 300; ++round) {
        const AnimationDocument written = anyDocument();
        const AnimationDocument previous = anyDocument();
        const NameCommand command = round % 2 == 0 ? NameCommand::Name : NameCommand::SetName;
        const std::string bytes = EncodeAnimationScript(written, command);

        AnimationDocument expected = previous;
        expected.nameCount = written.nameCount;
        expected.currentName = std::min(previous.currentName, written.nameCount);
        int untimed = 0;
        for (int name = 1; name <= written.nameCount; ++name) {
            std::ranges::copy(written.name(name), expected.rows().row(name).begin());
            if (written.ticks(name) != 0) {
                expected.ticks(name) = written.ticks(name);
            } else {
                ++untimed;
            }
        }
        AnimationDocument read = previous;
        const DecodedScript result = DecodeAnimationScript(bytes, read);
        ASSERT_EQ(result.end, ScriptEnd::Read);
        ASSERT_EQ(result.namesRead, written.nameCount);
        ASSERT_EQ(result.namesUntimed, untimed);
        ASSERT_TRUE(same(read, expected)) << "round " << round;

        // Only rows in use are written, so what was read writes the same but for the ticks that it kept.
        for (int name = 1; name <= read.nameCount; ++name) {
            read.ticks(name) = written.ticks(name);
        }
        ASSERT_EQ(EncodeAnimationScript(read, command), bytes) << "round " << round;
    }
}

TEST_F(ScriptFiles, AreWrittenWithThePlainCommandOnYes) {
    desk.setName(1, "AB");
    SetAllTicks(desk.animation(), 1);
    platform.dialogs.expectGameQuestion("Is this animation to be used in Quake2?", ui::Answer::Yes, [this] {
        EXPECT_FALSE(platform.files.exists(path())) << "the file is made after the question";
    });
    platform.dialogs.expectInform("Done! The script file, " + path().string() + ", was written.", [this] {
        EXPECT_TRUE(platform.files.exists(path()));
    });
    const SaveOutcome outcome = write();
    EXPECT_EQ(outcome.kind, SaveOutcome::Kind::Written);
    EXPECT_EQ(outcome.statusText, "");
    EXPECT_EQ(
        platform.directory.files.content("a.vta"),
        "// Animation File Created by Vortigo\r\n// 15 Names In The Animation Sequence\r\n"
        "name \"AB\"\r\nwait; \r\n" +
            repeated("name \"\"\r\nwait; \r\n", 14));
}

TEST_F(ScriptFiles, AreWrittenWithTheSetCommandOnNoOverAnyOldFile) {
    platform.directory.files.put("a.vta", repeated("an older and longer file ", 1000));
    platform.dialogs.expectGameQuestion("Is this animation to be used in Quake2?", ui::Answer::No);
    platform.dialogs.expectInform("Done! The script file, " + path().string() + ", was written.");
    EXPECT_EQ(write().kind, SaveOutcome::Kind::Written);
    EXPECT_EQ(
        platform.directory.files.content("a.vta"),
        "// Animation File Created by Vortigo\r\n// 15 Names In The Animation Sequence\r\n" +
            repeated("set name \"\"\r\nwait; wait; \r\n", 15));
}

TEST_F(ScriptFiles, SayInTheStatusLineWhatWillNotComeBack) {
    desk.setName(1, "a\"b");
    desk.setName(2, "c\nd");
    desk.setName(3, "e\rf");
    desk.setName(16, "\"");
    desk.animation().ticks(4) = 0;
    platform.dialogs.expectGameQuestion("Is this animation to be used in Quake2?", ui::Answer::Yes);
    platform.dialogs.expectInform("Done! The script file, " + path().string() + ", was written.");
    EXPECT_EQ(
        write().statusText, "Names with glyph 10, 13 or 34, which breaks their line: 3. "
                            "Names without ticks, whose rows keep theirs when the script is read: 1.");
}

TEST_F(ScriptFiles, ThatCannotBeMadeAreSilentButForTheStatusLine) {
    platform.files.failOnce(support::FailingFiles::Step::Create);
    platform.dialogs.expectGameQuestion("Is this animation to be used in Quake2?", ui::Answer::Yes);
    const SaveOutcome outcome = write();
    EXPECT_EQ(outcome.kind, SaveOutcome::Kind::Failed);
    EXPECT_NE(outcome.statusText.find(path().string()), std::string::npos) << outcome.statusText;
    EXPECT_FALSE(platform.directory.files.has("a.vta"));
}

TEST_F(ScriptFiles, ThatCannotBeWrittenWholeAreNotDone) {
    for (const auto step : {support::FailingFiles::Step::Write, support::FailingFiles::Step::Close}) {
        platform.files.failOnce(step);
        platform.dialogs.expectGameQuestion("Is this animation to be used in Quake2?", ui::Answer::Yes);
        const SaveOutcome outcome = write();
        EXPECT_EQ(outcome.kind, SaveOutcome::Kind::Failed);
        EXPECT_NE(outcome.statusText.find(path().string()), std::string::npos) << outcome.statusText;
        EXPECT_FALSE(platform.directory.files.has("a.vta"));
    }
}

TEST_F(ScriptFiles, ThatWerePutBackTellItInOneLine) {
    platform.directory.files.put("a.vta", "old");
    std::filesystem::create_hard_link(path(), platform.directory.files / "b.vta");
    platform.files.failOnce(support::FailingFiles::Step::Write, 2);
    platform.dialogs.expectGameQuestion("Is this animation to be used in Quake2?", ui::Answer::Yes);
    EXPECT_EQ(
        write().statusText,
        "Could not write \"" + path().string() + "\": injected failure. The file was put back as it was.");
    EXPECT_EQ(platform.directory.files.content("a.vta"), "old");
}

TEST_F(ScriptFiles, AreReadShownAndReported) {
    platform.directory.files.put("a.vta", script(repeated("name \"AB\"\r\nwait; \r\n", 15)));
    platform.dialogs.expectInform("Done! " + path().string() + " was read succesfully.", [this] {
        EXPECT_EQ(repaints, 1) << "the page shows the script before the box comes up";
    });
    const ScriptRead outcome = read();
    EXPECT_EQ(outcome.end, ScriptEnd::Read);
    EXPECT_EQ(outcome.statusText, "");
    EXPECT_EQ(repaints, 1);
    EXPECT_EQ(desk.name(15), "AB");
}

TEST_F(ScriptFiles, AreReadQuietlyAtStart) {
    platform.directory.files.put("a.vta", script(repeated("name \"AB\"\r\nwait; \r\n", 15)));
    const ScriptRead outcome = read(true, OpenFailure::MessageBox);
    EXPECT_EQ(outcome.end, ScriptEnd::Read);
    EXPECT_EQ(repaints, 1);
    EXPECT_TRUE(platform.dialogs.calls().empty());
}

TEST_F(ScriptFiles, SayInTheStatusLineWhatTheDocumentKept) {
    platform.directory.files.put("a.vta", script("name \"A\"\r\nname \"B\"\r\nwait; \r\n"));
    EXPECT_EQ(
        read(true).statusText, "Names without a wait line kept the ticks of their rows: 1. "
                               "Rows 3 to 15 are not in the file and stayed as they were.");
    platform.directory.files.put("a.vta", script(repeated("name \"A\"\r\nwait;\r\n", 14)));
    EXPECT_EQ(read(true).statusText, "Row 15 is not in the file and stayed as it was.");
}

TEST_F(ScriptFiles, ThatAreForeignAreReportedAlsoQuietly) {
    platform.directory.files.put("a.vta", "// Name File Created by Vortigo\r\nname \"x\"\r\n");
    const AnimationDocument before = desk.animation();
    for (const bool quiet : {false, true}) {
        platform.dialogs.expectInform("Error reading animation from " + path().string() + ".");
        EXPECT_EQ(read(quiet).end, ScriptEnd::NotRecognised);
        platform.dialogs.expectAllAsked();
    }
    EXPECT_EQ(repaints, 0);
    EXPECT_TRUE(same(desk.animation(), before));
}

TEST_F(ScriptFiles, ThatAreAbandonedShowNothingButTheStatusLine) {
    platform.directory.files.put("a.vta", script("name \"A\"\r\nname \"abcdefghijklmnop\"\r\n"));
    ScriptRead outcome = read();
    EXPECT_EQ(outcome.end, ScriptEnd::Abandoned);
    EXPECT_EQ(
        outcome.statusText, "Reading \"" + path().string() +
                                "\" stopped at line 4: its name has more than 15 glyphs. "
                                "Names 1 and 2 stand in the animation and not on the screen.");
    EXPECT_TRUE(outcome.hasUnshownNames);
    platform.directory.files.put("a.vta", Header + countLine(9));
    outcome = read();
    EXPECT_EQ(outcome.end, ScriptEnd::Abandoned);
    EXPECT_EQ(
        outcome.statusText,
        "Reading \"" + path().string() + "\" stopped at line 2: it does not declare 15 to 90 names.");
    EXPECT_FALSE(outcome.hasUnshownNames);
    EXPECT_EQ(repaints, 0);
    EXPECT_TRUE(platform.dialogs.calls().empty());
}

TEST_F(ScriptFiles, ThatAreAbandonedTellExactlyWhichNamesAreNotShown) {
    const auto told = [this](const std::string& lines) {
        platform.directory.files.put("a.vta", script(lines + "name \"much too long for a name\"\r\n"));
        const ScriptRead outcome = read();
        const std::size_t start = outcome.statusText.find("glyphs.");
        EXPECT_EQ(outcome.hasUnshownNames, start + 7 < outcome.statusText.size());
        return outcome.statusText.substr(std::min(start + 8, outcome.statusText.size()));
    };
    const std::string same = "name \"\"\r\n";
    const auto renew = [this] {
        desk.animation() = AnimationDocument();
    };
    renew();
    EXPECT_EQ(told(""), "Name 1 stands in the animation and not on the screen.");
    EXPECT_EQ(told(""), "") << "it held the same before";
    renew();
    EXPECT_EQ(
        told(repeated("name \"A\"\r\n", 4) + same + same),
        "Names 1 to 4 and 7 stand in the animation and not on the screen.");
    renew();
    EXPECT_EQ(
        told("name \"A\"\r\n" + same + "name \"A\"\r\n" + "name \"A\"\r\n" + same),
        "Names 1, 3, 4 and 6 stand in the animation and not on the screen.");
    renew();
    EXPECT_EQ(
        told(repeated("name \"A\"\r\n", 20)), "Names 1 to 15 stand in the animation and not on the screen.")
        << "those behind the last one are not to be shown";
}

TEST_F(ScriptFiles, ThatCannotBeOpenedAreNamedInTheStatusLine) {
    const AnimationDocument before = desk.animation();
    const ScriptRead outcome = read();
    EXPECT_EQ(outcome.end, ScriptEnd::NotRecognised);
    EXPECT_NE(outcome.statusText.find(path().string()), std::string::npos) << outcome.statusText;
    EXPECT_TRUE(platform.dialogs.calls().empty());
    EXPECT_TRUE(same(desk.animation(), before));
    EXPECT_EQ(repaints, 0);
}

TEST_F(ScriptFiles, ThatCannotBeOpenedAreReportedWhenNotChosenInADialog) {
    platform.dialogs.expectInform("Error reading animation from " + path().string() + ".");
    EXPECT_NE(read(false, OpenFailure::MessageBox).statusText, "");
    EXPECT_EQ(repaints, 0);
}

TEST_F(ScriptFiles, AreSavedWhereTheUserChooses) {
    int accepted = 0;
    const auto save = [&] {
        return editing::SaveScript(
            platform.dialogs, platform.files, AnimationWriter(desk.animation()), platform.directory.folder(),
            [&accepted] { ++accepted; });
    };
    const support::ExpectedFileDialog dialog{
        .title = "",
        .initialName = "*.vta",
        .filters = {{"VTM Animation Script (*.vta;*.scr)", {"*.vta", "*.scr"}}},
        .folder = platform.directory.folder()};

    platform.dialogs.expectSave(dialog, std::nullopt);
    EXPECT_EQ(save().kind, SaveOutcome::Kind::Cancelled);
    EXPECT_EQ(accepted, 0);

    platform.dialogs.expectSave(dialog, path());
    platform.dialogs.expectGameQuestion(
        "Is this animation to be used in Quake2?", ui::Answer::Yes, [&accepted] { EXPECT_EQ(accepted, 1); });
    platform.dialogs.expectInform("Done! The script file, " + path().string() + ", was written.");
    SaveOutcome outcome = save();
    EXPECT_EQ(outcome.kind, SaveOutcome::Kind::Written);
    EXPECT_EQ(outcome.path, path());
    platform.dialogs.expectAllAsked();

    platform.files.failOnce(support::FailingFiles::Step::Look);
    platform.dialogs.expectSave(dialog, path());
    platform.dialogs.expectGameQuestion("Is this animation to be used in Quake2?", ui::Answer::Yes);
    outcome = save();
    EXPECT_EQ(outcome.kind, SaveOutcome::Kind::Failed);
    EXPECT_NE(outcome.statusText, "");
}

TEST_F(ScriptFiles, AreNotSavedOverAForeignFileUnlessTheUserSaysSo) {
    platform.directory.files.put("a.vta", "bind q quit\n");
    const ui::Message question{
        "The file \"" + path().string() + "\" is not a script of this kind.\nDo you wish to replace it?",
        ui::Buttons::YesNo, ui::Icon::None, "", true};
    const auto expectDialog = [this] {
        platform.dialogs.expectSave(
            {.title = "",
             .initialName = "*.vta",
             .filters = {{"VTM Animation Script (*.vta;*.scr)", {"*.vta", "*.scr"}}}},
            path());
    };
    const auto save = [this] {
        return editing::SaveScript(
            platform.dialogs, platform.files, AnimationWriter(desk.animation()), platform.directory.folder());
    };
    expectDialog();
    platform.dialogs.expectBox(question, ui::Answer::No);
    EXPECT_EQ(save().kind, SaveOutcome::Kind::Cancelled);
    EXPECT_EQ(platform.directory.files.content("a.vta"), "bind q quit\n");

    expectDialog();
    platform.dialogs.expectBox(question, ui::Answer::Yes);
    platform.dialogs.expectGameQuestion("Is this animation to be used in Quake2?", ui::Answer::Yes);
    platform.dialogs.expectInform("Done! The script file, " + path().string() + ", was written.");
    EXPECT_EQ(save().kind, SaveOutcome::Kind::Written);

    // Over an animation script there is no extra question.
    expectDialog();
    platform.dialogs.expectGameQuestion("Is this animation to be used in Quake2?", ui::Answer::Yes);
    platform.dialogs.expectInform("Done! The script file, " + path().string() + ", was written.");
    EXPECT_EQ(save().kind, SaveOutcome::Kind::Written);
}

TEST(AnimationRequests, AskForScripts) {
    const editing::Kind& kind = editing::KindOf(editing::Page::Animation);
    const ui::FileDialogRequest open = editing::OpenScriptRequest(kind, "/program");
    EXPECT_EQ(open.title, "Select the Script file");
    EXPECT_EQ(open.initialName, "*.vta");
    EXPECT_EQ(open.folder, ui::Path("/program"));
    ASSERT_EQ(open.filters.size(), 1U);
    EXPECT_EQ(open.filters[0].text, "VTM Animation Script (*.vta;*.scr)");
    EXPECT_EQ(open.filters[0].patterns, (std::vector<std::string>{"*.vta", "*.scr"}));

    const ui::FileDialogRequest save = editing::SaveScriptRequest(kind, "/program");
    EXPECT_EQ(save.title, "") << "the platform's own title";
    EXPECT_EQ(save.initialName, "*.vta");
    EXPECT_EQ(save.folder, ui::Path("/program"));
    EXPECT_EQ(save.extension, ".vta");
    EXPECT_TRUE(save.asksToOverwrite);
    ASSERT_EQ(save.filters.size(), 1U);
    EXPECT_EQ(save.filters[0].text, "VTM Animation Script (*.vta;*.scr)");
}

} // namespace animation
