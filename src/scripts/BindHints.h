// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "games/Engines.h"
#include "scripts/mdlBind.h"
#include "ui/Files.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

/// What the binding wizard says beside its fields.
namespace scripts {

/// What is wrong with a script that a key is to run: it is no file, or it has a name that not every game can
/// run. Mostly empty; for an empty path, too.
[[nodiscard]] std::string ScriptHint(const ui::Files& files, const ui::Path& script);

/// What games say to a script's file name, which a key's command holds without quotes of its own: those of
/// the families, of which there is at least one. Mostly empty.
[[nodiscard]] std::string
ScriptNameHint(const ui::Path& script, std::span<const games::Family> families = games::Families);

/// What binding a key (index) is going to do to a file that holds `config`, which binds the keys `bound`.
[[nodiscard]] std::string BindingForecast(std::string_view config, const BoundKeys& bound, int key);

/// That the keys which the file binds without quotes around their names are not among the keys `bound`; empty
/// when there are none.
[[nodiscard]] std::string UnquotedKeysText(std::string_view config, const BoundKeys& bound);

/// What a configuration file says of its keys, and what to say of the file.
struct ConfigKeys {
    std::optional<ui::Bytes> config =
        {}; ///< what it holds; nothing when none is chosen or it cannot be changed
    BoundKeys bound{};
    std::string hint = {};   ///< beside the file's name; mostly empty
    std::string reason = {}; ///< why it could not be read, or cannot be changed

    /// What binding a key (index) is going to do to the file; empty if that is not known.
    [[nodiscard]] std::string forecast(std::optional<int> key) const;
};

/// The bound keys of a file: none if it is not there or cannot be read. No hint for an empty path.
[[nodiscard]] ConfigKeys ReadBoundKeys(const ui::Files& files, const ui::Path& config);

} // namespace scripts
