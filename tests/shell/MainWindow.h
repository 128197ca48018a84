// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "shell/frmVTM.h"
#include "support/FakePlatform.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <initializer_list>
#include <memory>

/// The main window over a platform of fakes, in a program directory of its own that holds the real character
/// sets.
class MainWindow : public testing::Test {
protected:
    MainWindow() {
        const ui::Path built(VTM_PROGRAM_DIR);
        for (const char* name : {"vtmtc.dat", "vtmgrid.dat", "vtmani01.dat", "vtmani02.dat"}) {
            std::filesystem::copy_file(built / name, fake.directory.files / name);
        }
        fake.directory.files.put("vtmhelp.htm", "<html></html>");
    }

    ~MainWindow() override {
        window.reset();
        fake.dialogs.expectAllAsked();
    }

    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;
    MainWindow(MainWindow&&) = delete;
    MainWindow& operator=(MainWindow&&) = delete;

    /// Starts the program and waits until its window can be used.
    void start(std::initializer_list<std::string> arguments = {}) {
        window = std::make_unique<shell::frmVTM>(fake.platform);
        const std::vector<std::string> list(arguments);
        const ui::Status loaded = window->Form_Load(list);
        ASSERT_TRUE(loaded.ok()) << loaded.failure().message;
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    /// Starts on a page, typing in colour 1 and without the sounds of the start in the record.
    void startOn(editing::Page page) {
        fake.settings.write("options", "maketype", std::to_string(static_cast<int>(page)));
        fake.settings.write("options", "colmode", "False");
        start();
        fake.sounds.waves.clear();
    }

    template <class Widget = QWidget>
    [[nodiscard]] Widget* find(const char* name) const {
        auto* found = window->findChild<Widget*>(QLatin1String(name));
        if (found == nullptr) {
            ADD_FAILURE() << "There is no " << name << '.';
        }
        return found;
    }

    /// Chooses an entry of the menus.
    void choose(const char* name) const { find<QAction>(name)->trigger(); }

    /// Chooses an entry and works the dialog of a class that it opens.
    template <class Dialog>
    void chooseAndUse(const char* entry, const std::function<void(Dialog&)>& use) const {
        bool used = false;
        QTimer::singleShot(0, window.get(), [&] {
            auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            use(*dialog);
            used = true;
            dialog->close();
        });
        choose(entry);
        EXPECT_TRUE(used);
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QTest::keyClick(window.get(), key, modifiers);
    }

    void type(const char* text) const { QTest::keyClicks(window.get(), QLatin1String(text)); }

    /// Presses a mouse button over a pixel of a widget.
    void click(const char* name, QPoint pixel, Qt::MouseButton button = Qt::LeftButton) const {
        QTest::mouseClick(find(name), button, Qt::NoModifier, pixel);
    }

    /// Moves the pointer, with no button held, to a pixel of a widget.
    void hover(const char* name, QPoint pixel) const {
        QWidget* widget = find(name);
        QMouseEvent event(
            QEvent::MouseMove, pixel, widget->mapToGlobal(pixel), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(widget, &event);
    }

    /// Presses a mouse button over a glyph of the grid.
    void clickGlyph(int code, Qt::MouseButton button = Qt::LeftButton) const {
        click("ImgGrid", {code % 16 * 16 + 8, code / 16 * 16 + 8}, button);
    }

    [[nodiscard]] shell::Workspace& workspace() const { return window->workspace(); }

    /// A row of the page in view as bytes.
    [[nodiscard]] std::string row(int number = 1) const {
        const editing::PageCursor cursor = editing::CursorOf(workspace().documents, workspace().page());
        std::string bytes;
        for (const glyphs::GlyphCode code : cursor.rows.row(number)) {
            bytes.push_back(static_cast<char>(code));
        }
        return bytes;
    }

    [[nodiscard]] int column() const {
        return editing::CursorOf(workspace().documents, workspace().page()).column;
    }

    [[nodiscard]] QString text(const char* label) const { return find<QLabel>(label)->text(); }

    /// How often a sound was played.
    [[nodiscard]] std::ptrdiff_t played(int number) const {
        return std::count(fake.sounds.waves.begin(), fake.sounds.waves.end(), glyphs::SoundWave(number));
    }

    support::FakePlatform fake;
    std::unique_ptr<shell::frmVTM> window;
};
