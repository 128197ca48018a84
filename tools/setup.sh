#!/bin/bash
# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT
#
# setup.sh [--dry-run] PURPOSE...
#
# Installs the packages of tools/packages.txt that these purposes need and that are missing. Says what it installs,
# or that nothing is missing, and names what this system does not offer. Where packages cannot be installed it says
# what is needed and goes on: they may be there under other names.
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
    echo "setup: this system has no apt. These Debian packages, or what they are called here, are needed:"
    echo "setup:   ${packages[*]}"
    exit 0
fi

# Asking once for all is much faster than once for each.
installed=" $(dpkg-query -W -f '${db:Status-Status} ${Package}\n' | awk '$1 == "installed" { printf "%s ", $2 }')"
missing=()
for package in "${packages[@]}"; do
    [[ $installed == *" $package "* ]] || missing+=("$package")
done
if ((${#missing[@]} == 0)); then
    echo "setup: nothing is missing (for: $*)"
    exit 0
fi

if [[ -n $dryRun ]]; then
    echo "setup: installing ${missing[*]}"
    exit 0
fi

asRoot=()
if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
        echo "setup: neither root nor sudo: please have these packages installed. Going on without:"
        echo "setup:   ${missing[*]}"
        exit 0
    fi
    asRoot=(sudo)
fi

log=$(mktemp)
trap 'rm -f "$log"' EXIT
# One source of packages that fails need not be the one that is needed: the installation decides.
"${asRoot[@]}" apt-get update -q -o DPkg::Lock::Timeout=600 >"$log" 2>&1 || cat "$log"

# What the system does not offer must not keep the rest from being installed.
offered=" $(LC_ALL=C apt-cache policy "${missing[@]}" | awk '
    /^[^ ]/ { name = $1; sub(/:$/, "", name) }
    /^  Candidate:/ && $2 != "(none)" { printf "%s ", name }')"
install=()
for package in "${missing[@]}"; do
    if [[ $offered == *" $package "* ]]; then
        install+=("$package")
    else
        echo "setup: $package is not offered by this system: going on without"
    fi
done
if ((${#install[@]} == 0)); then
    exit 0
fi

echo "setup: installing ${install[*]}"
# Recommended packages would bring a desktop's toolkit plug-ins along, which slow the program's start.
options=(-y -q --no-install-recommends -o DPkg::Lock::Timeout=600 -o Dpkg::Use-Pty=0)
if ! "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install "${options[@]}" "${install[@]}" >"$log" 2>&1; then
    cat "$log"
    echo "setup: these packages could not be installed: ${install[*]}"
    exit 1
fi
echo "setup: installed"
