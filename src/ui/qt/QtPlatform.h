// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Platform.h"

#include <memory>

namespace ui::qt {

/// The real platform: made once, after the application object, and outlives every window. Each system has its
/// own parts.
class QtPlatform {
public:
    /// `offered`: folders that file dialogs list at their side.
    explicit QtPlatform(FolderOffer offered = {});
    QtPlatform(const QtPlatform&) = delete;
    QtPlatform& operator=(const QtPlatform&) = delete;
    QtPlatform(QtPlatform&&) = delete;
    QtPlatform& operator=(QtPlatform&&) = delete;
    ~QtPlatform();

    [[nodiscard]] Platform& platform();

private:
    struct Parts;

    std::unique_ptr<Parts> m_parts;
};

} // namespace ui::qt
