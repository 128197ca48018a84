// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/frmRankings.h"

#include "glyphs/GlyphWords.h"
#include "ui/qt/PictureWidget.h"
#include "ui/qt/Text.h"
#include "ui/qt/WholePixels.h"
#include "ui_frmRankings.h"

#include <QAccessible>
#include <QApplication>
#include <QImageReader>
#include <QPainter>
#include <QScreen>
#include <QTimer>

#include <algorithm>
#include <array>
#include <utility>

namespace animation {

namespace {

/// The painted rows of the names in use, copied.
QImage RowsInUse(const ui::Picture& painted, int names) {
    return ui::qt::ImageOver(painted).copy(0, 0, painted.width(), names * glyphs::CellSide);
}

ui::Picture PictureOf(const QImage& image) {
    const QImage opaque = image.convertToFormat(QImage::Format_RGB32);
    ui::Picture picture(opaque.width(), opaque.height());
    for (int y = 0; y < opaque.height(); ++y) {
        std::copy_n(reinterpret_cast<const QRgb*>(opaque.constScanLine(y)), opaque.width(), picture.row(y));
    }
    return picture;
}

QRect RectOf(const ui::Rect& rect) {
    return {rect.x, rect.y, rect.width, rect.height};
}

} // namespace

frmRankings::frmRankings(
    const editing::AnimationDocument& animation, const ui::Picture& paintedNames,
    const std::string& screenShot, const ui::Platform& platform, const glyphs::SoundOptions& soundOptions,
    QWidget* parent)
    : QDialog(parent)
    , m_form(std::make_unique<Ui::frmRankings>())
    , m_animation(animation)
    , m_platform(platform)
    , m_soundOptions(soundOptions)
    , m_preview(animation)
    , m_names(RowsInUse(paintedNames, animation.nameCount))
    , AniTimer(new QTimer(this)) {
    m_form->setupUi(this);
    AniTimer->setObjectName(QStringLiteral("AniTimer"));
    AniTimer->setTimerType(Qt::PreciseTimer);
    AniTimer->setInterval(TickMilliseconds);

    // The game's picture stands on black, whatever the colours of the desktop.
    QPalette black = palette();
    black.setColor(QPalette::Window, Qt::black);
    setPalette(black);

    // At a fractional scale the screenshot shows through at the edges of the frame.
    m_form->AniPic->setAutoFillBackground(false);

    loadScreenShot(screenShot);
    connectControls();
    setWindowState(windowState() | Qt::WindowFullScreen);
    // Placed on the parent's screen, also where no window manager does so.
    setGeometry((parent == nullptr ? this : parent)->screen()->geometry());
}

frmRankings::~frmRankings() = default;

void frmRankings::loadScreenShot(const std::string& setting) {
    ScreenShot found = FindScreenShot(setting, m_platform.files, m_platform.directory);
    m_message = std::move(found.message);
    if (!found.path.empty()) {
        // A picture that cannot be read leaves the background empty.
        m_screenShot = QImageReader(ui::qt::FromPath(found.path)).read();
    }
}

void frmRankings::connectControls() {
    connect(m_form->cmdPlay, &QPushButton::clicked, this, &frmRankings::cmdPlay_Click);
    connect(m_form->cmdStop, &QPushButton::clicked, this, &frmRankings::cmdStop_Click);
    connect(m_form->cmdToBegin, &QPushButton::clicked, this, &frmRankings::cmdToBegin_Click);
    connect(m_form->cmdRewind, &QPushButton::clicked, this, &frmRankings::cmdRewind_Click);
    connect(m_form->cmdForward, &QPushButton::clicked, this, &frmRankings::cmdForward_Click);
    connect(m_form->cmdToEnd, &QPushButton::clicked, this, &frmRankings::cmdToEnd_Click);
    connect(m_form->cmdQuit, &QPushButton::clicked, this, &frmRankings::cmdQuit_Click);
    connect(AniTimer, &QTimer::timeout, this, &frmRankings::AniTimer_Timer);
}

void frmRankings::done(int result) {
    m_preview.close();
    AniTimer->stop();
    QDialog::done(result);
}

void frmRankings::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    m_form->cmdPlay->setFocus();
    if (!m_message.empty()) {
        // Once the window is on the screen, so that the box stands over it.
        QMetaObject::invokeMethod(
            this, [this, message = std::exchange(m_message, {})] { m_platform.dialogs.warn(message); },
            Qt::QueuedConnection);
    }
}

bool frmRankings::event(QEvent* event) {
    const bool isDone = QDialog::event(event);
    if (ui::qt::TellsOfAnotherScale(*event)) {
        Form_Resize();
    }
    return isDone;
}

void frmRankings::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    Form_Resize();
}

