// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/mdlAniWizard.h"
#include "fuzz/Fuzz.h"

#include <string>

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes = fuzz::Bytes(data, size);
    const int titles = static_cast<int>(animation::ReadPatternTitles(bytes).size());
    fuzz::Require(titles <= 32767, "no more titles are listed than a count can say");
    // The record after the last title as well, and a few at most: each is read from the file's beginning.
    for (int number = 1; number <= titles + 1; number += 1 + titles / 8) {
        const auto pattern = animation::ReadPattern(bytes, number);
        fuzz::Require(
            pattern.has_value() || number >= titles, "every record but the last listed one can be read");
        fuzz::Require(!pattern || number <= titles, "a record that can be read is listed");
    }
    return 0;
}
