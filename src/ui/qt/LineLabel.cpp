// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/LineLabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>
#include <cmath>

namespace ui::qt {

LineLabel::LineLabel(QWidget* parent)
    : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    tell({});
}

void LineLabel::tell(const QString& text, const QString& more) {
    // An empty label is named after its group.
    setText(text.isEmpty() ? QStringLiteral(" ") : text);
    m_more = more;
}

QSize LineLabel::sizeHint() const {
    // A part of a pixel too little, and the text would be cut.
    const qreal width = QFontMetricsF(font()).horizontalAdvance(text());
    return {static_cast<int>(std::ceil(width)), fontMetrics().height()};
}

QSize LineLabel::minimumSizeHint() const {
    return {0, fontMetrics().height()};
}

QString LineLabel::shownText() const {
    return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
}

bool LineLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QLabel::event(event);
    }
    QStringList lines;
    if (shownText() != text() && !m_more.contains(text())) {
        lines << text();
    }
    if (!m_more.isEmpty()) {
        lines << m_more;
    }
    // A paragraph is wrapped, and its text is escaped, as a line of a file may look like markup.
    const QString more = lines.join(u'\n').toHtmlEscaped().replace(u'\n', QStringLiteral("<br>"));
    const QString tip = lines.isEmpty() ? QString() : QStringLiteral("<p>%1</p>").arg(more);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), tip, this);
    return true;
}

void LineLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    style()->drawItemText(
        &painter, contentsRect(), static_cast<int>(alignment()), palette(), isEnabled(), shownText(),
        foregroundRole());
}

} // namespace ui::qt
