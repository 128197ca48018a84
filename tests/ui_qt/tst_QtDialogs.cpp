// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/TempProgramDirectory.h"
#include "ui/qt/QtDialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QProxyStyle>
#include <QPushButton>
#include <QStyleHintReturn>
#include <QTest>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

namespace {

using support::TempFolder;
using ui::Answer;
using ui::Buttons;
using ui::Icon;
using ui::qt::QtDialogs;

/// The modal window, once it is shown.
template <class Dialog>
Dialog* ModalDialog() {
    return qobject_cast<Dialog*>(QApplication::activeModalWidget());
}

/// Runs `action` on the dialog that opens next, once it can be used, and makes sure that it is closed.
template <class Dialog>
class WhenShown {
public:
    explicit WhenShown(std::function<void(Dialog&)> action)
        : m_action(std::move(action)) {
        m_timer.setInterval(1);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start();
    }

    WhenShown(const WhenShown&) = delete;
    WhenShown& operator=(const WhenShown&) = delete;
    WhenShown(WhenShown&&) = delete;
    WhenShown& operator=(WhenShown&&) = delete;

    ~WhenShown() { EXPECT_TRUE(m_ran) << "no dialog was shown"; }

private:
    void look() {
        auto* dialog = ModalDialog<Dialog>();
        if (m_ran || dialog == nullptr || !dialog->isVisible() || QApplication::focusWidget() == nullptr) {
            return;
        }
        m_ran = true;
        m_timer.stop();
        // A test that fails half-way must not leave its dialog waiting for ever.
        QTimer::singleShot(20000, dialog, [dialog] {
            ADD_FAILURE() << "the dialog stayed open";
            dialog->reject();
        });
        m_action(*dialog);
    }

    std::function<void(Dialog&)> m_action;
    QTimer m_timer;
    bool m_ran = false;
};

void PressKey(QWidget& dialog, Qt::Key key) {
    QWidget* target = QApplication::focusWidget() == nullptr ? &dialog : QApplication::focusWidget();
    QTest::keyClick(target, key);
}

TEST(MessageBox, ShowsItsTextAsItIsUnderTheProgramsTitle) {
    WhenShown<QMessageBox> shown([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Vortigo"));
        EXPECT_EQ(box.text(), QStringLiteral("Done! The script file, /tmp/<b>a&b</b>.vtn, was written."));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
        EXPECT_EQ(box.buttons().size(), 1);
        EXPECT_TRUE(box.isModal());
        PressKey(box, Qt::Key_Return);
    });
    EXPECT_EQ(
        QtDialogs().box("Done! The script file, /tmp/<b>a&b</b>.vtn, was written.", Buttons::Ok, Icon::None),
        Answer::Ok);
}

TEST(MessageBox, ShowsAWarningIconAndLineEnds) {
    WhenShown<QMessageBox> shown([](QMessageBox& box) {
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        EXPECT_EQ(box.text(), QStringLiteral("One\nTwo\nThree"));
        PressKey(box, Qt::Key_Escape);
    });
    EXPECT_EQ(QtDialogs().box("One\r\nTwo\nThree", Buttons::Ok, Icon::Exclamation), Answer::Ok);
}

TEST(MessageBox, ShowsUmlautsAndForeignBytes) {
    WhenShown<QMessageBox> shown([](QMessageBox& box) {
        EXPECT_EQ(
            box.text(), QString::fromUtf8("Gr\xC3\xBC\xC3\x9F"
                                          "e \xEF\xBF\xBD"));
        PressKey(box, Qt::Key_Return);
    });
    QtDialogs().inform("Gr\xC3\xBC\xC3\x9F"
                       "e \xFF");
}

/// The texts of a box's buttons from left to right.
QStringList ButtonTexts(const QMessageBox& box) {
    QList<QAbstractButton*> buttons = box.buttons();
    std::sort(buttons.begin(), buttons.end(), [](const QWidget* left, const QWidget* right) {
        return left->mapToGlobal(QPoint()).x() < right->mapToGlobal(QPoint()).x();
    });
    QStringList texts;
    for (const QAbstractButton* button : buttons) {
        texts << button->text().remove(QLatin1Char('&'));
    }
    return texts;
}

TEST(MessageBox, OffersTheButtonsInOrderWithTheFirstAsDefault) {
    {
        WhenShown<QMessageBox> shown([](QMessageBox& box) {
            EXPECT_EQ(ButtonTexts(box), QStringList({QStringLiteral("Yes"), QStringLiteral("No")}));
            EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::Yes));
            PressKey(box, Qt::Key_Return);
        });
        EXPECT_EQ(QtDialogs().box("Add it?", Buttons::YesNo, Icon::None), Answer::Yes);
    }
    {
        WhenShown<QMessageBox> shown([](QMessageBox& box) {
            EXPECT_EQ(
                ButtonTexts(box),
                QStringList({QStringLiteral("Yes"), QStringLiteral("No"), QStringLiteral("Cancel")}));
            EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::Yes));
            PressKey(box, Qt::Key_Return);
        });
        EXPECT_EQ(QtDialogs().box("All?", Buttons::YesNoCancel, Icon::None), Answer::Yes);
    }
}

