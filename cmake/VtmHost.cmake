# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT

# While building for another system: the makers of the data, which run on this one, from a build of their own.
include(ExternalProject)
set(makers mkcharsets mkico mkicons mkpatterns mkscreenshot mksounds)
set(host_folder ${CMAKE_BINARY_DIR}/host)
list(TRANSFORM makers PREPEND ${host_folder}/tools/makers/ OUTPUT_VARIABLE maker_files)
ExternalProject_Add(
    host_makers
    SOURCE_DIR ${PROJECT_SOURCE_DIR}
    BINARY_DIR ${host_folder}
    PREFIX ${CMAKE_BINARY_DIR}/host-steps
    CMAKE_ARGS -DCMAKE_BUILD_TYPE=Release -DVTM_QT=OFF -DVTM_TESTS=OFF -DVTM_BENCH=OFF -DVTM_UNITY=${VTM_UNITY}
    BUILD_COMMAND ${CMAKE_COMMAND} --build ${host_folder} --target makers
    BUILD_ALWAYS ON
    BUILD_BYPRODUCTS ${maker_files}
    INSTALL_COMMAND ""
    USES_TERMINAL_BUILD ON
)
foreach(maker IN LISTS makers)
    add_executable(${maker} IMPORTED GLOBAL)
    set_target_properties(${maker} PROPERTIES IMPORTED_LOCATION ${host_folder}/tools/makers/${maker})
    add_dependencies(${maker} host_makers)
endforeach()
