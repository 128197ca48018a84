// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

namespace ui::native {

/// Whether Wine stands in for Windows.
[[nodiscard]] bool IsWine();

} // namespace ui::native
