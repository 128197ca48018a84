# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT

# cmake -DGROFF=program -DPAGE=file -P ManPage.cmake: fails if a manual page draws a warning.
execute_process(
    COMMAND ${GROFF} -man -ww -z -k -Tutf8 ${PAGE}
    ERROR_VARIABLE warnings
    RESULT_VARIABLE status
)
if(NOT status EQUAL 0 OR NOT warnings STREQUAL "")
    message(FATAL_ERROR "${PAGE}: ${warnings}")
endif()
