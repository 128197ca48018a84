// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "artwork/CharSetFiles.h"
#include "fuzz/Fuzz.h"

#include <algorithm>

namespace {

constexpr std::size_t RecordSize = 154;
constexpr std::size_t SlotSize = 10000;

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes = fuzz::Bytes(data, size);
    const artwork::CharSetFiles files{
        .list = ui::Bytes(bytes.substr(0, bytes.size() / RecordSize * RecordSize)),
        .store = ui::Bytes(bytes)};
    const std::size_t count = files.list.size() / RecordSize;
    fuzz::Require(artwork::RecordsOf(bytes).size() == count, "every whole record is listed");

    for (std::size_t index = 0; index < count; ++index) {
        const artwork::CharSetFiles removed = artwork::WithSetRemoved(files, index);
        fuzz::Require(removed.list.size() == files.list.size() - RecordSize, "one record is removed");
        fuzz::Require(
            files.store.starts_with(removed.store) &&
                removed.store.size() >=
                    std::min(
                        artwork::NextSlot(removed.list) * SlotSize, files.store.find_last_not_of('\0') + 1),
            "no slot in use is cut off");
    }

    const std::size_t slot = artwork::NextSlot(files.list);
    if (slot > 100) {
        return 0; // stores of megabytes take their time
    }
    const std::string gif(artwork::RoomForImage(files), 'g');
    const auto added = artwork::WithSetAdded(files, "new", "", gif);
    fuzz::Require(added.ok(), "there is room for a set");
    fuzz::Require(added.value().list.starts_with(files.list), "the records before a new one stay");
    fuzz::Require(added.value().store.substr(slot * SlotSize, gif.size()) == gif, "a new set has its slot");
    const artwork::CharSetFiles removed = artwork::WithSetRemoved(added.value(), count);
    fuzz::Require(removed.list == files.list, "removing a set that was added restores the list");
    fuzz::Require(
        removed.store == files.store.substr(0, slot * SlotSize), "and the store, up to its last slot in use");
    return 0;
}
