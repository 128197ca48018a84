// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Documents.h"
#include "editing/PagePanel.h"

namespace editing {

/// The page of the player name: its picture and the scroll bar of its cursor.
class NamePage : public PagePanel {
    Q_OBJECT

public:
    NamePage(NameDocument& document, glyphs::PagePicture& picture, QWidget* parent = nullptr);

    void refresh() override;

protected:
    [[nodiscard]] GlyphRows rows() const override;
    [[nodiscard]] int rowsInUse() const override;
    [[nodiscard]] QString rowName(int row) const override;
    void fitPicture() override;

private:
    void connectControls();
    void NameScroll_Change(int value);

    NameDocument& m_document;
    QScrollBar* NameScroll;
};

} // namespace editing
