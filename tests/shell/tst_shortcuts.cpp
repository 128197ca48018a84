// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "AccessWindow.h"

#include "editing/DirectionPad.h"
#include "shell/AltKeys.h"
#include "ui/qt/PictureWidget.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <set>
#include <utility>
#include <vector>

using editing::Page;

namespace {

/// The way to a control of the main window that leaves the mouse alone.
struct KeyWay {
    const char* control;
    Page page;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
};

const std::vector<KeyWay> KeyWays{
    {"cmdFavorite_0", Page::Name, Qt::Key_1, Qt::AltModifier},
    {"cmdFavorite_1", Page::Name, Qt::Key_2, Qt::AltModifier},
    {"cmdFavorite_2", Page::Name, Qt::Key_3, Qt::AltModifier},
    {"cmdFavorite_3", Page::Name, Qt::Key_4, Qt::AltModifier},
    {"cmdFavorite_4", Page::Name, Qt::Key_5, Qt::AltModifier},
    {"cmdFrequent_0", Page::Name, Qt::Key_6, Qt::AltModifier},
    {"cmdFrequent_1", Page::Name, Qt::Key_7, Qt::AltModifier},
    {"cmdFrequent_2", Page::Name, Qt::Key_8, Qt::AltModifier},
    {"cmdCalcFrequent", Page::Name, Qt::Key_9, Qt::AltModifier},
    {"cmdRightGlyph", Page::Name, Qt::Key_R, Qt::AltModifier},
    {"cmdKey_0", Page::Name, Qt::Key_ScrollLock},
    {"cmdKey_1", Page::Name, Qt::Key_Insert},
    {"cmdKey_2", Page::Name, Qt::Key_CapsLock},
    {"cmdKey_3", Page::Name, Qt::Key_NumLock},
    {"imgDir", Page::Name, Qt::Key_Right},
    {"NamePic", Page::Name, Qt::Key_Right},
    {"NameScroll", Page::Name, Qt::Key_Right},
    {"AniPic", Page::Animation, Qt::Key_Up},
    {"AniNameScroll", Page::Animation, Qt::Key_Right},
    {"AniScroll", Page::Animation, Qt::Key_Up},
    {"AniTotalScroll", Page::Animation, Qt::Key_Plus, Qt::AltModifier},
    {"VScroll1", Page::Animation, Qt::Key_Down, Qt::AltModifier},
    {"ThisTickList", Page::Animation, Qt::Key_W, Qt::AltModifier},
    {"TickList", Page::Animation, Qt::Key_L, Qt::AltModifier},
    {"cmdName_0", Page::Animation, Qt::Key_Insert, Qt::ControlModifier},
    {"cmdName_1", Page::Animation, Qt::Key_Delete, Qt::ControlModifier},
    {"cmdName_2", Page::Animation, Qt::Key_Up, Qt::ControlModifier},
    {"cmdName_3", Page::Animation, Qt::Key_Down, Qt::ControlModifier},
    {"MacPic", Page::Messages, Qt::Key_Down},
    {"MacNameScroll", Page::Messages, Qt::Key_Right},
    {"MacScroll", Page::Messages, Qt::Key_Down},
};

/// The entry of the menus that does what a button of the toolbar does, or the menu that the button pops up.
const std::vector<std::pair<const char*, const char*>> ToolWays{
    {"fnew", "mnuFileNew"},
    {"fopen", "mnuLoad"},
    {"fsave", "mnuSave"},
    {"sname", "mnuView_0"},
    {"sani", "mnuView_1"},
    {"smess", "mnuView_2"},
    {"cut", "mnuEditCut"},
    {"copy", "mnuEditCopy"},
    {"paste", "mnuEditPaste"},
    {"aleft", "mnuFormatAlignLeft"},
    {"acenter", "mnuFormatAlignCenter"},
    {"aright", "mnuFormatAlignRight"},
    {"lcase", "mnuFormatUpperToLowerCase"},
    {"ucase", "mnuFormatLowerToUpperCase"},
    {"scase", "mnuFormatSwitchCase"},
    {"color1", "mnuFormatColor1ToColor2"},
    {"color2", "mnuFormatColor2ToColor1"},
    {"scolor", "mnuFormatSwitchColor"},
    {"revorder", "mnuFormatReverseNameOrder"},
    {"revchar", "mnuFormatReverseCharacters"},
    {"wiz", "mnuToolsAnimationWizard"},
    {"view", "mnuToolsAnimationViewer"},
    {"config", "mnuToolsSettings"},
    {"about", "mnuAboutVTM"},
    {"help", "mnuHelp"},
};

/// The main window without a mouse.
class Shortcuts : public Access {
protected:
    /// What a control shows or changes, to be compared before and after a key.
    [[nodiscard]] std::string effectOf(const QString& name) const {
        const auto* const control = window->findChild<QWidget*>(name);
        const auto number = [](int value) {
            return std::to_string(value);
        };
        if (const auto* bar = qobject_cast<const QScrollBar*>(control)) {
            return number(bar->value());
        }
        if (const auto* list = qobject_cast<const QComboBox*>(control)) {
            return list->view()->isVisible() ? "open" : "closed";
        }
        if (const auto* picture = qobject_cast<const ui::qt::PictureWidget*>(control)) {
            return number(picture->currentColumn()) + "," + number(picture->currentRow());
        }
        if (const auto* pad = qobject_cast<const editing::DirectionPad*>(control)) {
            return number(pad->pressedKey().value_or(0));
        }
        if (const auto* button = qobject_cast<const QAbstractButton*>(control);
            button != nullptr && button->isCheckable()) {
            return number(button->isChecked() ? 1 : 0);
        }
        if (name == QLatin1String("cmdCalcFrequent")) {
            return number(workspace().settings.frequent[0]);
        }
        // A glyph was placed, or the names were put in another order.
        return row(workspace().page() == Page::Animation ? 15 : 1);
    }

