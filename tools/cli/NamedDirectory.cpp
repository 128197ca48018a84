// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "cli/NamedDirectory.h"

#include <unistd.h>
#include <utility>

namespace cli {

NamedDirectory::NamedDirectory(ui::Path folder)
    : m_folder(std::move(folder)) {}

bool NamedDirectory::writable() const {
    return ::access(m_folder.c_str(), W_OK | X_OK) == 0;
}

} // namespace cli
