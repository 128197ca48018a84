// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleValueInterface>
#include <QAccessibleWidget>
#include <QString>
#include <functional>

namespace shell {

class ProgressIndicator;
class TabPicture;

/// The tab of a page as assistive tools see it.
class TabAccess final : public QAccessibleWidget {
public:
    explicit TabAccess(TabPicture& tab);

    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& action) override;
};

/// The progress of painting as assistive tools see it: 0 to 100.
class ProgressAccess final : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit ProgressAccess(ProgressIndicator& indicator);

    void* interface_cast(QAccessible::InterfaceType type) override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;

    [[nodiscard]] QVariant currentValue() const override;
    void setCurrentValue(const QVariant& value) override;
    [[nodiscard]] QVariant maximumValue() const override;
    [[nodiscard]] QVariant minimumValue() const override;
    [[nodiscard]] QVariant minimumStepSize() const override;
};

/// Tells those who hear a control of its keys.
void DescribeKeys(QWidget& control);

/// Shows the keys of a control, and what else there is to know of it, behind the words of its tooltip.
void AddToToolTip(QWidget& control, const std::function<QString()>& more = {});

} // namespace shell
