// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT

// Nothing but a place for the headers that are compiled once for all tests.
