// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/frmSaveMessages.h"

#include "support/FakePlatform.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QTest>

#include <gtest/gtest.h>

using editing::SaveOutcome;

namespace {

constexpr auto Header = "// Macro File Created by Vortigo\r\n";

class SaveMessages : public testing::Test {
protected:
    support::FakePlatform fake;
    editing::MessageDocument messages;
    ui::Path path = fake.directory.files / "a.vtm";
    std::unique_ptr<scripts::frmSaveMessages> form;

    void SetUp() override {
        for (int number = 1; number <= 3; ++number) {
            messages.rows().cell(number, 1) = static_cast<glyphs::GlyphCode>('0' + number);
        }
        form = std::make_unique<scripts::frmSaveMessages>(fake.dialogs, fake.files, messages);
        form->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get()));
    }

    template <class Widget = QAbstractButton>
    Widget* find(const char* name) {
        auto* const widget = form->findChild<Widget*>(QLatin1String(name));
        EXPECT_NE(nullptr, widget) << name;
        return widget;
    }

    void click(const char* name) {
        auto* const button = find(name);
        // Where a check box has its text, not somewhere in the empty part beside it.
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
    }

    void expectSave(std::optional<ui::Path> answer) {
        fake.dialogs.expectSave(
            {"Save as a Script File", "*.vtm", {{"VTM Macro Script (*.vtm;*.scr)", {"*.vtm", "*.scr"}}}},
            answer);
    }

    void expectWritten() {
        fake.dialogs.expectInform("Done! The script file, " + ui::PathText(path) + ", was written.");
    }
};

} // namespace

TEST_F(SaveMessages, ShowsItsCaptions) {
    EXPECT_EQ(QStringLiteral("frmSaveMessages"), form->objectName());
    EXPECT_EQ(QStringLiteral("Save Messages Wizard"), form->windowTitle());
    EXPECT_EQ(QStringLiteral("Choose Your Options"), find<QGroupBox>("fraOptions")->title());
    EXPECT_EQ(QStringLiteral("Select Messages"), find<QGroupBox>("fraMessages")->title());
    EXPECT_EQ(QStringLiteral("Eveyone Or Team Members"), find<QGroupBox>("fraSay")->title());
    EXPECT_EQ(QStringLiteral("Top Message"), find("chkMess_0")->text());
    EXPECT_EQ(QStringLiteral("Middle Message"), find("chkMess_1")->text());
    EXPECT_EQ(QStringLiteral("Bottom Message"), find("chkMess_2")->text());
    EXPECT_EQ(QStringLiteral("Messages will be displayed for everyone"), find("optSay_0")->text());
    EXPECT_EQ(QStringLiteral("Message will be displayed for team members only."), find("optSay_1")->text());
    EXPECT_EQ(QStringLiteral("OK"), find("cmdOK")->text());
    EXPECT_EQ(QStringLiteral("Cancel"), find("cmdCancel")->text());
}

TEST_F(SaveMessages, StartsWithNoMessageForEveryone) {
    EXPECT_FALSE(find("chkMess_0")->isChecked());
    EXPECT_FALSE(find("chkMess_1")->isChecked());
    EXPECT_FALSE(find("chkMess_2")->isChecked());
    EXPECT_TRUE(find("optSay_0")->isChecked());
    EXPECT_FALSE(find("optSay_1")->isChecked());
}

TEST_F(SaveMessages, StaysOpenWithoutAMessage) {
    fake.dialogs.expectInform("You need to select at least 1 message to display!");
    click("cmdOK");
    EXPECT_TRUE(form->isVisible());
    EXPECT_NE(SaveOutcome::Kind::Written, form->outcome().kind);
}

TEST_F(SaveMessages, WritesTheTickedMessagesAndCloses) {
    click("chkMess_0");
    click("chkMess_2");
    click("optSay_1");
    expectSave(path);
    expectWritten();
    click("cmdOK");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(QDialog::Accepted, form->result());
    EXPECT_EQ(SaveOutcome::Kind::Written, form->outcome().kind);
    EXPECT_EQ(path, form->outcome().path);
    EXPECT_EQ(
        std::string(Header) + "say_team \"1\"\r\nsay_team \"3\"\r\n", fake.directory.files.content("a.vtm"));
}

TEST_F(SaveMessages, WritesForEveryone) {
    click("chkMess_1");
    click("optSay_1");
    click("optSay_0");
    expectSave(path);
    expectWritten();
    click("cmdOK");
    EXPECT_EQ(std::string(Header) + "say \"2\"\r\n", fake.directory.files.content("a.vtm"));
}

TEST_F(SaveMessages, StaysOpenAfterACancelledSaveDialog) {
    click("chkMess_1");
    expectSave(std::nullopt);
    click("cmdOK");
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(find("chkMess_1")->isChecked());
}

TEST_F(SaveMessages, StaysOpenAfterAFailure) {
    click("chkMess_1");
    fake.files.failOnce(support::FailingFiles::Step::Create);
    expectSave(path);
    fake.dialogs.expectWarning("Could not create \"" + ui::PathText(path) + "\": injected failure.");
    click("cmdOK");
    EXPECT_TRUE(form->isVisible());
    EXPECT_NE(SaveOutcome::Kind::Written, form->outcome().kind);
}

TEST_F(SaveMessages, IsCancelledByItsButtonAndByEscape) {
    click("chkMess_1");
    click("cmdCancel");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(QDialog::Rejected, form->result());
    form->show();
    QTest::keyClick(form.get(), Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    EXPECT_NE(SaveOutcome::Kind::Written, form->outcome().kind);
    EXPECT_TRUE(fake.dialogs.calls().empty());
}

TEST_F(SaveMessages, IsUsedByKeyboardAlone) {
    const auto press = [&](Qt::Key key) {
        QTest::keyClick(form->focusWidget(), key);
    };
    EXPECT_EQ(find("chkMess_0"), form->focusWidget());
    press(Qt::Key_Space);
    press(Qt::Key_Tab);
    EXPECT_EQ(find("chkMess_1"), form->focusWidget());
    press(Qt::Key_Tab);
    press(Qt::Key_Space);
    press(Qt::Key_Tab);
    EXPECT_EQ(find("optSay_0"), form->focusWidget());
    press(Qt::Key_Down);
    EXPECT_TRUE(find("optSay_1")->isChecked());
    expectSave(path);
    expectWritten();
    press(Qt::Key_Return);
    EXPECT_EQ(
        std::string(Header) + "say_team \"1\"\r\nsay_team \"3\"\r\n", fake.directory.files.content("a.vtm"));
}