/// A desktop's style that wants the buttons of dialogs in an order of its own.
class StyleWithOrder : public QProxyStyle {
public:
    explicit StyleWithOrder(QDialogButtonBox::ButtonLayout order)
        : QProxyStyle(QStringLiteral("fusion"))
        , m_order(order) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* data)
        const override {
        return hint == SH_DialogButtonLayout ? m_order : QProxyStyle::styleHint(hint, option, widget, data);
    }

private:
    QDialogButtonBox::ButtonLayout m_order;
};

TEST(MessageBox, OffersTheButtonsInOrderOnEveryDesktop) {
    const QString usual = QApplication::style()->name();
    const auto order = [](const QMessageBox& box) {
        return ButtonTexts(box).join(QLatin1Char(' ')).toStdString();
    };
    for (const auto desktop :
         {QDialogButtonBox::WinLayout, QDialogButtonBox::MacLayout, QDialogButtonBox::KdeLayout,
          QDialogButtonBox::GnomeLayout, QDialogButtonBox::AndroidLayout}) {
        QApplication::setStyle(new StyleWithOrder(desktop));
        WhenShown<QMessageBox> shown([&](QMessageBox& box) {
            EXPECT_EQ(order(box), "Yes No Cancel") << "layout " << desktop;
            // The look of the desktop is changed meanwhile.
            QApplication::setStyle(new StyleWithOrder(QDialogButtonBox::GnomeLayout));
            QApplication::processEvents();
            EXPECT_EQ(order(box), "Yes No Cancel") << "layout " << desktop << ", then another";
            PressKey(box, Qt::Key_Return);
        });
        EXPECT_EQ(QtDialogs().box("All?", Buttons::YesNoCancel, Icon::None), Answer::Yes);
    }
    QApplication::setStyle(usual);
}

TEST(MessageBox, TakesEscapeForNoOrCancel) {
    {
        WhenShown<QMessageBox> shown([](QMessageBox& box) { PressKey(box, Qt::Key_Escape); });
        EXPECT_EQ(QtDialogs().box("Add it?", Buttons::YesNo, Icon::None), Answer::No);
    }
    {
        WhenShown<QMessageBox> shown([](QMessageBox& box) { PressKey(box, Qt::Key_Escape); });
        EXPECT_EQ(QtDialogs().box("All?", Buttons::YesNoCancel, Icon::None), Answer::Cancel);
    }
    {
        WhenShown<QMessageBox> shown([](QMessageBox& box) { box.close(); });
        EXPECT_EQ(QtDialogs().box("All?", Buttons::YesNoCancel, Icon::None), Answer::Cancel);
    }
}

TEST(MessageBox, AnswersWithTheButtonThatIsPressed) {
    for (const auto& [button, answer] :
         {std::pair{QMessageBox::Yes, Answer::Yes}, std::pair{QMessageBox::No, Answer::No},
          std::pair{QMessageBox::Cancel, Answer::Cancel}}) {
        WhenShown<QMessageBox> shown(
            [button = button](QMessageBox& box) { QTest::mouseClick(box.button(button), Qt::LeftButton); });
        EXPECT_EQ(QtDialogs().box("All?", Buttons::YesNoCancel, Icon::None), answer);
    }
}

