// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "cli/NamedDirectory.h"

#include "ui/System.h"

#include <utility>

namespace cli {

NamedDirectory::NamedDirectory(ui::Path folder)
    : m_folder(std::move(folder)) {}

bool NamedDirectory::writable() const {
    return ui::IsWritableFolder(m_folder);
}

} // namespace cli
