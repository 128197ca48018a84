#!/bin/bash
# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT
#
# names.sh ROOT FOLDER...
#
# Proves that the sources of a folder can be compiled together, in whatever order: a name that one of them keeps to
# itself, in an unnamed namespace, is used for nothing else by the unnamed namespace of another source of the folder,
# nor by a header of the folder; a room also heeds the headers of the others. Every breach is printed as
# "file:line: what"; the exit status is 1 if there is one.
#
# The layout that the formatter gives is relied upon: what a namespace holds starts in the first column.
set -euo pipefail

cd "$1"
shift

find "$@" -type f \( -name '*.h' -o -name '*.cpp' \) | LC_ALL=C sort | xargs awk '
    function complain(at, name, other) {
        printf "%s: %s is a name of %s too\n", at, name, other
        breaches++
    }
    FNR == 1 {
        files++
        folder = FILENAME
        sub(/\/[^\/]*$/, "", folder)
        isHeader = FILENAME ~ /\.h$/
        isRoom = FILENAME ~ /^src\//
        isLocal = 0
        type = ""
    }
    /^namespace \{/ { isLocal = 1; next }
    /^\} \/\/ namespace$/ { isLocal = 0; next }

    !isHeader && !isLocal { next }
    /^[^A-Za-z]/ || /^$/ || /^(public|private|protected|template|using namespace|using enum|using [a-z_A-Z:]*::|namespace|extern "C"|friend|TEST|BENCHMARK|INSTANTIATE|Q_)/ { next }
    # A return type on a line of its own.
    /^[A-Za-z][^(;{=]*[^ (;{=:,]$/ && !/^(struct|class|enum|union|using) / { type = $0; next }
    {
        line = type == "" ? $0 : type " " $0
        type = ""
        if (match(line, /^(struct|class|enum class|enum|union) [A-Za-z_0-9]+/)) {
            # A header may name a type that another one holds.
            if (line ~ /;$/ && line !~ /\{/) next
            name = substr(line, RSTART, RLENGTH)
            sub(/.* /, "", name)
        } else if (match(line, /^using [A-Za-z_0-9]+/)) {
            name = substr(line, 7, RLENGTH - 6)
        } else {
            sub(/ = .*/, "", line)
            sub(/[({;\[].*/, "", line)
            sub(/ $/, "", line)
            if (line !~ / / || !match(line, /[A-Za-z_0-9]+$/) || substr(line, 1, RSTART - 1) ~ /::$/) next
            name = substr(line, RSTART)
        }
        if (!isLocal) {
            header[isRoom ? "" : folder, name] = FILENAME
            next
        }
        if ((folder, name) in local && local[folder, name] != FILENAME) {
            complain(FILENAME ":" FNR, name, local[folder, name])
        }
        local[folder, name] = FILENAME
        place[folder, name] = FILENAME ":" FNR
        names++
    }
    END {
        for (key in local) {
            split(key, part, SUBSEP)
            if ((part[1], part[2]) in header) complain(place[key], part[2], header[part[1], part[2]])
            if (part[1] ~ /^src/ && ("", part[2]) in header) complain(place[key], part[2], header["", part[2]])
        }
        if (files == 0 || names == 0) { print "nothing was looked at"; exit 1 }
        if (breaches > 0) exit 1
        printf "%d names of %d files looked at\n", names, files
    }'
