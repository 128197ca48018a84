// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/GlyphFinder.h"

#include "glyphs/GlyphSearch.h"
#include "glyphs/GlyphWords.h"
#include "ui/qt/LineLabel.h"
#include "ui/qt/TextCharacters.h"

#include <QDragEnterEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QVBoxLayout>

namespace shell {

GlyphFinder::GlyphFinder(QWidget* parent)
    : QWidget(parent)
    , txtFind(new QLineEdit(this))
    , lblFound(new ui::qt::LineLabel(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(txtFind);
    layout->addWidget(lblFound);
    setObjectName(QStringLiteral("finder"));
    setAccessibleName(tr("Finding"));
    txtFind->setObjectName(QStringLiteral("txtFind"));
    txtFind->setAccessibleName(tr("Find a glyph"));
    txtFind->setPlaceholderText(tr("Number, character or words"));
    txtFind->setClearButtonEnabled(false);
    lblFound->setObjectName(QStringLiteral("lblFound"));
    txtFind->installEventFilter(this);
    connect(txtFind, &QLineEdit::textChanged, this, &GlyphFinder::txtFind_Change);
    QWidget::hide();
}

void GlyphFinder::open() {
    show();
    txtFind->clear();
    txtFind_Change();
    txtFind->setFocus(Qt::ShortcutFocusReason);
}

bool GlyphFinder::takesKeysOf(const QWidget* widget) const {
    return widget == txtFind;
}

void GlyphFinder::txtFind_Change() {
    m_fitting = glyphs::FindGlyphs(ui::qt::CharactersOf(txtFind->text().trimmed()));
    m_current = 0;
    Q_EMIT found(m_fitting);
    showFound();
}

void GlyphFinder::step(int by) {
    if (!m_fitting.empty()) {
        const auto count = static_cast<int>(m_fitting.size());
        m_current = static_cast<std::size_t>((static_cast<int>(m_current) + by + count) % count);
        showFound();
    }
}

void GlyphFinder::showFound() {
    QString text;
    if (!m_fitting.empty()) {
        const glyphs::GlyphCode code = m_fitting[m_current];
        text = tr("%1 of %2: glyph %3, %4")
                   .arg(m_current + 1)
                   .arg(m_fitting.size())
                   .arg(code)
                   .arg(QString::fromStdString(glyphs::GlyphWords(code)));
        Q_EMIT reached(code);
    } else if (!txtFind->text().trimmed().isEmpty()) {
        text = tr("No glyph fits");
    }
    lblFound->tell(text);
    txtFind->setAccessibleDescription(text);
}

void GlyphFinder::close() {
    if (!isHidden()) {
        hide();
        Q_EMIT closed();
    }
}

bool GlyphFinder::txtFind_KeyDown(int key) {
    switch (key) {
    case Qt::Key_Up:
        step(-1);
        return true;
    case Qt::Key_Down:
        step(1);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!m_fitting.empty()) {
            Q_EMIT chosen(m_fitting[m_current]);
        }
        return true;
    case Qt::Key_Escape:
        close();
        return true;
    default:
        return false;
    }
}

bool GlyphFinder::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtFind && event->type() == QEvent::KeyPress) {
        return txtFind_KeyDown(static_cast<QKeyEvent*>(event)->key());
    }
    if (watched == txtFind && event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        // Its own context menu, and another window, leave it open.
        if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) {
            close();
        }
    }
    if (watched == txtFind && event->type() == QEvent::DragEnter &&
        static_cast<QDragEnterEvent*>(event)->mimeData()->hasUrls()) {
        event->ignore(); // the window takes files
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace shell
