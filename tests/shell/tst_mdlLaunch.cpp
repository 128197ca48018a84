// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/Product.h"
#include "shell/mdlLaunch.h"
#include "support/FakePlatform.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

namespace {

class Launch : public testing::Test {
protected:
    support::FakePlatform fake;

    [[nodiscard]] ui::Path scratch() const { return fake.directory.files / "temphtm.url"; }

    void expectLaunched(const std::string& address) {
        ASSERT_EQ(fake.launcher.launches.size(), 1U);
        EXPECT_EQ(fake.launcher.launches[0].address, address);
        EXPECT_EQ(fake.launcher.launches[0].shortcut, scratch());
        EXPECT_EQ(
            fake.directory.files.content("temphtm.url"), "[InternetShortcut]\r\nURL=" + address + "\r\n");
    }
};

} // namespace

TEST_F(Launch, AnAddressGoesIntoTheScratchFileAndThenToTheDesktop) {
    shell::OpenUrl(fake.platform, "https://example.org/sets");
    expectLaunched("https://example.org/sets");
    EXPECT_TRUE(fake.launcher.finish(33));
    EXPECT_TRUE(fake.directory.files.has("temphtm.url"));
    EXPECT_TRUE(fake.dialogs.calls().empty());
}

TEST(WebAddress, IsOneOfTheWebOrOfMail) {
    for (const char* const address :
         {"http://example.org", "https://example.org/sets?game=1#top", "HTTPS://EXAMPLE.ORG",
          "http://h\xE4user.example/", "mailto:steel@example.org?subject=sets"}) {
        EXPECT_TRUE(shell::IsWebAddress(address)) << address;
    }
    for (const char* const address :
         {"",
          " ",
          "-version",
          "--help",
          "/bin/sh",
          "bin",
          "file:///etc/passwd",
          "FILE:/etc/passwd",
          "javascript:1",
          "www.example.org",
          "http:",
          "http:/",
          "http://",
          "https:///",
          "httpss://a",
          "mailto:",
          " http://a",
          "http://a b",
          "http://a\n[InternetShortcut]",
          "http://a\r",
          "http://a\x1b",
          "http://a\x7f",
          "ftp://example.org"}) {
        EXPECT_FALSE(shell::IsWebAddress(address)) << address;
    }
    EXPECT_FALSE(shell::IsWebAddress(std::string_view("http://a\0b", 10)));
}

TEST_F(Launch, AnEarlierScratchFileIsOverwritten) {
    fake.directory.files.put("temphtm.url", std::string(1000, 'x'));
    shell::OpenUrl(fake.platform, "https://example.org/");
    expectLaunched("https://example.org/");
    EXPECT_TRUE(fake.launcher.finish(42));
}

TEST_F(Launch, TheWebSiteAndTheMailHaveTheirFixedAddresses) {
    shell::OpenWebSite(fake.platform);
    expectLaunched(shell::WebSiteAddress);
    fake.launcher.finish(33);
    fake.launcher.launches.clear();

    shell::SendMail(fake.platform);
    expectLaunched(std::string("mailto:") + shell::SupportMailAddress + "?subject=VTM Help");
    fake.launcher.finish(33);
}

TEST_F(Launch, EveryResultBelow33ShowsItsTextOnce) {
    std::map<int, std::string> texts;
    for (int code = -2; code < 33; ++code) {
        texts[code] = "Unknown error";
    }
    texts[2] = "File not found";
    texts[3] = "Path not found";
    texts[5] = "Access denied";
    texts[8] = "Out of memory";
    texts[11] = "Invalid EXE file or error in EXE image";
    texts[26] = "A sharing violation occurred";
    texts[27] = "Incomplete or invalid file association";
    texts[28] = "DDE Time out";
    texts[29] = "DDE transaction failed";
    texts[30] = "DDE busy";
    texts[31] = "No association for file extension";
    texts[32] = "DLL not found";
    for (const auto& [code, text] : texts) {
        SCOPED_TRACE(code);
        shell::OpenUrl(fake.platform, "https://example.org/");
        fake.dialogs.expectInform(text);
        fake.launcher.finish(code);
        fake.dialogs.expectAllAsked();
    }
}

TEST_F(Launch, AResultOf33OrMoreShowsNothing) {
    for (const int code : {33, 34, 1000}) {
        shell::OpenUrl(fake.platform, "https://example.org/");
        fake.launcher.finish(code);
    }
    EXPECT_TRUE(fake.dialogs.calls().empty());
}

TEST_F(Launch, AScratchFileThatCannotBeWrittenEndsInTheLaunchersError) {
    fake.files.failFrom(support::FailingFiles::Step::Create);
    fake.dialogs.expectInform("File not found");
    shell::OpenUrl(fake.platform, "https://example.org/");
    EXPECT_TRUE(fake.launcher.launches.empty());
}

TEST_F(Launch, AFullDiskEndsInTheLaunchersError) {
    fake.files.failWritesAfter(3);
    fake.dialogs.expectInform("File not found");
    shell::OpenUrl(fake.platform, "https://example.org/");
    EXPECT_TRUE(fake.launcher.launches.empty());
}

TEST_F(Launch, TheScratchFileLiesInTheStandInFolderWhenTheProgramFolderIsReadOnly) {
    fake.directory.isWritable = false;
    shell::OpenUrl(fake.platform, "https://example.org/");
    EXPECT_TRUE(fake.directory.standIn.has("temphtm.url"));
    EXPECT_FALSE(fake.directory.files.has("temphtm.url"));
    fake.launcher.finish(33);
}

TEST_F(Launch, HelpOpensTheLocalPage) {
    fake.directory.files.put("vtmhelp.htm", "<html>");
    shell::ShowHelp(fake.platform);
    expectLaunched(shell::FileAddress(fake.directory.files / "vtmhelp.htm"));
    fake.launcher.finish(33);
}

TEST_F(Launch, MissingHelpIsAWarning) {
    fake.dialogs.expectWarning("The file \"vtmhelp.htm\" was not found in the VTM directory.\n"
                               "Either download it from the VTM website or use your internet\n"
                               "browser to locate it on your hard drive.");
    shell::ShowHelp(fake.platform);
    EXPECT_TRUE(fake.launcher.launches.empty());
    EXPECT_FALSE(fake.directory.files.has("temphtm.url"));
}

TEST_F(Launch, MissingHelpIsAnotherWarningAtTheStart) {
    fake.dialogs.expectWarning("The file \"vtmhelp.htm\" was not found in the VTM directory.\n"
                               "This is the help file. It is included in the zip, \"vtmhelp.zip\".\n"
                               "Please unzip it and place the files in the VTM directory!");
    shell::CheckHelp(fake.platform);
    fake.dialogs.expectAllAsked();
    fake.directory.files.put("vtmhelp.htm", "<html>");
    shell::CheckHelp(fake.platform);
}
