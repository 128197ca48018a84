// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"

#include <windows.h>

/// Whose files are, and who may use them.
namespace ui::native {

/// Makes a new file for nobody but the user and the system to read.
class PrivateAttributes {
public:
    PrivateAttributes();
    PrivateAttributes(const PrivateAttributes&) = delete;
    PrivateAttributes& operator=(const PrivateAttributes&) = delete;
    PrivateAttributes(PrivateAttributes&&) = delete;
    PrivateAttributes& operator=(PrivateAttributes&&) = delete;
    ~PrivateAttributes();

    /// For the function that makes the file; null where the system does not know the user.
    [[nodiscard]] SECURITY_ATTRIBUTES* get() {
        return m_attributes.lpSecurityDescriptor == nullptr ? nullptr : &m_attributes;
    }

private:
    SECURITY_ATTRIBUTES m_attributes{};
};

/// Whether a file does not belong to the user, or that cannot be found out.
[[nodiscard]] bool IsOfSomebodyElse(const Path& path);

/// Lets those use the new file who may use the old one. Fails with the system's code.
[[nodiscard]] DWORD TakePermissions(const Path& from, const Path& to);

} // namespace ui::native
