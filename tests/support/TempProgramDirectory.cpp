// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/TempProgramDirectory.h"

#include "support/InChild.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <system_error>

namespace support {

TempFolder::TempFolder() {
    const ui::Path path = std::filesystem::temp_directory_path() / ui::PathFromText(NextFolderName());
    std::error_code failed;
    if (!std::filesystem::create_directory(path, failed)) {
        ADD_FAILURE() << "no temporary folder could be made";
        return;
    }
    m_path = path;
}

TempFolder::~TempFolder() {
    if (m_path.empty()) {
        return;
    }
    std::error_code ignored;
    std::filesystem::permissions(m_path, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(m_path, ignored);
}

ui::Path TempFolder::put(const ui::Path& name, std::string_view bytes) const {
    const ui::Path path = m_path / name;
    std::error_code ignored;
    std::filesystem::create_directories(path.parent_path(), ignored);
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    EXPECT_TRUE(file.good()) << path;
    return path;
}

std::string TempFolder::content(const ui::Path& name) const {
    std::ifstream file(m_path / name, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << m_path / name;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool TempFolder::has(const ui::Path& name) const {
    std::error_code ignored;
    return std::filesystem::exists(std::filesystem::symlink_status(m_path / name, ignored));
}

ui::Path TempProgramDirectory::toRead(const std::string& name) const {
    return !isWritable && standIn.has(name) ? standIn / name : files / name;
}

ui::Path TempProgramDirectory::toWrite(const std::string& name) const {
    return isWritable ? files / name : standIn / name;
}

} // namespace support
