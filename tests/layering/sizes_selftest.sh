#!/bin/bash
# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT
#
# sizes_selftest.sh SIZES: shows that SIZES notices each kind of breach and lets the rest pass.
set -euo pipefail

sizes=$1
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
mkdir "$root/room"

# lines NAME COUNT: a source of the room.
lines() { seq "$2" >"$root/room/$1"; }

# expect STATUS WHAT [TEXT]: what the room comes to.
expect() {
    local status=0 told
    told=$("$sizes" "$root" room 2>&1) || status=$?
    if [[ $status != "$1" || $told != *"${3-}"* ]]; then
        echo "$2: status $status, told: $told" >&2
        exit 1
    fi
}

lines a.h 100
lines a.cpp 400
expect 0 "a file and a class at their limits"
lines a.cpp 401
lines a.h 10
expect 1 "a file that is too long" "room/a.cpp: 401 lines"
lines a.cpp 300
lines a_Part.cpp 200
expect 1 "a class in three files" "room/a: 510 lines"
lines a_Part.cpp 190
lines ab.cpp 300
expect 0 "another class whose name begins alike"
rm "$root"/room/*
expect 1 "an empty room"
