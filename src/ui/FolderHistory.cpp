// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/FolderHistory.h"

#include <algorithm>
#include <string>

namespace ui {

namespace {

const std::string Section = "folders";

std::string KeyOf(std::size_t number) {
    return "Folder" + std::to_string(number);
}

} // namespace

FolderHistory::FolderHistory(SettingsStore& store)
    : m_store(&store) {
    for (std::size_t number = 1; number <= Size; ++number) {
        if (auto folder = store.read(Section, KeyOf(number)); folder && !folder->empty()) {
            m_folders.push_back(PathFromText(*folder));
        }
    }
}

void FolderHistory::add(const Path& folder) {
    m_last = folder;
    std::erase(m_folders, folder);
    m_folders.insert(m_folders.begin(), folder);
    m_folders.resize(std::min(m_folders.size(), Size));
    for (std::size_t i = 0; m_store != nullptr && i < m_folders.size(); ++i) {
        m_store->write(Section, KeyOf(i + 1), PathText(m_folders[i]));
    }
}

} // namespace ui
