// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/KeyboardPicture.h"

#include "glyphs/GlyphWords.h"
#include "ui/qt/AccessibleParts.h"
#include "ui/qt/Text.h"
#include "ui/qt/WholePixels.h"

#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace shell {

namespace {

using editing::DrawnKeyUse;
using editing::KeyboardKeys;
using editing::KeyQuarters;

constexpr int KeyGap = 2;       // between keys
constexpr int LeastCap = 9;     // pixels
constexpr int GlyphMargin = 2;  // from a glyph to the edge of its key
constexpr int CapMargin = 3;    // from what stands on a key to its edge
constexpr int SelectedEdge = 2; // width of the frame
constexpr std::size_t ShiftLayer = 1;
constexpr std::size_t CtrlLayer = 2;

std::size_t LayerOf(DrawnKeyUse use) {
    return use == DrawnKeyUse::Shift ? ShiftLayer : CtrlLayer;
}

/// The keyboard as assistive tools see it: a list of its keys.
class KeyboardAccess final : public ui::qt::AccessibleParts {
public:
    explicit KeyboardAccess(KeyboardPicture& picture)
        : AccessibleParts(picture, QAccessible::List) {}

    [[nodiscard]] int partCount() const override { return static_cast<int>(KeyboardKeys().size()); }

    [[nodiscard]] QAccessible::Role partRole() const override { return QAccessible::ListItem; }

    [[nodiscard]] QString partText(QAccessible::Text kind, int index) const override {
        return kind == QAccessible::Name ? picture().keyText(static_cast<std::size_t>(index)) : QString();
    }

    [[nodiscard]] QRect partRect(int index) const override {
        return picture().keyRect(static_cast<std::size_t>(index));
    }

    [[nodiscard]] QAccessible::State partState(int index) const override {
        QAccessible::State state = AccessibleParts::partState(index);
        const bool isMapped =
            KeyboardKeys()[static_cast<std::size_t>(index)].use == editing::DrawnKeyUse::Mapped;
        state.selectable = isMapped;
        state.focusable = isMapped;
        state.selected = index == selectedPart();
        state.focused = state.selected && owner()->hasFocus();
        return state;
    }

    [[nodiscard]] bool canPressParts() const override { return true; }

    void pressPart(int index) const override { picture().pressKey(static_cast<std::size_t>(index)); }

    [[nodiscard]] QAccessibleInterface* focusChild() const override {
        return owner()->hasFocus() ? child(selectedPart()) : nullptr;
    }

private:
    [[nodiscard]] KeyboardPicture& picture() const { return *static_cast<KeyboardPicture*>(owner()); }

    [[nodiscard]] int selectedPart() const {
        return static_cast<int>(editing::DrawnKeyOf(picture().selectedKey()));
    }
};

/// Between the colours of what is written and of what it is written on.
QColor Mixed(const QColor& front, const QColor& back, int frontPercent) {
    const auto mix = [frontPercent](int a, int b) {
        return (a * frontPercent + b * (100 - frontPercent)) / 100;
    };
    return {mix(front.red(), back.red()), mix(front.green(), back.green()), mix(front.blue(), back.blue())};
}

} // namespace

