// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/FieldReader.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using glyphs::FieldReader;
using glyphs::ParseNumber;

TEST(ParseNumber, ReadsDecimalNumbersWithBlanksAround) {
    EXPECT_EQ(ParseNumber("97"), 97);
    EXPECT_EQ(ParseNumber(" 65\t"), 65);
    EXPECT_EQ(ParseNumber("-12"), -12);
    EXPECT_EQ(ParseNumber("+12"), 12);
    EXPECT_EQ(ParseNumber("007"), 7);
    EXPECT_EQ(ParseNumber("32767"), 32767);
    EXPECT_EQ(ParseNumber("-32768"), -32768);
}

TEST(ParseNumber, RefusesEverythingElse) {
    for (const std::string_view text :
         {"", " ", "a", "1a", "1 2", "1.5", "0x10", "+", "-", "+-1", "--1", "32768", "-32769",
          "99999999999999999999", "\xB2"}) {
        EXPECT_FALSE(ParseNumber(text).has_value()) << '"' << text << '"';
    }
    EXPECT_FALSE(ParseNumber(std::string_view("1\0", 2)).has_value());
}

TEST(FieldReader, EndsFieldsAtCommasAndEveryKindOfLineEnd) {
    FieldReader fields("1,2\r\n3\n4\r5 , 6");
    for (const int expected : {1, 2, 3, 4, 5, 6}) {
        EXPECT_EQ(fields.number(), expected);
    }
    EXPECT_TRUE(fields.atEnd());
    EXPECT_FALSE(fields.number().has_value());
    EXPECT_FALSE(fields.text().has_value());
}

TEST(FieldReader, SkipsBlanksAndEmptyLinesBeforeAField) {
    FieldReader fields("\r\n\n  \t1\r\n\r\n   2\n \n");
    EXPECT_EQ(fields.number(), 1);
    EXPECT_EQ(fields.number(), 2);
    EXPECT_TRUE(fields.atEnd());
}

TEST(FieldReader, TakesTextWithAndWithoutQuotes) {
    FieldReader fields("\"Left, then right\" ,Fly in\r\n\"\"\n  Two words  \n7");
    EXPECT_EQ(fields.text(), "Left, then right");
    EXPECT_EQ(fields.text(), "Fly in");
    EXPECT_EQ(fields.text(), "");
    EXPECT_EQ(fields.text(), "Two words  ");
    EXPECT_EQ(fields.number(), 7);
}

TEST(FieldReader, KeepsAQuoteInsideUnquotedText) {
    FieldReader fields("5\" nails,1");
    EXPECT_EQ(fields.text(), "5\" nails");
    EXPECT_EQ(fields.number(), 1);
}

TEST(FieldReader, RefusesAQuoteThatIsNotClosedOnItsLine) {
    FieldReader fields("\"open\r\n1,\"open at the end");
    EXPECT_FALSE(fields.text().has_value());
    EXPECT_EQ(fields.number(), 1);
    EXPECT_FALSE(fields.text().has_value());
    EXPECT_TRUE(fields.atEnd());
}

TEST(FieldReader, RefusesTextAfterTheClosingQuote) {
    FieldReader fields("\"a\"b,2");
    EXPECT_FALSE(fields.text().has_value());
    EXPECT_EQ(fields.number(), 2);
}

TEST(FieldReader, PassesAFieldThatIsNoNumber) {
    FieldReader fields("x,,3");
    EXPECT_FALSE(fields.number().has_value());
    EXPECT_FALSE(fields.number().has_value());
    EXPECT_EQ(fields.number(), 3);
}

TEST(FieldReader, SaysOnWhichLineAFieldStood) {
    FieldReader fields("1,2\r\n\r\n3\n4");
    EXPECT_EQ(fields.number(), 1);
    EXPECT_EQ(fields.line(), 1);
    EXPECT_TRUE(fields.endedAtComma());
    EXPECT_EQ(fields.number(), 2);
    EXPECT_EQ(fields.line(), 1);
    EXPECT_FALSE(fields.endedAtComma());
    EXPECT_EQ(fields.number(), 3);
    EXPECT_EQ(fields.line(), 3);
    EXPECT_EQ(fields.number(), 4);
    EXPECT_EQ(fields.line(), 4);
    EXPECT_FALSE(fields.number().has_value());
    EXPECT_EQ(fields.line(), 4);
}

TEST(FieldReader, TakesEveryByteAsItIs) {
    const std::string bytes("\x1A\xFF\0,2", 5);
    FieldReader fields(bytes);
    EXPECT_EQ(fields.text(), std::string_view("\x1A\xFF\0", 3));
    EXPECT_EQ(fields.number(), 2);
}

TEST(FieldReader, HasNoFieldsInAnEmptyFile) {
    FieldReader fields("");
    EXPECT_TRUE(fields.atEnd());
    EXPECT_FALSE(fields.text().has_value());
    EXPECT_FALSE(fields.number().has_value());
    EXPECT_EQ(fields.line(), 1);
}

} // namespace
