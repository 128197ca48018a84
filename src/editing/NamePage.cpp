// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/NamePage.h"

#include "ui/qt/PictureWidget.h"

#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>

namespace editing {

NamePage::NamePage(NameDocument& document, glyphs::PagePicture& picture, QWidget* parent)
    : PagePanel(picture, QStringLiteral("NamePic"), QStringLiteral("NamePosShape"), parent)
    , m_document(document)
    , NameScroll(makeScrollBar(
          Qt::Horizontal, QStringLiteral("NameScroll"), tr("Cursor position in the name"), 1, NameLength)) {
    setObjectName(QStringLiteral("pgeName"));
    setAccessibleName(tr("Name page"));
    pictureWidget()->setAccessibleName(tr("Player name"));

    auto* layout = new QVBoxLayout(this);
    layout->addStretch(2);
    layout->addWidget(new QLabel(tr("Your name as the game shows it"), this), 0, Qt::AlignHCenter);
    layout->addWidget(makeFrame(), 0, Qt::AlignHCenter);
    layout->addWidget(NameScroll, 0, Qt::AlignHCenter);
    layout->addStretch(3);
    connectControls();
    fitPicture();
}

void NamePage::connectControls() {
    connect(NameScroll, &QScrollBar::valueChanged, this, &NamePage::NameScroll_Change);
}

void NamePage::refresh() {
    setBar(NameScroll, m_document.cursorPos);
    moveMarker(m_document.cursorPos, m_document.currentRow);
}

void NamePage::fitPicture() {
    NameScroll->setFixedWidth(pictureWidget()->width());
}

GlyphRows NamePage::rows() const {
    return m_document.rows();
}

int NamePage::rowsInUse() const {
    return 1;
}

QString NamePage::rowName(int /*row*/) const {
    return tr("Name");
}

void NamePage::NameScroll_Change(int value) {
    Q_EMIT cursorMoved(value, m_document.currentRow);
}

} // namespace editing
