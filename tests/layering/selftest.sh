#!/bin/bash
# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT
#
# selftest.sh LAYERING CXX: shows that layering.sh passes a tree in order and fails on each kind of breach.
set -euo pipefail

layering=$1
compiler=$2
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
failures=0

# A small tree in order.
plant() {
    rm -rf "$tree"/{src,tools,bench,tests}
    mkdir -p "$tree/src"/{ui/qt,ui/linux,ui/windows,glyphs,artwork,games,editing,animation,scripts,shell} "$tree/tools"/{charset,cli,makers,thumbnail} \
        "$tree"/{bench,tests/faults}
    echo '#include <string>' >"$tree/src/ui/Result.h"
    printf '#include "ui/Result.h"\n#include <QMessageBox>\n' >"$tree/src/ui/qt/QtDialogs.cpp"
    echo '#include "ui/Result.h"' >"$tree/src/glyphs/mdlPaint.h"
    echo '#include "glyphs/mdlPaint.h"' >"$tree/src/artwork/Artwork.h"
    echo '#include "glyphs/mdlPaint.h"' >"$tree/src/games/RowVerdict.h"
    echo '#include "glyphs/mdlPaint.h"' >"$tree/src/editing/mdlCommon.h"
    printf '#include "editing/mdlCommon.h"\n#include "ui_frmAniWiz.h"\n#include <QDialog>\n' \
        >"$tree/src/animation/frmAniWiz.cpp"
    printf '#include "editing/mdlCommon.h"\n#include "games/RowVerdict.h"\n' >"$tree/src/scripts/mdlName.h"
    printf '#include "animation/frmAniWiz.h"\n#include "ui/qt/QtDialogs.h"\n#include <QWidget>\n' \
        >"$tree/src/shell/frmVTM.cpp"
    printf '#include "ui/Result.h"\n#include <unistd.h>\n' >"$tree/src/ui/linux/DiskFiles.cpp"
    printf '#include "ui/qt/QtDialogs.h"\n#include <QProcess>\n#include <X11/Xlib.h>\n' \
        >"$tree/src/ui/linux/X11Keyboard.cpp"
    printf '#include "ui/Result.h"\n#include <windows.h>\n' >"$tree/src/ui/windows/DiskFiles.cpp"
    printf '#include "ui/qt/QtDialogs.h"\n#include <QKeyEvent>\n' >"$tree/src/ui/windows/QtKeys.cpp"
    printf '#include <png.h>\n#include "ui/Result.h"\n' >"$tree/tools/cli/PngPicture.h"
    printf '#include "cli/PngPicture.h"\n#include "scripts/mdlName.h"\n' >"$tree/tools/thumbnail/Command.cpp"
    printf '#include "cli/PngPicture.h"\n#include "artwork/Artwork.h"\n' >"$tree/tools/charset/Command.cpp"
    printf '#include <fstream>\n#include "cli/PngPicture.h"\n' >"$tree/tools/makers/mkicons.cpp"
    printf '#include <benchmark/benchmark.h>\n#include <csignal>\n' >"$tree/bench/bench_painting.cpp"
    printf '#include <gtest/gtest.h>\n#include <dlfcn.h>\n' >"$tree/tests/faults/Injection.cpp"
    printf '%s\n' src/ui/{qt/QtDialogs,linux/X11Keyboard}.cpp src/{animation/frmAniWiz,shell/frmVTM}.cpp \
        >"$tree/forms"
    printf '%s\n' '# why' 'tests/faults/ defines system calls' >"$tree/exceptions"
}

# accepts WHAT: the tree passes.
accepts() {
    if ! output=$("$layering" "$tree" "$tree/forms" "$tree/exceptions" "${libraries[@]}"); then
        echo "FAILED: $1 is refused: $output"
        failures=$((failures + 1))
    fi
}

# refuses WHAT TEXT: the tree fails, and the complaint holds TEXT.
refuses() {
    if output=$("$layering" "$tree" "$tree/forms" "$tree/exceptions" "${libraries[@]}"); then
        echo "FAILED: $1 is not noticed"
        failures=$((failures + 1))
    elif [[ $output != *"$2"* ]]; then
        echo "FAILED: $1: the complaint is: $output"
        failures=$((failures + 1))
    fi
}

libraries=()
plant
accepts "a tree in order"

