// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/Hide.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace support {

void Hide(const ui::Path& folder) {
    EXPECT_TRUE(::SetFileAttributesW(folder.c_str(), FILE_ATTRIBUTE_HIDDEN)) << folder;
}

} // namespace support
