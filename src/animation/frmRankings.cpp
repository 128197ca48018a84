// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/frmRankings.h"

#include "animation/PlayerLook.h"
#include "animation/RowTimes.h"
#include "animation/StripMover.h"
#include "games/Timetable.h"
#include "glyphs/GlyphWords.h"
#include "ui/qt/OwnColors.h"
#include "ui/qt/PictureWidget.h"
#include "ui/qt/Text.h"
#include "ui/qt/WholePixels.h"
#include "ui_frmRankings.h"

#include <QAccessible>
#include <QApplication>
#include <QImageReader>
#include <QKeyEvent>
#include <QScreen>
#include <QShortcut>
#include <QTimer>

#include <algorithm>
#include <array>
#include <utility>

namespace animation {

namespace {

/// Between the buttons and what stands beside them.
constexpr int PlaceDistance = 16;

ui::Picture PictureOf(const QImage& image) {
    const QImage opaque = image.convertToFormat(QImage::Format_RGB32);
    ui::Picture picture(opaque.width(), opaque.height());
    for (int y = 0; y < opaque.height(); ++y) {
        std::copy_n(reinterpret_cast<const QRgb*>(opaque.constScanLine(y)), opaque.width(), picture.row(y));
    }
    return picture;
}

/// The painted rows of the names in use, copied.
ui::Picture RowsInUse(const ui::Picture& painted, int names) {
    return PictureOf(ui::qt::ImageOver(painted).copy(0, 0, painted.width(), names * glyphs::CellSide));
}

QRect RectOf(const ui::Rect& rect) {
    return {rect.x, rect.y, rect.width, rect.height};
}

} // namespace

frmRankings::frmRankings(
    const editing::AnimationDocument& animation, const ui::Picture& paintedNames, RankingsChoices choices,
    const ui::Platform& platform, QWidget* parent)
    : QDialog(parent)
    , m_form(std::make_unique<Ui::frmRankings>())
    , m_animation(animation)
    , m_platform(platform)
    , m_choices(std::move(choices))
    , m_preview(animation)
    , m_names(RowsInUse(paintedNames, animation.nameCount))
    , m_isDoubled(IsDoubled(m_names))
    , AniTimer(new QTimer(this)) {
    m_form->setupUi(this);
    AniTimer->setObjectName(QStringLiteral("AniTimer"));
    AniTimer->setTimerType(Qt::PreciseTimer);
    AniTimer->setInterval(TickMilliseconds);

    setPalette(PlayerPalette());
    for (QPushButton* const button : findChildren<QPushButton*>()) {
        button->setStyleSheet(PlayerButtonStyle());
    }
    ui::qt::ShowOwnColors(*m_form->chkAgain);
    ui::qt::ShowOwnColors(*m_form->cmboPace);

    // At a fractional scale the screenshot shows through at the edges of the frame.
    m_form->AniPic->setAutoFillBackground(false);

    m_mover = new StripMover(m_form->AniPic, this, m_choices.line);
    loadScreenShot();
    offerPaces();
    keepPlaceWidth();
    connectControls();
    connectKeys();
    setWindowState(windowState() | Qt::WindowFullScreen);
    // Placed on the parent's screen, also where no window manager does so.
    setGeometry((parent == nullptr ? this : parent)->screen()->geometry());
}

frmRankings::~frmRankings() = default;

void frmRankings::loadScreenShot() {
    ScreenShot found = FindScreenShot(m_choices.screenShot, m_platform.files, m_platform.directory);
    m_message = std::move(found.message);
    if (found.path.empty()) {
        m_form->lblReason->setText(
            m_choices.screenShot.empty()
                ? tr("No screen shot is chosen.")
                : tr("There is no file %1.").arg(ui::qt::FromPath(m_choices.screenShot)));
        return;
    }
    QImageReader reader(ui::qt::FromPath(found.path));
    // A picture that cannot be read leaves the background empty.
    m_screenShot = reader.read();
    m_isDoubled = m_isDoubled && (m_screenShot.isNull() || IsDoubled(PictureOf(m_screenShot)));
    if (m_screenShot.isNull()) {
        m_form->lblReason->setText(
            tr("%1 cannot be shown: %2").arg(ui::qt::FromPath(found.path), reader.errorString()));
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
    connect(m_form->chkAgain, &QCheckBox::toggled, this, &frmRankings::chkAgain_Click);
    connect(m_form->cmboPace, &QComboBox::currentIndexChanged, this, &frmRankings::cmboPace_Click);
    connect(m_mover, &StripMover::moved, this, &frmRankings::Form_Resize);
    connect(AniTimer, &QTimer::timeout, this, &frmRankings::AniTimer_Timer);
}

void frmRankings::connectKeys() {
    const std::array<std::pair<Qt::Key, QPushButton*>, 4> keys = {{
        {Qt::Key_Left, m_form->cmdRewind},
        {Qt::Key_Right, m_form->cmdForward},
        {Qt::Key_Home, m_form->cmdToBegin},
        {Qt::Key_End, m_form->cmdToEnd},
    }};
    for (const auto& [key, button] : keys) {
        // Ahead of the buttons, which would pass the keyboard on to their neighbours.
        connect(new QShortcut(key, this), &QShortcut::activated, button, &QPushButton::click);
    }
}

/// The preview's own pace, and those of the games that are played.
void frmRankings::offerPaces() {
    m_form->cmboPace->addItem(tr("%1 ms a tick").arg(TickMilliseconds), TickMilliseconds);
    for (std::size_t i = 0; i < games::Families.size(); ++i) {
        if (m_choices.games.at(i)) {
            const int tick = games::PaceOf(games::Families.at(i)).tick;
            m_form->cmboPace->addItem(
                tr("%1, %2 ms").arg(ui::qt::FromLatin1(games::FamilyNames.at(i))).arg(tick), tick);
        }
    }
    const bool hasChoice = m_form->cmboPace->count() > 1;
    m_form->lblPace->setVisible(hasChoice);
    m_form->cmboPace->setVisible(hasChoice);
}

/// Leaves the texts room for their longest, so that nothing moves while it plays.
void frmRankings::keepPlaceWidth() {
    int widest = 0;
    std::int64_t ticks = 0;
    for (int name = 1; name <= m_animation.nameCount; ++name) {
        m_form->lblPlace->setText(placeText(name));
        widest = std::max(widest, m_form->lblPlace->sizeHint().width());
        ticks += m_preview.ticksOf(name);
    }
    m_form->lblPlace->setMinimumWidth(widest);
    m_form->lblTime->setText(SecondsText(ticks * TickMilliseconds));
    m_form->lblTime->setMinimumWidth(m_form->lblTime->sizeHint().width());
}

std::optional<BoardLine> frmRankings::line() const {
    return m_mover->line();
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
    const QSize player = playerSize();
    const RankingsLayout before = std::exchange(
        m_layout, LayOutRankings(
                      {.windowWidth = width(),
                       .windowHeight = height(),
                       .screenShotWidth = m_screenShot.width(),
                       .screenShotHeight = m_screenShot.height(),
                       .playerWidth = player.width(),
                       .playerHeight = player.height(),
                       .devicePixelRatio = devicePixelRatioF(),
                       .isDoubled = m_isDoubled,
                       .line = m_mover->line()}));
    if (m_form->AniPic->picture() == nullptr || before.enlarge != m_layout.enlarge ||
        before.reduce != m_layout.reduce || before.nameReduce != m_layout.nameReduce) {
        scalePictures();
    }
    m_mover->follow(m_layout);
    m_form->picScreenShot->move(m_layout.screenShot.x, m_layout.screenShot.y);
    m_form->AniPicBox->setGeometry(RectOf(m_layout.strip));
    m_form->picPlayer->setGeometry(RectOf(m_layout.player));
    m_form->cmdQuit->setGeometry(RectOf(m_layout.quit));
    m_form->lblReason->setGeometry(
        0, m_layout.screenShot.empty() ? height() / TopPart : 0, width(),
        m_form->lblReason->heightForWidth(width()));
    m_form->lblReason->setVisible(m_screenShot.isNull());
    showName();
}

/// In a narrow window the texts stand below the buttons, clear of the OK button.
QSize frmRankings::playerSize() {
    for (const auto& [direction, spacing] :
         {std::pair(QBoxLayout::LeftToRight, PlaceDistance), std::pair(QBoxLayout::TopToBottom, 0)}) {
        m_form->layoutPlayer->setDirection(direction);
        m_form->layoutPlayer->setSpacing(spacing);
        if (m_form->picPlayer->sizeHint().width() <= width() - 2 * QuitDistance) {
            break;
        }
    }
    return m_form->picPlayer->sizeHint();
}

void frmRankings::scalePictures() {
    // Enlarged pixels stay blocks; where several become one they are blended.
    const bool isBlended = m_layout.reduce > m_layout.enlarge;
    m_shownScreenShot = ui::Picture();
    if (!m_screenShot.isNull()) {
        m_shownScreenShot = PictureOf(
            isBlended ? m_screenShot.scaled(
                            (QSizeF(m_screenShot.size()) / m_layout.reduce).toSize().expandedTo({1, 1}),
                            Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                      : m_screenShot);
    }
    m_form->picScreenShot->setBlock(isBlended ? 1 : m_layout.reduce, isBlended ? 1 : m_layout.enlarge);
    m_form->picScreenShot->setPicture(&m_shownScreenShot);
    m_form->AniPic->setBlock(m_layout.nameReduce, m_layout.nameEnlarge);
    m_form->AniPic->setPicture(&m_names);
}

QString frmRankings::placeText(int name) const {
    const int ticks = m_preview.ticksOf(name);
    return (ticks == 1 ? tr("%1 of %2, %3 tick") : tr("%1 of %2, %3 ticks"))
        .arg(name)
        .arg(m_animation.nameCount)
        .arg(ticks);
}

void frmRankings::showName() {
    m_form->lblPlace->setText(placeText(m_preview.shownName()));
    m_form->lblTime->setText(SecondsText(m_preview.elapsedTicks() * m_tick));
    const int name = m_preview.shownName();
    m_form->AniPic->setView(
        (name - 1) * glyphs::CellSide, glyphs::CellSide, {m_layout.insetX, m_layout.insetY});
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
    glyphs::PlaySoundResource(m_platform.sounds, m_choices.sounds, glyphs::PreviewStartedSound);
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

void frmRankings::chkAgain_Click() {
    m_preview.setAgain(m_form->chkAgain->isChecked());
}

void frmRankings::cmboPace_Click() {
    m_tick = m_form->cmboPace->currentData().toInt();
    AniTimer->setInterval(m_tick);
    m_ticks = 0;
    m_clock.start();
    showName();
}

void frmRankings::keyPressEvent(QKeyEvent* event) {
    // A button that has the keyboard takes it for itself.
    if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier) {
        (m_preview.playing() ? m_form->cmdStop : m_form->cmdPlay)->click();
        return;
    }
    QDialog::keyPressEvent(event);
}

void frmRankings::AniTimer_Timer() {
    // A timer that comes late makes up for the ticks that it missed.
    for (std::int64_t due = TicksDue(m_clock.elapsed(), m_ticks, m_tick); due > 0; --due) {
        m_preview.step();
        ++m_ticks;
    }
    followPlaying();
}

} // namespace animation
