// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/StatusLine.h"

#include "shell/ControlAccess.h"

#include <QEvent>
#include <QLabel>
#include <QStyleOption>
#include <QStylePainter>

namespace shell {

StatusLine::StatusLine(QWidget* parent)
    : QStatusBar(parent)
    , lblStatus(new QLabel(this)) {
    setObjectName(QStringLiteral("statusbar"));
    setSizeGripEnabled(false);
    lblStatus->setObjectName(QStringLiteral("lblStatus"));
    lblStatus->setTextFormat(Qt::PlainText);
    lblStatus->setWordWrap(true);
    // The line wraps, so it never makes the window wider.
    lblStatus->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    keepRoom();
    addPermanentWidget(lblStatus, 1);
    lblShow = makeLink("lblShow", tr("Show"), tr("Show the names that were read"));
    connect(this, &QStatusBar::messageChanged, this, &StatusLine::tell);
    connect(lblShow, &QLabel::linkActivated, this, &StatusLine::showPressed);
}

QLabel* StatusLine::makeLink(const char* name, const QString& caption, const QString& tooltip) {
    auto* link = new QLabel(QStringLiteral("<a href=\"#\">%1</a>").arg(caption), this);
    link->setObjectName(QLatin1String(name));
    link->setToolTip(tooltip);
    link->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum); // only its letters answer a click
    link->setAccessibleName(caption);
    DescribeKeys(*link);
    AddToToolTip(*link);
    addPermanentWidget(link);
    link->hide();
    return link;
}

void StatusLine::tell(const QString& text) {
    lblShow->hide();
    // A path may be wrapped behind each of its folders.
    QString shown = text;
    lblStatus->setText(shown.replace(QLatin1Char('/'), QStringLiteral("/\u200B")));
    // A paragraph is wrapped, and its text is escaped, as a line of a file may look like markup.
    setToolTip(
        text.isEmpty() ? QString() : QStringLiteral("<p>") + text.toHtmlEscaped() + QStringLiteral("</p>"));
}

void StatusLine::offerShow() {
    lblShow->show();
}

bool StatusLine::offersShow() const {
    return !lblShow->isHidden();
}

void StatusLine::offerRestore() {
    lblRestore = makeLink("lblRestore", tr("Restore"), tr("Put what stood on the pages back on them"));
    lblDiscard = makeLink("lblDiscard", tr("Discard"), tr("Forget what stood on the pages"));
    connect(lblRestore, &QLabel::linkActivated, this, &StatusLine::restorePressed);
    connect(lblDiscard, &QLabel::linkActivated, this, &StatusLine::discardPressed);
    lblRestore->show();
    lblDiscard->show();
}

void StatusLine::endRestore() {
    for (QLabel** const link : {&lblRestore, &lblDiscard}) {
        if (*link != nullptr) {
            // Deleted later: the link may be the one that was pressed.
            (*link)->hide();
            (*link)->deleteLater();
            *link = nullptr;
        }
    }
}

bool StatusLine::offersRestore() const {
    return lblRestore != nullptr;
}

void StatusLine::changeEvent(QEvent* event) {
    QStatusBar::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        keepRoom();
    }
}

void StatusLine::keepRoom() {
    // The window above stays as it is when a text takes a second line.
    lblStatus->ensurePolished();
    lblStatus->setMinimumHeight(2 * lblStatus->fontMetrics().lineSpacing());
}

void StatusLine::paintEvent(QPaintEvent* /*event*/) {
    // Only the panel: the toolkit would draw the text once more, cut off at its end.
    QStylePainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    painter.drawPrimitive(QStyle::PE_PanelStatusBar, option);
}

} // namespace shell
