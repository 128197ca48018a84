// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/windows/RegistryFileTypes.h"
#include "ui/windows/WideText.h"

#include <array>
#include <gtest/gtest.h>
#include <windows.h>

namespace {

using ui::native::RegistryFileTypes;

const std::wstring Classes = LR"(Software\Vortigo test\Classes)";

/// A part of the real registry that only this test knows.
class FileTypesInTheRegistry : public testing::Test {
protected:
    ~FileTypesInTheRegistry() override { ::RegDeleteTreeW(HKEY_CURRENT_USER, LR"(Software\Vortigo test)"); }

    [[nodiscard]] static std::string textOf(const std::wstring& key) {
        std::array<wchar_t, 512> text{};
        auto size = static_cast<DWORD>(sizeof text);
        const auto result = ::RegGetValueW(
            HKEY_CURRENT_USER, (Classes + L'\\' + key).c_str(), nullptr, RRF_RT_REG_SZ, nullptr, text.data(),
            &size);
        return result == ERROR_SUCCESS ? ui::native::NarrowText(text.data()) : "none";
    }

    [[nodiscard]] static std::vector<ui::FileType> types(const std::string& folder) {
        ui::FileType name;
        name.extension = ".vtn";
        name.className = "VTM_Name";
        name.description = "Quake Name Script";
        name.commandValue = folder + R"(\VTM.exe " /name %1")";
        name.iconValue = folder + R"(\VTM.exe,0)";
        ui::FileType macro = name;
        macro.extension = ".vtm";
        macro.className = "VTM_Macro";
        macro.description = "Quake Message Script";
        return {name, macro};
    }

    static void put(const std::wstring& key, const wchar_t* name, DWORD type, const void* bytes, DWORD size) {
        EXPECT_EQ(
            ::RegSetKeyValueW(HKEY_CURRENT_USER, (Classes + L'\\' + key).c_str(), name, type, bytes, size),
            ERROR_SUCCESS);
    }

    RegistryFileTypes registry{Classes};
};

TEST_F(FileTypesInTheRegistry, HoldFiveValuesEach) {
    registry.registerTypes(types(R"(C:\my dir)"), R"(C:\my dir\VTM.exe)");
    EXPECT_TRUE(registry.hasChanged());
    EXPECT_EQ(textOf(L".vtn"), "VTM_Name");
    EXPECT_EQ(textOf(L"VTM_Name"), "Quake Name Script");
    EXPECT_EQ(textOf(LR"(VTM_Name\DefaultIcon)"), R"(C:\my dir\VTM.exe,0)");
    EXPECT_EQ(textOf(LR"(VTM_Name\shell\open\command)"), R"(C:\my dir\VTM.exe " /name %1")");
    EXPECT_EQ(textOf(L".vtm"), "VTM_Macro");
    EXPECT_EQ(textOf(L"VTM_Macro"), "Quake Message Script");
    DWORD flags = 1;
    DWORD size = sizeof flags;
    DWORD type = 0;
    EXPECT_EQ(
        ::RegGetValueW(
            HKEY_CURRENT_USER, (Classes + LR"(\VTM_Name)").c_str(), L"EditFlags", RRF_RT_ANY, &type, &flags,
            &size),
        ERROR_SUCCESS);
    EXPECT_EQ(type, DWORD{REG_DWORD});
    EXPECT_EQ(flags, 0U);
}

TEST_F(FileTypesInTheRegistry, AreNotWrittenAnew) {
    registry.registerTypes(types(R"(C:\dir)"), R"(C:\dir\VTM.exe)");
    registry.registerTypes(types(R"(C:\dir)"), R"(C:\dir\VTM.exe)");
    EXPECT_FALSE(registry.hasChanged());
}

TEST_F(FileTypesInTheRegistry, FollowAProgramThatWasMoved) {
    registry.registerTypes(types(R"(C:\dir)"), R"(C:\dir\VTM.exe)");
    registry.registerTypes(types("D:\\\xC3\xBC"), "D:\\\xC3\xBC\\VTM.exe");
    EXPECT_TRUE(registry.hasChanged());
    EXPECT_EQ(textOf(LR"(VTM_Name\DefaultIcon)"), "D:\\\xC3\xBC\\VTM.exe,0");
    EXPECT_EQ(textOf(LR"(VTM_Macro\shell\open\command)"), "D:\\\xC3\xBC\\VTM.exe \" /name %1\"");
}

TEST_F(FileTypesInTheRegistry, ReplaceWhatOthersHaveWrittenThere) {
    registry.registerTypes(types(R"(C:\dir)"), R"(C:\dir\VTM.exe)");
    const DWORD flags = 7;
    put(L"VTM_Name", L"EditFlags", REG_DWORD, &flags, sizeof flags);
    put(L".vtm", nullptr, REG_EXPAND_SZ, L"VTM_Macro", 20);
    put(L".vtn", nullptr, REG_SZ, L"Other", 12);
    put(L".vtn", L"PerceivedType", REG_SZ, L"text", 10);
    registry.registerTypes(types(R"(C:\dir)"), R"(C:\dir\VTM.exe)");
    EXPECT_TRUE(registry.hasChanged());
    EXPECT_EQ(textOf(L".vtn"), "VTM_Name");
    DWORD size = 0;
    EXPECT_EQ(
        ::RegGetValueW(
            HKEY_CURRENT_USER, (Classes + LR"(\.vtn)").c_str(), L"PerceivedType", RRF_RT_REG_SZ, nullptr,
            nullptr, &size),
        ERROR_SUCCESS)
        << "other values stay";
    registry.registerTypes(types(R"(C:\dir)"), R"(C:\dir\VTM.exe)");
    EXPECT_FALSE(registry.hasChanged());
}

} // namespace
