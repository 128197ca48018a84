// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/AltKeys.h"
#include "shell/GlyphColumn.h"
#include "shell/MainMenus.h"
#include "shell/PageColumn.h"
#include "shell/Recovery.h"
#include "shell/StatusLine.h"
#include "shell/frmVTM.h"
#include "ui/qt/InnermostMenu.h"
#include "ui/qt/KeyTranslation.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>

namespace shell {

namespace {

/// Visits every kind of key action with its own function.
template <class... Functions>
struct Overloaded : Functions... {
    using Functions::operator()...;
};

template <class... Functions>
Overloaded(Functions...) -> Overloaded<Functions...>;

/// Widgets that have keys of their own while they are in use: an open menu, an unfolded list.
bool KeepsItsKeys(const QWidget* widget) {
    return QApplication::activePopupWidget() != nullptr || qobject_cast<const QMenuBar*>(widget) != nullptr;
}

/// A menu goes on getting keys for a moment: those that the display sent before it knew of the choice.
bool IsClosedMenu(const QWidget* widget) {
    return qobject_cast<const QMenu*>(widget) != nullptr && !widget->isVisible();
}

bool IsLatinLetter(int key) {
    return key >= Qt::Key_A && key <= Qt::Key_Z;
}

/// Passes a letter key of a keyboard without Latin letters on to a menu as the key that it is on a US
/// keyboard: the toolkit knows the menus' letters by what is typed. Returns whether it was one.
bool PassLatinLetter(const QKeyEvent& event, QObject& menu) {
    const int key = ui::qt::TranslateKey(event).virtualKey;
    if (IsLatinLetter(event.key()) || !IsLatinLetter(key)) {
        return false;
    }
    QKeyEvent latin(QEvent::KeyPress, key, event.modifiers(), QString(QChar(key)).toLower());
    QApplication::sendEvent(&menu, &latin);
    return true;
}

} // namespace

bool frmVTM::eventFilter(QObject* watched, QEvent* event) {
    if (ui::qt::PassToInnermostMenu(*watched, *event)) {
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        const auto* widget = qobject_cast<QWidget*>(watched);
        if (IsClosedMenu(widget) && QApplication::activeModalWidget() == nullptr) {
            if (m_glyphColumn->takesKeysOf(focusWidget())) {
                return QCoreApplication::sendEvent(focusWidget(), event);
            }
            widget = this;
        }
        if (qobject_cast<const QMenu*>(widget) != nullptr ||
            qobject_cast<const QMenuBar*>(widget) != nullptr) {
            return PassLatinLetter(*static_cast<QKeyEvent*>(event), *watched);
        }
        if (widget != nullptr && widget->window() == this && !KeepsItsKeys(widget) &&
            !m_glyphColumn->takesKeysOf(widget)) {
            // Whoever types looks at the cursor, wherever the pointer rests.
            m_glyphColumn->pointAt({});
            const ui::KeyStroke stroke = m_keys.press(*static_cast<QKeyEvent*>(event));
            if (const AltKey* const key = FindAltKey(stroke)) {
                runAltKey(*key);
                return true;
            }
            // Where the keyboard has Latin letters the toolkit has opened the menu before the key gets here.
            const bool isMenuKey = stroke.isAlt && !stroke.isCtrl && IsLatinLetter(stroke.virtualKey);
            return Form_KeyDown(stroke) || (isMenuKey && m_menus->open(stroke.virtualKey));
        }
    } else if (event->type() == QEvent::KeyRelease) {
        m_keys.release(*static_cast<QKeyEvent*>(event));
    } else if (event->type() == QEvent::WindowDeactivate && watched == this) {
        m_keys.forgetHeldKeys();
    } else if (event->type() == QEvent::StatusTip) {
        // No command has a tip: a menu that is passed would only take away what the status line tells.
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

bool frmVTM::Form_KeyDown(const ui::KeyStroke& stroke) {
    using namespace editing;
    const NumberPadRule numberPad =
        m_platform.lockKeys.canLock(ui::LockKey::Num) ? NumberPadRule::Desktop : NumberPadRule::Mode;
    const KeyAction action = RouteKey(stroke, workspace().settings.modes, workspace().keys.used, numberPad);
    std::visit(
        Overloaded{
            [](std::monostate) {},
            [this](const NameListAction& list) { m_commands.cmdName_Click(list.index); },
            [this](const NavigationAction& navigation) {
                m_commands.navigate(navigation.virtualKey);
                m_pageColumn->showKey(navigation.virtualKey);
            },
            [this](const ModeAction& mode) { turnMode(mode.virtualKey); },
            [this, &stroke](const GlyphAction& glyph) {
                m_commands.putGlyphWithMarker(glyph.code);
                showStatus(m_ctrlNotice.of(stroke, glyph.code));
            },
        },
        action);
    // What a key does shows at once, not only when the next events have been looked for.
    QCoreApplication::sendPostedEvents(this, QEvent::UpdateRequest);
    // Alt opens menus, so its keys go on to the window even though they mean nothing here.
    return !stroke.isAlt && stroke.virtualKey != KeyAlt;
}

void frmVTM::turnMode(int virtualKey) {
    editing::Modes& modes = workspace().settings.modes;
    if (const auto index = editing::ToggleModeKey(modes, virtualKey)) {
        // The desktop has turned the lock already, but takes the last one set for what is wanted.
        m_session.setMode(*index, modes.*editing::ModeKeys.at(*index).flag);
    }
}

void frmVTM::lockKey_Turned(ui::LockKey key, bool isOn) {
    for (const editing::ModeKey& mode : editing::ModeKeys) {
        if (mode.lock == key) {
            workspace().settings.modes.*mode.flag = isOn;
            showModes();
        }
    }
}

void frmVTM::runAltKey(const AltKey& key) {
    switch (key.command) {
    case AltCommand::ShowReadNames:
        if (m_statusLine->offersShow()) {
            m_session.showReadNames();
        }
        return;
    case AltCommand::RestoreWork:
        return m_recovery->restore();
    case AltCommand::DiscardWork:
        return m_recovery->discard();
    default:
        m_commands.runAltKey(key);
    }
}

} // namespace shell
