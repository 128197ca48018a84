# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT

# cmake -DTOOL=... -DTYPES=... -DSCRATCH=... -P check.cmake: fails when the desktop's tool does not take the types.
cmake_minimum_required(VERSION 3.25)
file(REMOVE_RECURSE ${SCRATCH})
file(MAKE_DIRECTORY ${SCRATCH}/packages)
file(COPY ${TYPES} DESTINATION ${SCRATCH}/packages)
execute_process(COMMAND ${TOOL} ${SCRATCH} RESULT_VARIABLE status ERROR_VARIABLE errors)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "${errors}")
endif()
file(STRINGS ${SCRATCH}/globs2 globs)
foreach(type IN ITEMS name:vtn animation:vta message:vtm)
    string(REPLACE ":" ";" type ${type})
    list(GET type 0 name)
    list(GET type 1 extension)
    if(NOT "50:application/x-vtm-${name}:*.${extension}" IN_LIST globs)
        message(FATAL_ERROR "*.${extension} is not among the types")
    endif()
endforeach()
