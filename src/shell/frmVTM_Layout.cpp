// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/AnimationPage.h"
#include "editing/DirectionPad.h"
#include "editing/NamePage.h"
#include "scripts/MessagesPage.h"
#include "shell/ControlAccess.h"
#include "shell/GlyphColumn.h"
#include "shell/ProgressIndicator.h"
#include "shell/ScrollingCentre.h"
#include "shell/StatusLine.h"
#include "shell/TabPicture.h"
#include "shell/frmVTM.h"
#include "ui/qt/PictureWidget.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QScrollBar>
#include <QStackedWidget>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>

namespace shell {

namespace {

constexpr int Margin = 12;
constexpr int LeastGap = 2; // of it, beside a column
constexpr int Spacing = 8;
constexpr int RoundingRoom = 2;
constexpr QSize FrameRoom(10, 40); // for what the desktop puts around the window

QString Member(const char* name, std::size_t index) {
    return QStringLiteral("%1_%2").arg(QLatin1String(name)).arg(index);
}

} // namespace

QWidget* frmVTM::buildPageColumn() {
    auto* column = new QWidget(this);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);

    auto* tabs = new QHBoxLayout;
    tabs->setSpacing(2);
    for (std::size_t i = 0; i < picTab.size(); ++i) {
        picTab[i] = new TabPicture(tr(editing::Kinds.at(i).caption), column);
        picTab[i]->setObjectName(Member("picTab", i));
        tabs->addWidget(picTab[i]);
    }
    layout->addLayout(tabs);

    m_animationPage =
        new animation::AnimationPage(m_workspace.documents.animation, m_workspace.pictures.animation, this);
    m_pages = new QStackedWidget(column);
    m_pages->setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
    m_pages->addWidget(new editing::NamePage(m_workspace.documents.name, m_workspace.pictures.name, this));
    m_pages->addWidget(m_animationPage);
    m_pages->addWidget(
        new scripts::MessagesPage(m_workspace.documents.messages, m_workspace.pictures.messages, this));
    layout->addWidget(m_pages, 1);
    layout->addSpacing(Spacing);

    auto* cursorRow = new QHBoxLayout;
    imgDir = new editing::DirectionPad(column);
    imgDir->setObjectName(QStringLiteral("imgDir"));
    lblCurPos = new QLabel(column);
    lblCurPos->setObjectName(QStringLiteral("lblCurPos"));
    lblCurPos->setAccessibleDescription(tr("Cursor position"));
    lblCurPos->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("15,90")));
    cursorRow->addWidget(imgDir);
    cursorRow->addSpacing(Spacing);
    cursorRow->addWidget(new QLabel(tr("Cursor"), column));
    cursorRow->addSpacing(Spacing);
    cursorRow->addWidget(lblCurPos);
    cursorRow->addStretch(1);
    layout->addLayout(cursorRow);
    return column;
}

void frmVTM::buildCentre() {
    auto* content = new QWidget(this);
    auto* layout = new QHBoxLayout(content);
    layout->setContentsMargins(0, Margin, 0, Margin);
    layout->setSpacing(0);
    // A small window takes the room between the columns before it is scrolled.
    const auto addGap = [layout] {
        layout->addSpacing(LeastGap);
        layout->addItem(new QSpacerItem(Margin - LeastGap, 0, QSizePolicy::Maximum));
    };
    addGap();
    m_glyphColumn = new GlyphColumn(m_workspace.settings, m_workspace.atlas, content);
    layout->addWidget(m_glyphColumn, 0, Qt::AlignTop);
    addGap();
    layout->addWidget(buildPageColumn(), 1);
    addGap();
    m_centre = new ScrollingCentre(this);
    m_centre->setObjectName(QStringLiteral("centre"));
    m_centre->setAccessibleName(tr("Glyphs and pages"));
    m_centre->setWidget(content);
    setCentralWidget(m_centre);

    picProgress = new ProgressIndicator(this);
    m_statusLine = new StatusLine(this);
    m_statusLine->addPermanentWidget(picProgress);
    // The toolkit adds two pixels of its own.
    m_statusLine->setContentsMargins(Margin - 2, 0, Margin - 2, 0);
    setStatusBar(m_statusLine);
    describeKeys();
}

QSize frmVTM::firstSize() const {
    // The layouts learn, from the inside out, what the pages out of view want at this scale.
    std::ranges::for_each(
        m_centre->findChildren<ui::qt::PictureWidget*>(), &ui::qt::PictureWidget::fitPicture);
    const auto parts = m_centre->findChildren<QWidget*>();
    for (auto part = parts.rbegin(); part != parts.rend(); ++part) {
        if (QLayout* const layout = (*part)->layout()) {
            layout->invalidate();
            layout->activate();
        }
    }
    // No toolbar button hides behind an arrow, also where the scale of the screen rounds the width down.
    QSize wanted = sizeHint().expandedTo({Toolbar1->sizeHint().width() + RoundingRoom, 0});
    const QSize room = screen()->availableSize() - FrameRoom;
    if (m_centre->widget()->minimumSizeHint().width() > room.width()) {
        wanted.rheight() += m_centre->horizontalScrollBar()->sizeHint().height();
    }
    return wanted.boundedTo(room);
}

void frmVTM::describeKeys() {
    for (const char* name : {"AniTotalScroll", "ThisTickList", "TickList", "VScroll1"}) {
        DescribeKeys(*m_animationPage->findChild<QWidget*>(QLatin1String(name)));
    }
}

} // namespace shell
