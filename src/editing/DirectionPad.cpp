// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/DirectionPad.h"

#include "editing/mdlKey.h"
#include "ui/qt/AccessibleParts.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPolygonF>

namespace editing {

namespace {

constexpr int KeySide = 26;
constexpr int Gap = 2;
constexpr int FirstRepeat = 400; // milliseconds
constexpr int NextRepeats = 60;
constexpr int FlashTime = 120;

struct Arrow {
    const char* name;
    int virtualKey;
    QPoint cell;  ///< place of the key in a 3 x 2 block, as on a keyboard
    int rotation; ///< of an arrow that points up, in degrees
};

constexpr std::array<Arrow, DirectionPad::ArrowCount> Arrows{{
    {QT_TRANSLATE_NOOP("editing::DirectionPad", "Up"), KeyUp, {1, 0}, 0},
    {QT_TRANSLATE_NOOP("editing::DirectionPad", "Left"), KeyLeft, {0, 1}, 270},
    {QT_TRANSLATE_NOOP("editing::DirectionPad", "Down"), KeyDown, {1, 1}, 180},
    {QT_TRANSLATE_NOOP("editing::DirectionPad", "Right"), KeyRight, {2, 1}, 90},
}};

QRect KeyRect(const Arrow& arrow) {
    return {arrow.cell.x() * (KeySide + Gap), arrow.cell.y() * (KeySide + Gap), KeySide, KeySide};
}

/// The pad as assistive tools see it: a group of four buttons.
class PadAccess final : public ui::qt::AccessibleParts {
public:
    explicit PadAccess(DirectionPad& pad)
        : AccessibleParts(pad, QAccessible::Grouping) {}

    [[nodiscard]] int partCount() const override { return DirectionPad::ArrowCount; }

    [[nodiscard]] QAccessible::Role partRole() const override { return QAccessible::Button; }

    [[nodiscard]] QString partText(QAccessible::Text kind, int index) const override {
        return kind == QAccessible::Name ? DirectionPad::arrowName(index) : QString();
    }

    [[nodiscard]] QRect partRect(int index) const override { return DirectionPad::arrowRect(index); }

    [[nodiscard]] bool canPressParts() const override { return true; }

    void pressPart(int index) const override { static_cast<DirectionPad*>(owner())->pressArrow(index); }
};

} // namespace

DirectionPad::DirectionPad(QWidget* parent)
    : QWidget(parent) {
    ui::qt::InstallAccess<DirectionPad, PadAccess>();
    setFixedSize(sizeHint());
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(tr("Direction pad"));
    setAccessibleDescription(tr("Moves the cursor like the arrow keys"));
    m_repeat.setParent(this);
    m_repeat.setObjectName(QStringLiteral("imgTimer"));
    connect(&m_repeat, &QTimer::timeout, this, &DirectionPad::imgTimer_Timer);
}

void DirectionPad::showKey(int virtualKey) {
    for (std::size_t i = 0; i < Arrows.size(); ++i) {
        if (Arrows[i].virtualKey == virtualKey && !m_isHeld) {
            press(i);
            m_repeat.start(FlashTime);
        }
    }
}

std::optional<int> DirectionPad::pressedKey() const {
    return m_pressed ? std::optional(Arrows[*m_pressed].virtualKey) : std::nullopt;
}

QString DirectionPad::arrowName(int index) {
    return tr(Arrows.at(static_cast<std::size_t>(index)).name);
}

QRect DirectionPad::arrowRect(int index) {
    return KeyRect(Arrows.at(static_cast<std::size_t>(index)));
}

void DirectionPad::pressArrow(int index) {
    const int virtualKey = Arrows.at(static_cast<std::size_t>(index)).virtualKey;
    showKey(virtualKey);
    Q_EMIT arrow(virtualKey);
}

QSize DirectionPad::sizeHint() const {
    return {3 * KeySide + 2 * Gap, 2 * KeySide + Gap};
}

void DirectionPad::press(std::optional<std::size_t> index) {
    if (index != m_pressed) {
        m_pressed = index;
        update();
    }
}

void DirectionPad::imgTimer_Timer() {
    // A menu or a dialog that opens meanwhile gets the release.
    m_isHeld = m_isHeld && QGuiApplication::mouseButtons().testFlag(Qt::LeftButton);
    if (!m_isHeld || !m_pressed) {
        m_repeat.stop();
        press(std::nullopt);
        return;
    }
    m_repeat.setInterval(NextRepeats);
    Q_EMIT arrow(Arrows[*m_pressed].virtualKey);
}

void DirectionPad::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    for (std::size_t i = 0; i < Arrows.size(); ++i) {
        if (KeyRect(Arrows[i]).contains(event->position().toPoint())) {
            m_isHeld = true;
            press(i);
            m_repeat.start(FirstRepeat);
            Q_EMIT arrow(Arrows[i].virtualKey);
            return;
        }
    }
}

void DirectionPad::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_isHeld = false;
        m_repeat.stop();
        press(std::nullopt);
    }
}

void DirectionPad::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (std::size_t i = 0; i < Arrows.size(); ++i) {
        const bool isPressed = m_pressed == i;
        const QRectF key = QRectF(KeyRect(Arrows[i])).adjusted(0.5, 0.5, -0.5, -0.5);
        painter.setPen(palette().color(QPalette::Mid));
        painter.setBrush(isPressed ? palette().highlight() : palette().button());
        painter.drawRoundedRect(key, 3, 3);
        painter.save();
        painter.translate(key.center());
        painter.rotate(Arrows[i].rotation);
        painter.setPen(Qt::NoPen);
        painter.setBrush(isPressed ? palette().highlightedText() : palette().buttonText());
        painter.drawPolygon(QPolygonF({QPointF(0, -5), QPointF(5.5, 4), QPointF(-5.5, 4)}));
        painter.restore();
    }
}

} // namespace editing
