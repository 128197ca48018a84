// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace shell {

/// A small picture that moves along a bar in steps of ten per cent while a page is painted; nothing is seen
/// of it at 0.
class ProgressIndicator : public QWidget {
    Q_OBJECT

public:
    explicit ProgressIndicator(QWidget* parent = nullptr);

    /// Shows 0 to 100 at once, without waiting for the event loop.
    void showPercentage(int percentage);

    [[nodiscard]] int percentage() const { return m_percentage; }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QRect pictureRect() const;

    int m_percentage = 0;
};

} // namespace shell
