# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT

# The one place that chooses the system to build for: src/ui has a folder for it, and tests have one for that.
if(CMAKE_SYSTEM_NAME STREQUAL "Windows")
    set(VTM_SYSTEM windows)
    include(${CMAKE_CURRENT_LIST_DIR}/VtmWindows.cmake)
else()
    set(VTM_SYSTEM linux)
    # vtm_program(NAME DESCRIPTION [ICON]): what a program tells this system is in files beside it (share).
    function(vtm_program)
    endfunction()
    if(VTM_QT)
        # Its headers alone: the library is loaded only where there is an X server.
        find_package(X11 REQUIRED)
    endif()
endif()

if(CMAKE_CROSSCOMPILING)
    include(${CMAKE_CURRENT_LIST_DIR}/VtmHost.cmake)
endif()
