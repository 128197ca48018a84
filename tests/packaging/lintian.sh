#!/bin/bash
# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT
#
# lintian.sh OUT: what Debian's own reader of packages has to say about the Debian package: nothing.
set -uo pipefail
package=$(find "$1/cpack" -maxdepth 1 -name '*.deb')
if [[ -z $package ]]; then
    echo "Skipped: there is no Debian package."
    exit 77
fi
command -v lintian >/dev/null || {
    echo "Skipped: lintian is not installed."
    exit 77
}
# Which of the overrides are needed differs from compiler to compiler.
remarks=$(lintian --allow-root --display-info --display-experimental --pedantic --suppress-tags unused-override \
    "$package" 2>&1)
printf '%s\n' "$remarks"
[[ -z $remarks ]]
