#!/bin/bash
# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT
#
# small_volume.sh PROGRAM: runs a test program for Windows, as tools/windows/session does, where the drive V: has room for 256
# KB. The drive is seen by nobody else and is gone with the program.
set -euo pipefail

if [[ ${1-} != --inside ]]; then
    options=(--mount)
    ((EUID == 0)) || options+=(--map-root-user)
    # The root of a changed root is no mount that could be kept from others.
    unshare "${options[@]}" true 2>/dev/null || options+=(--propagation unchanged)
    exec unshare "${options[@]}" "$0" --inside "$@"
fi
program=$2
root=$(dirname "$(dirname "$(dirname "$(readlink -f "$0")")")")
scratch=$(mktemp -d)
trap 'WINEPREFIX=$VTM_WINE_HOME wineserver -k || true; umount "$scratch/volume"; rm -rf "$scratch"' EXIT
# Who opens files is the server of a home, which has to see the drive.
cp -a "$VTM_WINE_HOME" "$scratch/home"
export VTM_WINE_HOME=$scratch/home
mkdir "$scratch/volume"
mount -t tmpfs -o size=256k none "$scratch/volume"
ln -s "$scratch/volume" "$VTM_WINE_HOME/dosdevices/v:"
VTM_SMALL_VOLUME='V:\' "$root/tools/windows/wine" "$program"
