# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT

# What the uninstaller removes: every file that is installed but the character sets, of which it decides by itself.
file(GLOB_RECURSE files RELATIVE ${CPACK_TEMPORARY_DIRECTORY} ${CPACK_TEMPORARY_DIRECTORY}/*)
list(REMOVE_ITEM files vtmtc.dat vtmgrid.dat)
list(TRANSFORM files REPLACE "/" "\\\\")
list(TRANSFORM files REPLACE "(.+)" "Delete \"$INSTDIR\\\\\\1\"\n")
file(WRITE ${CPACK_TOPLEVEL_DIRECTORY}/removal.nsh ${files})
