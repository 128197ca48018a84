// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Platform.h"

#include <vector>

namespace ui {

/// The folders in which files were last chosen.
class FolderHistory {
public:
    /// How many are kept.
    static constexpr std::size_t Size = 5;

    /// Of this run alone.
    FolderHistory() = default;

    /// Takes them from the store, in which they are kept. It outlives the history.
    explicit FolderHistory(SettingsStore& store);

    /// A file was chosen in that folder.
    void add(const Path& folder);

    /// The folders, the last one first.
    [[nodiscard]] const std::vector<Path>& folders() const { return m_folders; }

    /// The folder in which this run chose a file last; empty: none yet.
    [[nodiscard]] const Path& last() const { return m_last; }

private:
    SettingsStore* m_store = nullptr;
    std::vector<Path> m_folders;
    Path m_last;
};

} // namespace ui
