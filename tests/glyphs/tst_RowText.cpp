// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/RowText.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace glyphs {

namespace {

using Cells = std::vector<GlyphCode>;

std::string Bytes(std::initializer_list<int> codes) {
    std::string bytes;
    for (const int code : codes) {
        bytes.push_back(static_cast<char>(code));
    }
    return bytes;
}

/// What a line puts into a row of five cells that held something else.
Cells Parsed(std::string_view line, bool fits = true) {
    Cells row{1, 2, 3, 4, 5};
    EXPECT_EQ(ParseQuotedLine(line, row), fits) << line;
    return row;
}

TEST(RowText, DropsTheBlanksAtTheEndOnly) {
    EXPECT_EQ(RowText(Cells{32, 'a', 32, 'b', 32, 32}), " a b");
    EXPECT_EQ(RowText(Cells{'a', 'b'}), "ab");
    EXPECT_EQ(RowText(Cells{32, 32, 32}), "");
    EXPECT_EQ(RowText(Cells{}), "");
}

TEST(RowText, WritesEveryGlyphAsItsByte) {
    EXPECT_EQ(RowText(Cells{0, 10, 13, 34, 127, 128, 160, 255}), Bytes({0, 10, 13, 34, 127, 128, 160, 255}));
}

TEST(RowText, TheLineEndsAndTheDoubleQuoteBreakAScriptLine) {
    for (int code = 0; code < GlyphCount; ++code) {
        EXPECT_EQ(BreaksScriptLine(static_cast<GlyphCode>(code)), code == 10 || code == 13 || code == 34)
            << code;
    }
}

TEST(ParseQuotedLine, TakesWhatStandsBetweenTheFirstQuoteAndTheLastByte) {
    EXPECT_EQ(Parsed("name \"abc\""), (Cells{'a', 'b', 'c', 32, 32}));
    EXPECT_EQ(Parsed("set name \"abc\""), (Cells{'a', 'b', 'c', 32, 32}));
    EXPECT_EQ(Parsed("name \" a\""), (Cells{32, 'a', 32, 32, 32}));
    EXPECT_EQ(Parsed("name \"a\"b\""), (Cells{'a', '"', 'b', 32, 32}));
}

TEST(ParseQuotedLine, BlanksTheRowFirst) {
    EXPECT_EQ(Parsed("name \"\""), Cells(5, 32));
    EXPECT_EQ(Parsed(""), Cells(5, 32));
    EXPECT_EQ(Parsed("\""), Cells(5, 32));
    EXPECT_EQ(Parsed("name \""), Cells(5, 32));
}

TEST(ParseQuotedLine, LosesTheLastByteWhateverItIs) {
    EXPECT_EQ(Parsed("name \"ab\" "), (Cells{'a', 'b', '"', 32, 32}));
    EXPECT_EQ(Parsed("name \"abc"), (Cells{'a', 'b', 32, 32, 32}));
}

TEST(ParseQuotedLine, TakesTheWholeLineWhenItHasNoQuote) {
    Cells row(15, 0);
    EXPECT_TRUE(ParseQuotedLine("name abc", row));
    EXPECT_EQ(RowText(row), "name ab");
}

TEST(ParseQuotedLine, KeepsTheFirstCellsOfATextThatIsTooLong) {
    EXPECT_EQ(Parsed("name \"abcde\""), (Cells{'a', 'b', 'c', 'd', 'e'}));
    EXPECT_EQ(Parsed("name \"abcdef\"", false), (Cells{'a', 'b', 'c', 'd', 'e'}));
    // Blanks count like any other glyph.
    EXPECT_EQ(Parsed("name \"a     \"", false), (Cells{'a', 32, 32, 32, 32}));
}

TEST(ParseQuotedLine, ReadsBytesAsGlyphs) {
    EXPECT_EQ(Parsed("\"" + Bytes({0, 26, 128, 255}) + "\""), (Cells{0, 26, 128, 255, 32}));
}

TEST(ParseQuotedLine, ReadsBackWhatRowTextWrote) {
    Cells row;
    for (GlyphCode code = 0; code < GlyphCount; ++code) {
        row.push_back(code);
    }
    Cells read(row.size(), 0);
    EXPECT_TRUE(ParseQuotedLine("name \"" + RowText(row) + "\"", read));
    EXPECT_EQ(read, row);
}

std::vector<std::string> LinesOf(std::string_view bytes) {
    std::vector<std::string> lines;
    for (ByteLines rest(bytes); !rest.atEnd();) {
        lines.emplace_back(rest.next());
    }
    return lines;
}

TEST(ByteLines, EndAtEveryKindOfLineEnd) {
    EXPECT_EQ(LinesOf("a\r\nb\nc\rd"), (std::vector<std::string>{"a", "b", "c", "d"}));
    EXPECT_EQ(LinesOf("a\r\n"), (std::vector<std::string>{"a"}));
    EXPECT_EQ(LinesOf("a\r\r\nb"), (std::vector<std::string>{"a", "", "b"}));
    EXPECT_EQ(LinesOf("\n\n"), (std::vector<std::string>{"", ""}));
    EXPECT_EQ(LinesOf(""), (std::vector<std::string>{}));
}

TEST(NameLine, QuotesTheRowTextBehindTheCommand) {
    EXPECT_EQ(NameLine(NameCommand::Name, Cells{32, 'a', 200, 32}), "name \" a\xC8\"");
    EXPECT_EQ(NameLine(NameCommand::SetName, Cells{'a', 'b'}), "set name \"ab\"");
    EXPECT_EQ(NameLine(NameCommand::SetName, Cells{32, 32}), "set name \"\"");
}

TEST(ByteLines, KeepEveryOtherByte) {
    const std::string line = Bytes({0, 9, 11, 26, 133, 255});
    EXPECT_EQ(LinesOf(line + "\n" + line), (std::vector<std::string>{line, line}));
}

TEST(ByteLines, GiveAnEmptyLineAtTheEnd) {
    ByteLines lines("a");
    EXPECT_EQ(lines.next(), "a");
    EXPECT_TRUE(lines.atEnd());
    EXPECT_EQ(lines.next(), "");
}

} // namespace

} // namespace glyphs
