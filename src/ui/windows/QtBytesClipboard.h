// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/qt/QtClipboard.h"

namespace ui::native {

/// The toolkit's clipboard, but for the bytes of a name: the toolkit would put them on it in the system's
/// code page.
class QtBytesClipboard final : public Clipboard {
public:
    void setText(std::string_view bytes) override;

    void setUtf8(std::string_view text) override { m_toolkits.setUtf8(text); }

    void setPicture(const Picture& picture) override { m_toolkits.setPicture(picture); }

    [[nodiscard]] std::vector<TextCharacter> text(std::size_t most) const override {
        return m_toolkits.text(most);
    }

private:
    qt::QtClipboard m_toolkits;
};

} // namespace ui::native
