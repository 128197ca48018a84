// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "AccessTools.h"
#include "MainWindow.h"

#include "animation/frmAniWiz.h"
#include "animation/frmRankings.h"
#include "editing/frmGetChar.h"
#include "scripts/frmBindWiz.h"
#include "scripts/frmSaveMessages.h"
#include "shell/frmAbout.h"
#include "shell/frmNewCharSet.h"
#include "shell/frmOptions.h"

#include <QAbstractButton>
#include <QTimer>
#include <functional>

/// The main window while an assistive tool listens.
class Access : public MainWindow {
protected:
    [[nodiscard]] QAccessibleInterface* access(const char* name) const {
        return QAccessible::queryAccessibleInterface(find(name));
    }

    [[nodiscard]] std::string named(const char* name) const {
        return spoken::Text(access(name), QAccessible::Name);
    }

    /// A cell of a picture; row and column from 0.
    [[nodiscard]] QAccessibleInterface* cell(const char* picture, int row, int column) const {
        QAccessibleInterface* const found = access(picture)->tableInterface()->cellAt(row, column);
        if (found == nullptr) {
            ADD_FAILURE() << picture << " has no cell " << row << ',' << column;
        }
        return found;
    }

    [[nodiscard]] std::string cellName(const char* picture, int row, int column) const {
        return spoken::Text(cell(picture, row, column), QAccessible::Name);
    }

    /// Whether the picture of the page in view has the keyboard.
    [[nodiscard]] bool typingGoesOn() const {
        const std::array<const char*, 3> pictures{"NamePic", "AniPic", "MacPic"};
        return QApplication::focusWidget() == find(pictures.at(static_cast<std::size_t>(workspace().page())));
    }

    /// Does something that opens a dialog of a class, works it and closes it.
    template <class Dialog>
    void openAndUse(const std::function<void()>& open, const std::function<void(Dialog&)>& use) const {
        bool used = false;
        QTimer::singleShot(0, window.get(), [&] {
            auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr) {
                ADD_FAILURE() << "the dialog did not open";
                return;
            }
            use(*dialog);
            used = true;
            if (dialog->isVisible()) {
                dialog->reject();
            }
        });
        open();
        EXPECT_TRUE(used);
    }

    /// Opens every dialog of the program in turn and does something with it.
    void throughAllDialogs(const std::function<void(QDialog&)>& use) {
        const auto entry = [this](const char* name) {
            return [this, name] {
                choose(name);
            };
        };
        openAndUse<animation::frmAniWiz>(entry("mnuToolsAnimationWizard"), use);
        openAndUse<scripts::frmBindWiz>(entry("mnuToolsBindingWizard"), use);
        openAndUse<scripts::frmSaveMessages>(entry("mnuFileSaveMessage"), use);
        openAndUse<shell::frmOptions>(entry("mnuToolsSettings"), use);
        openAndUse<shell::frmOptions>(entry("mnuToolsSettings"), [this, &use](shell::frmOptions& options) {
            // With everything that it may have to say: this one lacks its palette.
            const std::string lump(std::size_t{128} * 128, 'x');
            const ui::FileDialogRequest request = shell::CharSetRequest();
            fake.dialogs.expectOpen(
                {.title = request.title, .initialName = "", .filters = request.filters},
                putFile("a.lmp", lump));
            openAndUse<shell::frmNewCharSet>(
                [&options] { options.findChild<QAbstractButton*>(QStringLiteral("cmdAddSet"))->click(); },
                use);
        });
        openAndUse<shell::frmAbout>(entry("mnuAboutVTM"), use);
        openAndUse<editing::frmGetChar>([this] { press(Qt::Key_G, Qt::AltModifier); }, use);
        workspace().settings.screenshot.clear();
        fake.dialogs.expectWarning("There is no screen shot chosen to display.\n"
                                   "Please go to the options and select a new screen shot.");
        openAndUse<animation::frmRankings>(
            entry("mnuToolsAnimationViewer"), [this, &use](animation::frmRankings& preview) {
                EXPECT_TRUE(QTest::qWaitFor([this] { return fake.dialogs.left() == 0; }));
                use(preview);
            });
    }

    [[nodiscard]] ui::Path putFile(const char* name, const std::string& bytes) const {
        return fake.directory.files.put(name, bytes);
    }

    static glyphs::GlyphCode pickedBy(editing::frmGetChar& picker, Qt::Key key) {
        QTest::keyClick(&picker, Qt::Key_Right);
        QTest::keyClick(&picker, key);
        return picker.glyph();
    }

    spoken::Listener listener;
};
