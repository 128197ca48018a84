#!/bin/bash
# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT
#
# setup.sh [--dry-run] PURPOSE...
#
# Installs the packages of tools/packages.txt that these purposes need and that are missing. Says what it installs,
# or that nothing is missing. Where packages cannot be installed it says what is needed and goes on: they may be
# there under other names.
set -euo pipefail

list=$(dirname "$(readlink -f "$0")")/packages.txt
dryRun=
if [[ ${1-} == --dry-run ]]; then
    dryRun=1
    shift
fi

packages=()
for purpose in "$@"; do
    while read -r package; do
        # Several purposes may need the same.
        [[ " ${packages[*]} " == *" $package "* ]] || packages+=("$package")
    done < <(awk -v purpose="$purpose" '$1 == purpose { print $2 }' "$list")
done

if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
    echo "setup: this system has no apt. These Debian 12 packages, or what they are called here, are needed:"
    echo "setup:   ${packages[*]}"
    exit 0
fi

isInstalled() { dpkg-query -W -f '${db:Status-Status}\n' "$1" 2>/dev/null | grep -qx installed; }

missing=()
for package in "${packages[@]}"; do
    isInstalled "$package" || missing+=("$package")
done
if ((${#missing[@]} == 0)); then
    echo "setup: nothing is missing (for: $*)"
    exit 0
fi

echo "setup: installing ${missing[*]}"
if [[ -n $dryRun ]]; then
    exit 0
fi

asRoot=()
if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
        echo "setup: neither root nor sudo: please have these packages installed. Going on without."
        exit 0
    fi
    asRoot=(sudo)
fi

# Recommended packages would bring a desktop's toolkit plug-ins along, which slow the program's start.
options=(-y -q --no-install-recommends -o DPkg::Lock::Timeout=600 -o Dpkg::Use-Pty=0)
log=$(mktemp)
trap 'rm -f "$log"' EXIT
# One source of packages that fails need not be the one that is needed: the installation decides.
"${asRoot[@]}" apt-get update -q -o DPkg::Lock::Timeout=600 >"$log" 2>&1 || cat "$log"
if ! "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install "${options[@]}" "${missing[@]}" >"$log" 2>&1; then
    cat "$log"
    echo "setup: these packages could not be installed: ${missing[*]}"
    exit 1
fi
echo "setup: installed"
