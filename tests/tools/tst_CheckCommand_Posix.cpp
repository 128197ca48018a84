// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/ToolRun.h"
#include "tools/CheckCommandRun.h"

#include <gtest/gtest.h>

namespace {

using support::NameHead;

class PosixCheckCommand : public support::CheckCommand {};

} // namespace

TEST_F(PosixCheckCommand, NamesOfFilesHoldNothingThatATerminalActsOn) {
    const std::string good = file(ActedOnFile, NameHead + ActedOnLine);
    EXPECT_EQ(run({good, good + "x", file("b" + ActedOnFile, "none")}), 2);
    expectHarmless(output.str());
    expectHarmless(errors.str());
    EXPECT_EQ(run({"--json", good}), 1);
    expectHarmless(output.str());
}

TEST_F(PosixCheckCommand, TheProgramNeedsNoDisplay) {
    const std::string script = file("clan.vtn", NameHead + "name \"Bob\"\r\n");
    EXPECT_EQ(support::RunProgram("/usr/bin/env", {"-i", VTM_CHECK, script}).exitCode, 0);
}
