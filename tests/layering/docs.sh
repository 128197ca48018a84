#!/bin/bash
# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT
#
# docs.sh ROOT
#
# Proves that the documents (*.md) under ROOT name what is there: every `room/Name`, with its ending or without, and
# every `folder/name` of ROOT's own folders. Every breach is printed as "file:line: what"; the exit status is 1 if there
# is one.
set -euo pipefail

cd "$1"
begin=$(printf '%s|' src/*/ | sed 's|src/||g; s|/||g')'bench|cmake|data|docs|src|tests|tools'
names=0
status=0
while IFS=: read -r file line name; do
    name=${name//\`/}
    names=$((names + 1))
    if [[ ! -e $name && ! -e src/$name ]] && ! compgen -G "src/$name.*" >/dev/null; then
        echo "${file#./}:$line: there is no $name"
        status=1
    fi
done < <(find . \( -path ./build -o -name '.*' ! -name . \) -prune -o -name '*.md' -print | LC_ALL=C sort |
    xargs grep -noHE "\`($begin)/[A-Za-z0-9_./-]+\`")
if ((names == 0)); then
    echo "no names to look at"
    exit 1
fi
echo "$names names looked at"
exit $status
