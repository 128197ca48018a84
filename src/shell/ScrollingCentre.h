// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

namespace shell {

/// What the main window holds between its bars. Where the screen is too small for that, it is scrolled:
/// nothing of it gets out of reach.
class ScrollingCentre final : public QScrollArea {
    Q_OBJECT

public:
    explicit ScrollingCentre(QWidget* parent = nullptr);

    /// Scrolls until the visible part of a widget in it is in view.
    void follow(const QWidget& part);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace shell
