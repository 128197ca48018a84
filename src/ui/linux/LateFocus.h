// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaObject>

namespace ui::native {

/// For as long as it exists, a window that hears only after it has closed that it has the keyboard stays
/// usable as the application's focus window.
///
/// A Wayland compositor tells it late when a question over a dialog and then the dialog close at once. The
/// toolkit has taken the dialog's native window away by then and, until 6.8 at least, crashes when another
/// window is to have the keyboard instead.
class LateFocus final {
public:
    LateFocus();
    LateFocus(const LateFocus&) = delete;
    LateFocus& operator=(const LateFocus&) = delete;
    LateFocus(LateFocus&&) = delete;
    LateFocus& operator=(LateFocus&&) = delete;
    ~LateFocus();

private:
    QMetaObject::Connection m_connection;
};

} // namespace ui::native
