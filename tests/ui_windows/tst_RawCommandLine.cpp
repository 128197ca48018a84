// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/windows/RawCommandLine.h"

#include <gtest/gtest.h>
#include <string>

namespace {

std::wstring Rest(std::wstring_view line, std::wstring_view program = LR"(C:\Program Files\VTM\VTM.exe)") {
    return std::wstring(ui::native::WithoutProgram(line, program));
}

TEST(RawCommandLine, KeepsTheQuotesAndTheBlanksWithinThem) {
    EXPECT_EQ(Rest(LR"(C:\dir\VTM.exe " /name C:\my games\a.vtn")"), LR"(" /name C:\my games\a.vtn")");
    EXPECT_EQ(Rest(LR"("C:\Program Files\VTM\VTM.exe"  " /macro  x")"), LR"(" /macro  x")");
}

TEST(RawCommandLine, KnowsAProgramWithBlanksThatNobodyQuoted) {
    EXPECT_EQ(Rest(LR"(C:\Program Files\VTM\VTM.exe " /name C:\a.vtn")"), LR"(" /name C:\a.vtn")");
    EXPECT_EQ(Rest(LR"(c:\PROGRAM files\vtm\vtm.EXE --help)"), L"--help");
    EXPECT_EQ(Rest(LR"(C:\Program Files\VTM\VTM.exe)"), L"");
}

TEST(RawCommandLine, DoesNotTakeALongerNameForTheProgram) {
    EXPECT_EQ(Rest(LR"(C:\a\VTM.exe2 x)", LR"(C:\a\VTM.exe)"), L"x");
}

TEST(RawCommandLine, IsEmptyWithoutAnythingElse) {
    EXPECT_EQ(Rest(L""), L"");
    EXPECT_EQ(Rest(L"VTM.exe"), L"");
    EXPECT_EQ(Rest(L"VTM.exe \t "), L"");
    EXPECT_EQ(Rest(L"\"VTM.exe"), L"");
    EXPECT_EQ(Rest(L"VTM.exe", L""), L"");
}

} // namespace
