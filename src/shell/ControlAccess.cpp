// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/ControlAccess.h"

#include "shell/AltKeys.h"
#include "shell/ProgressIndicator.h"
#include "shell/TabPicture.h"

namespace shell {

TabAccess::TabAccess(TabPicture& tab)
    : QAccessibleWidget(&tab, QAccessible::PageTab) {}

QAccessible::State TabAccess::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.selectable = true;
    state.selected = static_cast<const TabPicture*>(widget())->isActive();
    return state;
}

QStringList TabAccess::actionNames() const {
    return {pressAction()};
}

void TabAccess::doAction(const QString& action) {
    if (action == pressAction()) {
        QMetaObject::invokeMethod(
            static_cast<TabPicture*>(widget()), &TabPicture::pressed, Qt::QueuedConnection);
    }
}

ProgressAccess::ProgressAccess(ProgressIndicator& indicator)
    : QAccessibleWidget(&indicator, QAccessible::ProgressBar) {}

void* ProgressAccess::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                               : QAccessibleWidget::interface_cast(type);
}

QString ProgressAccess::text(QAccessible::Text kind) const {
    return kind == QAccessible::Value ? currentValue().toString() + QLatin1Char('%')
                                      : QAccessibleWidget::text(kind);
}

QVariant ProgressAccess::currentValue() const {
    return static_cast<const ProgressIndicator*>(widget())->percentage();
}

void ProgressAccess::setCurrentValue(const QVariant& /*value*/) {}

QVariant ProgressAccess::maximumValue() const {
    return 100;
}

QVariant ProgressAccess::minimumValue() const {
    return 0;
}

QVariant ProgressAccess::minimumStepSize() const {
    return 10;
}

void DescribeKeys(QWidget& control) {
    const QString keys = QString::fromStdString(AltKeysOf(control.objectName().toStdString()));
    const QString text = control.toolTip();
    control.setAccessibleDescription(text.isEmpty() ? keys : QStringLiteral("%1 (%2)").arg(text, keys));
}

} // namespace shell
