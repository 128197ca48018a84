// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "fuzz/Fuzz.h"

#include <cstdio>
#include <cstdlib>

void fuzz::Require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "It does not hold that %s.\n", what);
        std::abort();
    }
}
