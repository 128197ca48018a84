#!/bin/bash
# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT
#
# windows.sh PACKAGES: tries the zip and the installer for Windows of the folder PACKAGES under Wine: tools/windows/session
# runs it. The zip's program starts where it was unpacked; the installer runs in silence, its file types open scripts with
# the program, an update keeps character sets that the user has changed, also one that fails, nothing changes under a program
# that runs, and the removal leaves only what is the user's.
set -euo pipefail

packages=$(realpath "$1")
root=$(dirname "$(dirname "$(dirname "$(readlink -f "$0")")")")
wine=$root/tools/windows/wine
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
zip=("$packages"/*.zip)
installer=("$packages"/*.exe)
drive=$VTM_WINE_HOME/drive_c
user=$drive/users/$(id -un)
unset VTM_WINE_PATH

fail() {
    echo "FAILED: $*"
    echo "on the screen: $(timeout 5 xdotool search --onlyvisible --name . getwindowname %@ 2>&1 | tr '\n' ';')" \
        "the keyboard is at: $(timeout 5 xdotool getwindowfocus getwindowname 2>&1)"
    exit 1
}

# Waits for up to a minute until a command succeeds.
waitFor() {
    local i
    for ((i = 0; i < 300; i++)); do
        ! "$@" >/dev/null 2>&1 || return 0
        sleep 0.2
    done
    fail "waited in vain: $*"
}

hasWindow() {
    timeout 5 xdotool search --onlyvisible --name "$1"
}

hasNoWindow() {
    ! hasWindow "$1"
}

# Presses a key in a window, which is brought to the front first: Wine may show one without the keyboard.
press() {
    timeout 5 xdotool search --onlyvisible --name "$1" windowactivate --sync key "$2" || true
}

# Closes the program by the system: keys would still be held for Wine when the window goes before they are up again, and the
# next program would take every key for one with Alt.
closeWindow() {
    waitFor isClosed "$1"
}

isClosed() {
    hasNoWindow "$1" && return
    "$wine" taskkill /im VTM.exe || true
    return 1
}

opensWith() {
    "$wine" reg query "HKCU\\Software\\Classes\\$1\\shell\\open\\command" /ve | tr -d '\r' | grep -qF "$2"
}

size=$(stat -c %s "${zip[0]}")
((size <= 35 * 1024 * 1024)) || fail "the zip has $size bytes"
echo "the zip has $((size / 1024)) KB, the installer $(($(stat -c %s "${installer[0]}") / 1024)) KB"

# Sounds have nowhere to go, of which the libraries that play them tell a lot.
exec 2> >(grep -v '^ALSA lib' >&2)
openbox >/dev/null 2>&1 &
manager=$!
trap 'kill "$manager" 2>/dev/null; rm -rf "$scratch"' EXIT

# A folder with a blank and letters that are not in the code page.
mkdir "$scratch/a folder ж"
(cd "$scratch/a folder ж" && cmake -E tar xf "${zip[0]}")
program=("$scratch/a folder ж"/*/VTM.exe)

