// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/BindHints.h"
#include "scripts/mdlBind.h"
#include "support/FakePlatform.h"

#include <gtest/gtest.h>

#include <string>

// Names that no file of Windows has.

TEST(PosixNames, OfScriptsWithAQuoteOrAControlCharacterAreNoted) {
    const support::TempFolder folder;
    ui::DiskFiles disk;
    support::FailingFiles files{disk};
    const auto ofScript = [&](const std::string& name) {
        folder.put(name, "");
        return scripts::ScriptHint(files, folder / name);
    };
    EXPECT_EQ("Games cannot run a script with a \" in its file name.", ofScript("a\"b.vtn"));
    EXPECT_EQ("Games cannot run a script with a control character in its file name.", ofScript("a\nb.vtn"));
}

TEST(PosixNames, AreBytesAndKeepTheirBackslashes) {
    const int key = scripts::FindKey("a").value();
    EXPECT_EQ("bind \"a\" \"exec a\\b.scr\"", scripts::BindLine(key, "/x/a\\b.scr"));
    EXPECT_EQ("bind \"a\" \"exec \xFC \xC3\xBC.vtn\"", scripts::BindLine(key, "/x/\xFC \xC3\xBC.vtn"));
}
