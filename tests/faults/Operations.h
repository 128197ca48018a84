// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/TempProgramDirectory.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace faults {

/// What an operation tells.
struct Report {
    bool isDone = false;  ///< it says that all is done
    std::string messages; ///< all that it tells
};

/// Where an operation takes place: a game's folder, the program's folder and the user's home.
struct World {
    support::TempFolder game;
    support::TempFolder home;
    support::TempProgramDirectory directory;
    ui::DiskFiles files{directory.folder()};
};

/// Something that the program does and that writes.
struct Operation {
    std::string name;

    /// Makes what is there before.
    std::function<void(World&)> prepare;

    std::function<Report(World&)> run;

    /// The files that it changes; what is found there before and after tells whether nothing was lost.
    std::function<std::vector<ui::Path>(const World&)> targets;

    bool isSilent = false; ///< whether a failure of it is not told, as nothing of the user's depends on it
    bool keepsOld = false; ///< whether what was there before is kept as a copy when it is replaced

    /// Whether the files can be used together; nothing: each is used by itself.
    std::function<bool(World&)> isUsable = {};
};

[[nodiscard]] std::vector<Operation> AllOperations();

/// What the next start of the program tells.
[[nodiscard]] std::string NextStart(World& world);

} // namespace faults
