// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/FileDrop.h"

#include "ui/qt/Text.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QWidget>
#include <utility>

namespace ui::qt {

namespace {

/// The files of this computer that are dragged.
std::vector<Path> FilesOf(const QMimeData& dragged) {
    std::vector<Path> files;
    for (const QUrl& url : dragged.urls()) {
        if (url.isLocalFile()) {
            files.push_back(ToPath(url.toLocalFile()));
        }
    }
    return files;
}

} // namespace

FileDrop::FileDrop(QWidget& window, std::function<void(const std::vector<Path>&)> dropped)
    : QObject(&window)
    , m_dropped(std::move(dropped)) {
    window.setAcceptDrops(true);
    window.installEventFilter(this);
}

bool FileDrop::eventFilter(QObject* watched, QEvent* event) {
    const bool isDrop = event->type() == QEvent::Drop;
    if (!isDrop && event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove) {
        return QObject::eventFilter(watched, event);
    }
    auto& drag = *static_cast<QDropEvent*>(event);
    const std::vector<Path> files = FilesOf(*drag.mimeData());
    if (files.empty() || QApplication::activeModalWidget() != nullptr) {
        drag.ignore();
        return true;
    }
    // A file that another program wants to move stays where it is.
    drag.setDropAction(Qt::CopyAction);
    drag.accept();
    if (isDrop) {
        QTimer::singleShot(0, this, [this, files] { m_dropped(files); });
    }
    return true;
}

} // namespace ui::qt
