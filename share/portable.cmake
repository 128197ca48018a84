# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT

# carry(ROOT LIBRARIES PLUGINS): lets the programs in ROOT/bin run where only the base of a system is installed.
# LIBRARIES and PLUGINS are the folders where this system has its libraries and the plugins of Qt. Carried are
#
#   lib/vtm          Qt: always this one, since the plugins fit no other
#   lib/vtm/plugins  what Qt loads by itself, which it finds through bin/qt.conf
#   lib/vtm/spare    the other libraries, each for systems that lack it: a system's own one agrees with its settings,
#                    caches and servers, and is what the rest of the system was built with
#
# The order of search is written into the programs as an RPATH: that goes before LD_LIBRARY_PATH, and holds for every
# library that is loaded, whoever asks for it.

# Windows on X11 and Wayland, their frame where a Wayland desktop draws none, input methods. No window draws by OpenGL, but
# without it Qt draws no frame.
set(carry_plugins
    platforms/libqxcb.so
    platforms/libqwayland-generic.so
    wayland-shell-integration/libxdg-shell.so
    wayland-decoration-client/libbradient.so
    wayland-graphics-integration-client/libqt-plugin-wayland-egl.so
    platforminputcontexts/libcomposeplatforminputcontextplugin.so
    platforminputcontexts/libibusplatforminputcontextplugin.so
)
# Loaded by the first sound.
set(carry_loaded libSDL2-2.0.so.0)
# Shown where the system has no font at all.
set(carry_font /usr/share/fonts/truetype/dejavu/DejaVuSans.ttf)
# Not carried: no system lacks them, and an older one than what the system's other libraries were built with fails.
set(carry_base "^(ld-linux.*|lib(c|m|dl|rt|pthread|resolv|gcc_s|stdc\\+\\+))\\.so")

# carry_file(FILE AS): copies a file, and notes that its licence is due.
function(carry_file file as)
    if(NOT EXISTS ${file})
        message(FATAL_ERROR "The archive carries ${file}, which is not here: try tools/setup.sh package")
    endif()
    get_filename_component(folder ${as} DIRECTORY)
    file(MAKE_DIRECTORY ${folder})
    file(COPY_FILE ${file} ${as})
    set_property(GLOBAL APPEND PROPERTY carried ${file})
endfunction()

# carry_libraries(ROOT LIBRARIES PLUGINS): copies what the programs load, and what that loads.
function(carry_libraries root libraries plugins)
    list(TRANSFORM carry_plugins PREPEND ${plugins}/ OUTPUT_VARIABLE loaded)
    list(TRANSFORM carry_loaded PREPEND ${libraries}/ OUTPUT_VARIABLE more)
    list(APPEND loaded ${more})
    foreach(plugin IN LISTS carry_plugins)
        carry_file(${plugins}/${plugin} ${root}/lib/vtm/plugins/${plugin})
    endforeach()
    foreach(library IN LISTS carry_loaded)
        carry_file(${libraries}/${library} ${root}/lib/vtm/spare/${library})
    endforeach()

    file(GLOB programs ${root}/bin/*)
    file(GET_RUNTIME_DEPENDENCIES EXECUTABLES ${programs} MODULES ${loaded} PRE_EXCLUDE_REGEXES ${carry_base}
         RESOLVED_DEPENDENCIES_VAR needed)
    foreach(library IN LISTS needed)
        get_filename_component(name ${library} NAME)
        if(name MATCHES "^libQt")
            carry_file(${library} ${root}/lib/vtm/${name})
        else()
            carry_file(${library} ${root}/lib/vtm/spare/${name})
            # One of its own would put the programs' out of force.
            file(RPATH_REMOVE FILE ${root}/lib/vtm/spare/${name})
        endif()
    endforeach()

    find_program(PATCHELF patchelf REQUIRED)
    set(order "$ORIGIN/../lib/vtm:${libraries}:/usr/lib64:/usr/lib:$ORIGIN/../lib/vtm/spare")
    execute_process(COMMAND ${PATCHELF} --force-rpath --set-rpath ${order} ${programs} COMMAND_ERROR_IS_FATAL ANY)
    file(WRITE ${root}/bin/qt.conf "[Paths]\nPrefix=../lib/vtm\n")
endfunction()

# carry_licences(FOLDER): writes down what was carried, with the licence of each package that it comes from.
function(carry_licences folder)
    get_property(files GLOBAL PROPERTY carried)
    set(paths)
    foreach(file IN LISTS files)
        file(REAL_PATH ${file} file)
        # Packages know what is in /usr/lib by that name or as what is in /lib.
        string(REGEX REPLACE "^/usr" "" other ${file})
        list(APPEND paths ${file} ${other})
    endforeach()
    execute_process(COMMAND dpkg-query --search ${paths} OUTPUT_VARIABLE owners ERROR_QUIET)
    string(REGEX MATCHALL "[^\n]+" owners "${owners}")
    list(LENGTH files count)
    list(LENGTH owners known)
    if(NOT known EQUAL count)
        message(FATAL_ERROR "Of ${count} files that the archive carries, ${known} belong to a package.")
    endif()
    list(TRANSFORM owners REPLACE ": /.*" "")
    list(REMOVE_DUPLICATES owners)
    list(SORT owners)
    execute_process(
        COMMAND dpkg-query --show --showformat "  \${Package} \${Version} (source: \${source:Package} \${source:Version})\n"
                ${owners}
        OUTPUT_VARIABLE packages COMMAND_ERROR_IS_FATAL ANY
    )
    file(MAKE_DIRECTORY ${folder})
    foreach(package IN LISTS owners)
        string(REGEX REPLACE ":.*" "" package ${package})
        file(COPY_FILE /usr/share/doc/${package}/copyright ${folder}/${package})
    endforeach()
    file(COPY /usr/share/common-licenses DESTINATION ${folder})
    file(WRITE ${folder}/README "\
What this program itself may be used for says LICENSE, one folder up. The archive also carries libraries
and a font from these packages of Debian. Beside this file lies for each who wrote it and what it may be
used for; the licenses that these refer to are in common-licenses.

${packages}
Debian provides the source of each package under the name and version in parentheses. Any of the
libraries in lib/vtm may be replaced by another build of the same version.
")
endfunction()

function(carry root libraries plugins)
    carry_libraries(${root} ${libraries} ${plugins})
    carry_file(${carry_font} ${root}/share/vtm/vtmfont.ttf)
    carry_licences(${root}/share/doc/vtm/LICENSES)
endfunction()
