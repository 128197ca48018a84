#!/bin/bash
# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT
#
# sizes.sh ROOT FOLDER...
#
# Proves that a source can be read in one go: no file has more than 400 lines, and no class, its header and its sources
# (X.h, X.cpp, X_Part.cpp) together, more than 500. Every breach is printed; the exit status is 1 if there is one.
set -euo pipefail

cd "$1"
shift

mapfile -t sources < <(find "$@" -type f \( -name '*.h' -o -name '*.cpp' \) | LC_ALL=C sort)
if ((${#sources[@]} == 0)); then
    echo "no sources in $*"
    exit 1
fi

awk -v file=400 -v class=500 '
    {
        lines[FILENAME]++
        unit = FILENAME
        sub(/(_[A-Za-z0-9]+)?\.(h|cpp)$/, "", unit)
        units[unit]++
    }
    END {
        for (name in lines) if (lines[name] > file) { print name ": " lines[name] " lines, " file " at most"; breaches++ }
        for (name in units) if (units[name] > class) { print name ": " units[name] " lines, " class " at most"; breaches++ }
        exit breaches > 0
    }' "${sources[@]}"
