// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ModalDialogs.h"
#include "ui/qt/QtDialogs.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QMessageBox>
#include <QProgressDialog>
#include <QProxyStyle>
#include <QPushButton>
#include <QStyleHintReturn>
#include <QTest>
#include <algorithm>
#include <gtest/gtest.h>

namespace {

using modal::PressKey;
using modal::WhenShown;
using ui::Answer;
using ui::Buttons;
using ui::Icon;
using ui::qt::QtDialogs;

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
    EXPECT_EQ(QtDialogs().box({"Done! The script file, /tmp/<b>a&b</b>.vtn, was written."}), Answer::Ok);
}

TEST(MessageBox, ShowsAWarningIconAndLineEnds) {
    WhenShown<QMessageBox> shown([](QMessageBox& box) {
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        EXPECT_EQ(box.text(), QStringLiteral("One\nTwo\nThree"));
        PressKey(box, Qt::Key_Escape);
    });
    EXPECT_EQ(QtDialogs().box({"One\r\nTwo\nThree", Buttons::Ok, Icon::Exclamation}), Answer::Ok);
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

TEST(MessageBox, WrapsALongName) {
    const std::string path = "/home/" + std::string(200, 'w');
    WhenShown<QMessageBox> shown([&path](QMessageBox& box) {
        const auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
        EXPECT_LE(
            label->fontMetrics().boundingRect(label->contentsRect(), Qt::TextWordWrap, label->text()).width(),
            label->contentsRect().width());
        EXPECT_EQ(
            box.text().remove(QChar(0x200B)).toStdString(),
            "Done! The script file, " + path + "/a.vtn, was written.");
        PressKey(box, Qt::Key_Return);
    });
    QtDialogs().inform("Done! The script file, " + path + "/a.vtn, was written.");
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
        EXPECT_EQ(QtDialogs().box({"Add it?", Buttons::YesNo}), Answer::Yes);
    }
    {
        WhenShown<QMessageBox> shown([](QMessageBox& box) {
            EXPECT_EQ(
                ButtonTexts(box),
                QStringList({QStringLiteral("Yes"), QStringLiteral("No"), QStringLiteral("Cancel")}));
            EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::Yes));
            PressKey(box, Qt::Key_Return);
        });
        EXPECT_EQ(QtDialogs().box({"All?", Buttons::YesNoCancel}), Answer::Yes);
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
        EXPECT_EQ(QtDialogs().box({"All?", Buttons::YesNoCancel}), Answer::Yes);
    }
    QApplication::setStyle(usual);
}

TEST(MessageBox, PrefersNoWhereThatIsSafer) {
    WhenShown<QMessageBox> shown([](QMessageBox& box) {
        EXPECT_EQ(ButtonTexts(box), QStringList({QStringLiteral("Yes"), QStringLiteral("No")}));
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
        PressKey(box, Qt::Key_Return);
    });
    EXPECT_EQ(QtDialogs().box({"Replace it?", Buttons::YesNo, Icon::None, "", true}), Answer::No);
}

TEST(MessageBox, ShowsADetailBelowItsTextAndSmaller) {
    WhenShown<QMessageBox> shown([](QMessageBox& box) {
        EXPECT_EQ(box.text(), QStringLiteral("All?"));
        EXPECT_EQ(box.informativeText(), QStringLiteral("No: <b>one</b>."));
        const auto* text = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
        const auto* detail = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"));
        EXPECT_EQ(detail->textFormat(), Qt::PlainText);
        EXPECT_LT(detail->fontInfo().pointSizeF(), text->fontInfo().pointSizeF());
        EXPECT_GE(detail->y(), text->geometry().bottom());
        PressKey(box, Qt::Key_Return);
    });
    EXPECT_EQ(QtDialogs().box({"All?", Buttons::YesNo, Icon::None, "No: <b>one</b>."}), Answer::Yes);
}

