// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Documents.h"

#include <QString>
#include <QWidget>
#include <array>
#include <cstdint>

namespace animation {

/// Beside the names in view: the ticks of each, and when it comes in the preview.
class RowTimes final : public QWidget {
    Q_OBJECT

public:
    static constexpr int Rows = 15; ///< names in view

    /// The document is borrowed and outlives the widget.
    RowTimes(const editing::AnimationDocument& document, QWidget* parent);

    /// Shows the names from `first` on (1-based).
    void setFirst(int first);

    /// Follows the document. Returns whether the ticks or the names in use have changed.
    bool refresh();

    /// What stands beside a row in view, from 0.
    struct RowText {
        QString ticks;
        QString time;
        friend bool operator==(const RowText&, const RowText&) = default;
    };

    [[nodiscard]] const std::array<RowText, Rows>& texts() const { return m_texts; }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void showTexts();

    const editing::AnimationDocument& m_document;
    int m_first = 1;
    int m_nameCount = 0;
    std::array<std::int16_t, editing::MaxNames> m_ticks{};
    std::array<RowText, Rows> m_texts;
};

/// A time as the window tells it, in seconds.
[[nodiscard]] QString SecondsText(std::int64_t milliseconds);

/// How many names are in use, their ticks and how long they take in the preview.
[[nodiscard]] QString LengthText(const editing::AnimationDocument& document);

} // namespace animation