plant && echo '#include "editing/mdlCommon.h"' >>"$tree/src/glyphs/mdlPaint.h"
refuses "an include upwards" "glyphs/mdlPaint.h:2: glyphs may not include editing/mdlCommon.h"

plant && echo '#ifdef _WIN32' >>"$tree/src/shell/frmVTM.cpp"
refuses "a question for the system" "shell/frmVTM.cpp:4: only ui/linux and ui/windows ask for the system: _WIN32"

plant && echo '#ifndef __linux__' >>"$tree/tests/faults/Injection.cpp"
refuses "a test that asks for the system" "Injection.cpp:3: only ui/linux and ui/windows ask for the system: __linux__"

plant && echo '#include "scripts/mdlName.h"' >>"$tree/src/animation/frmAniWiz.cpp"
refuses "animation including scripts" "animation/frmAniWiz.cpp:4: animation may not include scripts/mdlName.h"

plant && echo '#include "animation/mdlAniName.h"' >>"$tree/src/scripts/mdlName.h"
refuses "scripts including animation" "scripts/mdlName.h:3: scripts may not include animation/mdlAniName.h"

plant && echo '#include "editing/mdlCommon.h"' >>"$tree/src/games/RowVerdict.h"
refuses "games including editing" "games/RowVerdict.h:2: games may not include editing/mdlCommon.h"

plant && echo '#include "artwork/Artwork.h"' >>"$tree/src/glyphs/mdlPaint.h"
refuses "glyphs including artwork" "glyphs/mdlPaint.h:2: glyphs may not include artwork/Artwork.h"

plant && echo '#include "artwork/Artwork.h"' >>"$tree/src/animation/frmAniWiz.cpp"
refuses "animation including artwork" "animation/frmAniWiz.cpp:4: animation may not include artwork/Artwork.h"

plant && echo '#include "games/RowVerdict.h"' >>"$tree/src/editing/mdlCommon.h"
refuses "editing including games" "editing/mdlCommon.h:2: editing may not include games/RowVerdict.h"

plant && echo '#include "glyphs/mdlPaint.h"' >>"$tree/src/ui/qt/QtDialogs.cpp"
refuses "ui/qt including glyphs" "ui/qt/QtDialogs.cpp:3: ui/qt may not include glyphs/mdlPaint.h"

plant && echo '#include "shell/frmVTM.h"' >>"$tree/src/editing/mdlCommon.h"
refuses "editing including shell" "editing/mdlCommon.h:2: editing may not include shell/frmVTM.h"

plant && echo '  #  include <QString>' >>"$tree/src/scripts/mdlName.h"
refuses "a module including Qt" "scripts/mdlName.h:3: a toolkit-free file includes QString"

plant && echo '#include <QtCore/QString>' >>"$tree/src/editing/mdlCommon.h"
refuses "a module including a library of Qt" "editing/mdlCommon.h:2: a toolkit-free file includes QtCore/QString"

plant && echo '#include "ui/qt/PictureWidget.h"' >>"$tree/src/scripts/mdlName.h"
refuses "a module including ui/qt" "scripts/mdlName.h:3: a toolkit-free file includes ui/qt/PictureWidget.h"

plant && echo '#include <X11/Xlib.h>' >>"$tree/src/shell/frmVTM.cpp"
refuses "the window system outside ui/linux" "shell/frmVTM.cpp:4: only ui/linux and ui/windows include X11/Xlib.h"

plant && echo '#include <unistd.h>' >>"$tree/src/scripts/mdlName.h"
refuses "a POSIX header outside ui/linux" "scripts/mdlName.h:3: only ui/linux and ui/windows include unistd.h"

plant && echo '#include <sys/stat.h>' >>"$tree/src/ui/qt/QtDialogs.cpp"
refuses "a POSIX header of a folder in ui/qt" "ui/qt/QtDialogs.cpp:3: only ui/linux and ui/windows include sys/stat.h"

plant && echo '#include <csignal>' >>"$tree/src/shell/frmVTM.cpp"
refuses "signals outside ui/linux" "shell/frmVTM.cpp:4: only ui/linux and ui/windows include csignal"

plant && echo '#include <X11/Xlib.h>' >>"$tree/tools/makers/mkicons.cpp"
refuses "the window system in a maker" "tools/makers/mkicons.cpp:3: only ui/linux and ui/windows include X11/Xlib.h"