TEST(MessageBox, IsWideEnoughForTheLinesOfADetailAndReadsThemOut) {
    const std::string lines = "Yes writes one of the two: it runs here, there and elsewhere.\nNo: the other.";
    WhenShown<QMessageBox> shown([&lines](QMessageBox& box) {
        auto* detail = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"));
        EXPECT_EQ(detail->contentsRect().height(), 2 * detail->fontMetrics().lineSpacing());
        const QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(detail);
        EXPECT_EQ(heard->role(), QAccessible::StaticText);
        EXPECT_EQ(heard->text(QAccessible::Name).toStdString(), lines);
        PressKey(box, Qt::Key_Return);
    });
    EXPECT_EQ(QtDialogs().box({"All?", Buttons::YesNo, Icon::None, lines}), Answer::Yes);
}

TEST(MessageBox, WrapsALongLineOfADetail) {
    WhenShown<QMessageBox> shown([](QMessageBox& box) {
        EXPECT_LE(box.width(), 600);
        PressKey(box, Qt::Key_Return);
    });
    EXPECT_EQ(
        QtDialogs().box({"All?", Buttons::YesNo, Icon::None, "It goes on" + std::string(400, ' ') + "x"}),
        Answer::Yes);
}

TEST(MessageBox, TakesEscapeForNoOrCancel) {
    {
        WhenShown<QMessageBox> shown([](QMessageBox& box) { PressKey(box, Qt::Key_Escape); });
        EXPECT_EQ(QtDialogs().box({"Add it?", Buttons::YesNo}), Answer::No);
    }
    {
        WhenShown<QMessageBox> shown([](QMessageBox& box) { PressKey(box, Qt::Key_Escape); });
        EXPECT_EQ(QtDialogs().box({"All?", Buttons::YesNoCancel}), Answer::Cancel);
    }
    {
        WhenShown<QMessageBox> shown([](QMessageBox& box) { box.close(); });
        EXPECT_EQ(QtDialogs().box({"All?", Buttons::YesNoCancel}), Answer::Cancel);
    }
}

TEST(MessageBox, AnswersWithTheButtonThatIsPressed) {
    for (const auto& choice :
         {std::pair{QMessageBox::Yes, Answer::Yes}, std::pair{QMessageBox::No, Answer::No},
          std::pair{QMessageBox::Cancel, Answer::Cancel}}) {
        WhenShown<QMessageBox> shown(
            [&](QMessageBox& box) { QTest::mouseClick(box.button(choice.first), Qt::LeftButton); });
        EXPECT_EQ(QtDialogs().box({"All?", Buttons::YesNoCancel}), choice.second);
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

TEST(Progress, IsNotShownForQuickWork) {
    std::vector<bool> answers;
    QtDialogs().follow("Drawing", 3, [&](const ui::GoesOn& goesOn) {
        for (const int done : {1, 2, 3}) {
            answers.push_back(goesOn(done));
            EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        }
    });
    EXPECT_EQ(answers, std::vector<bool>(3, true));
}

TEST(Progress, OfLongWorkIsShownAndEndsItWithCancel) {
    static constexpr int Steps = 1000000000;
    QtDialogs().follow("Drawing", Steps, [](const ui::GoesOn& goesOn) {
        QElapsedTimer time;
        time.start();
        const auto isShown = [] {
            return QApplication::activeModalWidget() != nullptr;
        };
        int done = 0;
        while (!isShown() && time.elapsed() < 20000) {
            EXPECT_TRUE(goesOn(++done));
        }
        auto* const dialog = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Vortigo"));
        EXPECT_EQ(dialog->labelText(), QStringLiteral("Drawing"));
        EXPECT_EQ(dialog->maximum(), Steps);
        EXPECT_TRUE(goesOn(++done));
        EXPECT_EQ(dialog->value(), done);
        PressKey(*dialog, Qt::Key_Escape);
        EXPECT_FALSE(goesOn(++done));
    });
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

} // namespace
