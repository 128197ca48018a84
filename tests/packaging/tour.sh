#!/bin/bash
# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT
#
# tour.sh OUT KIND TOUR DRIVER: plays the tour with what make.sh has put into OUT/KIND, as a user without rights.
# KIND installed: the program lies where this user may not write. KIND archive: it lies in a folder of the user.
# KIND system: it is the one that Debian's tools have installed here, and nothing of OUT is used.
set -euo pipefail

if [[ $1 != --play ]]; then
    out=$1 kind=$2 tour=$3 driver=$4
    if [[ $kind != system && ! -d $out/$kind ]]; then
        echo "Skipped: there is no package."
        exit 77
    fi
    for tool in Xvfb openbox; do
        command -v "$tool" >/dev/null || {
            echo "Skipped: $tool is not installed."
            exit 77
        }
    done
    asUser=()
    if ((EUID == 0)); then
        # Nothing is forbidden to root.
        asUser=(setpriv --reuid=65534 --regid=65534 --clear-groups)
        "${asUser[@]}" true 2>/dev/null || {
            echo "Skipped: root cannot become anybody else here."
            exit 77
        }
    fi
    scratch=$(mktemp -d)
    finish() {
        local status=$? kept=$out/tour-$kind
        rm -rf "$kept"
        if ((status != 0)) && cp -r "$scratch/user/tour" "$kept" 2>/dev/null; then
            echo "The pictures are in $kept"
        fi
        chmod -R u+w "$scratch"
        rm -rf "$scratch"
    }
    trap finish EXIT
    # Copies: that user need not be able to look into the folder of the build.
    mkdir "$scratch/user"
    [[ $kind == system ]] || cp -r "$out/$kind" "$scratch/user/vtm"
    cp "$tour" "$scratch/tour"
    cp "$driver" "$scratch/driver"
    cp "$0" "$scratch/play"
    chmod 755 "$scratch" "$scratch/driver"
    if ((EUID == 0)); then
        chown -R 65534:65534 "$scratch/user"
    fi
    if [[ $kind == installed ]]; then
        mv "$scratch/user/vtm" "$scratch/vtm"
        chmod -R a-w "$scratch/vtm"
    fi
    "${asUser[@]}" bash "$scratch/play" --play "$scratch" "$kind"
    exit
fi

scratch=$2 kind=$3
user=$scratch/user
home=$user/home
case $kind in
installed) prefix=$scratch/vtm ;;
archive) prefix=$user/vtm ;;
system) prefix=/usr ;;
esac
cd "$user"
export TMPDIR=$user/tmp
mkdir "$TMPDIR"

fail() {
    echo "$*"
    exit 1
}

# expectFiles FOLDER NAME...: these files are in the folder, and no others.
expectFiles() {
    local folder=$1
    shift
    diff <(printf '%s\n' "$@" | sort) <(find "$folder" -type f -printf '%P\n' 2>/dev/null | sort) ||
        fail "$folder does not hold (<) or holds besides (>) these files"
}

mapfile -t dataFiles < <(cd "$prefix/share/vtm" && find . -type f -printf '%P\n')
state() { find "$prefix"/{bin,share/vtm} -printf '%P %y %s %m %T@\n' | sort; }
before=$(state)

surroundings=()
if [[ -d $prefix/lib/vtm ]]; then
    # Every program notes what it loads, and is shown the system's libraries first.
    systemLibraries=$(dirname "$(ldconfig -p | sed -n '/libc\.so\.6/s/.* //p' | head -n 1)")
    surroundings=(LD_DEBUG=files LD_DEBUG_OUTPUT="$user/loaded" LD_LIBRARY_PATH="$systemLibraries")
fi
env "${surroundings[@]}" bash "$scratch/tour" --in-place --program "$prefix/bin/vtm" --driver "$scratch/driver" \
    --home "$home" --out "$user/tour"
grep -qx "file://$prefix/share/vtm/vtmhelp.htm" "$user/tour/opened.url" || fail "another help page was opened"
grep -qF "Exec=$prefix/bin/vtm " "$home/data/applications/vtm-name.desktop" || fail "the type names another program"
[[ -s $home/config/VTM/VTM.ini ]] || fail "there are no settings"
if [[ -d $prefix/lib/vtm ]]; then
    mapfile -t notes < <(grep -lF "transferring control: $prefix/bin/vtm" "$user"/loaded.*)
    loaded=$(sed -n 's,/bin/\.\./,/,; s/.*calling init: //p' "${notes[@]}" | grep -i '/lib[^/]*qt6\|/plugins/\|/qt6/' | sort -u)
    # Windows were shown by its own toolkit, and by no other.
    grep -qx "$prefix/lib/vtm/plugins/platforms/libqxcb.so" <<<"$loaded" || fail "its toolkit was not loaded"
    if grep -v "^$prefix/lib/vtm/" <<<"$loaded"; then
        fail "these were loaded besides"
    fi
    grep -q 'calling init: .*/libSDL2-2\.0\.so\.0$' "${notes[@]}" || fail "no sound was played"
fi

# The commands find what the program has found.
export HOME=$home XDG_DATA_HOME=$home/data LC_ALL=C.UTF-8
"$prefix/bin/vtm-thumbnail" --size 64 "$user/tour/player.vtn" "$user/player.png"
[[ -s $user/player.png ]] || fail "there is no thumbnail"
"$prefix/bin/vtm-charset" export 2 "$user/set.png"
"$prefix/bin/vtm-charset" add "A set of my own" "$user/set.png"
grep -qF "A set of my own" <("$prefix/bin/vtm-charset" list) || fail "the set was not added"

written=(temphtm.url)
sets=(vtmtc.dat vtmgrid.dat)
if [[ $kind != archive ]]; then
    [[ $(state) == "$before" ]] || fail "files of the program were changed: $(diff <(echo "$before") <(state))"
    expectFiles "$home/data/vtm" "${written[@]}" "${sets[@]}"
else
    expectFiles "$prefix/share/vtm" "${dataFiles[@]}" "${written[@]}"
    [[ ! -e $home/data/vtm ]] || fail "files were written besides the program's folder"
fi
