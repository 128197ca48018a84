# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT

# cmake -DRSVG=... -DLIST=... -P render.cmake: renders pictures. LIST is a file of lines "size|source|output".
file(STRINGS ${LIST} lines)
foreach(line IN LISTS lines)
    string(REPLACE "|" ";" fields "${line}")
    list(GET fields 0 size)
    list(GET fields 1 source)
    list(GET fields 2 output)
    execute_process(
        COMMAND ${RSVG} --width ${size} --height ${size} --output ${output} ${source}
        COMMAND_ERROR_IS_FATAL ANY
    )
endforeach()
