// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/ToolRun.h"
#include "ui/linux/DesktopEntry.h"

#include <gtest/gtest.h>

namespace {

ui::FileType nameScript() {
    ui::FileType type;
    type.extension = ".vtn";
    type.description = "Quake Name Script";
    type.switchText = " /name ";
    type.mimeType = "application/x-vtm-name";
    type.firstLine = "// Name File Created by Vortigo";
    return type;
}

} // namespace

TEST(DesktopEntry, IsWrittenInFull) {
    EXPECT_EQ(
        ui::native::DesktopEntryText(nameScript(), "/opt/vtm/VTM"), "[Desktop Entry]\n"
                                                                    "Type=Application\n"
                                                                    "Version=1.0\n"
                                                                    "Name=Vortigo\n"
                                                                    "Comment=Quake Name Script\n"
                                                                    "Exec=/opt/vtm/VTM \" /name\" %f\n"
                                                                    "TryExec=/opt/vtm/VTM\n"
                                                                    "Icon=application-x-vtm-name\n"
                                                                    "MimeType=application/x-vtm-name;\n"
                                                                    "NoDisplay=true\n"
                                                                    "Terminal=false\n");
}

TEST(DesktopEntry, OfTheProgramSaysWhatThePackagesSays) {
    std::string installed = support::FileContent(SHARE_DIR "/applications/vtm.desktop");
    const std::string exec = "\nExec=vtm\n";
    ASSERT_NE(installed.find(exec), std::string::npos);
    installed.replace(installed.find(exec), exec.size(), "\nExec=\"/my games/VTM\"\nTryExec=/my games/VTM\n");
    const std::string text = ui::native::ProgramEntryText("/my games/VTM");
    const std::size_t start = text.find('\n') + 1;
    EXPECT_EQ(text.substr(start), installed);
    EXPECT_TRUE(text.starts_with("# "));
    EXPECT_TRUE(ui::native::IsOwnProgramEntry(text));
    EXPECT_FALSE(ui::native::IsOwnProgramEntry(text.substr(start))) << "the line was deleted";
    EXPECT_FALSE(ui::native::IsOwnProgramEntry(""));
}

TEST(DesktopEntry, AProgramWithBlanksIsQuotedWhereQuotesAreKnown) {
    const std::string text = ui::native::DesktopEntryText(nameScript(), "/my games/VTM");
    EXPECT_NE(text.find("\nExec=\"/my games/VTM\" \" /name\" %f\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\nTryExec=/my games/VTM\n"), std::string::npos) << text;
}

TEST(DesktopEntry, ABackslashIsEscapedForTheQuotesAndForTheEntry) {
    const std::string text = ui::native::DesktopEntryText(nameScript(), "/a\\b$c/VTM");
    EXPECT_NE(text.find("\nExec=\"/a\\\\\\\\b\\\\$c/VTM\" \" /name\" %f\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\nTryExec=/a\\\\b$c/VTM\n"), std::string::npos) << text;
}

TEST(DesktopEntry, ArgumentsAreQuotedOnlyWhereTheyMustBe) {
    EXPECT_EQ(ui::native::ExecArgument("/opt/vtm-1.0/VTM"), "/opt/vtm-1.0/VTM");
    EXPECT_EQ(ui::native::ExecArgument("/opt/\xC3\xA4/VTM"), "/opt/\xC3\xA4/VTM");
    EXPECT_EQ(ui::native::ExecArgument(""), "\"\"");
    EXPECT_EQ(ui::native::ExecArgument(" /name"), "\" /name\"");
    for (const char character : std::string(" \t\n\r'><~|&;*?#()")) {
        EXPECT_EQ(ui::native::ExecArgument(std::string(1, character)), '"' + std::string(1, character) + '"');
    }
    for (const char character : std::string("\"`$\\")) {
        EXPECT_EQ(
            ui::native::ExecArgument(std::string(1, character)), "\"\\" + std::string(1, character) + '"');
    }
}

TEST(DesktopEntry, APercentSignIsNoFieldCode) {
    EXPECT_EQ(ui::native::ExecArgument("100%"), "100%%");
    EXPECT_EQ(ui::native::ExecArgument("%f is 100%"), "\"%%f is 100%%\"");
}

TEST(DesktopEntry, ValuesEscapeWhatWouldEndOrChangeThem) {
    EXPECT_EQ(ui::native::EntryValue("plain text"), "plain text");
    EXPECT_EQ(ui::native::EntryValue("  two blanks"), "\\s two blanks");
    EXPECT_EQ(ui::native::EntryValue("a\\b\nc\td\re"), "a\\\\b\\nc\\td\\re");
}

TEST(DesktopEntry, OnlyLettersDigitsAndAFewMarksMakeAPlainPath) {
    EXPECT_EQ(
        ui::native::ExecPathOf("/home/me/.local/share/vtm_1.0-b+c,d:e@f/VTM"), ui::native::ExecPath::Plain);
    for (const char character : std::string(" \"'\\><~|&;$*?#()`[]{}!^")) {
        EXPECT_EQ(ui::native::ExecPathOf("/a" + std::string(1, character)), ui::native::ExecPath::Quotable);
    }
    for (const char character : std::string("%=\t\n\x01\x7F\x80\xC3\xFF")) {
        EXPECT_EQ(
            ui::native::ExecPathOf("/ a" + std::string(1, character) + " "), ui::native::ExecPath::Doubtful);
    }
}

TEST(DesktopEntry, IsCalledAfterItsType) {
    EXPECT_EQ(ui::native::DesktopEntryName(nameScript()), "vtm-name.desktop");
    ui::FileType other;
    other.mimeType = "text/some";
    EXPECT_EQ(ui::native::DesktopEntryName(other), "text-some.desktop");
}

TEST(MimePackage, DescribesEachTypeByItsNameAndItsFirstLine) {
    ui::FileType other;
    other.extension = ".x&y";
    other.description = "<Other>";
    other.mimeType = "application/x-other";
    other.firstLine = "\"a\\b\"";
    EXPECT_EQ(
        ui::native::MimePackageText({nameScript(), other}),
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"
        "  <mime-type type=\"application/x-vtm-name\">\n"
        "    <comment>Quake Name Script</comment>\n"
        "    <sub-class-of type=\"text/plain\"/>\n"
        "    <generic-icon name=\"text-x-script\"/>\n"
        "    <glob pattern=\"*.vtn\"/>\n"
        "    <magic>\n"
        "      <match type=\"string\" offset=\"0\" value=\"// Name File Created by Vortigo\"/>\n"
        "    </magic>\n"
        "  </mime-type>\n"
        "  <mime-type type=\"application/x-other\">\n"
        "    <comment>&lt;Other&gt;</comment>\n"
        "    <sub-class-of type=\"text/plain\"/>\n"
        "    <generic-icon name=\"text-x-script\"/>\n"
        "    <glob pattern=\"*.x&amp;y\"/>\n"
        "    <magic>\n"
        "      <match type=\"string\" offset=\"0\" value=\"&quot;a\\\\b&quot;\"/>\n"
        "    </magic>\n"
        "  </mime-type>\n"
        "</mime-info>\n");
}
