// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Platform.h"

#include <string>
#include <string_view>

namespace shell {

constexpr const char* HelpFileName = "vtmhelp.htm";
constexpr const char* ScratchShortcutName = "temphtm.url";

/// The launcher's results from this on are successes.
constexpr int FirstLaunchSuccess = 33;

/// What a launcher's result below FirstLaunchSuccess means; empty for a success.
[[nodiscard]] std::string_view LaunchErrorText(int code);

/// The bytes of a shortcut file that leads to an address.
[[nodiscard]] std::string ShortcutText(const std::string& address);

/// The address of a local file: "file://" and the absolute path, percent-encoded.
[[nodiscard]] std::string FileAddress(const ui::Path& path);

/// Whether an address from a file may be handed to the desktop, which opens files and runs programs too: one
/// of http, https or mailto, without blanks and control characters.
[[nodiscard]] bool IsWebAddress(std::string_view address);

/// "mailto:", the support address and the subject.
[[nodiscard]] std::string SupportMailUrl();

/// Hands a shortcut file, which leads to `address`, to the desktop. An error is shown when its result comes.
void LaunchDocument(const ui::Platform& platform, const ui::Path& shortcut, const std::string& address);

/// Writes the address into the scratch shortcut file, which stays, and launches it. Shows the launcher's
/// error.
void OpenUrl(const ui::Platform& platform, const std::string& address);

/// Opens the product's web site.
void OpenWebSite(const ui::Platform& platform);

/// Starts a new message to the makers, with a subject.
void SendMail(const ui::Platform& platform);

/// Opens the help page, or warns that it is missing.
void ShowHelp(const ui::Platform& platform);

/// At the end of the start: warns if the help page is missing.
void CheckHelp(const ui::Platform& platform);

} // namespace shell
