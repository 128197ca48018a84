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
    rm -rf "$tree/src"
    mkdir -p "$tree/src"/{ui/qt,glyphs,editing,animation,scripts,shell}
    echo '#include <string>' >"$tree/src/ui/Result.h"
    printf '#include "ui/Result.h"\n#include <QMessageBox>\n' >"$tree/src/ui/qt/QtDialogs.cpp"
    echo '#include "ui/Result.h"' >"$tree/src/glyphs/mdlPaint.h"
    echo '#include "glyphs/mdlPaint.h"' >"$tree/src/editing/mdlCommon.h"
    printf '#include "editing/mdlCommon.h"\n#include "ui_frmAniWiz.h"\n#include <QDialog>\n' \
        >"$tree/src/animation/frmAniWiz.cpp"
    echo '#include "editing/mdlCommon.h"' >"$tree/src/scripts/mdlName.h"
    printf '#include "animation/frmAniWiz.h"\n#include "ui/qt/QtDialogs.h"\n#include <QWidget>\n' \
        >"$tree/src/shell/frmVTM.cpp"
    printf '%s\n' ui/qt/QtDialogs.cpp animation/frmAniWiz.cpp shell/frmVTM.cpp >"$tree/forms"
}

# accepts WHAT: the tree passes.
accepts() {
    if ! output=$("$layering" "$tree/src" "$tree/forms" "${libraries[@]}"); then
        echo "FAILED: $1 is refused: $output"
        failures=$((failures + 1))
    fi
}

# refuses WHAT TEXT: the tree fails, and the complaint holds TEXT.
refuses() {
    if output=$("$layering" "$tree/src" "$tree/forms" "${libraries[@]}"); then
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

plant && echo '#include "scripts/mdlName.h"' >>"$tree/src/animation/frmAniWiz.cpp"
refuses "animation including scripts" "animation/frmAniWiz.cpp:4: animation may not include scripts/mdlName.h"

plant && echo '#include "animation/mdlAniName.h"' >>"$tree/src/scripts/mdlName.h"
refuses "scripts including animation" "scripts/mdlName.h:2: scripts may not include animation/mdlAniName.h"

plant && echo '#include "glyphs/mdlPaint.h"' >>"$tree/src/ui/qt/QtDialogs.cpp"
refuses "ui/qt including glyphs" "ui/qt/QtDialogs.cpp:3: ui/qt may not include glyphs/mdlPaint.h"

plant && echo '#include "shell/frmVTM.h"' >>"$tree/src/editing/mdlCommon.h"
refuses "editing including shell" "editing/mdlCommon.h:2: editing may not include shell/frmVTM.h"

plant && echo '  #  include <QString>' >>"$tree/src/scripts/mdlName.h"
refuses "a module including Qt" "scripts/mdlName.h:2: a toolkit-free file includes QString"

plant && echo '#include <QtCore/QString>' >>"$tree/src/editing/mdlCommon.h"
refuses "a module including a library of Qt" "editing/mdlCommon.h:2: a toolkit-free file includes QtCore/QString"

plant && echo '#include "ui/qt/PictureWidget.h"' >>"$tree/src/scripts/mdlName.h"
refuses "a module including ui/qt" "scripts/mdlName.h:2: a toolkit-free file includes ui/qt/PictureWidget.h"

plant && echo '#include <X11/Xlib.h>' >>"$tree/src/shell/frmVTM.cpp"
refuses "the window system outside ui/linux" "shell/frmVTM.cpp:4: only ui/linux includes X11/Xlib.h"

plant && echo '    QMessageBox::information(this, title, text);' >>"$tree/src/shell/frmVTM.cpp"
refuses "a message box outside ui/qt" "shell/frmVTM.cpp:4: QMessageBox outside ui/qt"

plant && echo 'class QSettings;' >>"$tree/src/animation/frmAniWiz.cpp"
refuses "settings outside ui/qt" "animation/frmAniWiz.cpp:4: QSettings outside ui/qt"

plant && echo '    std::ofstream stream(path);' >>"$tree/src/scripts/mdlName.h"
refuses "a file that is written past the writer" "scripts/mdlName.h:2: only ui/linux/DiskFiles writes files: ofstream"

plant && echo '    if (file.open(QIODevice::WriteOnly)) {' >>"$tree/src/shell/frmVTM.cpp"
refuses "the toolkit writing a file" "shell/frmVTM.cpp:4: only ui/linux/DiskFiles writes files: WriteOnly"

plant && echo '    std::FILE* file = std::fopen (name, "w");' >>"$tree/src/shell/frmVTM.cpp"
refuses "the C library writing a file" "shell/frmVTM.cpp:4: only ui/linux/DiskFiles writes files: fopen ("

plant && echo '    return ::open(path, O_RDWR | O_CLOEXEC);' >>"$tree/src/shell/frmVTM.cpp"
refuses "the system writing a file" "shell/frmVTM.cpp:4: only ui/linux/DiskFiles writes files: O_RDWR"

plant && echo '#include "../glyphs/mdlPaint.h"' >>"$tree/src/editing/mdlCommon.h"
refuses "a path that climbs" "editing/mdlCommon.h:2: a path that climbs: ../glyphs/mdlPaint.h"

plant && echo '<header>scripts/mdlName.h</header>' >"$tree/src/animation/frmAniWiz.ui"
refuses "a promoted widget of a forbidden room" "animation/frmAniWiz.ui:1: animation may not include scripts/mdlName.h"

plant && mkdir "$tree/src/helpers" && echo '#include <string>' >"$tree/src/helpers/Text.h"
refuses "a room that nobody planned" "helpers/Text.h:1: no such room: helpers"

plant && touch "$tree/src/scripts/mdlName.cpp" && echo '#include <string>' >"$tree/src/scripts/mdlName.cpp" &&
    echo scripts/mdlName.cpp >>"$tree/forms"
refuses "a module built with the forms" "scripts/mdlName.cpp:1: a module is built on the toolkit"

plant && rm -rf "$tree/src" && mkdir "$tree/src"
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
