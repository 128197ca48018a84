// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/StatusLine.h"

#include "shell/ControlAccess.h"

#include <QEvent>
#include <QLabel>
#include <QResizeEvent>
#include <QStyleOption>
#include <QStylePainter>

namespace shell {

namespace {

constexpr int MostLinesOfText = 4;
constexpr qsizetype LongestTold = 1000;

/// The beginning of a text, and a sign that there is more of it.
QString StartOf(const QString& text, qsizetype length) {
    // Half a character would be none.
    const bool isWhole = length == 0 || !text.at(length - 1).isHighSurrogate();
    return text.left(isWhole ? length : length - 1) + QChar(0x2026);
}

} // namespace

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
    lblStatus->installEventFilter(this);
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
    m_told = text.size() > LongestTold ? StartOf(text, LongestTold) : text;
    // A paragraph is wrapped, and its text is escaped, as a line of a file may look like markup.
    setToolTip(
        text.isEmpty() ? QString() : QStringLiteral("<p>") + m_told.toHtmlEscaped() + QStringLiteral("</p>"));
    // A path may be wrapped behind each of its folders.
    m_told.replace(QLatin1Char('/'), QStringLiteral("/\u200B"));
    fit();
}

void StatusLine::fit() {
    const auto fits = [this] {
        return lblStatus->heightForWidth(lblStatus->width()) <= lblStatus->maximumHeight();
    };
    lblStatus->setText(m_told);
    if (fits()) {
        return;
    }
    qsizetype shown = 0;
    for (qsizetype length = m_told.size(); length - shown > 1;) {
        const qsizetype middle = shown + (length - shown) / 2;
        lblStatus->setText(StartOf(m_told, middle));
        (fits() ? shown : length) = middle;
    }
    lblStatus->setText(StartOf(m_told, shown));
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
        fit();
    }
}

bool StatusLine::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize &&
        static_cast<QResizeEvent*>(event)->oldSize().width() != lblStatus->width()) {
        fit();
    }
    return QStatusBar::eventFilter(watched, event);
}

void StatusLine::keepRoom() {
    // The window above stays as it is when a text takes a second line.
    lblStatus->ensurePolished();
    lblStatus->setMinimumHeight(2 * lblStatus->fontMetrics().lineSpacing());
    lblStatus->setMaximumHeight(MostLinesOfText * lblStatus->fontMetrics().lineSpacing());
}

void StatusLine::paintEvent(QPaintEvent* /*event*/) {
    // Only the panel: the toolkit would draw the text once more, cut off at its end.
    QStylePainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    painter.drawPrimitive(QStyle::PE_PanelStatusBar, option);
}

} // namespace shell
