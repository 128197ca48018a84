// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/RowTimes.h"

#include "animation/mdlAniPreview.h"

#include <QPainter>
#include <QStringList>
#include <utility>

namespace animation {

namespace {

constexpr int ColumnGap = 10;
constexpr float PaleAlpha = 0.7F;

QString TimeText(int ticks) {
    return SecondsText(std::int64_t{ticks} * TickMilliseconds);
}

/// The ticks of the names before one (1-based).
int TicksBefore(const editing::AnimationDocument& document, int name) {
    int ticks = 0;
    for (int before = 1; before < name; ++before) {
        ticks += document.ticks(before);
    }
    return ticks;
}

} // namespace

RowTimes::RowTimes(const editing::AnimationDocument& document, QWidget* parent)
    : QWidget(parent)
    , m_document(document) {
    setObjectName(QStringLiteral("rowTimes"));
    setToolTip(tr("The ticks of each name, and when it comes in the preview"));
    setAccessibleName(tr("Ticks and times of the names in view"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    refresh();
}

void RowTimes::setFirst(int first) {
    m_first = first;
    showTexts();
}

bool RowTimes::refresh() {
    // Every key that is typed comes here, and few change this.
    if (m_nameCount == m_document.nameCount && m_ticks == m_document.nameTicks) {
        return false;
    }
    m_nameCount = m_document.nameCount;
    m_ticks = m_document.nameTicks;
    showTexts();
    return true;
}

void RowTimes::showTexts() {
    std::array<RowText, Rows> texts;
    int ticks = TicksBefore(m_document, m_first);
    QStringList spoken;
    for (int row = 0; row < Rows && m_first + row <= m_document.nameCount; ++row) {
        const int own = m_document.ticks(m_first + row);
        texts.at(static_cast<std::size_t>(row)) = {QString::number(own), TimeText(ticks)};
        spoken << tr("name %1: %2 ticks, at %3").arg(m_first + row).arg(own).arg(TimeText(ticks));
        ticks += own;
    }
    if (texts != m_texts) {
        m_texts = std::move(texts);
        setAccessibleDescription(spoken.join(QStringLiteral("; ")));
        update();
    }
}

QSize RowTimes::sizeHint() const {
    return {
        fontMetrics().horizontalAdvance(QStringLiteral("15")) + ColumnGap +
            fontMetrics().horizontalAdvance(TimeText(editing::MaxNames * editing::MaxOfferedTicks)),
        0};
}

void RowTimes::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QColor pale = palette().color(QPalette::WindowText);
    pale.setAlphaF(PaleAlpha);
    const int ticksWidth = fontMetrics().horizontalAdvance(QStringLiteral("15"));
    for (int row = 0; row < Rows; ++row) {
        const RowText& text = m_texts.at(static_cast<std::size_t>(row));
        const int top = row * height() / Rows;
        const QRect line(0, top, width(), (row + 1) * height() / Rows - top);
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(
            QRect(0, line.top(), ticksWidth, line.height()), Qt::AlignRight | Qt::AlignVCenter, text.ticks);
        painter.setPen(pale);
        painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, text.time);
    }
}

QString SecondsText(std::int64_t milliseconds) {
    constexpr double Second = 1000;
    return RowTimes::tr("%1 s").arg(static_cast<double>(milliseconds) / Second, 0, 'f', 2);
}

QString LengthText(const editing::AnimationDocument& document) {
    const int ticks = TicksBefore(document, document.nameCount + 1);
    return RowTimes::tr("%1 names, %2 ticks, %3").arg(document.nameCount).arg(ticks).arg(TimeText(ticks));
}

} // namespace animation
