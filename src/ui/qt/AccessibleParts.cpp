// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/AccessibleParts.h"

#include <QRegion>
#include <QWidget>

namespace ui::qt {

AccessiblePart::AccessiblePart(const AccessibleParts& owner, int index)
    : m_owner(owner)
    , m_index(index) {}

bool AccessiblePart::isValid() const {
    return m_owner.isValid() && m_index < m_owner.partCount();
}

QObject* AccessiblePart::object() const {
    return nullptr;
}

QWindow* AccessiblePart::window() const {
    return m_owner.window();
}

QAccessibleInterface* AccessiblePart::parent() const {
    return QAccessible::queryAccessibleInterface(m_owner.owner());
}

QAccessibleInterface* AccessiblePart::child(int /*index*/) const {
    return nullptr;
}

QAccessibleInterface* AccessiblePart::childAt(int /*x*/, int /*y*/) const {
    return nullptr;
}

int AccessiblePart::childCount() const {
    return 0;
}

int AccessiblePart::indexOfChild(const QAccessibleInterface* /*child*/) const {
    return -1;
}

QString AccessiblePart::text(QAccessible::Text kind) const {
    return isValid() ? m_owner.partText(kind, m_index) : QString();
}

void AccessiblePart::setText(QAccessible::Text /*kind*/, const QString& /*text*/) {}

QRect AccessiblePart::rect() const {
    if (!isValid()) {
        return {};
    }
    const QRect inWidget = m_owner.partRect(m_index);
    return {m_owner.owner()->mapToGlobal(inWidget.topLeft()), inWidget.size()};
}

QAccessible::Role AccessiblePart::role() const {
    return m_owner.partRole();
}

QAccessible::State AccessiblePart::state() const {
    QAccessible::State state;
    if (isValid()) {
        return m_owner.partState(m_index);
    }
    state.invalid = true;
    return state;
}

void* AccessiblePart::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList AccessiblePart::actionNames() const {
    return isValid() && m_owner.canPressParts() ? QStringList(pressAction()) : QStringList();
}

void AccessiblePart::doAction(const QString& action) {
    if (!actionNames().contains(action)) {
        return;
    }
    // Later: what follows may open a dialog, and the tool that asks waits for its answer.
    QMetaObject::invokeMethod(
        m_owner.owner(),
        [&owner = m_owner, index = m_index] {
            if (index < owner.partCount()) {
                owner.pressPart(index);
            }
        },
        Qt::QueuedConnection);
}

QStringList AccessiblePart::keyBindingsForAction(const QString& /*action*/) const {
    return {};
}

AccessibleParts::AccessibleParts(QWidget& widget, QAccessible::Role role)
    : QAccessibleWidget(&widget, role) {}

AccessibleParts::~AccessibleParts() {
    for (const QAccessible::Id id : std::as_const(m_parts)) {
        QAccessible::deleteAccessibleInterface(id);
    }
}

QAccessible::State AccessibleParts::partState(int index) const {
    QAccessible::State state;
    state.disabled = !owner()->isEnabled();
    state.invisible = !owner()->isVisible();
    state.offscreen = !owner()->visibleRegion().intersects(partRect(index));
    return state;
}

QAccessibleInterface* AccessibleParts::child(int index) const {
    if (index < 0 || index >= partCount()) {
        return nullptr;
    }
    const auto known = m_parts.constFind(index);
    if (known != m_parts.constEnd()) {
        return QAccessible::accessibleInterface(*known);
    }
    AccessiblePart* const part = makePart(index);
    m_parts.insert(index, QAccessible::registerAccessibleInterface(part));
    return part;
}

QAccessibleInterface* AccessibleParts::childAt(int x, int y) const {
    const QPoint point = owner()->mapFromGlobal(QPoint(x, y));
    for (int index = 0; index < partCount(); ++index) {
        if (partRect(index).contains(point)) {
            return child(index);
        }
    }
    return nullptr;
}

int AccessibleParts::childCount() const {
    return partCount();
}

int AccessibleParts::indexOfChild(const QAccessibleInterface* child) const {
    const auto* const part = dynamic_cast<const AccessiblePart*>(child);
    return part != nullptr && part->parent() == this ? part->index() : -1;
}

AccessiblePart* AccessibleParts::makePart(int index) const {
    return new AccessiblePart(*this, index);
}

} // namespace ui::qt
