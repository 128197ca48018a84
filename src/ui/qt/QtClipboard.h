// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Platform.h"

namespace ui::qt {

/// The desktop's clipboard.
class QtClipboard final : public Clipboard {
public:
    void setText(std::string_view bytes) override;
    void setUtf8(std::string_view text) override;
    void setPicture(const Picture& picture) override;
    [[nodiscard]] std::vector<TextCharacter> text(std::size_t most) const override;
};

} // namespace ui::qt
