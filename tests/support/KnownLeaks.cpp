// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT

// What system libraries keep until the process ends; of Qt the question to the desktop portal, which its
// answer frees and which has none where no portal is. The leak checker asks for this list by this name;
// builds without it never call the function.
extern "C" const char* __lsan_default_suppressions(); // NOLINT(bugprone-reserved-identifier)

extern "C" const char* __lsan_default_suppressions() { // NOLINT(bugprone-reserved-identifier)
    return "leak:libSDL2\n"
           "leak:libdbus-1\n"
           "leak:libpulse\n"
           "leak:libasound\n"
           "leak:libfontconfig\n"
           "leak:QGenericUnixServices::QGenericUnixServices\n";
}
