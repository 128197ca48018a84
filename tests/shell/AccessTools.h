// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QAccessibleInterface>
#include <QWidget>
#include <algorithm>
#include <array>
#include <cstddef>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace spoken {

inline std::string Text(QAccessibleInterface* object, QAccessible::Text kind) {
    return object == nullptr ? "(nothing)" : object->text(kind).toStdString();
}

/// An assistive tool that remembers what it was told, in the order of the telling. There is one at a time.
class Listener {
public:
    Listener();
    ~Listener();

    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;
    Listener(Listener&&) = delete;
    Listener& operator=(Listener&&) = delete;

    /// From now on nobody listens, as for most people.
    void stopListening();

    void clear() { m_events.clear(); }

    [[nodiscard]] const std::vector<std::string>& events() const { return m_events; }

    /// Whether an event was told: "focus NAME", "selected NAME", "name NAME" for cells with a new content,
    /// "label NAME" for labels with another text, "data" and "rows" for whole tables.
    [[nodiscard]] bool heard(const std::string& event) const;

    /// How many events of a kind were told.
    [[nodiscard]] std::ptrdiff_t count(const std::string& kind) const;

    void take(QAccessibleEvent& event);

private:
    std::vector<std::string> m_events;
};

/// Whether something only holds or separates other things, and so needs no name.
inline bool IsFurniture(const QAccessibleInterface& object) {
    constexpr std::array Roles{QAccessible::LayeredPane, QAccessible::Border,      QAccessible::Grouping,
                               QAccessible::Separator,   QAccessible::MenuBar,     QAccessible::PopupMenu,
                               QAccessible::StatusBar,   QAccessible::PageTabList, QAccessible::Grip};
    if (std::find(Roles.begin(), Roles.end(), object.role()) != Roles.end()) {
        return true;
    }
    const QObject* const widget = object.object();
    const std::string kind = widget == nullptr ? "" : widget->metaObject()->className();
    return object.role() == QAccessible::Client &&
           (kind == "QWidget" || kind == "QTabWidget" || kind == "QToolBarSeparator");
}

/// Whether something is a part of a control of the toolkit, which speaks for it.
inline bool IsPartOfControl(const QAccessibleInterface& object) {
    const QAccessibleInterface* const parent = object.parent();
    const QString name = object.object() == nullptr ? QString() : object.object()->objectName();
    return name.startsWith(QLatin1String("qt_")) ||
           (parent != nullptr &&
            (parent->role() == QAccessible::ComboBox || parent->role() == QAccessible::List));
}

/// Fails the test for everything under `object` that has no role, or needs a name and has none. Returns how
/// much was looked at.
int ExpectAllNamed(QAccessibleInterface* object, const std::string& path);

inline int ExpectAllNamed(QWidget& window) {
    return ExpectAllNamed(QAccessible::queryAccessibleInterface(&window), "");
}

} // namespace spoken
