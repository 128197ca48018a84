// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/mdlLaunch.h"

#include "shell/Product.h"
#include "shell/Texts.h"
#include "ui/FileWriter.h"

#include <algorithm>
#include <array>
#include <system_error>

namespace shell {

namespace {

struct LaunchError {
    int code;
    std::string_view text;
};

constexpr std::array<LaunchError, 12> LaunchErrors{{
    {2, "File not found"},
    {3, "Path not found"},
    {5, "Access denied"},
    {8, "Out of memory"},
    {11, "Invalid EXE file or error in EXE image"},
    {26, "A sharing violation occurred"},
    {27, "Incomplete or invalid file association"},
    {28, "DDE Time out"},
    {29, "DDE transaction failed"},
    {30, "DDE busy"},
    {31, "No association for file extension"},
    {32, "DLL not found"},
}};

constexpr int FileNotFound = 2;

void ShowLaunchError(ui::Dialogs& dialogs, int code) {
    const std::string_view text = LaunchErrorText(code);
    if (!text.empty()) {
        dialogs.inform(std::string(text));
    }
}

/// Whether a byte may stand in the path of an address as it is.
bool StandsForItself(unsigned char byte) {
    constexpr std::string_view marks = "-._~/";
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9') ||
           marks.find(static_cast<char>(byte)) != std::string_view::npos;
}

void AppendEncoded(std::string& address, std::string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (StandsForItself(byte)) {
            address += character;
        } else {
            address += '%';
            address += digits[byte >> 4U];
            address += digits[byte & 15U];
        }
    }
}

} // namespace

std::string_view LaunchErrorText(int code) {
    if (code >= FirstLaunchSuccess) {
        return {};
    }
    const auto found =
        std::find_if(LaunchErrors.begin(), LaunchErrors.end(), [code](const LaunchError& error) {
            return error.code == code;
        });
    return found == LaunchErrors.end() ? std::string_view("Unknown error") : found->text;
}

std::string ShortcutText(const std::string& address) {
    return "[InternetShortcut]\r\nURL=" + address + "\r\n";
}

std::string FileAddress(const ui::Path& path) {
    std::error_code error;
    const ui::Path found = std::filesystem::absolute(path, error);
    const ui::Path& absolute = error ? path : found;
    // A drive comes below an empty host; a computer in the network is the host itself.
    std::string root = ui::PathText(absolute.root_name());
    std::ranges::replace(root, '\\', '/');
    std::string address = root.starts_with("//") ? "file:" : "file://";
    if (!root.empty() && !root.starts_with("//")) {
        address += '/';
    }
    address += root;
    for (const ui::Path& part : absolute.relative_path()) {
        address += '/';
        AppendEncoded(address, ui::PathText(part));
    }
    return address;
}

bool IsWebAddress(std::string_view address) {
    constexpr std::array<std::string_view, 3> schemes{"http://", "https://", "mailto:"};
    const auto startsWith = [address](std::string_view scheme) {
        return address.size() > scheme.size() && address[scheme.size()] != '/' &&
               std::equal(scheme.begin(), scheme.end(), address.begin(), [](char wanted, char given) {
                   return (given >= 'A' && given <= 'Z' ? static_cast<char>(given - 'A' + 'a') : given) ==
                          wanted;
               });
    };
    const auto isUnfit = [](char character) {
        const auto byte = static_cast<unsigned char>(character);
        return byte <= ' ' || byte == 0x7F;
    };
    return std::any_of(schemes.begin(), schemes.end(), startsWith) &&
           std::none_of(address.begin(), address.end(), isUnfit);
}

std::string SupportMailUrl() {
    return std::string("mailto:") + SupportMailAddress + "?subject=VTM Help";
}

void LaunchDocument(const ui::Platform& platform, const ui::Path& shortcut, const std::string& address) {
    platform.launcher.open(
        shortcut, address, [&dialogs = platform.dialogs](int code) { ShowLaunchError(dialogs, code); });
}

void OpenUrl(const ui::Platform& platform, const std::string& address) {
    const ui::Path shortcut = platform.directory.toWrite(ScratchShortcutName);
    if (const auto written =
            ui::WriteFile(platform.files, shortcut, ShortcutText(address), ui::Links::Replace);
        !written) {
        ShowLaunchError(platform.dialogs, FileNotFound);
        return;
    }
    LaunchDocument(platform, shortcut, address);
}

void OpenWebSite(const ui::Platform& platform) {
    OpenUrl(platform, WebSiteAddress);
}

void SendMail(const ui::Platform& platform) {
    OpenUrl(platform, SupportMailUrl());
}

void ShowHelp(const ui::Platform& platform) {
    const ui::Path help = platform.directory.toRead(HelpFileName);
    if (platform.files.exists(help)) {
        OpenUrl(platform, FileAddress(help));
    } else {
        platform.dialogs.warn(texts::HelpMissing);
    }
}

void CheckHelp(const ui::Platform& platform) {
    if (!platform.files.exists(platform.directory.toRead(HelpFileName))) {
        platform.dialogs.warn(texts::HelpMissingAtStart);
    }
}

} // namespace shell
