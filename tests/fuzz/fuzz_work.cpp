// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "fuzz/Fuzz.h"
#include "shell/RecoveryFile.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto bytes = fuzz::Bytes(data, size);
    const auto state = shell::DecodeWorkState(bytes);
    if (state) {
        fuzz::Require(shell::EncodeWorkState(*state) == bytes, "what is read is what was written");
        const auto& animation = state->documents.animation;
        fuzz::Require(
            animation.nameCount >= editing::MinNames && animation.nameCount <= editing::MaxNames &&
                animation.currentName >= 1 && animation.currentName <= animation.nameCount,
            "the current name is in use");
    }
    return 0;
}