plant && echo '#include <wayland-client.h>' >>"$tree/bench/bench_painting.cpp"
refuses "another window system in a benchmark" "bench_painting.cpp:3: only ui/linux and ui/windows include wayland-client.h"

plant && echo '#include <unistd.h>' >"$tree/tests/Some.cpp"
refuses "a POSIX header in a test" "tests/Some.cpp:1: only ui/linux and ui/windows include unistd.h"

plant && echo 'tests/faults/' >"$tree/exceptions"
refuses "an exception without a reason" "tests/faults/: an exception without a reason"

plant && echo 'bench/ measures' >>"$tree/exceptions"
refuses "an exception that is out of date" "bench/: an exception that nothing needs"

plant && echo '#include "ui/linux/X11Keyboard.h"' >>"$tree/src/ui/qt/QtDialogs.cpp"
refuses "ui/qt including ui/linux" "ui/qt/QtDialogs.cpp:3: ui/qt may not include ui/linux/X11Keyboard.h"

plant && echo '#include "ui/linux/X11Keyboard.h"' >>"$tree/src/shell/frmVTM.cpp"
refuses "shell including ui/linux" "shell/frmVTM.cpp:4: shell may not include ui/linux/X11Keyboard.h"

plant && echo '#include "ui/windows/DiskFiles.h"' >>"$tree/src/ui/linux/DiskFiles.cpp"
refuses "a system including another" "ui/linux/DiskFiles.cpp:3: ui/linux may not include ui/windows/DiskFiles.h"

plant && echo '#include <QString>' >>"$tree/src/ui/windows/DiskFiles.cpp"
refuses "the toolkit in the toolkit-free part of ui/windows" "ui/windows/DiskFiles.cpp:3: a toolkit-free file includes QString"

plant && echo 'CreateFileW(name)' >>"$tree/src/ui/windows/QtKeys.cpp"
refuses "a file opened past the writer on Windows" "ui/windows/QtKeys.cpp:3: only DiskFiles writes files: CreateFile"

plant && echo '#include <QString>' >>"$tree/src/ui/linux/DiskFiles.cpp"
refuses "the toolkit in the toolkit-free part of ui/linux" "ui/linux/DiskFiles.cpp:3: a toolkit-free file includes QString"

plant && echo 'const auto& text = path.native();' >>"$tree/src/scripts/mdlName.h"
refuses "a path taken for the text that it is on Linux" "scripts/mdlName.h:3: .native() outside ui/linux and ui/windows"

plant && echo 'const auto& text = chosen->native();' >>"$tree/src/scripts/mdlName.h"
refuses "the same through a pointer" "scripts/mdlName.h:3: ->native() outside ui/linux and ui/windows"

plant && echo "    const auto slash = path.rfind('/');" >>"$tree/src/scripts/mdlName.h"
refuses "a path taken apart by hand" "scripts/mdlName.h:3: rfind('/') outside ui/linux and ui/windows"

plant && echo '    std::ifstream file("/proc/self/status");' >>"$tree/src/shell/frmVTM.cpp"
refuses "what only Linux has in its files" 'shell/frmVTM.cpp:4: "/proc outside ui/linux and ui/windows'

plant && echo '    const char* home = std::getenv("HOME");' >>"$tree/src/shell/frmVTM.cpp"
refuses "the environment outside ui/linux" "shell/frmVTM.cpp:4: getenv( outside ui/linux and ui/windows"

plant && echo '#include "scripts/mdlName.h"' >>"$tree/tools/charset/Command.cpp"
refuses "a shipped command including too much" "charset/Command.cpp:3: tools/charset may not include scripts/mdlName.h"

plant && echo '#include "charset/Command.h"' >>"$tree/tools/thumbnail/Command.cpp"
refuses "a shipped command including another" "thumbnail/Command.cpp:3: tools/thumbnail may not include charset/Command.h"

plant && echo '#include "charset/Command.h"' >>"$tree/src/shell/frmVTM.cpp"
refuses "the program including a command" "shell/frmVTM.cpp:4: shell may not include charset/Command.h"

plant && echo '#include "makers/Board.h"' >>"$tree/tools/thumbnail/Command.cpp"
refuses "a shipped command including a maker" "thumbnail/Command.cpp:3: tools/thumbnail may not include makers/Board.h"

