// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "check/Report.h"
#include "fuzz/Fuzz.h"

#include <algorithm>
#include <sstream>

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::vector<games::Family> families(games::Families.begin(), games::Families.end());
    auto judgement = check::Judge("clan.vtn", fuzz::Bytes(data, size), families);
    if (!judgement) {
        fuzz::Require(!judgement.failure().message.empty(), "what cannot be judged has a reason");
        return 0;
    }
    for (const check::FamilyJudgement& family : judgement.value().families) {
        for (const games::Finding& finding : family.findings) {
            fuzz::Require(!finding.text.empty(), "a finding says something");
            fuzz::Require(!games::VersionOf(finding.seen).empty(), "a finding was seen somewhere");
        }
        const bool allRowsArrive = std::ranges::all_of(family.rows, &games::RowVerdict::arrives);
        fuzz::Require(allRowsArrive || !family.arrives(), "a row that does not arrive is a loss");
    }
    std::ostringstream output;
    check::PrintForPeople(output, judgement.value());
    check::PrintJson(output, {{"clan.vtn", judgement}});
    const std::string text = output.str();
    const bool isPlain =
        std::ranges::all_of(text, [](char byte) { return byte == '\n' || (byte >= ' ' && byte < 127); });
    fuzz::Require(isPlain, "a terminal acts on nothing that is printed");
    return 0;
}
