// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// Runs a reader on one input. Called by the driver and by libFuzzer; returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzz {

/// The input as bytes.
[[nodiscard]] inline std::string_view Bytes(const std::uint8_t* data, std::size_t size) {
    return size == 0 ? std::string_view() : std::string_view(reinterpret_cast<const char*>(data), size);
}

/// Ends the program unless something holds that must hold for every input; in every build, unlike assert.
void Require(bool holds, const char* what);

} // namespace fuzz
