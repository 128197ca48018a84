// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/CommandLine.h"
#include "shell/mdlRegistry.h"
#include "support/FakePlatform.h"
#include "ui/System.h"

#include <gtest/gtest.h>

namespace {

struct Row {
    const char* extension;
    const char* className;
    const char* description;
    const char* arguments;
    const char* mimeType;
    const char* firstLine;
};

/// The program in a folder, as a value of the registry has it.
std::string ProgramIn(const ui::Path& folder) {
    return ui::PathText(folder / ui::ProgramFile("VTM"));
}

} // namespace

TEST(Registry, TheThreeTypesHoldTheirValuesInOrder) {
    const std::vector<Row> rows = {
        {".vtn", "VTM_Name", "Quake Name Script", " \" /name %1\"", "application/x-vtm-name",
         "// Name File Created by Vortigo"},
        {".vta", "VTM_Ani", "Quake Animation Script", " \" /animation %1\"", "application/x-vtm-animation",
         "// Animation File Created by Vortigo"},
        {".vtm", "VTM_Macro", "Quake Message Script", " \" /macro %1\"", "application/x-vtm-message",
         "// Macro File Created by Vortigo"},
    };
    const auto types = shell::FileAssociations("/dir");
    ASSERT_EQ(types.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(types[i].extension, rows[i].extension);
        EXPECT_EQ(types[i].className, rows[i].className);
        EXPECT_EQ(types[i].description, rows[i].description);
        EXPECT_EQ(types[i].commandValue, ProgramIn("/dir") + rows[i].arguments);
        EXPECT_EQ(types[i].iconValue, ProgramIn("/dir") + ",0");
        EXPECT_EQ(types[i].editFlags, 0U);
        EXPECT_EQ(types[i].mimeType, rows[i].mimeType);
        EXPECT_EQ(types[i].firstLine, rows[i].firstLine);
    }
}

TEST(Registry, AFolderWithBlanksIsWrittenUnquoted) {
    const auto types = shell::FileAssociations("/my games/vtm");
    EXPECT_EQ(types[0].commandValue, ProgramIn("/my games/vtm") + " \" /name %1\"");
    EXPECT_EQ(types[0].iconValue, ProgramIn("/my games/vtm") + ",0");
}

TEST(Registry, AStartFromAnotherFolderRegistersAllTypesAnew) {
    support::FakeFileTypes desktop;
    shell::WriteFileAssociations(desktop, "/old");
    shell::WriteFileAssociations(desktop, "/new");
    ASSERT_EQ(desktop.registrations.size(), 2U);
    EXPECT_EQ(desktop.registrations[0].program, ProgramIn("/old"));
    EXPECT_EQ(desktop.registrations[1].program, ProgramIn("/new"));
    ASSERT_EQ(desktop.registrations[1].types.size(), 3U);
    for (const auto& type : desktop.registrations[1].types) {
        EXPECT_TRUE(type.commandValue.starts_with(ProgramIn("/new") + " ")) << type.commandValue;
        EXPECT_EQ(type.iconValue, ProgramIn("/new") + ",0");
    }
}

TEST(Registry, TheStartUpUnderstandsWhatIsRegistered) {
    const std::vector<editing::Page> kinds = {
        editing::Page::Name, editing::Page::Animation, editing::Page::Messages};
    const auto types = shell::FileAssociations("/my games/vtm");
    for (std::size_t i = 0; i < types.size(); ++i) {
        std::string started = types[i].commandValue;
        started.replace(started.find("%1"), 2, "/scripts/a b" + types[i].extension);
        const auto asked = shell::ParseCommandLine(started);
        ASSERT_TRUE(asked) << started;
        EXPECT_EQ(asked->kind, kinds[i]);
        EXPECT_EQ(asked->folder, "/scripts");
        EXPECT_EQ(asked->file, "a b" + types[i].extension);

        const std::vector<std::string> arguments = {
            types[i].switchText.substr(0, types[i].switchText.size() - 1),
            "/scripts/a b" + types[i].extension};
        const auto given = shell::ReadArguments(arguments).file;
        ASSERT_TRUE(given);
        EXPECT_EQ(given->kind, kinds[i]);
        EXPECT_EQ(given->file, asked->file);
    }
}