plant && echo '#include "scripts/mdlName.h"' >>"$tree/tools/makers/mkicons.cpp"
refuses "a maker including too much" "makers/mkicons.cpp:3: tools/makers may not include scripts/mdlName.h"

plant && echo '#include <QString>' >>"$tree/tools/charset/Command.cpp"
refuses "a shipped command on the toolkit" "charset/Command.cpp:3: a toolkit-free file includes QString"

plant && echo '    std::ofstream stream(path);' >>"$tree/tools/thumbnail/Command.cpp"
refuses "a shipped command that writes past the writer" "thumbnail/Command.cpp:3: only DiskFiles writes files: ofstream"

plant && echo '    QMessageBox::information(this, title, text);' >>"$tree/src/shell/frmVTM.cpp"
refuses "a message box outside ui/qt" "shell/frmVTM.cpp:4: QMessageBox outside ui/qt"

plant && echo 'class QSettings;' >>"$tree/src/animation/frmAniWiz.cpp"
refuses "settings outside ui/qt" "animation/frmAniWiz.cpp:4: QSettings outside ui/qt"

plant && echo '    std::ofstream stream(path);' >>"$tree/src/scripts/mdlName.h"
refuses "a file that is written past the writer" "scripts/mdlName.h:3: only DiskFiles writes files: ofstream"

plant && echo '    if (file.open(QIODevice::WriteOnly)) {' >>"$tree/src/shell/frmVTM.cpp"
refuses "the toolkit writing a file" "shell/frmVTM.cpp:4: only DiskFiles writes files: WriteOnly"

plant && echo '    std::FILE* file = std::fopen (name, "w");' >>"$tree/src/shell/frmVTM.cpp"
refuses "the C library writing a file" "shell/frmVTM.cpp:4: only DiskFiles writes files: fopen ("

plant && echo '    return ::open(path, O_RDWR | O_CLOEXEC);' >>"$tree/src/shell/frmVTM.cpp"
refuses "the system writing a file" "shell/frmVTM.cpp:4: only DiskFiles writes files: O_RDWR"

plant && echo '#include "../glyphs/mdlPaint.h"' >>"$tree/src/editing/mdlCommon.h"
refuses "a path that climbs" "editing/mdlCommon.h:2: a path that climbs: ../glyphs/mdlPaint.h"

plant && echo '<header>scripts/mdlName.h</header>' >"$tree/src/animation/frmAniWiz.ui"
refuses "a promoted widget of a forbidden room" "animation/frmAniWiz.ui:1: animation may not include scripts/mdlName.h"

plant && mkdir "$tree/src/helpers" && echo '#include <string>' >"$tree/src/helpers/Text.h"
refuses "a room that nobody planned" "helpers/Text.h:1: no such room: helpers"

plant && touch "$tree/src/scripts/mdlName.cpp" && echo '#include <string>' >"$tree/src/scripts/mdlName.cpp" &&
    echo src/scripts/mdlName.cpp >>"$tree/forms"
refuses "a module built with the forms" "scripts/mdlName.cpp:1: a module is built on the toolkit"

plant && rm -rf "$tree"/{src,tools,bench,tests} && mkdir "$tree/src"
refuses "an empty tree" "no files to look at"

# Libraries: a symbol is enough, no header is needed.
plant
makeLibrary() {
    rm -f "$tree/lib.a"
    echo "$1" | "$compiler" -x c++ -c -o "$tree/lib.o" -
    ar rcs "$tree/lib.a" "$tree/lib.o"
}
libraries=("$tree/lib.a")

makeLibrary 'namespace scripts { int QuoteLine(int); } int f() { return scripts::QuoteLine(1); }'
accepts "a library without a toolkit"

makeLibrary 'class QString { public: QString(int); }; int f() { QString s(1); return 2; }'
refuses "a symbol of Qt" "undefined symbol of a toolkit: QString::QString(int)"

makeLibrary 'class QString; void g(const QString&); extern QString* s; void f() { g(*s); }'
refuses "a function that takes a type of Qt" "undefined symbol of a toolkit: g(QString const&)"

makeLibrary 'extern "C" void* XOpenDisplay(const char*); void* f() { return XOpenDisplay(nullptr); }'
refuses "a symbol of X" "undefined symbol of a toolkit: XOpenDisplay"

rm "$tree/lib.a"
refuses "a library that is not there" "lib.a: not a library"

if ((failures > 0)); then
    exit 1
fi
echo "every breach is noticed"
