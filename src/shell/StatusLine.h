// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStatusBar>

class QLabel;

namespace shell {

/// The line at the foot of the main window. A text that is longer than the line is wrapped, into four lines
/// at most, and may come with something to do about what it says. Work that can be restored is offered
/// whatever the text.
class StatusLine final : public QStatusBar {
    Q_OBJECT

public:
    explicit StatusLine(QWidget* parent = nullptr);

    /// Shows a link behind the text, as long as that text is shown.
    void offerShow();

    [[nodiscard]] bool offersShow() const;

    /// Shows two links, to restore work and to discard it, until endRestore().
    void offerRestore();
    void endRestore();

    [[nodiscard]] bool offersRestore() const;

Q_SIGNALS:
    /// The link was pressed.
    void showPressed();
    void restorePressed();
    void discardPressed();

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void tell(const QString& text);
    void keepRoom();
    void fit();

    QLabel* makeLink(const char* name, const QString& caption, const QString& tooltip);

    QString m_told;
    QLabel* lblStatus;
    QLabel* lblShow;
    QLabel* lblRestore = nullptr;
    QLabel* lblDiscard = nullptr;
};

} // namespace shell