    /// Presses keys from the menu bar to an entry and returns whether the entry is the one chosen then.
    [[nodiscard]] bool walkTo(const QAction* entry) const {
        std::vector<const QAction*> way{entry};
        for (auto* menu = qobject_cast<QMenu*>(entry->associatedObjects().value(0)); menu != nullptr;
             menu = qobject_cast<QMenu*>(way.back()->associatedObjects().value(0))) {
            way.push_back(menu->menuAction());
        }
        const QKeySequence letter = QKeySequence::mnemonic(way.back()->text());
        press(letter[0].key(), letter[0].keyboardModifiers());
        way.pop_back();
        for (auto step = way.rbegin(); step != way.rend(); ++step) {
            auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (menu == nullptr) {
                return false;
            }
            for (int i = 0; i < menu->actions().size() && menu->activeAction() != *step; ++i) {
                QTest::keyClick(menu, Qt::Key_Down);
            }
            if (menu->activeAction() != *step) {
                return false;
            }
            if (*step != entry) {
                QTest::keyClick(menu, Qt::Key_Right);
            }
        }
        return true;
    }

    void closeMenus() const {
        for (int i = 0; i < 4 && QApplication::activePopupWidget() != nullptr; ++i) {
            QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        }
        QTest::keyClick(window->focusWidget(), Qt::Key_Escape);
    }
};

TEST_F(Shortcuts, EveryControlOfTheWindowHasItsKey) {
    startOn(Page::Name);
    for (int i = 1; i <= 90; ++i) {
        workspace().documents.animation.rows().cell(i, 1) = static_cast<glyphs::GlyphCode>('0' + i % 40);
    }
    std::set<QString> reached;
    for (const KeyWay& way : KeyWays) {
        const QString name = QLatin1String(way.control);
        choose(std::array{"mnuView_0", "mnuView_1", "mnuView_2"}.at(static_cast<std::size_t>(way.page)));
        workspace().settings.frequent = {'x', 'y', 'z'};
        workspace().documents.animation.currentName = 15;
        window->findChild<QScrollBar*>(QStringLiteral("AniTotalScroll"))->setValue(20);
        const std::string before = effectOf(name);
        press(way.key, way.modifiers);
        EXPECT_NE(effectOf(name), before) << way.control;
        if (QWidget* const popup = QApplication::activePopupWidget()) {
            QTest::keyClick(popup, Qt::Key_Escape);
        }
        reached.insert(name);
    }
    // These have tests of their own: the grid opens the picker, the tabs and the toolbar stand in the menus.
    reached.insert({QStringLiteral("ImgGrid")});
    // It only shows.
    reached.insert({QStringLiteral("picReadout")});
    for (const auto* widget : window->findChildren<QWidget*>()) {
        const bool isControl = qobject_cast<const QScrollBar*>(widget) != nullptr ||
                               qobject_cast<const QComboBox*>(widget) != nullptr ||
                               qobject_cast<const ui::qt::PictureWidget*>(widget) != nullptr ||
                               qobject_cast<const editing::DirectionPad*>(widget) != nullptr ||
                               qobject_cast<const QAbstractButton*>(widget) != nullptr;
        const bool isOfToolkit = qobject_cast<const QToolBar*>(widget->parentWidget()) != nullptr ||
                                 widget->objectName().startsWith(QLatin1String("qt_")) ||
                                 widget->parentWidget()->objectName().startsWith(QLatin1String("qt_")) ||
                                 widget->inherits("QComboBoxPrivateContainer") ||
                                 widget->window() != window.get();
        if (isControl && !isOfToolkit) {
            EXPECT_TRUE(reached.contains(widget->objectName())) << widget->objectName().toStdString();
        }
    }
}

TEST_F(Shortcuts, EveryEntryOfTheMenusIsReachedWithTheKeys) {
    fake.settings.write("NameFiles", "RecentFile1", "/tmp/one.vtn");
    startOn(Page::Name);
    workspace().documents.animation.nameGlyphs[0] = 'a'; // only what is there can be exported
    // One step is to be taken back and another to be done again.
    type("b");
    press(Qt::Key_Left);
    press(Qt::Key_Delete);
    press(Qt::Key_Backspace, Qt::AltModifier);
    int count = 0;
    for (const auto* entry : window->findChildren<QAction*>()) {
        const bool isInMenu = entry->objectName().startsWith(QLatin1String("mnu"));
        if (isInMenu && entry->isVisible() && qobject_cast<QMenu*>(entry->associatedObjects().value(0))) {
            EXPECT_TRUE(walkTo(entry)) << entry->objectName().toStdString();
            closeMenus();
            ++count;
        }
    }
    EXPECT_GT(count, 35);
    type("a");
    EXPECT_EQ(row()[0], 'a') << "typing goes on";
}

TEST_F(Shortcuts, EveryButtonOfTheToolbarStandsInAMenu) {
    startOn(Page::Name);
    const auto* const bar = find<QToolBar>("Toolbar1");
    std::size_t count = 0;
    for (const auto* button : bar->actions()) {
        if (!button->isSeparator()) {
            const auto way = std::ranges::find_if(ToolWays, [button](const auto& row) {
                return button->objectName() == QLatin1String(row.first);
            });
            ASSERT_NE(way, ToolWays.end()) << button->objectName().toStdString();
            const QMenu* const popped = window->findChild<QMenu*>(QLatin1String(way->second));
            const auto* const entry = popped != nullptr ? popped->menuAction() : find<QAction>(way->second);
            EXPECT_TRUE(walkTo(entry)) << way->second;
            closeMenus();
            ++count;
        }
    }
    EXPECT_EQ(count, ToolWays.size());
}

/// A control that does something by itself, and not a part of a larger one.
bool IsToBeReached(const QWidget& control) {
    const auto* const option = qobject_cast<const QRadioButton*>(&control);
    const auto* const picture = qobject_cast<const ui::qt::PictureWidget*>(&control);
    const bool isWorked = qobject_cast<const QAbstractButton*>(&control) != nullptr ||
                          qobject_cast<const QComboBox*>(&control) != nullptr ||
                          qobject_cast<const QLineEdit*>(&control) != nullptr ||
                          qobject_cast<const QListView*>(&control) != nullptr ||
                          qobject_cast<const QScrollBar*>(&control) != nullptr ||
                          (picture != nullptr && picture->hasCells() && picture->cells().canBePressed);
    const QWidget& parent = *control.parentWidget();
    const bool isPart = control.objectName().startsWith(QLatin1String("qt_")) ||
                        parent.objectName().startsWith(QLatin1String("qt_")) || parent.inherits("QTabBar") ||
                        parent.inherits("QComboBox");
    // The arrows lead from the chosen one of the options to the others.
    const bool isOther = option != nullptr && !option->isChecked();
    return isWorked && !isPart && !isOther && control.isVisible() && control.isEnabled();
}

void expectTabReachesEverything(const QDialog& dialog) {
    std::set<const QWidget*> reached;
    for (int i = 0; i < 20; ++i) {
        reached.insert(QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    for (const auto* control : dialog.findChildren<QWidget*>()) {
        EXPECT_TRUE(control->window() != &dialog || !IsToBeReached(*control) || reached.contains(control))
            << dialog.objectName().toStdString() << ": " << control->objectName().toStdString();
    }
}

TEST_F(Shortcuts, TabReachesEveryControlOfEveryDialogInEveryOrderOfTheButtons) {
    startOn(Page::Name);
    constexpr int Orders = 4; // as desktops have them
    for (int order = 0; order < Orders; ++order) {
        qApp->setStyleSheet(QStringLiteral("QDialogButtonBox { button-layout: %1; }").arg(order));
        throughAllDialogs([](QDialog& dialog) {
            if (dialog.objectName() == QLatin1String("frmAbout")) {
                return; // every key closes it; its buttons have underlined letters
            }
            ASSERT_TRUE(QTest::qWaitFor([&dialog] { return QApplication::activeWindow() == &dialog; }));
            expectTabReachesEverything(dialog);
            if (auto* const tabs = dialog.findChild<QTabWidget*>()) {
                for (int page = 1; page < tabs->count(); ++page) {
                    tabs->setCurrentIndex(page);
                    tabs->setFocus();
                    expectTabReachesEverything(dialog);
                }
            }
        });
    }
    qApp->setStyleSheet({});
}

TEST_F(Shortcuts, PlaceTheFavouriteAndFrequentGlyphs) {
    startOn(Page::Name);
    workspace().settings.frequent = {'x', 'y', 'z'};
    for (const auto key :
         {Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4, Qt::Key_5, Qt::Key_6, Qt::Key_7, Qt::Key_8}) {
        press(key, Qt::AltModifier);
    }
    EXPECT_EQ(row().substr(0, 8), std::string("\x10VTM\x11") + "xyz");
    EXPECT_EQ(played(101), 8);
}

TEST_F(Shortcuts, CountTheFrequentGlyphs) {
    startOn(Page::Name);
    type("bbbaac");
    press(Qt::Key_9, Qt::AltModifier);
    EXPECT_EQ(workspace().settings.frequent, (std::array<glyphs::GlyphCode, 3>{'b', 'a', 'c'}));
    EXPECT_EQ(row(), "bbbaac         ");
}

TEST_F(Shortcuts, ChangeAFavouriteInThePicker) {
    startOn(Page::Name);
    openAndUse<editing::frmGetChar>(
        [this] { press(Qt::Key_3, Qt::AltModifier | Qt::ShiftModifier); },
        [](editing::frmGetChar& picker) { EXPECT_EQ(pickedBy(picker, Qt::Key_Return), 'U'); });
    EXPECT_EQ(workspace().settings.favourites[2], 'U');
    EXPECT_EQ(fake.clipboard.pictures.size(), 1U);
    type("a");
    EXPECT_EQ(row()[0], 'a') << "typing goes on";
}

TEST_F(Shortcuts, PickAnyGlyphAndPlaceIt) {
    startOn(Page::Name);
    type("a");
    openAndUse<editing::frmGetChar>(
        [this] { press(Qt::Key_G, Qt::AltModifier); },
        [](editing::frmGetChar& picker) { EXPECT_EQ(pickedBy(picker, Qt::Key_Return), 'b'); });
    EXPECT_EQ(row().substr(0, 2), "ab");
    openAndUse<editing::frmGetChar>(
        [this] { press(Qt::Key_G, Qt::AltModifier); },
        [](editing::frmGetChar& picker) { pickedBy(picker, Qt::Key_Escape); });
    EXPECT_EQ(row(), "ab             ") << "a cancelled picker places nothing";
}

TEST_F(Shortcuts, ChooseAndStampTheRightButtonGlyph) {
    startOn(Page::Name);
    press(Qt::Key_R, Qt::AltModifier);
    EXPECT_EQ(row()[0], 5);
    openAndUse<editing::frmGetChar>(
        [this] { press(Qt::Key_R, Qt::AltModifier | Qt::ShiftModifier); },
        [](editing::frmGetChar& picker) { EXPECT_EQ(pickedBy(picker, Qt::Key_Return), 6); });
    EXPECT_EQ(workspace().rightButtonGlyph, 6);
    press(Qt::Key_R, Qt::AltModifier);
    EXPECT_EQ(row()[1], 6);
}

TEST_F(Shortcuts, OpenTheTickListsWhichTakeTheKeysWhileTheyAreOpen) {
    startOn(Page::Name);
    press(Qt::Key_W, Qt::AltModifier);
    EXPECT_EQ(workspace().page(), Page::Animation) << "the list is on that page";
    auto* const list = find<QComboBox>("ThisTickList");
    ASSERT_TRUE(QTest::qWaitFor([list] { return list->view()->isVisible(); }));
    QTest::keyClick(list->view(), Qt::Key_Down);
    QTest::keyClick(list->view(), Qt::Key_Down);
    QTest::keyClick(list->view(), Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([list] { return !list->view()->isVisible(); }));
    EXPECT_EQ(workspace().documents.animation.ticks(15), 4);
    EXPECT_EQ(workspace().documents.animation.ticks(14), 2);
    EXPECT_TRUE(typingGoesOn());
    type("x");
    EXPECT_EQ(workspace().documents.animation.name(15)[0], 'x') << "typing goes on";

    press(Qt::Key_L, Qt::AltModifier);
    auto* const all = find<QComboBox>("TickList");
    ASSERT_TRUE(QTest::qWaitFor([all] { return all->view()->isVisible(); }));
    QTest::keyClick(all->view(), Qt::Key_End);
    QTest::keyClick(all->view(), Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([all] { return !all->view()->isVisible(); }));
    EXPECT_EQ(workspace().documents.animation.ticks(1), 15);

    press(Qt::Key_L, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([all] { return all->view()->isVisible(); }));
    QTest::keyClick(all->view(), Qt::Key_Home);
    QTest::keyClick(all->view(), Qt::Key_Escape);
    ASSERT_TRUE(QTest::qWaitFor([all] { return !all->view()->isVisible(); }));
    EXPECT_EQ(workspace().documents.animation.ticks(1), 15) << "Escape chooses nothing";
    EXPECT_EQ(workspace().documents.animation.name(15)[1], ' ');
}

TEST_F(Shortcuts, ChangeTheTotal) {
    startOn(Page::Messages);
    press(Qt::Key_Plus, Qt::AltModifier);
    EXPECT_EQ(workspace().page(), Page::Animation);
    EXPECT_EQ(workspace().documents.animation.nameCount, 16);
    press(Qt::Key_Equal, Qt::AltModifier);
    press(Qt::Key_Plus, Qt::AltModifier | Qt::KeypadModifier);
    EXPECT_EQ(workspace().documents.animation.nameCount, 18);
    press(Qt::Key_Minus, Qt::AltModifier);
    press(Qt::Key_Minus, Qt::AltModifier | Qt::KeypadModifier);
    EXPECT_EQ(text("lblAniTotalNum"), QStringLiteral("16"));
}

TEST_F(Shortcuts, ScrollTheViewOfTheNames) {
    startOn(Page::Animation);
    find<QScrollBar>("AniTotalScroll")->setValue(40);
    find<QScrollBar>("VScroll1")->setValue(1);
    press(Qt::Key_PageDown, Qt::AltModifier);
    EXPECT_EQ(text("lblNum_0"), QStringLiteral("11"));
    press(Qt::Key_Down, Qt::AltModifier);
    press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(text("lblNum_0"), QStringLiteral("13"));
    press(Qt::Key_Up, Qt::AltModifier);
    press(Qt::Key_PageUp, Qt::AltModifier);
    EXPECT_EQ(text("lblNum_0"), QStringLiteral("2"));
    EXPECT_EQ(workspace().documents.animation.currentName, 15) << "the cursor stays";
}

TEST_F(Shortcuts, OtherKeysWithAltDoNothing) {
    startOn(Page::Animation);
    const auto before = workspace().documents.animation.nameCount;
    for (const char key : std::string("ABCDIJKMNPQSUXYZ0[];',./\\`")) {
        press(static_cast<Qt::Key>(key), Qt::AltModifier);
        press(static_cast<Qt::Key>(key), Qt::AltModifier | Qt::ShiftModifier);
    }
    for (const auto key :
         {Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End, Qt::Key_Insert, Qt::Key_Delete,
          Qt::Key_Backspace, Qt::Key_Return, Qt::Key_Tab, Qt::Key_F1, Qt::Key_F9}) {
        press(key, Qt::AltModifier);
    }
    EXPECT_EQ(row(15), std::string(15, ' '));
    EXPECT_EQ(column(), 1);
    EXPECT_EQ(workspace().documents.animation.nameCount, before);
    EXPECT_FALSE(workspace().settings.modes.insert);
}

TEST_F(Shortcuts, LeaveTheUnderlinedLettersOfTheWindowAlone) {
    startOn(Page::Animation);
    QStringList captions;
    for (const QAction* menu : window->menuBar()->actions()) {
        captions.append(menu->text());
    }
    EXPECT_EQ(captions.size(), 6);
    for (const auto* button : window->findChildren<QAbstractButton*>()) {
        captions.append(button->text());
    }
    for (const auto* label : window->findChildren<QLabel*>()) {
        captions.append(label->text());
    }
    for (const QString& caption : captions) {
        const QKeySequence underlined = QKeySequence::mnemonic(caption);
        if (!underlined.isEmpty()) {
            ui::KeyStroke stroke;
            stroke.virtualKey = underlined[0].key();
            stroke.isAlt = true;
            EXPECT_EQ(shell::FindAltKey(stroke), nullptr) << caption.toStdString();
        }
    }
}

} // namespace
