// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/AnimationPage.h"
#include "animation/mdlAniName.h"
#include "editing/DirectionPad.h"
#include "editing/frmGetChar.h"
#include "editing/mdlPick.h"
#include "shell/AltKeys.h"
#include "shell/GlyphColumn.h"
#include "shell/Recovery.h"
#include "shell/StatusLine.h"
#include "shell/frmVTM.h"
#include "ui/qt/InnermostMenu.h"
#include "ui/qt/KeyTranslation.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QScopedValueRollback>

namespace shell {

using editing::Page;
using glyphs::GlyphCode;

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
            widget = this;
        }
        if (qobject_cast<const QMenu*>(widget) != nullptr ||
            qobject_cast<const QMenuBar*>(widget) != nullptr) {
            return PassLatinLetter(*static_cast<QKeyEvent*>(event), *watched);
        }
        if (widget != nullptr && widget->window() == this && !KeepsItsKeys(widget)) {
            const ui::KeyStroke stroke = m_keys.press(*static_cast<QKeyEvent*>(event));
            if (const AltKey* const key = FindAltKey(stroke)) {
                runAltKey(*key);
                return true;
            }
            return Form_KeyDown(stroke) || openMenu(stroke);
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
    const KeyAction action = RouteKey(stroke, m_workspace.settings.modes, m_workspace.keys.used, numberPad);
    std::visit(
        Overloaded{
            [](std::monostate) {},
            [this](const NameListAction& list) { cmdName_Click(list.index); },
            [this](const NavigationAction& navigation) {
                const QScopedValueRollback<std::string> running(m_command, "Delete");
                ShowChange(painter(), NavigateKey(cursor(), navigation.virtualKey));
                imgDir->showKey(navigation.virtualKey);
                Refresh();
            },
            [this](const ModeAction& mode) {
                if (const auto index = ToggleModeKey(m_workspace.settings.modes, mode.virtualKey)) {
                    const bool isOn = m_workspace.settings.modes.*ModeKeys[*index].flag;
                    m_glyphColumn->showModes();
                    // The desktop has turned it already, but takes the last lock set for what is wanted.
                    SetLockKey(m_platform.lockKeys, mode.virtualKey, isOn);
                }
            },
            [this, &stroke](const GlyphAction& glyph) {
                putGlyphWithMarker(glyph.code);
                showStatus(m_ctrlNotice.of(stroke, glyph.code));
            },
        },
        action);
    // What a key does shows at once, not only when the next events have been looked for.
    QCoreApplication::sendPostedEvents(this, QEvent::UpdateRequest);
    // Alt opens menus, so its keys go on to the window even though they mean nothing here.
    return !stroke.isAlt && stroke.virtualKey != KeyAlt;
}

bool frmVTM::openMenu(const ui::KeyStroke& stroke) {
    // Where the keyboard has Latin letters the toolkit has opened the menu before the key gets here.
    if (!stroke.isAlt || stroke.isCtrl || !IsLatinLetter(stroke.virtualKey)) {
        return false;
    }
    for (QAction* const action : menuBar()->actions()) {
        if (QKeySequence::mnemonic(action->text()) == QKeySequence(Qt::ALT | Qt::Key(stroke.virtualKey))) {
            menuBar()->setActiveAction(action);
            return true;
        }
    }
    return false;
}

void frmVTM::putGlyph(GlyphCode code) {
    const QScopedValueRollback running(m_command, std::string(History::Typing));
    editing::ShowChange(painter(), editing::PutGlyph(cursor(), m_workspace.settings.modes, code));
    Refresh();
}

void frmVTM::putGlyphWithMarker(GlyphCode code) {
    const QScopedValueRollback running(m_command, std::string(History::Typing));
    if (code != 0) {
        editing::ShowChange(painter(), editing::PutGlyph(cursor(), m_workspace.settings.modes, code));
        // The glyph comes first: what follows it on the screen is only where things are.
        showDamage();
        QCoreApplication::sendPostedEvents(this, QEvent::UpdateRequest);
        m_glyphColumn->mark(code);
    }
    Refresh();
}

void frmVTM::putPickedGlyph() {
    editing::frmGetChar picker(
        m_glyphColumn->markedGlyph(), m_workspace.atlas.cells, m_workspace.settings.colours[GridMarkerColour],
        this);
    if (picker.exec() == QDialog::Accepted) {
        putGlyphWithMarker(picker.glyph());
    }
    Refresh();
}

