// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/QtClipboard.h"

#include "ui/qt/Text.h"
#include "ui/qt/TextCharacters.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>

#include <algorithm>

namespace ui::qt {

void QtClipboard::setText(std::string_view bytes) {
    // Latin-1, not the locale's encoding: only so does every byte arrive unchanged where it is pasted.
    QGuiApplication::clipboard()->setText(FromLatin1(bytes));
}

void QtClipboard::setUtf8(std::string_view text) {
    QGuiApplication::clipboard()->setText(
        QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

void QtClipboard::setPicture(const Picture& picture) {
    if (picture.empty()) {
        QGuiApplication::clipboard()->clear();
        return;
    }
    const QImage view(
        reinterpret_cast<const uchar*>(picture.row(0)), picture.width(), picture.height(),
        static_cast<qsizetype>(picture.width()) * static_cast<qsizetype>(sizeof(Pixel)),
        QImage::Format_RGB32);
    // The clipboard outlives the picture's memory.
    QGuiApplication::clipboard()->setImage(view.copy());
}

std::vector<TextCharacter> QtClipboard::text(std::size_t most) const {
    // A character may be two of the toolkit's.
    const QString text = QGuiApplication::clipboard()->text().left(2 * static_cast<qsizetype>(most));
    std::vector<TextCharacter> characters = CharactersOf(text);
    characters.resize(std::min(characters.size(), most));
    return characters;
}

} // namespace ui::qt
