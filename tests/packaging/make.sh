#!/bin/bash
# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT
#
# make.sh BUILD OUT CMAKE CPACK: makes from the build what people get: in OUT/installed what is installed, OUT/deb
# the files of the Debian package and OUT/archive those of the archive, as unpacking leaves them.
set -euo pipefail
build=$1 out=$2 cmake=$3 cpack=$4

if [[ -d $out ]]; then
    chmod -R u+w "$out"
fi
rm -rf "$out"
mkdir -p "$out"

umask 022
"$cmake" --install "$build" --prefix "$out/installed" --strip >"$out/install.log"

# Whoever makes packages may keep their own files to themselves: the packages must not.
umask 077
if ! command -v dpkg >/dev/null; then
    echo "No packages: this is no Debian."
    exit 0
fi
for tool in dpkg-shlibdeps file objdump patchelf; do
    command -v "$tool" >/dev/null || {
        echo "$tool is not installed: try tools/setup.sh package"
        exit 1
    }
done
(cd "$build" && "$cpack" --config CPackConfig.cmake -B "$out/cpack") >"$out/cpack.log" 2>&1 || {
    cat "$out/cpack.log"
    exit 1
}
umask 022
mkdir "$out"/{deb,archive}
tar -xzf "$out"/cpack/*.tar.gz -C "$out/archive" --strip-components=1
dpkg-deb -x "$out"/cpack/*.deb "$out/deb"