void frmVTM::runAltKey(const AltKey& key) {
    GlyphCode& rightGlyph = m_workspace.rightButtonGlyph;
    switch (key.command) {
    case AltCommand::PlaceFavourite:
        return cmdFavorite_MouseDown(key.index, Qt::LeftButton);
    case AltCommand::ChangeFavourite:
        return cmdFavorite_MouseDown(key.index, Qt::RightButton);
    case AltCommand::PlaceFrequent:
        return cmdFrequent_MouseDown(key.index);
    case AltCommand::CountFrequent:
        return cmdCalcFrequent_Click();
    case AltCommand::PickGlyph:
        return putPickedGlyph();
    case AltCommand::PlaceRightGlyph:
        return putGlyph(rightGlyph);
    case AltCommand::ChangeRightGlyph:
        rightGlyph = pickGlyph(rightGlyph);
        return Refresh();
    case AltCommand::OpenNameTicks:
        return m_animationPage->openTickList(false);
    case AltCommand::OpenAllTicks:
        return m_animationPage->openTickList(true);
    case AltCommand::MoreNames:
        return m_animationPage->moveTotal(QAbstractSlider::SliderSingleStepAdd);
    case AltCommand::FewerNames:
        return m_animationPage->moveTotal(QAbstractSlider::SliderSingleStepSub);
    case AltCommand::ShowReadNames:
        if (m_statusLine->offersShow()) {
            showReadNames();
        }
        return;
    case AltCommand::RestoreWork:
        return m_recovery->restore();
    case AltCommand::DiscardWork:
        return m_recovery->discard();
    case AltCommand::ViewLineUp:
        return m_animationPage->moveView(QAbstractSlider::SliderSingleStepSub);
    case AltCommand::ViewLineDown:
        return m_animationPage->moveView(QAbstractSlider::SliderSingleStepAdd);
    case AltCommand::ViewPageUp:
        return m_animationPage->moveView(QAbstractSlider::SliderPageStepSub);
    case AltCommand::ViewPageDown:
        return m_animationPage->moveView(QAbstractSlider::SliderPageStepAdd);
    }
}

void frmVTM::ImgGrid_MouseDown(GlyphCode code, Qt::MouseButton button) {
    if (button == Qt::LeftButton) {
        putGlyphWithMarker(code);
    } else if (button == Qt::RightButton) {
        m_workspace.rightButtonGlyph = code;
        Refresh();
    }
}

void frmVTM::cursor_Moved(Page page, int column, int row) {
    const editing::PageCursor moved = editing::CursorOf(m_workspace.documents, page);
    moved.column = column;
    moved.row = row;
    showPage(page);
}

void frmVTM::PagePic_MouseDown(Page page, int x, int y, Qt::MouseButton button) {
    switchPageFor(page);
    editing::PlaceCursor(cursor(), x, y);
    Refresh();
    if (button == Qt::RightButton) {
        putGlyph(m_workspace.rightButtonGlyph);
    }
}

void frmVTM::cmdKey_Click(int index, bool isOn) {
    const auto& mode = editing::ModeKeys[static_cast<std::size_t>(index)];
    m_workspace.settings.modes.*mode.flag = isOn;
    editing::SetLockKey(m_platform.lockKeys, mode.virtualKey, isOn);
    Refresh();
}

void frmVTM::lockKey_Turned(ui::LockKey key, bool isOn) {
    for (const editing::ModeKey& mode : editing::ModeKeys) {
        if (mode.lock == key) {
            m_workspace.settings.modes.*mode.flag = isOn;
            m_glyphColumn->showModes();
        }
    }
}

GlyphCode frmVTM::pickGlyph(GlyphCode start) {
    return editing::PickGlyph(
        start, m_workspace.atlas.cells, m_workspace.settings.colours[GridMarkerColour],
        QApplication::activeWindow());
}

void frmVTM::cmdFavorite_MouseDown(int index, Qt::MouseButton button) {
    GlyphCode& favourite = m_workspace.settings.favourites[static_cast<std::size_t>(index)];
    if (button == Qt::LeftButton) {
        putGlyphWithMarker(favourite);
    } else if (button == Qt::RightButton) {
        favourite = pickGlyph(favourite);
        m_glyphColumn->showGlyphs();
        m_platform.clipboard.setPicture(m_glyphColumn->favouritePicture(index));
        Refresh();
    }
}

void frmVTM::cmdFrequent_MouseDown(int index) {
    putGlyphWithMarker(m_workspace.settings.frequent[static_cast<std::size_t>(index)]);
}

void frmVTM::cmdCalcFrequent_Click() {
    m_workspace.settings.frequent = editing::FrequentGlyphs(m_workspace.documents);
    m_glyphColumn->showGlyphs();
    Refresh();
}

void frmVTM::cmdName_Click(int index) {
    switchPageFor(Page::Animation);

    struct Operation {
        const char* name;
        editing::Change (*run)(editing::AnimationDocument&);
    };

    constexpr std::array<Operation, 4> Operations{{
        {"Insert Name", animation::InsertName},
        {"Delete Name", animation::DeleteName},
        {"Move Name", animation::MoveNameUp},
        {"Move Name", animation::MoveNameDown},
    }};
    const Operation& operation = Operations[static_cast<std::size_t>(index)];
    const QScopedValueRollback<std::string> running(m_command, operation.name);
    editing::ShowChange(painter(), operation.run(m_workspace.documents.animation));
    Refresh();
}

void frmVTM::total_Chosen(int count) {
    const QScopedValueRollback<std::string> running(m_command, "Total");
    animation::SetNameCount(m_workspace.documents.animation, count);
    showPage(Page::Animation);
}

void frmVTM::ticks_Chosen(int count, bool forAllNames) {
    const QScopedValueRollback<std::string> running(m_command, "Ticks");
    editing::AnimationDocument& animation = m_workspace.documents.animation;
    const auto ticks = static_cast<std::int16_t>(count);
    if (forAllNames) {
        animation::SetAllTicks(animation, ticks);
    } else {
        animation::SetTicks(animation, animation.currentName, ticks);
    }
    showPage(Page::Animation);
}

void frmVTM::imgDir_Arrow(int virtualKey) {
    editing::ShowChange(painter(), editing::NavigateKey(cursor(), virtualKey));
    Refresh();
}

} // namespace shell
