// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Kinds.h"
#include "ui/Platform.h"

#include <array>
#include <string>
#include <vector>

namespace shell {

/// The paths that a list of recent files keeps and the menu shows.
constexpr std::size_t MaxRecentFiles = 4;

/// The entries of the recent-file menus: full paths, newest first. A menu without entries is hidden.
class RecentMenus {
public:
    /// The entries of a kind; its page stands for the kind.
    [[nodiscard]] std::vector<std::string>& of(editing::Page kind) {
        return m_entries[static_cast<std::size_t>(kind)];
    }

    [[nodiscard]] const std::vector<std::string>& of(editing::Page kind) const {
        return m_entries[static_cast<std::size_t>(kind)];
    }

private:
    std::array<std::vector<std::string>, editing::Kinds.size()> m_entries;
};

/// Takes the entries from the store. A list whose newest entry is missing or empty leaves its menu as it is.
void LoadRecentMenus(RecentMenus& menus, const ui::SettingsStore& store);

/// Whether a path is one of the entries shown, to the letter.
[[nodiscard]] bool IsInRecent(const RecentMenus& menus, const std::string& path, editing::Page kind);

/// Puts a path at the top of the stored list; the fifth falls off. The menus stay as they are.
void AddRecent(ui::SettingsStore& store, const std::string& path, editing::Page kind);

/// After a successful save: adds a path that no entry shows, without moving one that is shown, and takes the
/// entries from the store again. Fails when the store cannot be written.
ui::Status
AddRecentIfNew(RecentMenus& menus, ui::SettingsStore& store, const std::string& path, editing::Page kind);

} // namespace shell
