// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/CommandLine.h"
#include "shell/mdlRegistry.h"
#include "support/FakePlatform.h"

#include <gtest/gtest.h>

namespace {

struct Row {
    const char* extension;
    const char* className;
    const char* description;
    const char* commandValue;
    const char* iconValue;
    const char* mimeType;
    const char* firstLine;
};

} // namespace

TEST(Registry, TheThreeTypesHoldTheirValuesInOrder) {
    const std::vector<Row> rows = {
        {".vtn", "VTM_Name", "Quake Name Script", "/dir/VTM \" /name %1\"", "/dir/VTM,0",
         "application/x-vtm-name", "// Name File Created by Vortigo"},
        {".vta", "VTM_Ani", "Quake Animation Script", "/dir/VTM \" /animation %1\"", "/dir/VTM,0",
         "application/x-vtm-animation", "// Animation File Created by Vortigo"},
        {".vtm", "VTM_Macro", "Quake Message Script", "/dir/VTM \" /macro %1\"", "/dir/VTM,0",
         "application/x-vtm-message", "// Macro File Created by Vortigo"},
    };
    const auto types = shell::FileAssociations("/dir");
    ASSERT_EQ(types.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(types[i].extension, rows[i].extension);
        EXPECT_EQ(types[i].className, rows[i].className);
        EXPECT_EQ(types[i].description, rows[i].description);
        EXPECT_EQ(types[i].commandValue, rows[i].commandValue);
        EXPECT_EQ(types[i].iconValue, rows[i].iconValue);
        EXPECT_EQ(types[i].editFlags, 0U);
        EXPECT_EQ(types[i].mimeType, rows[i].mimeType);
        EXPECT_EQ(types[i].firstLine, rows[i].firstLine);
    }
}

TEST(Registry, AFolderWithBlanksIsWrittenUnquoted) {
    const auto types = shell::FileAssociations("/my games/vtm");
    EXPECT_EQ(types[0].commandValue, "/my games/vtm/VTM \" /name %1\"");
    EXPECT_EQ(types[0].iconValue, "/my games/vtm/VTM,0");
}

TEST(Registry, AStartFromAnotherFolderRegistersAllTypesAnew) {
    support::FakeFileTypes desktop;
    shell::WriteFileAssociations(desktop, "/old");
    shell::WriteFileAssociations(desktop, "/new");
    ASSERT_EQ(desktop.registrations.size(), 2U);
    EXPECT_EQ(desktop.registrations[0].program, "/old/VTM");
    EXPECT_EQ(desktop.registrations[1].program, "/new/VTM");
    ASSERT_EQ(desktop.registrations[1].types.size(), 3U);
    for (const auto& type : desktop.registrations[1].types) {
        EXPECT_TRUE(type.commandValue.starts_with("/new/VTM ")) << type.commandValue;
        EXPECT_EQ(type.iconValue, "/new/VTM,0");
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
