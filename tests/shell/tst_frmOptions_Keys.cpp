// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/KeyboardLayout.h"
#include "shell/KeyboardPicture.h"
#include "shell/OptionsDialog.h"
#include "ui/qt/MarkerShape.h"

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>

namespace {

using editing::DrawnKeyUse;
using editing::KeyboardKeys;
using editing::KeyGlyphs;
using editing::KeyIndex;

class KeyPage : public OptionsDialog {
protected:
    shell::KeyboardPicture* keyboard = nullptr;

    void openKeyboard() {
        open();
        showPage(5);
        dialog->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
        press("cmdKeyboard");
        keyboard = find<shell::KeyboardPicture>("picKeyboard");
    }

    void clickKey(int virtualKey) {
        const QRect rect = keyboard->keyRect(editing::DrawnKeyOf(KeyIndex(virtualKey)));
        QTest::mouseClick(keyboard, Qt::LeftButton, {}, rect.center());
    }

    void clickModifier(DrawnKeyUse use) {
        for (std::size_t place = 0; place < KeyboardKeys().size(); ++place) {
            if (KeyboardKeys()[place].use == use) {
                QTest::mouseClick(keyboard, Qt::LeftButton, {}, keyboard->keyRect(place).center());
                return;
            }
        }
    }

    /// A key event as desktops send it, with the modifiers that were held before.
    void send(QEvent::Type type, int key, Qt::KeyboardModifiers held) {
        QKeyEvent event(type, key, held);
        QCoreApplication::sendEvent(keyboard, &event);
    }

    void clickGlyph(int code) {
        auto* const grid = find<ui::qt::PictureWidget>("picKeyGrid");
        QTest::mouseClick(grid, Qt::LeftButton, {}, grid->cellRect(code / 16 + 1, code % 16 + 1).center());
    }

    std::string selectedName() { return find<QComboBox>("KeyListBox")->currentText().toStdString(); }

    std::string facts() { return find<QLabel>("lblKeyFacts")->text().section('\n', 0, 0).toStdString(); }

    QImage pictureOf(int virtualKey) {
        return keyboard->grab(keyboard->keyRect(editing::DrawnKeyOf(KeyIndex(virtualKey)))).toImage();
    }
};

} // namespace

TEST_F(KeyPage, TheKeyboardIsShownWhenItIsAskedFor) {
    open();
    showPage(5);
    const QSize before = dialog->size();
    for (const char* name : {"picKeyboard", "picKeyGrid", "lblKeyFacts", "cmdTypesNothing"}) {
        EXPECT_FALSE(find<QWidget>(name)->isVisible()) << name;
    }
    EXPECT_EQ(find<QPushButton>("cmdKeyboard")->text(), "Show Keyboard");
    press("cmdKeyboard");
    for (const char* name : {"picKeyboard", "picKeyGrid", "lblKeyFacts", "cmdTypesNothing"}) {
        EXPECT_TRUE(find<QWidget>(name)->isVisible()) << name;
    }
    EXPECT_EQ(find<QPushButton>("cmdKeyboard")->text(), "Hide Keyboard");
    EXPECT_GT(dialog->height(), before.height());
    press("cmdKeyboard");
    EXPECT_FALSE(find<QWidget>("picKeyboard")->isVisible());
    EXPECT_TRUE(QTest::qWaitFor([&] { return dialog->size() == before; })) << dialog->height();
    EXPECT_EQ(changedPages(), "");
}

TEST_F(KeyPage, KeysThatNeverTypeAreAllAsDim) {
    openKeyboard();
    const auto capOf = [this](std::size_t place) {
        return keyboard->grab({keyboard->keyRect(place).topLeft(), QSize(20, 14)}).toImage();
    };
    const std::size_t enter = editing::DrawnKeyOf(KeyIndex(editing::KeyEnter));
    for (std::size_t place = 0; place < KeyboardKeys().size(); ++place) {
        if (KeyboardKeys()[place].cap == "Enter") {
            EXPECT_EQ(capOf(place), capOf(enter)) << place;
        }
    }
}

TEST_F(KeyPage, TheWholeKeyboardIsInView) {
    openKeyboard();
    QCoreApplication::processEvents();
    const auto* const area = find<QScrollArea>("scrKeys");
    for (const char* name : {"picKeyboard", "picKeyGrid", "lblKeyFacts"}) {
        const auto* const widget = find<QWidget>(name);
        const QRect place(widget->mapTo(area->viewport(), QPoint()), widget->size());
        EXPECT_TRUE(area->viewport()->rect().contains(place)) << name;
    }
    EXPECT_TRUE(dialog->screen()->availableGeometry().contains(dialog->frameGeometry()));
    EXPECT_LE(dialog->width(), 700);
    EXPECT_LE(dialog->height(), 572) << "the title bar takes the rest of 600 pixels";
}

