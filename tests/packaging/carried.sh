#!/bin/bash
# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT
#
# carried.sh OUT: looks through the libraries that the archive of make.sh carries: that each is there that a program or a
# library of it needs, and none besides, that each has its licence, and that all are found where they should be.
set -uo pipefail
out=$1
cd "$out/archive" 2>/dev/null || {
    echo "Skipped: there is no package."
    exit 77
}

# No system lacks these: all else is carried.
base=(ld-linux-x86-64.so.2 libc.so.6 libm.so.6 libdl.so.2 libpthread.so.0 librt.so.1 libresolv.so.2 libgcc_s.so.1
    libstdc++.so.6)
# Loaded by name.
asked=(libSDL2-2.0.so.0)
limit=45000000

failures=0
complain() {
    echo "$*"
    failures=$((failures + 1))
}

needed() { readelf -d "$1" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p'; }
searched() { readelf -d "$1" | sed -n 's/.*(\(RPATH\|RUNPATH\)).*\[\(.*\)\]/\1 \2/p'; }

mapfile -t programs < <(find bin -type f -name 'vtm*')
mapfile -t qt < <(find lib/vtm -maxdepth 1 -type f)
mapfile -t plugins < <(find lib/vtm/plugins -type f)
mapfile -t spare < <(find lib/vtm/spare -type f)
[[ ${#programs[@]} == 4 && ${#plugins[@]} -gt 0 && ${#spare[@]} -gt 0 ]] || complain "these are not all the files"

declare -A carried=() wanted=()
for file in "${qt[@]}" "${spare[@]}"; do
    carried[${file##*/}]=$file
done
for file in "${programs[@]}" "${qt[@]}" "${plugins[@]}" "${spare[@]}"; do
    while read -r name; do
        wanted[$name]=$file
        [[ -n ${carried[$name]-} || " ${base[*]} " == *" $name "* ]] || complain "$file needs $name"
    done < <(needed "$file")
done
for name in "${asked[@]}"; do
    [[ -n ${carried[$name]-} ]] || complain "$name is not carried"
    wanted[$name]=the\ program
done
for name in "${!carried[@]}"; do
    [[ -n ${wanted[$name]-} ]] || complain "$name is carried for nothing"
    [[ " ${base[*]} " != *" $name "* ]] || complain "$name belongs to the system"
done

for file in "${qt[@]}"; do
    [[ $file == lib/vtm/libQt6* ]] || complain "$file goes before the system's own"
done
for file in "${spare[@]}"; do
    [[ $file != */libQt* ]] || complain "another $file may go before it"
done
for file in "${programs[@]}"; do
    # shellcheck disable=SC2016
    [[ $(searched "$file") == 'RPATH $ORIGIN/../lib/vtm:/'*':$ORIGIN/../lib/vtm/spare' ]] ||
        complain "$file searches in this order: $(searched "$file")"
done
for file in "${qt[@]}" "${plugins[@]}" "${spare[@]}"; do
    [[ -z $(searched "$file") ]] || complain "$file searches in an order of its own: $(searched "$file")"
done

licences=share/doc/vtm/LICENSES
# The files that were copied, by the names that they are carried under, and the packages that have them.
declare -A origins=() packages=()
while read -r path; do
    origins[${path##*/}]=$path
done < <(find /usr/lib /usr/share/fonts -name '*.so*' -o -name '*.ttf')
origins[vtmfont.ttf]=${origins[DejaVuSans.ttf]}
copies=("${qt[@]}" "${plugins[@]}" "${spare[@]}" share/vtm/vtmfont.ttf)
mapfile -t real < <(for file in "${copies[@]}"; do readlink -f "${origins[${file##*/}]}"; done)
while IFS=: read -r package _ path; do
    packages[${path##*/}]=$package
done < <(dpkg-query --search "${real[@]}" "${real[@]#/usr}" 2>/dev/null | sed 's,^\([^:]*\): /,\1:all: /,')
for file in "${copies[@]}"; do
    package=${packages[$(basename "$(readlink -f "${origins[${file##*/}]}")")]-}
    if [[ -z $package || ! -s $licences/$package ]]; then
        complain "no licence of $file (of ${package:-no package})"
    elif ! grep -q "^  $package [0-9]" $licences/README; then
        complain "$licences/README does not tell where $file comes from"
    fi
done
while read -r name; do
    [[ -s $licences/common-licenses/$name ]] || complain "the licence $name is missing"
done < <(grep -rhoE '/usr/share/common-licenses/[A-Za-z]+0?(-[0-9](\.[0-9])?)?' $licences --exclude-dir=common-licenses |
    sed 's,.*/,,; s,GPL-3\.0$,GPL-3,' | sort -u)

size=$(stat -c %s "$out"/cpack/*.tar.gz)
((size <= limit)) || complain "the archive has $size bytes, the limit is $limit"
echo "${#carried[@]} libraries and ${#plugins[@]} plugins are carried; the archive has $size bytes"
((failures == 0))