KeyboardPicture::KeyboardPicture(QWidget* parent)
    : QWidget(parent) {
    ui::qt::InstallAccess<KeyboardPicture, KeyboardAccess>();
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void KeyboardPicture::setKeys(const editing::KeyMap& keys, const glyphs::GlyphAtlas& atlas) {
    m_keys = &keys;
    m_atlas = &atlas;
    update();
}

void KeyboardPicture::selectKey(std::size_t key) {
    m_selected = key;
    update();
}

QSize KeyboardPicture::sizeHint() const {
    const int side = keySide();
    return {
        editing::KeyboardWidth() * side / KeyQuarters - KeyGap,
        editing::KeyboardHeight() * side / KeyQuarters - KeyGap};
}

int KeyboardPicture::keySide() const {
    // What stands on a key is above its glyph.
    const int side =
        QFontMetrics(capFont()).capHeight() + glyphs::CellSide + GlyphMargin + CapMargin + KeyGap;
    return std::max((side + KeyQuarters) / KeyQuarters * KeyQuarters, 28);
}

QFont KeyboardPicture::capFont() const {
    QFont small = font();
    small.setPixelSize(std::max(LeastCap, fontInfo().pixelSize() * 7 / 10));
    return small;
}

QRect KeyboardPicture::keyRect(std::size_t place) const {
    const editing::DrawnKey& key = KeyboardKeys().at(place);
    const int side = keySide();
    const auto toPixels = [side](int quarters) {
        return quarters * side / KeyQuarters;
    };
    return {
        toPixels(key.left), toPixels(key.top), toPixels(key.width) - KeyGap, toPixels(key.height) - KeyGap};
}

QString KeyboardPicture::keyText(std::size_t place) const {
    const editing::DrawnKey& key = KeyboardKeys().at(place);
    switch (key.use) {
    case DrawnKeyUse::Mapped:
        break;
    case DrawnKeyUse::Shift:
        return tr("Shift: shows what keys type with Shift");
    case DrawnKeyUse::Ctrl:
        return tr("Ctrl: shows what keys type with Ctrl");
    case DrawnKeyUse::None:
        return key.cap.empty() ? tr("Desktop key")
                               : tr("%1: types no glyph").arg(ui::qt::FromLatin1(key.cap));
    }
    const QString held = m_layer == 0 ? QString() : m_layer == ShiftLayer ? tr("Shift+") : tr("Ctrl+");
    const QString name = held + ui::qt::FromLatin1(editing::KeyNames()[key.key]);
    if (!editing::CanType(key.key, m_layer)) {
        return tr("%1: can never type").arg(name);
    }
    const glyphs::GlyphCode code = (*m_keys)[key.key][m_layer];
    return code == 0 ? tr("%1: types nothing").arg(name)
                     : tr("%1: %2").arg(name, QString::fromStdString(glyphs::GlyphName(code)));
}

void KeyboardPicture::pressKey(std::size_t place) {
    const editing::DrawnKey& key = KeyboardKeys().at(place);
    if (key.use == DrawnKeyUse::Mapped) {
        chooseKey(key.key);
    } else if (key.use != DrawnKeyUse::None) {
        m_latched = m_latched == LayerOf(key.use) ? 0 : LayerOf(key.use);
        showLayer();
    }
}

void KeyboardPicture::chooseKey(std::size_t key) {
    selectKey(key);
    announceKey();
    Q_EMIT keySelected(key);
}

void KeyboardPicture::announceKey() {
    if (QAccessible::isActive() && hasFocus()) {
        QAccessibleEvent focus(this, QAccessible::Focus);
        focus.setChild(static_cast<int>(editing::DrawnKeyOf(m_selected)));
        QAccessible::updateAccessibility(&focus);
    }
}

void KeyboardPicture::hold(Qt::KeyboardModifiers modifiers) {
    // As in the window, Shift goes before Ctrl.
    m_held = modifiers.testFlag(Qt::ShiftModifier)     ? ShiftLayer
             : modifiers.testFlag(Qt::ControlModifier) ? CtrlLayer
                                                       : 0;
    showLayer();
}

void KeyboardPicture::showLayer() {
    const std::size_t layer = m_held != 0 ? m_held : m_latched;
    if (layer != m_layer) {
        m_layer = layer;
        Q_EMIT layerChanged();
    }
    update();
}

bool KeyboardPicture::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        Qt::KeyboardModifiers modifiers = key.modifiers();
        const bool isDown = event->type() == QEvent::KeyPress;
        if (key.key() == Qt::Key_Shift) {
            modifiers.setFlag(Qt::ShiftModifier, isDown);
        } else if (key.key() == Qt::Key_Control) {
            modifiers.setFlag(Qt::ControlModifier, isDown);
        }
        hold(modifiers);
    } else if (event->type() == QEvent::ApplicationDeactivate) {
        // The release goes to another program.
        hold({});
    }
    return false;
}

void KeyboardPicture::showEvent(QShowEvent* /*event*/) {
    qApp->installEventFilter(this);
}

void KeyboardPicture::hideEvent(QHideEvent* /*event*/) {
    qApp->removeEventFilter(this);
    hold({});
}

bool KeyboardPicture::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto& help = static_cast<const QHelpEvent&>(*event);
        for (std::size_t place = 0; place < KeyboardKeys().size(); ++place) {
            const QRect rect = keyRect(place);
            if (rect.contains(help.pos()) && !KeyboardKeys()[place].cap.empty()) {
                QToolTip::showText(help.globalPos(), keyText(place), this, rect);
                return true;
            }
        }
        QToolTip::hideText();
        return true;
    }
    if (event->type() == QEvent::FontChange) {
        updateGeometry();
    }
    return QWidget::event(event);
}

void KeyboardPicture::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    announceKey();
    update();
}

void KeyboardPicture::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    m_reader.forgetHeldKeys();
    update();
}

void KeyboardPicture::keyPressEvent(QKeyEvent* event) {
    const ui::KeyStroke stroke = m_reader.press(*event);
    const auto go = [this](int columns, int rows) {
        const auto place = editing::KeyTowards(editing::DrawnKeyOf(m_selected), columns, rows);
        if (place) {
            chooseKey(KeyboardKeys()[*place].key);
        }
    };
    switch (stroke.virtualKey) {
    case editing::KeyLeft:
        return go(-1, 0);
    case editing::KeyRight:
        return go(1, 0);
    case editing::KeyUp:
        return go(0, -1);
    case editing::KeyDown:
        return go(0, 1);
    default:
        break;
    }
    const std::size_t key = editing::KeyIndex(stroke.virtualKey);
    // Row 0 serves keys without a row; Enter and Escape are the dialog's.
    const bool isDialogs = stroke.isAlt || key == 0 || key == editing::KeyIndex(editing::KeyEnter) ||
                           key == editing::KeyIndex(editing::KeyEscape);
    if (isDialogs) {
        QWidget::keyPressEvent(event);
    } else if (key != m_selected) {
        chooseKey(key);
    }
}

