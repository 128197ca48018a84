// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/ToolRun.h"
#include "tools/ThumbnailCommandRun.h"

#include <gtest/gtest.h>

namespace {

using support::NameScript;
using support::TwoNamesScript;

class PosixThumbnailCommand : public support::ThumbnailCommand {};

} // namespace

TEST_F(PosixThumbnailCommand, AnOutputThatMayNotBecomeSoLargeIsNamed) {
    const std::string script = ui::PathText(folder.put("a.vtn", NameScript));
    const support::ToolRun run = support::RunProgram(
        "/bin/sh",
        {"-c", R"(ulimit -f 1; exec "$0" "$@")", VTM_THUMBNAIL, "--size", "1024", script, at("out.png")});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors, "vtm-thumbnail: Could not write \"" + at("out.png") + "\": File too large.\n");
    EXPECT_FALSE(folder.has("out.png"));
}

TEST_F(PosixThumbnailCommand, TheProgramNeedsNoDisplay) {
    const std::string script = ui::PathText(folder.put("a.vta", TwoNamesScript));
    const support::ToolRun drawn =
        support::RunProgram("/usr/bin/env", {"-i", VTM_THUMBNAIL, "--size", "256", script, at("out.png")});
    EXPECT_EQ(drawn.exitCode, 0);
    EXPECT_EQ(drawn.errors, "");
    EXPECT_EQ(png("out.png").width(), 256);
}

TEST_F(PosixThumbnailCommand, FileManagersCallItForTheThreeKindsOfScripts) {
    const std::string entry = support::FileContent(ui::Path(SHARE_DIR) / "thumbnailers" / "vtm.thumbnailer");
    EXPECT_EQ(
        entry, "[Thumbnailer Entry]\n"
               "TryExec=vtm-thumbnail\n"
               "Exec=vtm-thumbnail --size %s %i %o\n"
               "MimeType=application/x-vtm-name;application/x-vtm-animation;application/x-vtm-message;\n");
}

TEST_F(PosixThumbnailCommand, NamesOfFilesHoldNothingThatATerminalActsOn) {
    expectHarmlessRefusal({ui::PathText(folder.put(actedOn + ".vtn", "none")), at("out.png")});
}
