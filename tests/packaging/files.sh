#!/bin/bash
# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT
#
# files.sh OUT KIND SOURCES: looks through what make.sh has put into OUT/KIND from these sources.
set -uo pipefail
out=$1 kind=$2 sources=$3
folder=$out/$kind
[[ $kind != deb ]] || folder=$out/deb/usr
if [[ ! -d $folder ]]; then
    echo "Skipped: there is no package."
    exit 77
fi
cd "$folder" || exit 1

failures=0
complain() {
    echo "$*"
    failures=$((failures + 1))
}

expected=(
    bin/vtm bin/vtm-charset bin/vtm-check bin/vtm-thumbnail
    share/vtm/{vtmtc.dat,vtmgrid.dat,vtmani01.dat,vtmani02.dat,quake00.bmp,vtmhelp.htm,vtmhelp/glyphs.gif}
    share/applications/{vtm,vtm-name,vtm-animation,vtm-message}.desktop
    share/metainfo/org.example.vtm.metainfo.xml
    share/mime/packages/vtm.xml
    share/thumbnailers/vtm.thumbnailer
    share/doc/vtm/CHANGELOG.md
)
for size in 16x16 22x22 24x24 32x32 48x48 64x64 128x128 256x256 scalable; do
    ending=png
    [[ $size != scalable ]] || ending=svg
    expected+=(share/icons/hicolor/$size/apps/vtm.$ending)
    expected+=(share/icons/hicolor/$size/mimetypes/application-x-vtm-{name,animation,message}.$ending)
done
pages=share/man/man1/%s.1
if [[ $kind == deb ]]; then
    expected+=(share/doc/vtm/{copyright,changelog.gz} share/lintian/overrides/vtm)
    pages+=.gz
else
    expected+=(share/doc/vtm/LICENSE)
fi
if [[ $kind == archive ]]; then
    # carried.sh looks through the libraries and their licences.
    expected+=(bin/qt.conf share/vtm/vtmfont.ttf)
fi
programs=(bin/vtm*)
for program in "${programs[@]}"; do
    # shellcheck disable=SC2059
    expected+=("$(printf "$pages" "${program#bin/}")")
done
while read -r picture; do
    expected+=("share/vtm/$picture")
done < <(grep -o 'vtmhelp/[a-z0-9-]*\.png' share/vtm/vtmhelp.htm | sort -u)

while read -r line; do
    complain "unexpected or missing: $line"
done < <(diff <(printf '%s\n' "${expected[@]}" | sort) <(find . \( -path ./lib -o -name LICENSES \) -prune -o -type f,l -printf '%P\n' | sort) | grep '^[<>]')

while read -r mode path; do
    case $path in
    bin/vtm*) [[ $mode == 755 ]] ;;
    *) [[ $mode == 644 ]] ;;
    esac || complain "$path has mode $mode"
done < <(find . -type f -printf '%m %P\n')
while read -r mode path; do
    [[ $mode == 755 ]] || complain "$path/ has mode $mode"
done < <(find . -mindepth 1 -type d -printf '%m %P\n')

for program in "${programs[@]}"; do
    grep -q BIND_NOW <(readelf -d "$program") || complain "$program is not hardened"
    if grep -qF "$sources" "$program"; then
        complain "$program knows where it was built"
    fi
    if grep -q '\.symtab\|\.debug' <(readelf -S "$program"); then
        complain "$program is not stripped"
    fi
done

if [[ $kind == deb ]]; then
    grep -q '^vtm (.*) unstable' <(gzip -dc share/doc/vtm/changelog.gz) || complain "the changelog is not one"
    # Such a name changes with each version of Qt, and with it the systems that can install the package.
    depends=$(dpkg-deb --field "$out"/cpack/*.deb Depends)
    [[ $depends != *private* ]] || complain "it depends on what Qt keeps to itself: $depends"
fi

((failures == 0))
