// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QToolButton>

namespace shell {

/// A button that switches a typing mode. A lit bar tells that the mode is on: between a button that is down
/// and one that is up, dark themes make hardly a difference.
class ModeButton final : public QToolButton {
    Q_OBJECT

public:
    explicit ModeButton(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace shell
