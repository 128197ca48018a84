#!/bin/bash
# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT
#
# docs_selftest.sh DOCS: shows that DOCS notices a name of what is not there and lets the rest pass.
set -euo pipefail

docs=$1
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
mkdir -p "$root"/{src/room,docs,tools,build}
touch "$root"/src/room/{Thing.h,Thing.cpp} "$root/tools/on"
# shellcheck disable=SC2016
echo '`room/Other`' >"$root/build/copy.md"

# expect STATUS WHAT TEXT [TOLD]: what a document of that text comes to.
expect() {
    local status=0 told
    printf '%s\n' "$3" >"$root/docs/page.md"
    told=$("$docs" "$root" 2>&1) || status=$?
    if [[ $status != "$1" || $told != *"${4-}"* ]]; then
        echo "$2: status $status, told: $told" >&2
        exit 1
    fi
}

# shellcheck disable=SC2016
{
    expect 0 "a module, a source and a tool" 'See `room/Thing`, `room/Thing.cpp` and `tools/on`.' "3 names"
    expect 0 "a folder, and a path of something else" '`src/room`, `share/vtm`, `PREFIX/bin`' "1 names"
    expect 1 "a source that is gone" $'\n`room/Gone.cpp`' "docs/page.md:2: there is no room/Gone.cpp"
    expect 1 "a module that is gone" '`room/Thin`' "there is no room/Thin"
    expect 1 "a tool that is gone" '`tools/off`' "there is no tools/off"
    expect 1 "a page without any" 'Nothing.' "no names"
}
