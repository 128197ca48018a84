// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/GlyphReadout.h"

#include "editing/GlyphCells.h"
#include "editing/GlyphFacts.h"
#include "glyphs/mdlPaint.h"
#include "shell/GlyphFinder.h"
#include "shell/Workspace.h"
#include "ui/qt/LineLabel.h"
#include "ui/qt/PictureWidget.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <chrono>

namespace shell {

namespace {

constexpr int PictureSide = 3 * glyphs::CellSide;
constexpr int PictureGap = 8;
constexpr std::chrono::milliseconds RestTime(150);

} // namespace

GlyphReadout::GlyphReadout(const Workspace& workspace, QWidget* parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_picture(PictureSide, PictureSide)
    , picReadout(new ui::qt::PictureWidget(this))
    , m_lines(new QVBoxLayout) {
    setObjectName(QStringLiteral("readout"));
    setAccessibleName(tr("The glyph under the pointer or the cursor"));
    picReadout->setObjectName(QStringLiteral("picReadout"));
    picReadout->setAccessibleName(tr("Its picture"));
    picReadout->setBlock(PictureSide / glyphs::ArtworkCell);
    picReadout->setPicture(&m_picture);
    m_lines->setSpacing(0);
    m_lines->addStretch(1);
    for (std::size_t i = 0; i < lblReadout.size(); ++i) {
        lblReadout[i] = new ui::qt::LineLabel(this);
        lblReadout[i]->setObjectName(QStringLiteral("lblReadout_%1").arg(i));
        m_lines->addWidget(lblReadout[i]);
    }
    m_lines->addStretch(1);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(PictureGap);
    layout->addWidget(picReadout, 0, Qt::AlignVCenter);
    layout->addLayout(m_lines, 1);
    tmrReadout.setSingleShot(true);
    connect(&tmrReadout, &QTimer::timeout, this, &GlyphReadout::tmrReadout_Timer);
}

void GlyphReadout::tell(glyphs::GlyphCode code, When when) {
    if (code != m_code) {
        m_code = code;
        tmrReadout.start(when == When::AtOnce ? std::chrono::milliseconds(0) : RestTime);
    }
}

void GlyphReadout::tellAgain() {
    tmrReadout.start(0);
}

GlyphFinder* GlyphReadout::makeFinder() {
    auto* const finder = new GlyphFinder(this);
    m_lines->insertWidget(m_lines->count() - 1, finder);
    return finder;
}

void GlyphReadout::showLines(bool areShown) {
    for (ui::qt::LineLabel* const label : lblReadout) {
        label->setVisible(areShown);
    }
}

void GlyphReadout::tmrReadout_Timer() {
    if (m_workspace.atlas.cells.empty()) {
        return; // a message of the start stands before the glyphs are read
    }
    glyphs::StretchCells(m_picture, m_picture.bounds(), m_workspace.atlas.cells, editing::GridCell(m_code));
    picReadout->showDamage(m_picture.bounds());
    const editing::GlyphFacts facts =
        editing::FactsOf(m_code, m_workspace.keys.used, m_workspace.settings.modes);
    const std::array<const std::string*, 3> texts{&facts.name, &facts.keys, &facts.note};
    for (std::size_t i = 0; i < texts.size(); ++i) {
        lblReadout[i]->tell(QString::fromStdString(*texts[i]));
    }
}

} // namespace shell
