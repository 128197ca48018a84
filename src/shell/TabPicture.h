// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace shell {

/// The tab of a page: a light grey picture for the page in view, a dark grey one for the others. The greys
/// are the same in every desktop theme.
class TabPicture : public QWidget {
    Q_OBJECT

public:
    explicit TabPicture(const QString& caption, QWidget* parent = nullptr);

    void setActive(bool isActive);

    [[nodiscard]] bool isActive() const { return m_isActive; }

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void pressed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    QString m_caption;
    bool m_isActive = false;
};

} // namespace shell