# What reads files that anybody may have made: at addresses by chance, data does not run, and in the project's own programs
# a stack that was written over ends the program.
while IFS= read -r -d '' file; do
    facts=$(x86_64-w64-mingw32-objdump -p "$file")
    for fact in HIGH_ENTROPY_VA DYNAMIC_BASE NX_COMPAT '^Entry 5 0*[1-9a-f].*Base Relocation'; do
        grep -q "$fact" <<<"$facts" || fail "${file##*/} lacks $fact"
    done
    [[ ${file##*/} != [Vv][Tt][Mm]*.exe ]] || grep -q 'DLL Name: libssp-0.dll' <<<"$facts" || fail "${file##*/} does not guard its stack"
done < <(find "$scratch" \( -name '*.exe' -o -name '*.dll' \) -print0)
for command in charset check thumbnail; do
    "$wine" "$(dirname "${program[0]}")/vtm-$command.exe" --help | grep -qF "vtm-$command" || fail "vtm-$command does not run"
done
"$wine" "${program[0]}" &
waitFor hasWindow Vortigo
waitFor opensWith VTM_Name 'a folder'
closeWindow Vortigo
wait %2 2>/dev/null || true
echo "the zip's program runs where it was unpacked"

"$wine" "${installer[0]}" /S || fail "the installer ends with $?"
installed=$user/AppData/Local/Programs/Vortigo
[[ -e $installed/VTM.exe ]] || fail "nothing was installed in $installed"
[[ -n $(find "$user" -name Vortigo.lnk) ]] || fail "there is no entry in the start menu"
for class in VTM_Name VTM_Ani VTM_Macro; do
    opensWith $class 'Programs\Vortigo\VTM.exe " /' || fail "$class is not registered"
done
# Windows shows a user's own file types among all, which Wine 8 does not.
"$wine" reg copy 'HKCU\Software\Classes' 'HKLM\Software\Classes' /s /f >/dev/null
# What a double click does: of a script, and of what is none, of which the program tells.
cp "$root/tests/fuzz/corpus/name_script/plain.vtn" "$user/my name.vtn"
echo nothing >"$user/no name.vtn"
"$wine" start "C:\\users\\$(id -un)\\no name.vtn"
waitFor hasWindow '^Vortigo$'
isAnswered() {
    hasWindow 'Vortigo \[' && return
    press '^Vortigo$' Escape
    return 1
}
waitFor isAnswered
closeWindow 'Vortigo \['
"$wine" start "C:\\users\\$(id -un)\\my name.vtn"
waitFor hasWindow 'Vortigo \[' # a script that cannot be read would be told of first
closeWindow 'Vortigo \['
# The page of messages is shown for no other type.
cp "$root/tests/fuzz/corpus/messages/three.vtm" "$user/my messages.vtm"
"$wine" start "C:\\users\\$(id -un)\\my messages.vtm"
waitFor hasWindow 'Vortigo \[Messages\]'
closeWindow 'Vortigo \['
echo "the installer's file types open scripts with the program"

inMenu() {
    [[ -n $(find "$user" -name Vortigo.lnk) ]]
}
isListed() {
    "$wine" reg query 'HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Vortigo' >/dev/null 2>&1
}
installedFiles() {
    (cd "$installed" && find . -type f | LC_ALL=C sort | tr '\n' ' ')
}
tr -d '\0' <"$(find "$user" -name Vortigo.lnk)" | grep -qF 'Documents' || fail "the entry of the start menu starts among the program's files"
! "$wine" reg query 'HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Vortigo' /s | grep -qF example.org || fail "the list of programs has an address that nobody is at"

# Runs a command; whether it ends with the status of one that has given up.
givesUp() {
    local status=0
    "$wine" "$@" || status=$?
    ((status == 2)) || fail "${1##*/} ends with $status"
}
# The uninstaller goes on in a copy of itself, unless it is told where it is: only then its status is seen.
update=("${installer[0]}" /S)
removal=("$installed/Uninstall.exe" /S '_?=C:\users\'"$(id -un)"'\AppData\Local\Programs\Vortigo')

"$wine" "$installed/VTM.exe" &
waitFor hasWindow 'Vortigo \['
rm "$installed/vtmhelp.htm"
before=$(installedFiles)
givesUp "${update[@]}"
givesUp "${removal[@]}"
[[ $(installedFiles) == "$before" ]] || fail "the files of a program that runs change"
inMenu && isListed && opensWith VTM_Name 'Programs\Vortigo\VTM.exe " /' || fail "a program that runs is forgotten"
closeWindow 'Vortigo \['
echo "nothing changes under a program that runs"

# An update that cannot write a file, since a folder is in its place.
echo 'mine' >>"$installed/vtmgrid.dat"
echo 'mine' >"$installed/mine.cfg"
changed=$(cat "$installed"/vtm{tc,grid}.dat | sha256sum)
mkdir "$installed/vtmhelp.htm"
givesUp "${update[@]}"
[[ $(cat "$installed"/vtm{tc,grid}.dat | sha256sum) == "$changed" ]] || fail "an update that fails loses the user's character sets"
rmdir "$installed/vtmhelp.htm"
"$wine" "${update[@]}" || fail "the update ends with $?"
[[ $(cat "$installed"/vtm{tc,grid}.dat | sha256sum) == "$changed" ]] || fail "the update has replaced the user's character sets"

# A removal while another program of the folder runs, of which a shell is in the place: it waits for a key.
mkfifo "$scratch/key"
cp "$drive/windows/system32/cmd.exe" "$installed/vtm-check.exe"
"$wine" "$installed/vtm-check.exe" /c pause <>"$scratch/key" >"$scratch/waits" &
shell=$!
waitFor [ -s "$scratch/waits" ]
givesUp "${removal[@]}"
[[ -e $installed/Uninstall.exe && -e $installed/vtm-check.exe ]] && inMenu && isListed || fail "a removal that fails cannot be tried again"
echo >"$scratch/key"
wait "$shell"

# What the program leaves for a moment goes too, the only whole copy of a game's configuration does not.
touch "$installed"/{temphtm.url,curchar.gif,tempfile.cfg}
"$wine" "Z:${installed//\//\\}\\Uninstall.exe" /S
removed() {
    [[ ! -e $installed/Uninstall.exe && ! -e $installed/VTM.exe ]]
}
waitFor removed
left=$(installedFiles)
[[ $left == './mine.cfg ./tempfile.cfg ./vtmgrid.dat ./vtmtc.dat ' ]] || fail "the removal leaves $left"
for key in .vtn .vta .vtm VTM_Name VTM_Ani VTM_Macro; do
    ! "$wine" reg query "HKCU\\Software\\Classes\\$key" >/dev/null 2>&1 || fail "the removal leaves $key"
done
! inMenu || fail "the removal leaves the entry of the start menu"
! isListed || fail "the removal leaves the program in the list"

rm "$installed"/*
"$wine" "${installer[0]}" /S
"$wine" "$installed/Uninstall.exe" /S
isGone() {
    [[ ! -e $installed ]]
}
waitFor isGone
echo "the removal leaves what is the user's"
