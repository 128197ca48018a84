# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT

# write_licences(FOLDER): writes down what the program carries or has in it, with the licence of each, which Debian's
# packages and the sources of the others have told.
function(write_licences folder)
    file(REMOVE_RECURSE ${folder})
    file(MAKE_DIRECTORY ${folder})
    cmake_path(GET GIF_LIBRARY PARENT_PATH modules)
    set(versions "")
    foreach(prefix IN ITEMS ${modules}/.. ${QT6_INSTALL_PREFIX})
        file(GLOB licences ${prefix}/licences/*)
        file(COPY ${licences} DESTINATION ${folder})
        file(STRINGS ${prefix}/versions lines)
        foreach(line IN LISTS lines)
            string(APPEND versions "  ${line}\n")
        endforeach()
    endforeach()
    foreach(package IN ITEMS gcc-mingw-w64-x86-64-posix-runtime mingw-w64-x86-64-dev libz-mingw-w64-dev)
        file(COPY_FILE /usr/share/doc/${package}/copyright ${folder}/${package}.txt)
        execute_process(
            COMMAND dpkg-query --show --showformat "  \${source:Package} \${source:Version}\n" ${package}
            OUTPUT_VARIABLE line COMMAND_ERROR_IS_FATAL ANY
        )
        string(APPEND versions "${line}")
    endforeach()
    foreach(licence IN ITEMS GPL-2 GPL-3 LGPL-2.1 LGPL-3 Apache-2.0 GFDL-1.3)
        file(COPY_FILE /usr/share/common-licenses/${licence} ${folder}/${licence}.txt)
    endforeach()
    file(WRITE ${folder}/README.txt "\
What this program itself may be used for says LICENSE.txt, one folder up. It also carries libraries that were
built from these sources of Debian:

${versions}
Beside this file lies for each who wrote it and what it may be used for, and the licenses that these refer
to. Debian provides the sources under these names and versions. Any library beside the program may be
replaced by another build of the same version.
")
endfunction()