void KeyboardPicture::keyReleaseEvent(QKeyEvent* event) {
    m_reader.release(*event);
    QWidget::keyReleaseEvent(event);
}

void KeyboardPicture::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    for (std::size_t place = 0; place < KeyboardKeys().size(); ++place) {
        if (keyRect(place).contains(event->pos())) {
            pressKey(place);
            return;
        }
    }
}

void KeyboardPicture::paintEvent(QPaintEvent* /*event*/) {
    if (m_keys == nullptr) {
        return;
    }
    QPainter painter(this);
    painter.setFont(capFont());
    for (std::size_t place = 0; place < KeyboardKeys().size(); ++place) {
        drawKey(painter, place);
    }
}

bool KeyboardPicture::isLatched(const editing::DrawnKey& key) const {
    const bool isModifier = key.use == DrawnKeyUse::Shift || key.use == DrawnKeyUse::Ctrl;
    return isModifier && m_layer == LayerOf(key.use);
}

void KeyboardPicture::drawKey(QPainter& painter, std::size_t place) const {
    const editing::DrawnKey& key = KeyboardKeys()[place];
    const QRect rect = keyRect(place);
    const bool isMapped = key.use == DrawnKeyUse::Mapped;
    const bool types = isMapped && editing::CanType(key.key, m_layer);
    const QColor window = palette().color(QPalette::Window);
    const QColor text = palette().color(QPalette::WindowText);
    // Keys that type are of the colour that the glyphs stand on.
    constexpr int BlankTop = glyphs::BlankGlyph / 16 * glyphs::CellSide;
    QColor body = types ? QColor::fromRgb(m_atlas->cells.pixel(0, BlankTop)) : window;
    const bool isModifier = key.use == DrawnKeyUse::Shift || key.use == DrawnKeyUse::Ctrl;
    QColor cap = Mixed(text, window, isModifier ? 100 : 45);
    if (types) {
        cap = Mixed(qGray(body.rgb()) < 128 ? Qt::white : Qt::black, body, 70);
    } else if (isLatched(key)) {
        body = palette().color(QPalette::Highlight);
        cap = palette().color(QPalette::HighlightedText);
    }
    painter.fillRect(rect, body);
    const bool isSelected = isMapped && key.key == m_selected;
    QPen edge(isSelected ? palette().color(QPalette::Highlight) : Mixed(text, window, 30));
    edge.setWidth(isSelected ? SelectedEdge : 1);
    edge.setJoinStyle(Qt::MiterJoin);
    painter.setPen(edge);
    const int inner = isSelected ? 1 : 0;
    painter.drawRect(rect.adjusted(inner, inner, -1, -1));

    painter.setPen(cap);
    if (types) {
        drawGlyph(painter, rect, (*m_keys)[key.key][m_layer]);
    }
    const QRect inside = rect.adjusted(CapMargin + 1, CapMargin - 1, 0, 0);
    painter.drawText(inside, Qt::AlignLeft | Qt::AlignTop, ui::qt::FromLatin1(key.cap));
}

void KeyboardPicture::drawGlyph(QPainter& painter, const QRect& key, glyphs::GlyphCode code) const {
    if (code == 0) {
        const QRect inside = key.adjusted(0, 0, -GlyphMargin, -1);
        painter.drawText(inside, Qt::AlignRight | Qt::AlignBottom, tr("none"));
        return;
    }
    painter.save();
    const qreal scale = ui::qt::DeviceScale(painter);
    // Never larger than its room below the cap.
    const int block = std::max(1, static_cast<int>(glyphs::CellBlock * scale + ui::PixelTolerance));
    const qreal side = block * glyphs::ArtworkCell;
    const QPointF end = QPointF(key.right() + 1 - GlyphMargin, key.bottom() + 1 - GlyphMargin) * scale;
    const QPointF corner = ui::qt::DeviceCorner(painter) + end - QPointF(side, side);
    ui::qt::PaintFrom(painter, ui::qt::WholePixels(corner), block);
    const QRect cell(
        code % 16 * glyphs::ArtworkCell, code / 16 * glyphs::ArtworkCell, glyphs::ArtworkCell,
        glyphs::ArtworkCell);
    painter.drawImage(QPoint(0, 0), ui::qt::ImageOver(m_atlas->source), cell);
    painter.restore();
}

} // namespace shell
