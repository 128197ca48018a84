// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/WizardStrip.h"

#include "glyphs/GlyphWords.h"
#include "ui/qt/LineLabel.h"
#include "ui/qt/PictureWidget.h"
#include "ui/qt/SmallPrint.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QStyle>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace animation {

namespace {

constexpr int BandMargin = 4;
constexpr int LineGap = 2;

/// After a longer absence the strip plays on where it was.
constexpr std::int64_t MostTicksDue = 20;

/// Whether the desktop lets things move by themselves.
bool DesktopMoves(const QWidget& widget) {
    return widget.style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, &widget) > 0;
}

} // namespace

WizardStrip::WizardStrip(QWidget* parent)
    : QWidget(parent)
    , m_paused(!DesktopMoves(*this))
    , m_band(new QFrame(this))
    , m_strip(new ui::qt::PictureWidget(m_band))
    , m_note(new ui::qt::LineLabel(this))
    , m_pauseButton(new QToolButton(this))
    , m_timer(new QTimer(this)) {
    setAccessibleName(tr("Preview of the choices"));
    m_strip->setObjectName(QStringLiteral("picTrial"));
    m_strip->setAccessibleName(tr("What will be built"));
    m_strip->setBlock(glyphs::CellBlock);
    m_strip->setPicture(&m_picture.pixels());
    m_band->setAutoFillBackground(true);
    auto* const inBand = new QHBoxLayout(m_band);
    inBand->setContentsMargins(BandMargin, BandMargin, BandMargin, BandMargin);
    inBand->addWidget(m_strip, 0, Qt::AlignCenter);

    m_note->setObjectName(QStringLiteral("lblTrial"));
    ui::qt::SetSmallPrint(*m_note);
    m_pauseButton->setObjectName(QStringLiteral("cmdPause"));
    m_pauseButton->setFocusPolicy(Qt::StrongFocus);
    ui::qt::SetSmallPrint(*m_pauseButton);
    auto* const line = new QHBoxLayout;
    line->addWidget(m_note, 1);
    line->addWidget(m_pauseButton);
    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(LineGap);
    all->addWidget(m_band);
    all->addLayout(line);

    m_timer->setObjectName(QStringLiteral("StripTimer"));
    m_timer->setTimerType(Qt::PreciseTimer);
    m_timer->setInterval(TickMilliseconds);
    connect(m_timer, &QTimer::timeout, this, &WizardStrip::StripTimer_Timer);
    connect(m_pauseButton, &QToolButton::clicked, this, &WizardStrip::cmdPause_Click);
    follow();
}

void WizardStrip::setAtlas(const glyphs::GlyphAtlas& atlas) {
    m_atlas = &atlas;
    // The band is of the colour that the glyphs stand on.
    QPalette band = m_band->palette();
    band.setColor(QPalette::Window, QColor::fromRgb(atlas.cells.pixel(0, 2 * glyphs::CellSide)));
    m_band->setPalette(band);
    m_paintedName = 0;
    showName();
}

void WizardStrip::show(const Trial& trial) {
    m_note->tell(
        QString::fromStdString(trial.note),
        trial.note.empty() ? QString() : tr("A name that fills its 15 places shows the most of a movement."));
    if (trial == m_trial) {
        return;
    }
    m_trial = trial;
    m_preview = TrialPreview(m_trial.names);
    m_paintedName = 0;
    if (m_paused) {
        m_preview.showMiddle();
    }
    follow();
}

QRect WizardStrip::globalArea() const {
    return {mapToGlobal(QPoint(0, 0)), size()};
}

QWidget* WizardStrip::button() const {
    return m_pauseButton;
}

void WizardStrip::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    follow();
}

void WizardStrip::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    follow();
}

void WizardStrip::follow() {
    m_pauseButton->setText(m_paused ? tr("&Play") : tr("&Pause"));
    m_pauseButton->setAccessibleDescription(
        m_paused ? tr("Plays what will be built") : tr("Stops what plays"));
    const bool plays = isVisible() && !m_paused && m_preview.moves();
    if (plays && !m_timer->isActive()) {
        m_ticks = 0;
        m_clock.start();
        m_timer->start();
    } else if (!plays) {
        m_timer->stop();
    }
    showName();
}

void WizardStrip::showName() {
    const int name = m_preview.shownName();
    if (m_atlas == nullptr || name == m_paintedName) {
        return;
    }
    m_paintedName = name;
    int column = 0;
    for (const glyphs::GlyphCode code : m_trial.names.name(name)) {
        glyphs::PaintGlyph(m_picture.canvas(), *m_atlas, code, ++column, 1);
    }
    m_picture.damageAll();
    m_strip->showDamage(m_picture.takeDamage());
    // While it plays no voice could keep up.
    if (!m_timer->isActive()) {
        m_strip->setAccessibleDescription(
            tr("Name %1: %2")
                .arg(name)
                .arg(QString::fromStdString(glyphs::ReadableRow(m_trial.names.name(name)))));
    }
}

void WizardStrip::cmdPause_Click() {
    m_paused = !m_paused;
    if (!m_paused) {
        m_preview.begin();
    }
    m_paintedName = 0;
    follow();
}

void WizardStrip::StripTimer_Timer() {
    const std::int64_t due = TicksDue(m_clock.elapsed(), m_ticks);
    m_ticks += due;
    for (std::int64_t tick = std::min(due, MostTicksDue); tick > 0; --tick) {
        m_preview.step();
    }
    showName();
}

} // namespace animation
