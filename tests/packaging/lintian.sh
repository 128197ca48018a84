#!/bin/bash
# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT
#
# lintian.sh OUT: what Debian's own reader of packages has to say about the Debian package: nothing.
set -uo pipefail
package=$(find "$1/cpack" -maxdepth 1 -name '*.deb' 2>/dev/null)
if [[ -z $package ]]; then
    echo "Skipped: there is no package."
    exit 77
fi
# Which of the overrides are needed differs from compiler to compiler.
remarks=$(lintian --allow-root --display-info --display-experimental --pedantic --suppress-tags unused-override \
    "$package" 2>&1)
printf '%s\n' "$remarks"
[[ -z $remarks ]]