TEST(MessageBox, StandsOverTheActiveWindow) {
    QWidget window;
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    WhenShown<QMessageBox> shown([&](QMessageBox& box) {
        EXPECT_EQ(box.parentWidget(), &window);
        PressKey(box, Qt::Key_Return);
    });
    QtDialogs().inform("Done!");
}

ui::FileDialogRequest NameRequest(const TempFolder& folder) {
    ui::FileDialogRequest request;
    request.title = "Save as a Script File";
    request.initialName = "*.vtn";
    request.filters = {{"VTM Name Script (*.vtn;*.scr)", {"*.vtn", "*.scr"}}};
    request.folder = folder.path();
    request.extension = ".vtn";
    return request;
}

QLineEdit* NameEdit(const QFileDialog& dialog) {
    return dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
}

void TypeName(const QFileDialog& dialog, const QString& text) {
    QLineEdit* edit = NameEdit(dialog);
    edit->selectAll();
    QTest::keyClicks(edit, text);
    QTest::keyClick(edit, Qt::Key_Return);
}

/// The names that the dialog lists.
QStringList Listed(const QFileDialog& dialog) {
    const auto* list = dialog.findChild<QListView*>(QStringLiteral("listView"));
    QStringList names;
    for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row) {
        names << list->model()->index(row, 0, list->rootIndex()).data().toString();
    }
    names.sort();
    return names;
}

TEST(FileDialog, OpensWithTheNameSelectedAndTheFilterAsGiven) {
    const TempFolder folder;
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Save as a Script File"));
        EXPECT_TRUE(dialog.isModal());
        EXPECT_EQ(NameEdit(dialog)->text(), QStringLiteral("*.vtn"));
        EXPECT_EQ(NameEdit(dialog)->selectedText(), QStringLiteral("*.vtn"));
        EXPECT_TRUE(NameEdit(dialog)->hasFocus());
        const auto* types = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        ASSERT_EQ(types->count(), 1);
        EXPECT_EQ(types->itemText(0), QStringLiteral("VTM Name Script (*.vtn;*.scr)"));
        EXPECT_EQ(dialog.directory().absolutePath(), QString::fromStdString(folder.path().native()));
        dialog.reject();
    });
    EXPECT_EQ(QtDialogs().chooseFileToSave(NameRequest(folder)), std::nullopt);
}

TEST(FileDialog, OpensWithTheSameWhenAFileIsToBeOpened) {
    const TempFolder folder;
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        EXPECT_EQ(NameEdit(dialog)->text(), QStringLiteral("*.vtn"));
        EXPECT_EQ(NameEdit(dialog)->selectedText(), QStringLiteral("*.vtn"));
        EXPECT_TRUE(NameEdit(dialog)->hasFocus());
        PressKey(dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(QtDialogs().chooseFileToOpen(NameRequest(folder)), std::nullopt);
}

TEST(FileDialog, KeepsTheToolkitsTitleWhenNoneIsGiven) {
    const TempFolder folder;
    auto request = NameRequest(folder);
    request.title.clear();
    {
        WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Save As"));
            dialog.reject();
        });
        (void)QtDialogs().chooseFileToSave(request);
    }
    {
        WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Open"));
            dialog.reject();
        });
        (void)QtDialogs().chooseFileToOpen(request);
    }
}

TEST(FileDialog, OffersSeveralKindsOfFiles) {
    const TempFolder folder;
    auto request = NameRequest(folder);
    request.filters = {
        {"VTM Name Script (*.vtn)", {"*.vtn"}},
        {"Script File (*.scr)", {"*.scr"}},
        {"VTM Animation Script (*.vta)", {"*.vta"}},
        {"VTM Message Script (*.vtm)", {"*.vtm"}}};
    folder.put("a.vtn", "");
    folder.put("b.scr", "");
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        auto* types = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        ASSERT_EQ(types->count(), 4);
        EXPECT_EQ(types->itemText(0), QStringLiteral("VTM Name Script (*.vtn)"));
        EXPECT_EQ(types->itemText(3), QStringLiteral("VTM Message Script (*.vtm)"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return Listed(dialog) == QStringList{QStringLiteral("a.vtn")}; }));
        types->setFocus();
        QTest::keyClick(types, Qt::Key_Down);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Listed(dialog) == QStringList{QStringLiteral("b.scr")}; }));
        dialog.reject();
    });
    (void)QtDialogs().chooseFileToOpen(request);
}

