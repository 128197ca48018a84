// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleInterface>
#include <QAccessibleWidget>
#include <QHash>
#include <QObject>

namespace ui::qt {

class AccessibleParts;

/// One part of a widget that paints its parts itself, as assistive tools see it.
class AccessiblePart : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    /// Part `index` (0-based) of `owner`, which outlives it.
    AccessiblePart(const AccessibleParts& owner, int index);

    [[nodiscard]] int index() const { return m_index; }

    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] QObject* object() const override;
    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text kind, const QString& text) override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& action) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& action) const override;

private:
    const AccessibleParts& m_owner;
    int m_index;
};

/// A widget that paints its parts itself, as assistive tools see it: each part is a child. Parts are counted
/// from 0.
class AccessibleParts : public QAccessibleWidget {
public:
    AccessibleParts(QWidget& widget, QAccessible::Role role);

    [[nodiscard]] virtual int partCount() const = 0;
    [[nodiscard]] virtual QAccessible::Role partRole() const = 0;
    [[nodiscard]] virtual QString partText(QAccessible::Text kind, int index) const = 0;
    /// Where the part lies in the widget.
    [[nodiscard]] virtual QRect partRect(int index) const = 0;
    [[nodiscard]] virtual QAccessible::State partState(int index) const;
    [[nodiscard]] virtual bool canPressParts() const = 0;
    virtual void pressPart(int index) const = 0;

    /// The widget that has the parts.
    [[nodiscard]] QWidget* owner() const { return widget(); }

    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;

protected:
    ~AccessibleParts() override;

    [[nodiscard]] virtual AccessiblePart* makePart(int index) const;

private:
    mutable QHash<int, QAccessible::Id> m_parts; // those that were asked for
};

/// From the first call on, assistive tools see every `Widget` through an `Interface`, which is made from the
/// widget when one asks.
template <class Widget, class Interface>
void InstallAccess() {
    [[maybe_unused]] static const bool isInstalled = [] {
        QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
            auto* const widget = qobject_cast<Widget*>(object);
            return widget == nullptr ? nullptr : new Interface(*widget);
        });
        return true;
    }();
}

} // namespace ui::qt
