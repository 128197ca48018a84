#!/bin/bash
# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT
#
# layering.sh ROOT FORMS EXCEPTIONS [LIBRARY...]
#
# Proves that the rooms under ROOT/src, and the commands and makers of ROOT/tools, keep the order of
# docs/architecture.md, and that nothing under src, tools, bench and tests goes past them to the system. FORMS is a
# file that lists, one a line and relative to ROOT, the sources that are built on the toolkit; everything else of the
# rooms is toolkit-free, and so are the static libraries named. EXCEPTIONS lists what else may include headers of the
# system: a file, or a folder with a slash at its end, and the reason. Every breach is printed as "file:line: what";
# the exit status is 1 if there is one.
set -euo pipefail

root=$1
forms=$(realpath "$2")
exceptions=$(realpath "$3")
shift 3

status=0

# The files to look at: sources, headers and forms of Designer, whose promoted widgets name headers.
(cd "$root" && find src tools bench tests -type f \( -name '*.h' -o -name '*.cpp' -o -name '*.ui' \) 2>/dev/null) |
    LC_ALL=C sort |
    (cd "$root" && xargs awk -v forms="$forms" -v exceptions="$exceptions" '
    function complain(text) { printf "%s:%d: %s\n", FILENAME, FNR, text; breaches++ }

    # The room of a source: a folder of src, of ui or of tools. The tour, tests and benchmarks are in none.
    function roomOf(path) {
        if (path ~ /^tools\/(charset|check|cli|makers|thumbnail)\//) return substr(path, 1, index(substr(path, 7), "/") + 5)
        if (path !~ /^src\/.*\//) return ""
        return roomOfHeader(substr(path, 5))
    }

    # The room of a header as it is included.
    function roomOfHeader(path) {
        if (match(path, /^ui\/(qt|linux|windows)\//)) return substr(path, 1, RLENGTH - 1)
        if (path ~ /^(charset|check|cli|makers|thumbnail)\//) path = "tools " path
        if (path !~ /\//) return ""
        path = substr(path, 1, index(path, "/") - 1)
        sub(/ /, "/", path)
        return path
    }

    function stemOf(path) { sub(/\.[a-z]+$/, "", path); return path }

    # Whether a header, included with angle brackets, is of the system: all are but those of the language, which have
    # no end to their names, and of libraries that are had on every system. The program heeds no signals elsewhere.
    function isSystemHeader(header) {
        if (header == "csignal") return isSource
        return header ~ /[.\/]/ && header !~ /^(Q[A-Za-z]+\/|gtest\/|benchmark\/|gif_lib\.h$|png\.h$)/
    }

    # The exception that a file falls under; empty when none.
    function exceptionOf(path) {
        while (path != "") {
            if (path in excepted) return path
            sub(/[^\/]+\/?$/, "", path)
        }
        return ""
    }

    BEGIN {
        allowed["ui"] = " ui "
        allowed["ui/qt"] = " ui ui/qt "
        allowed["ui/linux"] = " ui ui/qt ui/linux "
        allowed["ui/windows"] = " ui ui/qt ui/windows "
        allowed["glyphs"] = " glyphs ui "
        allowed["artwork"] = " artwork glyphs ui "
        allowed["games"] = " games glyphs ui "
        allowed["editing"] = " editing glyphs ui "
        allowed["animation"] = " animation games editing glyphs ui "
        allowed["scripts"] = " scripts games editing glyphs ui "
        allowed["shell"] = " shell artwork animation scripts games editing glyphs ui "
        allowed["tools/cli"] = " tools/cli animation scripts editing glyphs ui "
        allowed["tools/charset"] = " tools/charset tools/cli artwork glyphs ui "
        allowed["tools/check"] = " tools/check tools/cli animation scripts games editing glyphs ui "
        allowed["tools/makers"] = " tools/makers tools/cli glyphs ui "
        allowed["tools/thumbnail"] = " tools/thumbnail tools/cli animation scripts editing glyphs ui "
        while ((getline line < forms) > 0) toolkit[stemOf(line)] = 1
        while ((getline line < exceptions) > 0) {
            if (line ~ /^#/ || line == "") continue
            where = line
            sub(/ .*/, "", where)
            excepted[where] = 1
            if (line !~ / +[A-Za-z]/) { printf "%s: an exception without a reason\n", where; breaches++ }
        }
    }

    FNR == 1 {
        files++
        room = roomOf(FILENAME)
        isSource = FILENAME ~ /^src\//
        name = FILENAME
        sub(/^.*\//, "", name)
        onToolkit = (stemOf(FILENAME) in toolkit) || FILENAME ~ /\.ui$/ || room == "ui/qt" || (room == "ui/windows" && name ~ /^Qt/)
        isOfSystem = room ~ /^ui\/(linux|windows)$/
        if (isSource && room != "" && !(room in allowed)) complain("no such room: " room)
        if (onToolkit && name ~ /^mdl/) complain("a module is built on the toolkit")
        if (onToolkit && room ~ /^(glyphs|artwork|games|tools\/.*)$/) complain("the room " room " has no windows")
        if (room == "ui" && onToolkit) complain("ui is toolkit-free; its implementations lie in the folders below")
    }

    /^[ \t]*#[ \t]*include/ || /<header[^>]*>/ {
        header = $0
        isAngled = header ~ /include[ \t]*</
        if (header ~ /<header/) { sub(/.*<header[^>]*>/, "", header); sub(/<.*/, "", header) }
        else {
            sub(/^[ \t]*#[ \t]*include[ \t]*["<]/, "", header)
            sub(/[">].*/, "", header)
        }
        if (isAngled && !isOfSystem && isSystemHeader(header)) {
            exception = exceptionOf(FILENAME)
            if (exception == "") complain("only ui/linux and ui/windows include " header)
            used[exception] = 1
            next
        }
        if (room == "") next
        if (header ~ /^(qt6\/)?Q[A-Za-z]/ || header ~ /^ui_[A-Za-z]+\.h$/) {
            if (!onToolkit) complain("a toolkit-free file includes " header)
            next
        }
        if (header ~ /\.\.\//) { complain("a path that climbs: " header); next }
        target = roomOfHeader(header)
        if (!(target in allowed)) next
        if (target == "ui/qt" && room != "ui/qt") {
            if (!onToolkit) complain("a toolkit-free file includes " header)
            next
        }
        if (index(allowed[room], " " target " ") == 0) complain(room " may not include " header)
    }

    # What differs from system to system has a file of its own on each, which the build chooses.
    !isOfSystem &&
        match($0, /_WIN(32|64)|__(MINGW|CYGWIN|APPLE)[A-Z0-9_]*|__(gnu_)?(linux|unix)__|Q_OS_[A-Z0-9]+/) {
        complain("only ui/linux and ui/windows ask for the system: " substr($0, RSTART, RLENGTH))
    }

    room == "" { next }

    room != "ui/qt" && !/^[ \t]*\/\// && match($0, /Q(MessageBox|FileDialog|ColorDialog|InputDialog|Clipboard|Settings|DesktopServices)/) {
        before = substr($0, RSTART - 1, 1)
        if (RSTART == 1 || before !~ /[A-Za-z0-9_]/) complain(substr($0, RSTART, RLENGTH) " outside ui/qt")
    }

    # Elsewhere a path is more than bytes between slashes, and the system tells what it knows in other ways.
    !isOfSystem && !/^[ \t]*\/\// && match($0, /(\.|->)native\(\)|rfind\(\047\/\047\)|"\/proc|getenv *\(|sigaction/) {
        complain(substr($0, RSTART, RLENGTH) " outside ui/linux and ui/windows")
    }

    # A file that is written elsewhere may be cut off there; what the makers write is made again.
    FILENAME !~ /^(src\/ui\/(linux|windows)\/(DiskFiles|DiskLocks|(Posix|Windows)File)\.cpp$|tools\/makers\/)/ && !/^[ \t]*\/\// &&
        match($0, /ofstream|[^i]fstream|f(re)?open *\(|QSaveFile|QTemporaryFile|WriteOnly|ReadWrite|O_WRONLY|O_RDWR|O_CREAT|CreateFile|copy_file|filesystem::(rename|resize_file)|QFile::(copy|rename)/) {
        complain("only DiskFiles writes files: " substr($0, RSTART, RLENGTH))
    }

    END {
        if (files == 0) { print "no files to look at"; exit 1 }
        for (where in excepted) {
            if (!(where in used)) { printf "%s: an exception that nothing needs\n", where; breaches++ }
        }
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