void frmRankings::Form_Resize() {
    const QSize player = m_form->picPlayer->sizeHint();
    const RankingsLayout before = std::exchange(
        m_layout, LayOutRankings(
                      {.windowWidth = width(),
                       .windowHeight = height(),
                       .screenShotWidth = m_screenShot.width(),
                       .screenShotHeight = m_screenShot.height(),
                       .playerWidth = player.width(),
                       .playerHeight = player.height(),
                       .devicePixelRatio = devicePixelRatioF()}));
    if (m_shownNames.empty() || before.enlarge != m_layout.enlarge || before.reduce != m_layout.reduce) {
        scalePictures();
    }
    m_form->picScreenShot->move(m_layout.screenShot.x, m_layout.screenShot.y);
    m_form->AniPicBox->setGeometry(RectOf(m_layout.strip));
    m_form->picPlayer->setGeometry(RectOf(m_layout.player));
    m_form->cmdQuit->setGeometry(RectOf(m_layout.quit));
    showName();
}

void frmRankings::scalePictures() {
    const int enlarge = m_layout.enlarge;
    const int reduce = m_layout.reduce;
    // Enlarged pixels stay blocks; where several become one they are blended.
    const bool areBlended = reduce > enlarge;
    const auto scaled = [=](const QImage& image) {
        return areBlended ? image.scaled(
                                (QSizeF(image.size()) / reduce).toSize().expandedTo({1, 1}),
                                Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                          : image;
    };
    m_shownScreenShot = m_screenShot.isNull() ? ui::Picture() : PictureOf(scaled(m_screenShot));
    const int names = m_names.height() / glyphs::CellSide;
    const QSize one = scaled(strip(1)).size();
    QImage all(one.width(), names * one.height(), QImage::Format_RGB32);
    QPainter painter(&all);
    for (int name = 1; name <= names; ++name) {
        painter.drawImage(0, (name - 1) * one.height(), scaled(strip(name)));
    }
    painter.end();
    m_shownNames = PictureOf(all);
    for (ui::qt::PictureWidget* const shown : {m_form->picScreenShot, m_form->AniPic}) {
        shown->setBlock(areBlended ? 1 : reduce, areBlended ? 1 : enlarge);
    }
    m_form->picScreenShot->setPicture(&m_shownScreenShot);
    m_form->AniPic->setPicture(&m_shownNames);
}

/// A name over the part of the screenshot that the strip covers.
QImage frmRankings::strip(int name) const {
    QImage image(m_layout.underStrip.width, m_layout.underStrip.height, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.drawImage(-m_layout.underStrip.x, -m_layout.underStrip.y, m_screenShot);
    painter.drawImage(
        m_layout.nameX, m_layout.nameY, m_names, 0, (name - 1) * glyphs::CellSide, -1, glyphs::CellSide);
    return image;
}

void frmRankings::showName() {
    const int name = m_preview.shownName();
    const int height = m_shownNames.height() * glyphs::CellSide / m_names.height();
    m_form->AniPic->setView((name - 1) * height, height, {m_layout.insetX, m_layout.insetY});
    // While it plays no voice could keep up.
    if (QAccessible::isActive() && !m_preview.playing()) {
        m_form->AniPic->setAccessibleDescription(
            tr("Name %1: %2")
                .arg(name)
                .arg(QString::fromStdString(glyphs::ReadableRow(m_animation.name(name)))));
    }
}

void frmRankings::followPlaying() {
    showName();
    const bool playing = m_preview.playing();
    const std::array<QWidget*, 5> idleButtons = {
        m_form->cmdPlay, m_form->cmdRewind, m_form->cmdToBegin, m_form->cmdToEnd, m_form->cmdForward};
    if (playing == AniTimer->isActive()) {
        return;
    }
    // The keyboard stays with the one button that makes sense next.
    if (playing && m_form->picPlayer->isAncestorOf(focusWidget())) {
        m_form->cmdStop->setFocus();
    }
    for (QWidget* const button : idleButtons) {
        button->setEnabled(!playing);
    }
    if (playing) {
        m_ticks = 0;
        m_clock.start();
        AniTimer->start();
    } else {
        AniTimer->stop();
        if (focusWidget() == m_form->cmdStop) {
            m_form->cmdPlay->setFocus();
        }
    }
}

void frmRankings::cmdPlay_Click() {
    glyphs::PlaySoundResource(m_platform.sounds, m_soundOptions, glyphs::PreviewStartedSound);
    m_preview.play();
    followPlaying();
}

void frmRankings::cmdStop_Click() {
    m_preview.stop();
}

void frmRankings::cmdToBegin_Click() {
    m_preview.toBegin();
    showName();
}

void frmRankings::cmdRewind_Click() {
    m_preview.rewind();
    showName();
}

void frmRankings::cmdForward_Click() {
    m_preview.forward();
    showName();
}

void frmRankings::cmdToEnd_Click() {
    m_preview.toEnd();
    showName();
}

void frmRankings::cmdQuit_Click() {
    accept();
}

void frmRankings::AniTimer_Timer() {
    // A timer that comes late makes up for the ticks that it missed.
    for (std::int64_t due = TicksDue(m_clock.elapsed(), m_ticks); due > 0; --due) {
        m_preview.step();
        ++m_ticks;
    }
    followPlaying();
}

} // namespace animation
