// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"

#include <QObject>
#include <functional>
#include <vector>

class QWidget;

namespace ui::qt {

/// Lets files be dropped on a window, wherever its controls take no drops themselves. While a dialog stands
/// over the window it takes none.
class FileDrop final : public QObject {
    Q_OBJECT

public:
    /// `dropped` is called after the program that the files come from has been thanked for them, so that it
    /// need not wait. The window owns the object.
    FileDrop(QWidget& window, std::function<void(const std::vector<Path>&)> dropped);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void(const std::vector<Path>&)> m_dropped;
};

} // namespace ui::qt
