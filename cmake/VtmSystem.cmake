# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT

# The one place that chooses the system to build for: src/ui has a folder for it, and tests have one for that.
set(VTM_SYSTEM linux)

if(VTM_QT)
    # Its headers alone: the library is loaded only where there is an X server.
    find_package(X11 REQUIRED)
endif()