TEST_F(KeyPage, AClickedKeyIsTheSelectedOne) {
    openKeyboard();
    clickKey('Q');
    EXPECT_EQ(selectedName(), "Q");
    EXPECT_EQ(facts(), "Q: code 113, q");
    clickKey(editing::KeyPad0 + 7);
    EXPECT_EQ(selectedName(), "NumPad 7");
    EXPECT_EQ(changedPages(), "");
}

TEST_F(KeyPage, EveryDrawnKeyCanBeClicked) {
    openKeyboard();
    for (std::size_t place = 0; place < KeyboardKeys().size(); ++place) {
        if (KeyboardKeys()[place].use == DrawnKeyUse::Mapped) {
            QTest::mouseClick(keyboard, Qt::LeftButton, {}, keyboard->keyRect(place).center());
            EXPECT_EQ(selectedName(), editing::KeyNames()[KeyboardKeys()[place].key]);
        }
    }
}

TEST_F(KeyPage, AKeyOfTheListIsSelectedOnTheKeyboard) {
    openKeyboard();
    QTest::keyClick(find<QComboBox>("KeyListBox"), Qt::Key_Down);
    EXPECT_EQ(keyboard->selectedKey(), 1U);
}

TEST_F(KeyPage, APressedKeyIsSelected) {
    openKeyboard();
    ASSERT_TRUE(keyboard->hasFocus());
    QTest::keyClick(keyboard, Qt::Key_G);
    EXPECT_EQ(selectedName(), "G");
    QTest::keyClick(keyboard, Qt::Key_F6);
    EXPECT_EQ(selectedName(), "F6");
    QTest::keyClick(keyboard, Qt::Key_Space);
    EXPECT_EQ(selectedName(), "SpaceBar");
    QTest::keyClick(keyboard, Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(selectedName(), "X");
}

TEST_F(KeyPage, ArrowsGoFromKeyToKey) {
    openKeyboard();
    QTest::keyClick(keyboard, Qt::Key_Right);
    EXPECT_EQ(selectedName(), "Q") << "beside Tab";
    QTest::keyClick(keyboard, Qt::Key_Down);
    EXPECT_EQ(selectedName(), "A");
    QTest::keyClick(keyboard, Qt::Key_Left);
    EXPECT_EQ(selectedName(), "A") << "nothing types there";
    QTest::keyClick(keyboard, Qt::Key_Up);
    QTest::keyClick(keyboard, Qt::Key_Left);
    EXPECT_EQ(selectedName(), "Tab");
}

TEST_F(KeyPage, EnterAndEscapeAreTheDialogs) {
    openKeyboard();
    QTest::keyClick(keyboard, Qt::Key_Escape);
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(KeyPage, TheKeyboardFollowsTheHeldModifier) {
    openKeyboard();
    clickKey('A');
    const QImage plain = pictureOf('A');
    send(QEvent::KeyPress, Qt::Key_Shift, Qt::NoModifier);
    EXPECT_EQ(keyboard->layer(), 1U);
    EXPECT_EQ(facts(), "Shift+A: code 65, capital A");
    EXPECT_NE(pictureOf('A'), plain);
    send(QEvent::KeyPress, Qt::Key_Control, Qt::ShiftModifier);
    EXPECT_EQ(keyboard->layer(), 1U) << "Shift goes before Ctrl";
    send(QEvent::KeyRelease, Qt::Key_Shift, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(keyboard->layer(), 2U);
    EXPECT_EQ(facts(), "Ctrl+A: blank");
    send(QEvent::KeyRelease, Qt::Key_Control, Qt::ControlModifier);
    EXPECT_EQ(keyboard->layer(), 0U);
    EXPECT_EQ(pictureOf('A'), plain);
}

TEST_F(KeyPage, ItFollowsTheModifierWhateverHasTheKeyboard) {
    openKeyboard();
    auto* const list = find<QComboBox>("KeyListBox");
    list->setFocus();
    QTest::keyPress(list, Qt::Key_Shift);
    EXPECT_EQ(keyboard->layer(), 1U);
    QTest::keyRelease(list, Qt::Key_Shift);
    EXPECT_EQ(keyboard->layer(), 0U);
}

TEST_F(KeyPage, TheDrawnShiftAndCtrlChooseALayerToo) {
    openKeyboard();
    clickModifier(DrawnKeyUse::Shift);
    EXPECT_EQ(keyboard->layer(), 1U);
    clickModifier(DrawnKeyUse::Ctrl);
    EXPECT_EQ(keyboard->layer(), 2U);
    clickModifier(DrawnKeyUse::Ctrl);
    EXPECT_EQ(keyboard->layer(), 0U);
    EXPECT_EQ(selectedName(), "Tab");
}

TEST_F(KeyPage, AClickedGlyphIsWhatTheKeyTypes) {
    openKeyboard();
    clickKey('A');
    clickGlyph(29);
    EXPECT_EQ(keys.used[KeyIndex('A')], (KeyGlyphs{29, 65, 32}));
    clickModifier(DrawnKeyUse::Shift);
    clickGlyph(225);
    clickModifier(DrawnKeyUse::Ctrl);
    clickGlyph(145);
    EXPECT_EQ(keys.used[KeyIndex('A')], (KeyGlyphs{29, 225, 145}));
    EXPECT_EQ(changedPages(), "5");
    EXPECT_TRUE(apply().keyMap);
    EXPECT_EQ(
        find<QWidget>("picKeyStripCont_2")->accessibleDescription(),
        "code 145, ornate right bracket, second color");
}

TEST_F(KeyPage, AGlyphThatMayNotBePickedIsNotTaken) {
    openKeyboard();
    clickKey('A');
    for (const int code : {0, 34, 127, 255}) {
        clickGlyph(code);
    }
    EXPECT_EQ(keys.used, editing::DefaultKeyMap());
    EXPECT_EQ(changedPages(), "");
}

TEST_F(KeyPage, AKeyMayTypeNothing) {
    openKeyboard();
    clickKey('A');
    const QImage before = pictureOf('A');
    press("cmdTypesNothing");
    EXPECT_EQ(keys.used[KeyIndex('A')], (KeyGlyphs{0, 65, 32}));
    EXPECT_EQ(facts(), "A: types nothing");
    EXPECT_NE(pictureOf('A'), before);
    EXPECT_FALSE(find<QPushButton>("cmdTypesNothing")->isEnabled());
    EXPECT_EQ(changedPages(), "5");
    clickGlyph('a');
    EXPECT_EQ(pictureOf('A'), before);
    EXPECT_TRUE(find<QPushButton>("cmdTypesNothing")->isEnabled());
}

TEST_F(KeyPage, KeysThatCanNeverTypeSaySo) {
    openKeyboard();
    clickKey(editing::KeyEnter);
    EXPECT_EQ(find<QLabel>("lblKeyFacts")->text(), "Return: can never type\nThe key moves the cursor.");
    clickGlyph('x');
    EXPECT_FALSE(find<QPushButton>("cmdTypesNothing")->isEnabled());
    clickKey(editing::KeyPause);
    EXPECT_EQ(facts(), "Pause: blank");
    EXPECT_TRUE(find<QPushButton>("cmdTypesNothing")->isEnabled());
    clickModifier(DrawnKeyUse::Ctrl);
    EXPECT_EQ(
        find<QLabel>("lblKeyFacts")->text(), "Ctrl+Pause: can never type\nWith Ctrl it is another key.");
    clickGlyph('x');
    EXPECT_EQ(keys.used, editing::DefaultKeyMap());
}

TEST_F(KeyPage, TheGridShowsWhatTheKeyTypes) {
    openKeyboard();
    const auto* const grid = find<ui::qt::PictureWidget>("picKeyGrid");
    const auto* const marker = find<ui::qt::MarkerShape>("KeyPosShape");
    clickKey('A');
    EXPECT_EQ(grid->currentRow(), 7);
    EXPECT_EQ(grid->currentColumn(), 2);
    EXPECT_TRUE(marker->isVisible());
    clickKey(editing::KeyEnter);
    EXPECT_EQ(grid->currentRow(), 0);
    EXPECT_FALSE(marker->isVisible());
}

TEST_F(KeyPage, ResetShowsOnTheKeyboard) {
    openKeyboard();
    clickKey('A');
    const QImage before = pictureOf('A');
    clickGlyph(200);
    EXPECT_NE(pictureOf('A'), before);
    fake.dialogs.expectYesNo("Are you sure you wish to reset the current configuration?", ui::Answer::Yes);
    press("cmdResetKeysToDefault");
    EXPECT_EQ(pictureOf('A'), before);
}

TEST_F(KeyPage, TabReachesTheKeyboard) {
    openKeyboard();
    find<QPushButton>("cmdResetKeysToDefault")->setFocus();
    for (const char* next : {"cmdKeyboard", "cmdTypesNothing", "picKeyboard", "cmdOK"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget()->objectName(), next);
    }
}

TEST_F(KeyPage, EveryKeyHasANameToBeHeard) {
    openKeyboard();
    QAccessibleInterface* const list = QAccessible::queryAccessibleInterface(keyboard);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->role(), QAccessible::List);
    ASSERT_EQ(list->childCount(), static_cast<int>(KeyboardKeys().size()));
    for (int i = 0; i < list->childCount(); ++i) {
        EXPECT_FALSE(list->child(i)->text(QAccessible::Name).isEmpty()) << i;
    }
    const int ofG = static_cast<int>(editing::DrawnKeyOf(KeyIndex('G')));
    QAccessibleInterface* const key = list->child(ofG);
    EXPECT_EQ(key->text(QAccessible::Name), "G: code 103, g");
    EXPECT_FALSE(key->state().selected);
    key->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([this] { return selectedName() == "G"; }));
    EXPECT_TRUE(key->state().selected);
    EXPECT_TRUE(key->state().focused);
    EXPECT_EQ(list->focusChild(), key);
}
