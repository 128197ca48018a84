// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <span>

namespace shell {

struct MenuReceivers;

/// The row of the menus at which every kind adds its entries.
constexpr auto EachKind = "EachKind";

/// An entry of a menu. Without an action it is a submenu; without a caption it is a separator or EachKind.
struct MenuCommand {
    const char* menu; ///< objectName of the menu that it stands in; empty: the menu bar
    const char* name; ///< objectName
    const char* caption;
    void (*run)(const MenuReceivers&);
    const char* command = nullptr; ///< what Undo calls it; null: as its caption does
};

/// A button of the toolbar. Its action carries the key as objectName. Without a key it is a separator.
struct ToolCommand {
    const char* key;
    const char* tooltip;
    const char* entry; ///< objectName of the submenu that it pops up or of the menu entry that it chooses
};

[[nodiscard]] std::span<const MenuCommand> MenuCommands();

[[nodiscard]] std::span<const ToolCommand> ToolCommands();

} // namespace shell
