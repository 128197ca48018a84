// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "AccessTools.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <algorithm>

namespace spoken {

bool Listener::heard(const std::string& event) const {
    return std::find(m_events.begin(), m_events.end(), event) != m_events.end();
}

std::ptrdiff_t Listener::count(const std::string& kind) const {
    return std::count_if(m_events.begin(), m_events.end(), [&kind](const std::string& event) {
        return event.starts_with(kind);
    });
}

void Listener::take(QAccessibleEvent& event) {
    QAccessibleInterface* const about = event.accessibleInterface();
    const std::string name = Text(about, QAccessible::Name);
    switch (event.type()) {
    case QAccessible::Focus:
        m_events.push_back("focus " + name);
        break;
    case QAccessible::Selection:
        m_events.push_back("selected " + name);
        break;
    case QAccessible::NameChanged:
        if (about != nullptr && about->role() == QAccessible::Cell) {
            m_events.push_back("name " + name);
        } else if (about != nullptr && about->role() == QAccessible::StaticText) {
            m_events.push_back("label " + name);
        }
        break;
    case QAccessible::TableModelChanged: {
        const auto change = static_cast<QAccessibleTableModelChangeEvent&>(event).modelChangeType();
        m_events.push_back(change == QAccessibleTableModelChangeEvent::ModelReset ? "rows" : "data");
        break;
    }
    default:
        break;
    }
}

int ExpectAllNamed(QAccessibleInterface* object, const std::string& path) {
    int count = 1;
    const std::string own = object->object() == nullptr ? "" : object->object()->objectName().toStdString();
    const std::string here = path + "/" + (own.empty() ? "?" : own);
    const QString name = object->text(QAccessible::Name).trimmed();
    EXPECT_NE(object->role(), QAccessible::NoRole) << here;
    const bool isUnusedEntry = object->role() == QAccessible::MenuItem && object->state().invisible;
    const bool isEmptyLabel = object->role() == QAccessible::StaticText && name.isEmpty();
    if (!IsFurniture(*object) && !IsPartOfControl(*object) && !isEmptyLabel && !isUnusedEntry) {
        EXPECT_FALSE(name.isEmpty()) << here << ", role " << object->role();
    }
    auto* const widget = qobject_cast<QWidget*>(object->object());
    auto* const group = widget == nullptr ? nullptr : qobject_cast<QGroupBox*>(widget->parentWidget());
    if (group != nullptr && qobject_cast<QDialogButtonBox*>(widget) == nullptr) {
        // What has no name of its own is given its group's, which tells nothing.
        EXPECT_NE(name.toStdString(), group->title().toStdString()) << here;
    }
    if (object->role() == QAccessible::ComboBox) {
        // The toolkit tells the entry in its place.
        EXPECT_FALSE(object->relations(QAccessible::Label).isEmpty()) << here;
    }
    for (int i = 0; i < object->childCount(); ++i) {
        QAccessibleInterface* const child = object->child(i);
        if (child == nullptr) {
            ADD_FAILURE() << here << " has no child " << i;
            continue;
        }
        count += ExpectAllNamed(child, here);
    }
    return count;
}

} // namespace spoken