TEST(FileDialog, ListsFilesWhateverTheCaseOfTheirExtension) {
    const TempFolder folder;
    folder.put("small.vtn", "");
    folder.put("LARGE.VTN", "");
    folder.put("mixed.Scr", "");
    folder.put("other.cfg", "");
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        const QStringList expected{
            QStringLiteral("LARGE.VTN"), QStringLiteral("mixed.Scr"), QStringLiteral("small.vtn")};
        EXPECT_TRUE(QTest::qWaitFor([&] { return Listed(dialog) == expected; })) << Listed(dialog).size();
        dialog.reject();
    });
    (void)QtDialogs().chooseFileToOpen(NameRequest(folder));
}

TEST(FileDialog, ReturnsTheFileThatIsTyped) {
    const TempFolder folder;
    folder.put("there.vtn", "");
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) { TypeName(dialog, QStringLiteral("there.vtn")); });
    EXPECT_EQ(QtDialogs().chooseFileToOpen(NameRequest(folder)), folder / "there.vtn");
}

TEST(FileDialog, ReturnsAFileWithoutExtensionAsItIsWhenOpening) {
    const TempFolder folder;
    folder.put("there", "");
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) { TypeName(dialog, QStringLiteral("there")); });
    EXPECT_EQ(QtDialogs().chooseFileToOpen(NameRequest(folder)), folder / "there");
}

TEST(FileDialog, AddsTheExtensionThatWasNotTyped) {
    const TempFolder folder;
    {
        WhenShown<QFileDialog> shown(
            [&](QFileDialog& dialog) { TypeName(dialog, QStringLiteral("my name")); });
        EXPECT_EQ(QtDialogs().chooseFileToSave(NameRequest(folder)), folder / "my name.vtn");
    }
    {
        WhenShown<QFileDialog> shown([&](QFileDialog& dialog) { TypeName(dialog, QStringLiteral("a.scr")); });
        EXPECT_EQ(QtDialogs().chooseFileToSave(NameRequest(folder)), folder / "a.scr");
    }
    {
        auto request = NameRequest(folder);
        request.extension.clear();
        WhenShown<QFileDialog> shown([&](QFileDialog& dialog) { TypeName(dialog, QStringLiteral("bare")); });
        EXPECT_EQ(QtDialogs().chooseFileToSave(request), folder / "bare");
    }
}

TEST(FileDialog, ReturnsNamesThatAreNotAscii) {
    const TempFolder folder;
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        NameEdit(dialog)->setText(QString::fromUtf8("Gr\xC3\xBC\xC3\x9F"
                                                    "e % $.vtn"));
        QTest::keyClick(NameEdit(dialog), Qt::Key_Return);
    });
    EXPECT_EQ(
        QtDialogs().chooseFileToSave(NameRequest(folder)), folder / "Gr\xC3\xBC\xC3\x9F"
                                                                    "e % $.vtn");
}

/// The box over a file dialog.
QMessageBox* BoxOver(const QFileDialog& dialog) {
    return dialog.findChild<QMessageBox*>();
}

/// Answers the question that comes over a dialog.
void AnswerBoxOver(QFileDialog& dialog, QMessageBox::StandardButton answer) {
    auto* timer = new QTimer(&dialog);
    QObject::connect(timer, &QTimer::timeout, &dialog, [&dialog, timer, answer] {
        if (QMessageBox* box = BoxOver(dialog); box != nullptr && box->isVisible()) {
            timer->deleteLater();
            box->button(answer)->click();
        }
    });
    timer->start(1);
}

TEST(FileDialog, AsksBeforeAFileIsReplaced) {
    const TempFolder folder;
    folder.put("there.vtn", "old");
    {
        WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
            AnswerBoxOver(dialog, QMessageBox::Yes);
            TypeName(dialog, QStringLiteral("there.vtn"));
        });
        EXPECT_EQ(QtDialogs().chooseFileToSave(NameRequest(folder)), folder / "there.vtn");
    }
    {
        WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
            AnswerBoxOver(dialog, QMessageBox::No);
            TypeName(dialog, QStringLiteral("there"));
            EXPECT_TRUE(dialog.isVisible());
            TypeName(dialog, QStringLiteral("new"));
        });
        EXPECT_EQ(QtDialogs().chooseFileToSave(NameRequest(folder)), folder / "new.vtn");
    }
}

