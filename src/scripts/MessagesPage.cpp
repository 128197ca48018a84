// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/MessagesPage.h"

#include "ui/qt/PictureWidget.h"

#include <QGridLayout>
#include <QLabel>
#include <QScrollBar>
#include <array>

namespace scripts {

using editing::MessageCount;
using editing::MessageLength;

MessagesPage::MessagesPage(editing::MessageDocument& document, glyphs::PagePicture& picture, QWidget* parent)
    : PagePanel(picture, QStringLiteral("MacPic"), QStringLiteral("MacPosShape"), parent)
    , m_document(document)
    , MacNameScroll(makeScrollBar(
          Qt::Horizontal, QStringLiteral("MacNameScroll"), tr("Cursor position in the message"), 1,
          MessageLength))
    , MacScroll(
          makeScrollBar(Qt::Vertical, QStringLiteral("MacScroll"), tr("Current message"), 1, MessageCount)) {
    setObjectName(QStringLiteral("pgeMessages"));
    setAccessibleName(tr("Messages page"));
    pictureWidget()->setAccessibleName(tr("Chat messages"));

    auto* layout = new QGridLayout(this);
    // The longest rows there are leave little beside them in a small window.
    layout->setContentsMargins(2, layout->contentsMargins().top(), 2, layout->contentsMargins().bottom());
    layout->setHorizontalSpacing(4);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(3, 1);
    layout->setRowStretch(0, 2);
    layout->addWidget(new QLabel(tr("Your messages: top, middle and bottom"), this), 1, 1);
    layout->addWidget(makeFrame(), 2, 1);
    layout->addWidget(MacScroll, 2, 2, Qt::AlignVCenter);
    layout->addWidget(MacNameScroll, 3, 1, Qt::AlignHCenter);
    layout->setRowStretch(4, 3);
    connectControls();
    fitPicture();
}

void MessagesPage::connectControls() {
    connect(MacNameScroll, &QScrollBar::valueChanged, this, &MessagesPage::MacNameScroll_Change);
    connect(MacScroll, &QScrollBar::valueChanged, this, &MessagesPage::MacScroll_Change);
}

void MessagesPage::refresh() {
    setBar(MacNameScroll, m_document.cursorPos);
    setBar(MacScroll, m_document.currentMessage);
    moveMarker(m_document.cursorPos, m_document.currentMessage);
}

void MessagesPage::fitPicture() {
    MacNameScroll->setFixedWidth(pictureWidget()->width());
    MacScroll->setFixedHeight(pictureWidget()->height());
}

editing::GlyphRows MessagesPage::rows() const {
    return m_document.rows();
}

int MessagesPage::rowsInUse() const {
    return MessageCount;
}

QString MessagesPage::rowName(int row) const {
    const std::array<QString, MessageCount> names{
        tr("Top message"), tr("Middle message"), tr("Bottom message")};
    return names[static_cast<std::size_t>(row - 1)];
}

void MessagesPage::MacNameScroll_Change(int value) {
    Q_EMIT cursorMoved(value, m_document.currentMessage);
}

void MessagesPage::MacScroll_Change(int value) {
    Q_EMIT cursorMoved(m_document.cursorPos, value);
}

} // namespace scripts
