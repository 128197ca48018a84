// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/GifPicture.h"
#include "support/ToolRun.h"
#include "tools/ThumbnailCommandRun.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace {

using support::NameScript;
using support::SmallArtwork;
using support::ThumbnailCommand;
using support::TwoNamesScript;

} // namespace

TEST_F(ThumbnailCommand, DrawsWhateverTheFileIsCalled) {
    for (const char* name : {"a.vtn", "a.scr", "a"}) {
        ASSERT_EQ(run({ui::PathText(folder.put(name, NameScript)), at("out.png")}), 0) << errors.str();
        const ui::Picture picture = png("out.png");
        EXPECT_EQ(picture.width(), 128);
        EXPECT_EQ(picture.height(), 128);
        // Pixel (0, 0) of glyph "x", code 120 in column 8 and row 7, of the first set.
        EXPECT_EQ(picture.pixel(48, 48), SmallArtwork(0).pixel(64, 56));
    }
    EXPECT_EQ(output.str(), "");
    EXPECT_EQ(errors.str(), "");
}

TEST_F(ThumbnailCommand, TheSizeAndTheSetCanBeChosen) {
    ASSERT_EQ(
        run({"--size", "64", "--set", "2", ui::PathText(folder.put("a.vtn", NameScript)), at("out.png")}), 0)
        << errors.str();
    EXPECT_EQ(png("out.png").width(), 64);
    EXPECT_EQ(png("out.png").pixel(24, 24), SmallArtwork(1).pixel(64, 56));
}

TEST_F(ThumbnailCommand, AnAnimationBecomesAGif) {
    const std::string script = ui::PathText(folder.put("a.vta", TwoNamesScript));
    ASSERT_EQ(run({script, "--animate", at("out.gif")}), 0) << errors.str();
    const std::string gif = folder.content("out.gif");
    EXPECT_EQ(gif.substr(0, 10), std::string("GIF89a\xF0\0\x10\0", 10));
    // It plays for ever; its two pictures take 5 and 10 hundredths of a second.
    EXPECT_NE(gif.find(std::string("NETSCAPE2.0\3\1\0\0\0", 16)), std::string::npos);
    const std::size_t first = gif.find("\x21\xF9\x04");
    const std::size_t second = gif.find("\x21\xF9\x04", first + 1);
    ASSERT_NE(second, std::string::npos);
    EXPECT_EQ(gif.find("\x21\xF9\x04", second + 1), std::string::npos);
    EXPECT_EQ(gif.substr(first + 4, 2), std::string("\5\0", 2));
    EXPECT_EQ(gif.substr(second + 4, 2), std::string("\x0A\0", 2));
    const auto picture = glyphs::DecodeGif(gif);
    ASSERT_TRUE(picture);
    // Pixel (0, 0) of glyph "f".
    EXPECT_EQ(picture.value().pixel(0, 0), SmallArtwork(0).pixel(48, 48));
    EXPECT_FALSE(folder.has("out.png"));
}

TEST_F(ThumbnailCommand, BothPicturesCanBeHadAtOnce) {
    const std::string script = ui::PathText(folder.put("a.vta", TwoNamesScript));
    ASSERT_EQ(run({script, at("out.png"), "--animate", at("out.gif"), "--size", "480"}), 0) << errors.str();
    EXPECT_EQ(png("out.png").width(), 480);
    EXPECT_EQ(glyphs::DecodeGif(folder.content("out.gif")).value().width(), 480);
}

TEST_F(ThumbnailCommand, AFileThatCannotBeDrawnIsNamedAndNothingIsWritten) {
    const std::string out = at("out.png");
    const std::string text = ui::PathText(folder.put("a.vtn", "hello"));
    expectRefusal(
        {text, out}, "\"" + text + "\" cannot be drawn: it is not a name, animation or message script.");
    const std::string noise = ui::PathText(folder.put("b.vta", std::string(100000, '\xFF')));
    expectRefusal(
        {noise, out}, "\"" + noise + "\" cannot be drawn: it is not a name, animation or message script.");
    const std::string name = ui::PathText(folder.put("c.vtn", NameScript));
    expectRefusal({name, "--animate", out}, "\"" + name + "\" cannot be drawn: it is not an animation.");
    expectRefusal({at("d.vtn"), out}, "Could not open \"" + at("d.vtn") + "\": No such file or directory.");
    expectRefusal(
        {ui::PathText(folder.path()), out},
        "Could not read \"" + ui::PathText(folder.path()) + "\": Is a directory.");
    EXPECT_FALSE(folder.has("out.png"));
}

