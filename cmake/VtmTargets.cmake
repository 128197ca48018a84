# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT

# What every target of the project is compiled with.
add_library(vtm_options INTERFACE)
target_compile_features(vtm_options INTERFACE cxx_std_20)
target_compile_options(vtm_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 sees an overlap that cannot be wherever a string is added to a literal (GCC bug 105651).
    target_compile_options(vtm_options INTERFACE -Wno-restrict)
endif()
if(VTM_WERROR)
    target_compile_options(vtm_options INTERFACE -Werror)
endif()
if(WIN32)
    # The system's functions in their form for Unicode, those of Windows 10, and printf as the language has it.
    target_compile_definitions(
        vtm_options INTERFACE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00 __USE_MINGW_ANSI_STDIO=1)
endif()
if(NOT VTM_SANITIZE)
    # The programs read files that anybody may have made: what people get is hardened as Debian's own programs are. For
    # Windows the linker itself asks for addresses by chance and for data that never runs.
    set(shipped "$<CONFIG:Release,RelWithDebInfo>")
    target_compile_options(
        vtm_options INTERFACE "$<${shipped}:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2;-fstack-protector-strong>")
    if(WIN32)
        target_link_options(vtm_options INTERFACE "$<${shipped}:-fstack-protector-strong>")
    else()
        target_link_options(vtm_options INTERFACE "$<${shipped}:-Wl,-z,relro;-Wl,-z,now>")
    endif()
endif()
if(VTM_SANITIZE)
    target_compile_options(
        vtm_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(vtm_options INTERFACE -fsanitize=address,undefined)
endif()
if(VTM_LIBFUZZER)
    # The sanitizers' run time holds what the coverage of programs without libFuzzer's main function calls.
    if(NOT VTM_SANITIZE OR NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "VTM_LIBFUZZER needs Clang and VTM_SANITIZE.")
    endif()
    target_compile_options(vtm_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# vtm_module(NAME SOURCES ... LINKS ...): a static library of toolkit-free code. It never links Qt.
function(vtm_module name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE vtm_options)
endfunction()

# vtm_forms(NAME SOURCES ... LINKS ...): a static library of windows and pages, built on Qt Widgets; none without VTM_QT.
function(vtm_forms name)
    if(NOT VTM_QT)
        return()
    endif()
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${ARG_LINKS} Qt6::Widgets PRIVATE vtm_options)
    target_compile_definitions(${name} PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)
    set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOUIC ON)
endfunction()
