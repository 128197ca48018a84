// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace ui::qt {

/// The size of a remark beside a widget, in points.
[[nodiscard]] double SmallPrintSize(const QWidget& widget);

/// Lets a widget show its text a little smaller than the others, as a remark.
void SetSmallPrint(QWidget& widget);

} // namespace ui::qt