TEST_F(ThumbnailCommand, TheScriptItselfIsNotWrittenOver) {
    const std::string script = ui::PathText(folder.put("a.vtn", NameScript));
    expectRefusal({script, script}, "\"" + script + "\" was not written: it is the script itself.");
    EXPECT_EQ(folder.content("a.vtn"), NameScript);
}

TEST_F(ThumbnailCommand, WithoutTheSetThereIsNoPicture) {
    const std::string script = ui::PathText(folder.put("a.vtn", NameScript));
    expectRefusal({"--set", "3", script, at("out.png")}, "There is no character set 3; there are 2.");
    const support::TempFolder empty;
    expectRefusal(
        {"--directory", ui::PathText(empty.path()), script, at("out.png")},
        "Could not open \"" + ui::PathText(empty / "vtmtc.dat") + "\": No such file or directory.");
    (void)directory.files.put("vtmgrid.dat", "no picture");
    EXPECT_EQ(run({script, at("out.png")}), 1);
    EXPECT_NE(errors.str(), "");
    EXPECT_FALSE(folder.has("out.png"));
}

TEST_F(ThumbnailCommand, AnOutputThatCannotBeWrittenIsNamed) {
    const std::string script = ui::PathText(folder.put("a.vtn", NameScript));
    expectRefusal(
        {script, at("no/out.png")},
        "Could not open \"" + at("no/out.png") + "\": No such file or directory.");
    files.failOnce(support::FailingFiles::Step::Write);
    expectRefusal({script, at("out.png")}, "Could not write \"" + at("out.png") + "\": injected failure.");
}

TEST_F(ThumbnailCommand, WritesThroughAFileThatWasMadeForIt) {
    const std::string script = ui::PathText(folder.put("a.vtn", NameScript));
    std::filesystem::create_hard_link(folder.put("out.png", ""), folder / "second.png");
    EXPECT_EQ(run({script, at("out.png")}), 0);
    EXPECT_TRUE(folder.content("second.png").starts_with("\x89PNG"));
}

TEST_F(ThumbnailCommand, WhatIsNotUnderstoodIsWrongUsage) {
    const std::string script = ui::PathText(folder.put("a.vtn", NameScript));
    const std::vector<std::vector<std::string>> wrong{
        {},
        {script},
        {script, "a", "b"},
        {"--size", "15", script, "a"},
        {"--size", "1025", script, "a"},
        {"--size", "x", script, "a"},
        {"--set", "0", script, "a"},
        {"--colour", script, "a"}};
    for (const auto& arguments : wrong) {
        EXPECT_EQ(run(arguments), 2);
        EXPECT_NE(errors.str(), "");
        EXPECT_EQ(output.str(), "");
    }
    EXPECT_EQ(run({"--help"}), 0);
    EXPECT_TRUE(output.str().starts_with("Usage: vtm-thumbnail [OPTION]... INPUT OUTPUT.png\n"));
}

TEST_F(ThumbnailCommand, TheProgramFindsTheSetsBesideIt) {
    const std::string script = ui::PathText(folder.put("a.vta", TwoNamesScript));
    const support::ToolRun drawn =
        support::RunProgram(VTM_THUMBNAIL, {"--size", "256", script, at("out.png")});
    EXPECT_EQ(drawn.exitCode, 0);
    EXPECT_EQ(drawn.errors, "");
    EXPECT_EQ(png("out.png").width(), 256);
    EXPECT_EQ(support::RunProgram(VTM_THUMBNAIL, {at("none"), at("out.png")}).exitCode, 1);
    EXPECT_EQ(support::RunProgram(VTM_THUMBNAIL, {script}).exitCode, 2);
}

TEST_F(ThumbnailCommand, TheProgramWritesIntoAnEmptyFileOfAnyName) {
    // A file manager has made the file that it wants the picture in.
    const std::string script = ui::PathText(folder.put("a b.vtn", NameScript));
    const std::string out = ui::PathText(folder.put("thumbnail-XYZ", ""));
    EXPECT_EQ(support::RunProgram(VTM_THUMBNAIL, {"--size", "256", script, out}).exitCode, 0);
    EXPECT_EQ(png("thumbnail-XYZ").width(), 256);
}

TEST_F(ThumbnailCommand, MessagesHoldNothingThatATerminalActsOn) {
    expectHarmlessRefusal({at(actedOn), at("out.png")});
    expectHarmlessRefusal({"--" + actedOn});
}
