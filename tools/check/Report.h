// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "check/Judgement.h"

#include <iosfwd>
#include <string>
#include <variant>
#include <vector>

namespace check {

/// A file and what became of judging it.
struct JudgedFile {
    ui::Path path;
    ui::Result<Judgement> result; ///< a failure's message is a whole sentence
};

/// Tells people of a script. Nothing of it is acted on by a terminal.
void PrintForPeople(std::ostream& output, const Judgement& judgement);

/// Tells programs of all files.
void PrintJson(std::ostream& output, const std::vector<JudgedFile>& files);

} // namespace check
