// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/ControlAccess.h"

#include "shell/AltKeys.h"
#include "shell/ProgressIndicator.h"
#include "shell/TabPicture.h"

#include <QHelpEvent>
#include <QToolTip>
#include <utility>

namespace shell {

namespace {

QString WithKeys(const QWidget& control) {
    const QString keys = QString::fromStdString(AltKeysOf(control.objectName().toStdString()));
    const QString text = control.toolTip();
    return text.isEmpty() || keys.isEmpty() ? text + keys : QStringLiteral("%1 (%2)").arg(text, keys);
}

/// Shows more than the words of a control's tooltip, which stay as they are.
class LongerToolTip final : public QObject {
public:
    LongerToolTip(QWidget& control, std::function<QString()> more)
        : QObject(&control)
        , m_control(control)
        , m_more(std::move(more)) {}

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() != QEvent::ToolTip) {
            return false;
        }
        QString text = WithKeys(m_control);
        if (m_more) {
            text += QLatin1Char('\n') + m_more();
        }
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text, &m_control);
        return true;
    }

private:
    QWidget& m_control;
    std::function<QString()> m_more;
};

} // namespace

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
    control.setAccessibleDescription(WithKeys(control));
}

void AddToToolTip(QWidget& control, const std::function<QString()>& more) {
    control.installEventFilter(new LongerToolTip(control, more));
}

} // namespace shell
