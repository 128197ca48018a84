// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace ui::qt {

/// A label of one line of plain text that takes no more width than it is given: what does not fit is cut, and
/// shown over the line. It keeps its height when it has nothing to say.
class LineLabel final : public QLabel {
    Q_OBJECT

public:
    explicit LineLabel(QWidget* parent = nullptr);

    /// The text, and what more there is to know, which is shown over the line.
    void tell(const QString& text, const QString& more = {});

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QString shownText() const;

    QString m_more;
};

} // namespace ui::qt
