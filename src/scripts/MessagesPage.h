// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Documents.h"
#include "editing/PagePanel.h"

namespace scripts {

/// The page of the three chat messages: their picture and the scroll bars of its cursor.
class MessagesPage : public editing::PagePanel {
    Q_OBJECT

public:
    MessagesPage(editing::MessageDocument& document, glyphs::PagePicture& picture, QWidget* parent = nullptr);

    void refresh() override;

protected:
    [[nodiscard]] editing::GlyphRows rows() const override;
    [[nodiscard]] int rowsInUse() const override;
    [[nodiscard]] QString rowName(int row) const override;
    void fitPicture() override;

private:
    void connectControls();
    void MacNameScroll_Change(int value);
    void MacScroll_Change(int value);

    editing::MessageDocument& m_document;
    QScrollBar* MacNameScroll;
    QScrollBar* MacScroll;
};

} // namespace scripts
