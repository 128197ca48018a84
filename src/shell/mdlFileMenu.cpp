// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/mdlFileMenu.h"

#include <algorithm>

namespace shell {

namespace {

using editing::Page;

std::string SectionOf(Page kind) {
    return editing::KindOf(kind).recentSection;
}

std::string KeyOf(std::size_t number) {
    return "RecentFile" + std::to_string(number);
}

} // namespace

void LoadRecentMenus(RecentMenus& menus, const ui::SettingsStore& store) {
    for (const editing::Kind& row : editing::Kinds) {
        if (store.read(row.recentSection, KeyOf(1)).value_or("").empty()) {
            continue;
        }
        auto& entries = menus.of(row.page);
        const auto stored = store.list(row.recentSection);
        for (std::size_t i = 0; i < std::min(stored.size(), MaxRecentFiles); ++i) {
            if (i == entries.size()) {
                entries.emplace_back();
            }
            entries[i] = stored[i].second;
        }
    }
}

bool IsInRecent(const RecentMenus& menus, const std::string& path, Page kind) {
    const auto& entries = menus.of(kind);
    return std::find(entries.begin(), entries.end(), path) != entries.end();
}

void AddRecent(ui::SettingsStore& store, const std::string& path, Page kind) {
    const std::string section = SectionOf(kind);
    for (std::size_t number = MaxRecentFiles - 1; number >= 1; --number) {
        const std::string older = store.read(section, KeyOf(number)).value_or("");
        if (!older.empty()) {
            store.write(section, KeyOf(number + 1), older);
        }
    }
    store.write(section, KeyOf(1), path);
}

ui::Status AddRecentIfNew(RecentMenus& menus, ui::SettingsStore& store, const std::string& path, Page kind) {
    // Another instance may have saved a file meanwhile: its entry must not be lost.
    store.refresh();
    LoadRecentMenus(menus, store);
    ui::Status done;
    if (!IsInRecent(menus, path, kind)) {
        AddRecent(store, path, kind);
        done = store.save();
    }
    LoadRecentMenus(menus, store);
    return done;
}

} // namespace shell
