#!/bin/bash
# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT
#
# layering.sh SRC FORMS [LIBRARY...]
#
# Proves that the rooms under SRC keep the order of docs/architecture.md. FORMS is a file that lists, one a line
# and relative to SRC, the sources that are built on the toolkit; everything else is toolkit-free, and so are the
# static libraries named. Every breach is printed as "file:line: what"; the exit status is 1 if there is one.
set -euo pipefail

src=$1
forms=$2
shift 2

status=0

# The files to look at: sources, headers and forms of Designer, whose promoted widgets name headers.
find "$src" -type f \( -name '*.h' -o -name '*.cpp' -o -name '*.ui' \) -printf '%P\n' | LC_ALL=C sort |
    (cd "$src" && xargs awk -v forms="$forms" '
    function complain(text) { printf "%s:%d: %s\n", FILENAME, FNR, text; breaches++ }

    # The room of a path: "ui/qt" and "ui/linux" are rooms of their own.
    function roomOf(path) {
        if (match(path, /^ui\/(qt|linux)\//)) return substr(path, 1, RLENGTH - 1)
        if (path !~ /\//) return ""
        return substr(path, 1, index(path, "/") - 1)
    }

    function stemOf(path) { sub(/\.[a-z]+$/, "", path); return path }

    BEGIN {
        allowed["ui"] = " ui "
        allowed["ui/qt"] = " ui ui/qt "
        allowed["ui/linux"] = " ui ui/qt ui/linux "
        allowed["glyphs"] = " glyphs ui "
        allowed["editing"] = " editing glyphs ui "
        allowed["animation"] = " animation editing glyphs ui "
        allowed["scripts"] = " scripts editing glyphs ui "
        allowed["shell"] = " shell animation scripts editing glyphs ui "
        while ((getline line < forms) > 0) toolkit[stemOf(line)] = 1
    }

    FNR == 1 {
        files++
        room = roomOf(FILENAME)
        name = FILENAME
        sub(/^.*\//, "", name)
        onToolkit = (stemOf(FILENAME) in toolkit) || FILENAME ~ /\.ui$/
        if (room != "" && !(room in allowed)) complain("no such room: " room)
        if (onToolkit && name ~ /^mdl/) complain("a module is built on the toolkit")
        if (onToolkit && room == "glyphs") complain("the room glyphs has no windows")
        if (room == "ui" && onToolkit) complain("ui is toolkit-free; its implementations lie in ui/qt and ui/linux")
    }

    /^[ \t]*#[ \t]*include/ || /<header[^>]*>/ {
        header = $0
        if (header ~ /<header/) { sub(/.*<header[^>]*>/, "", header); sub(/<.*/, "", header) }
        else {
            sub(/^[ \t]*#[ \t]*include[ \t]*["<]/, "", header)
            sub(/[">].*/, "", header)
        }
        if (header ~ /^(qt6\/)?Q[A-Za-z]/ || header ~ /^ui_[A-Za-z]+\.h$/) {
            if (!onToolkit) complain("a toolkit-free file includes " header)
            next
        }
        if (header ~ /^(X11|xcb|SDL2?)\//) {
            if (room != "ui/linux") complain("only ui/linux includes " header)
            next
        }
        if (header ~ /\.\.\//) { complain("a path that climbs: " header); next }
        target = roomOf(header)
        if (!(target in allowed)) next
        if (target == "ui/qt" && room != "ui/qt") {
            if (!onToolkit) complain("a toolkit-free file includes " header)
            next
        }
        if (index(allowed[room], " " target " ") == 0) complain(room " may not include " header)
    }

    room != "ui/qt" && !/^[ \t]*\/\// && match($0, /Q(MessageBox|FileDialog|ColorDialog|InputDialog|Clipboard|Settings|DesktopServices)/) {
        before = substr($0, RSTART - 1, 1)
        if (RSTART == 1 || before !~ /[A-Za-z0-9_]/) complain(substr($0, RSTART, RLENGTH) " outside ui/qt")
    }

    # A file that is written elsewhere may be cut off there.
    FILENAME !~ /^ui\/linux\/(DiskFiles|DiskLocks|PosixFile)\.cpp$/ && !/^[ \t]*\/\// &&
        match($0, /ofstream|[^i]fstream|f(re)?open *\(|QSaveFile|QTemporaryFile|WriteOnly|ReadWrite|O_WRONLY|O_RDWR|O_CREAT|copy_file|filesystem::(rename|resize_file)|QFile::(copy|rename)/) {
        complain("only ui/linux/DiskFiles writes files: " substr($0, RSTART, RLENGTH))
    }

    END {
        if (files == 0) { print "no files to look at"; exit 1 }
        exit breaches > 0
    }') || status=1

# A toolkit-free library asks the linker for nothing of Qt and nothing of a window system.
for library in "$@"; do
    symbols=$(nm --undefined-only --demangle "$library" 2>/dev/null) || {
        echo "$library: not a library"
        status=1
        continue
    }
    found=$(grep -E '^ +U (q[A-Z]|qt_|X[A-Z][a-z]|xcb_|SDL_)|[^A-Za-z0-9_:]Q[A-Z][A-Za-z]' \
        <<<"$symbols" | LC_ALL=C sort -u) || continue
    while read -r _ symbol; do
        echo "$library: undefined symbol of a toolkit: $symbol"
    done <<<"$found"
    status=1
done

exit $status
