// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/windows/FileSecurity.h"

#include "ui/windows/WindowsFile.h"

#include <sddl.h>

namespace ui::native {

namespace {

/// The user, or whoever the user's new files belong to: what the process's token tells in a struct that
/// begins with a pointer into itself. Empty when it tells nothing.
std::vector<std::byte> IdentifierOf(TOKEN_INFORMATION_CLASS what) {
    HANDLE opened = nullptr;
    if (::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY, &opened) == FALSE) {
        return {};
    }
    const Handle token(opened);
    DWORD size = 0;
    ::GetTokenInformation(token.get(), what, nullptr, 0, &size);
    std::vector<std::byte> told(size);
    if (size == 0 || ::GetTokenInformation(token.get(), what, told.data(), size, &size) == FALSE) {
        return {};
    }
    PSID found = *reinterpret_cast<PSID*>(told.data());
    const auto* const first = static_cast<const std::byte*>(found);
    return {first, first + ::GetLengthSid(found)};
}

/// A part of a file's security descriptor; empty when it cannot be read.
std::vector<std::byte> SecurityOf(const Path& path, SECURITY_INFORMATION part) {
    const std::wstring file = SystemPath(path);
    DWORD size = 0;
    ::GetFileSecurityW(file.c_str(), part, nullptr, 0, &size);
    std::vector<std::byte> told(size);
    const bool isTold = size > 0 && ::GetFileSecurityW(file.c_str(), part, told.data(), size, &size) != FALSE;
    return isTold ? told : std::vector<std::byte>();
}

} // namespace

PrivateAttributes::PrivateAttributes() {
    auto user = IdentifierOf(TokenUser);
    wchar_t* name = nullptr;
    if (user.empty() || ::ConvertSidToStringSidW(user.data(), &name) == FALSE) {
        return;
    }
    // Protected from what the folder would add: all rights for the user and for the system.
    const std::wstring rights = L"D:P(A;;FA;;;" + std::wstring(name) + L")(A;;FA;;;SY)";
    ::LocalFree(name);
    m_attributes.nLength = sizeof m_attributes;
    ::ConvertStringSecurityDescriptorToSecurityDescriptorW(
        rights.c_str(), SDDL_REVISION_1, &m_attributes.lpSecurityDescriptor, nullptr);
}

PrivateAttributes::~PrivateAttributes() {
    ::LocalFree(m_attributes.lpSecurityDescriptor);
}

bool IsOfSomebodyElse(const Path& path) {
    auto file = SecurityOf(path, OWNER_SECURITY_INFORMATION);
    auto user = IdentifierOf(TokenUser);
    // An administrator's new files belong to all administrators.
    auto maker = IdentifierOf(TokenOwner);
    PSID owner = nullptr;
    BOOL isDefault = FALSE;
    if (file.empty() || user.empty() || maker.empty() ||
        ::GetSecurityDescriptorOwner(file.data(), &owner, &isDefault) == FALSE || owner == nullptr) {
        return true;
    }
    return ::EqualSid(owner, user.data()) == FALSE && ::EqualSid(owner, maker.data()) == FALSE;
}

DWORD TakePermissions(const Path& from, const Path& to) {
    auto wanted = SecurityOf(from, DACL_SECURITY_INFORMATION);
    if (wanted.empty()) {
        return ::GetLastError();
    }
    const bool isDone =
        wanted == SecurityOf(to, DACL_SECURITY_INFORMATION) ||
        ::SetFileSecurityW(SystemPath(to).c_str(), DACL_SECURITY_INFORMATION, wanted.data()) != FALSE;
    return isDone ? ERROR_SUCCESS : ::GetLastError();
}

} // namespace ui::native
