# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT

# What only programs for Windows have.
enable_language(RC)
set(VTM_WINDOWS_SHARE ${PROJECT_SOURCE_DIR}/share/windows)
set(VTM_WINDOWS_ICON ${PROJECT_BINARY_DIR}/data/icons/vtm.ico)

# vtm_program(NAME DESCRIPTION [ICON]): gives a program its manifest, its version, and the icon of the project. The
# libraries of the compiler are there when it is built.
function(vtm_program name description)
    set(icon "")
    if("ICON" IN_LIST ARGN)
        set(icon "IDI_ICON1 ICON \"${VTM_WINDOWS_ICON}\"")
        add_dependencies(${name} vtm_windows_icon)
    endif()
    configure_file(${VTM_WINDOWS_SHARE}/program.rc.in ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc @ONLY)
    target_sources(${name} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc)
    add_dependencies(${name} vtm_runtime)
endfunction()

# The libraries of the compiler that every program loads, without what only debuggers read; they lie beside the program.
set(VTM_WINDOWS_RUNTIME libstdc++-6.dll libgcc_s_seh-1.dll libssp-0.dll libwinpthread-1.dll)
foreach(library IN LISTS VTM_WINDOWS_RUNTIME)
    execute_process(
        COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}
        OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY
    )
    add_custom_command(
        OUTPUT ${VTM_PROGRAM_DIR}/${library}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${VTM_PROGRAM_DIR}
        COMMAND ${CMAKE_STRIP} -o ${VTM_PROGRAM_DIR}/${library} ${file}
        DEPENDS ${file}
        VERBATIM
    )
    list(APPEND runtime_files ${VTM_PROGRAM_DIR}/${library})
endforeach()
add_custom_target(vtm_runtime ALL DEPENDS ${runtime_files})
