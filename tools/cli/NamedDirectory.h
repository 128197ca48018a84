// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Platform.h"

namespace cli {

/// A folder that the user names instead of the program directory: nothing stands in for it.
class NamedDirectory final : public ui::ProgramDirectory {
public:
    explicit NamedDirectory(ui::Path folder);

    [[nodiscard]] ui::Path folder() const override { return m_folder; }

    [[nodiscard]] bool writable() const override;

    [[nodiscard]] ui::Path toRead(const std::string& name) const override {
        return m_folder / ui::PathFromText(name);
    }

    [[nodiscard]] ui::Path toWrite(const std::string& name) const override {
        return m_folder / ui::PathFromText(name);
    }

private:
    ui::Path m_folder;
};

} // namespace cli