TEST(FileDialog, AsksNothingWhereTheFileIsAlteredOnly) {
    const TempFolder folder;
    folder.put("autoexec.cfg", "old");
    auto request = NameRequest(folder);
    request.asksToOverwrite = false;
    WhenShown<QFileDialog> shown(
        [&](QFileDialog& dialog) { TypeName(dialog, QStringLiteral("autoexec.cfg")); });
    EXPECT_EQ(QtDialogs().chooseFileToSave(request), folder / "autoexec.cfg");
}

TEST(FileDialog, TakesANameWithWildcardsAsAFilter) {
    const TempFolder folder;
    folder.put("a.vtn", "");
    folder.put("b.cfg", "");
    folder.put("c.CFG", "");
    for (const bool saves : {true, false}) {
        WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
            QTest::keyClick(NameEdit(dialog), Qt::Key_Return);
            EXPECT_TRUE(dialog.isVisible()) << "the initial name is not a file";
            TypeName(dialog, QStringLiteral("*.cfg"));
            EXPECT_TRUE(dialog.isVisible());
            const QStringList expected{QStringLiteral("b.cfg"), QStringLiteral("c.CFG")};
            EXPECT_TRUE(QTest::qWaitFor([&] { return Listed(dialog) == expected; }));
            EXPECT_EQ(NameEdit(dialog)->selectedText(), QStringLiteral("*.cfg"));
            TypeName(dialog, QStringLiteral("?.vtn;b*"));
            EXPECT_TRUE(dialog.isVisible());
            const QStringList others{QStringLiteral("a.vtn"), QStringLiteral("b.cfg")};
            EXPECT_TRUE(QTest::qWaitFor([&] { return Listed(dialog) == others; }));
            dialog.reject();
        });
        const auto request = NameRequest(folder);
        EXPECT_EQ(
            saves ? QtDialogs().chooseFileToSave(request) : QtDialogs().chooseFileToOpen(request),
            std::nullopt);
    }
}

TEST(FileDialog, ListsAnotherFolderByAPattern) {
    const TempFolder folder;
    folder.put("inner/a.cfg", "");
    folder.put("inner/b.vtn", "");
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        TypeName(dialog, QStringLiteral("inner/*.cfg"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return Listed(dialog) == QStringList{QStringLiteral("a.cfg")}; }));
        EXPECT_EQ(NameEdit(dialog)->text(), QStringLiteral("*.cfg"));
        TypeName(dialog, QStringLiteral("a.cfg"));
    });
    EXPECT_EQ(QtDialogs().chooseFileToOpen(NameRequest(folder)), folder / "inner/a.cfg");
}

TEST(FileDialog, StaysWhenTheFileToOpenIsMissing) {
    const TempFolder folder;
    WhenShown<QFileDialog> shown([&](QFileDialog& dialog) {
        AnswerBoxOver(dialog, QMessageBox::Ok);
        TypeName(dialog, QStringLiteral("missing.vtn"));
        EXPECT_TRUE(dialog.isVisible());
        dialog.reject();
    });
    EXPECT_EQ(QtDialogs().chooseFileToOpen(NameRequest(folder)), std::nullopt);
}

TEST(ColourDialog, ReturnsTheChosenColour) {
    WhenShown<QColorDialog> shown([](QColorDialog& dialog) {
        EXPECT_EQ(dialog.currentColor(), QColor(0x12, 0x34, 0x56));
        dialog.setCurrentColor(QColor(0xFF, 0x80, 0x01));
        QTest::mouseClick(
            dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
    });
    EXPECT_EQ(QtDialogs().chooseColour(0xFF123456U), 0xFFFF8001U);
}

TEST(ColourDialog, ReturnsNothingWhenCancelled) {
    WhenShown<QColorDialog> shown([](QColorDialog& dialog) { PressKey(dialog, Qt::Key_Escape); });
    EXPECT_EQ(QtDialogs().chooseColour(0xFF123456U), std::nullopt);
}

} // namespace
