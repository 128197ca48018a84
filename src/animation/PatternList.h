// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>

#include <functional>

namespace animation {

/// A list of the wizard's patterns. It opens below itself, or beside its window where the screen has no room
/// there, but not over what shows the pattern that is under the pointer or the keys.
class PatternList final : public QComboBox {
    Q_OBJECT

public:
    explicit PatternList(QWidget* parent = nullptr);

    /// The part of the screen that the open list leaves free.
    void keepFree(std::function<QRect()> area) { m_free = std::move(area); }

    /// The entry that the user looks at: the chosen one or, while the list is open, the one that would be.
    [[nodiscard]] int triedIndex() const { return m_tried < 0 ? currentIndex() : m_tried; }

    void showPopup() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The user looks at another entry.
    void tried();

private:
    void lookAt(int index);

    std::function<QRect()> m_free;
    int m_tried = -1; ///< -1: the list is not open
};

} // namespace animation
