#!/bin/bash
# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT
#
# names_selftest.sh NAMES: shows that names.sh passes a tree in order and fails on each kind of breach.
set -euo pipefail

names=$1
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
failures=0

# local FILE LINE...: a source with lines in an unnamed namespace.
local_source() {
    local file=$tree/$1
    shift
    mkdir -p "${file%/*}"
    { echo 'namespace {' && printf '%s\n' "$@" && echo '} // namespace'; } >"$file"
}

# A small tree in order.
plant() {
    rm -rf "${tree:?}"/*
    local_source src/shell/one.cpp 'constexpr int Width = 1;' 'int Twice(int value) {' '    int Height = value;' '}'
    local_source src/shell/two.cpp 'constexpr int Height = 2;' 'struct Row {' '    int Width;' '};' 'using enum Key;'
    local_source src/editing/one.cpp 'constexpr int Width = 3;'
    printf '%s\n' 'struct Cell {' '    int Row = 0;' '};' 'class Twice;' >"$tree/src/editing/one.h"
}

accepts() {
    if ! output=$("$names" "$tree" src); then
        echo "FAILED: $1 is refused: $output"
        failures=$((failures + 1))
    fi
}

refuses() {
    if output=$("$names" "$tree" src); then
        echo "FAILED: $1 is not noticed"
        failures=$((failures + 1))
    elif [[ $output != *"$2"* ]]; then
        echo "FAILED: $1: the complaint is: $output"
        failures=$((failures + 1))
    fi
}

plant
accepts "a tree in order"

plant && local_source src/shell/three.cpp 'constexpr std::array<int, 2> Height{1, 2};'
refuses "a constant of two sources" "src/shell/two.cpp:2: Height is a name of src/shell/three.cpp too"

plant && local_source src/shell/three.cpp 'std::string Twice(std::string_view text) {' '}'
refuses "a function of two sources" "src/shell/three.cpp:2: Twice is a name of src/shell/one.cpp too"

plant && local_source src/shell/three.cpp 'std::optional<int>' 'Twice(std::string_view text, int more) {' '}'
refuses "a function whose type has a line of its own" "src/shell/three.cpp:3: Twice is a name of src/shell/one.cpp too"

plant && local_source src/shell/three.cpp 'using Row = int;'
refuses "a type of two sources" "Row is a name of src/shell/three.cpp too"

plant && local_source src/editing/two.cpp 'enum class Cell { Empty };'
refuses "a type of the room's header" "src/editing/two.cpp:2: Cell is a name of src/editing/one.h too"

plant && local_source src/shell/three.cpp 'int Cell() {' '}'
refuses "a name of another room's header" "src/shell/three.cpp:2: Cell is a name of src/editing/one.h too"

rm -rf "${tree:?}"/* && mkdir "$tree/src"
refuses "a tree without sources" "nothing was looked at"

if ((failures > 0)); then
    exit 1
fi
echo "every kind of breach is noticed"
