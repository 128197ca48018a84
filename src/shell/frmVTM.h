// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "shell/Commands.h"
#include "shell/CtrlNotice.h"
#include "shell/Exchange.h"
#include "shell/FileCommands.h"
#include "shell/Session.h"
#include "ui/KeyStroke.h"
#include "ui/qt/KeyReader.h"

#include <QMainWindow>
#include <QTimer>
#include <span>
#include <string>

namespace shell {

struct AltKey;
class GlyphColumn;
class MainMenus;
class PageColumn;
class ProgressIndicator;
class Recovery;
class ScrollingCentre;
class StatusLine;

/// The main window: it shows a session and gives every key its command. Its load is the program's start-up
/// and its unload the shut-down.
class frmVTM : public QMainWindow, private SessionView {
    Q_OBJECT

public:
    explicit frmVTM(const ui::Platform& platform);
    ~frmVTM() override;

    /// The start-up sequence; ends with the window shown. `arguments`: without the program's own name. The
    /// failure says why the program cannot run.
    ui::Status Form_Load(std::span<const std::string> arguments);

    /// The shut-down: saves the settings if "saveatexit" says so. The second call does nothing. The failure
    /// says what could not be saved.
    ui::Status Form_Unload();

    [[nodiscard]] bool isUnloaded() const { return m_isUnloaded; }

    /// A key press; keys that mean nothing here are left to the window. Returns whether it was used.
    bool Form_KeyDown(const ui::KeyStroke& stroke);

    [[nodiscard]] Workspace& workspace() { return m_session.workspace(); }

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildCentre();
    [[nodiscard]] QSize firstSize() const;
    void restoreWindow();
    void tmrCursor_Timer();
    void lockKey_Turned(ui::LockKey key, bool isOn);
    void turnMode(int virtualKey);
    void runAltKey(const AltKey& key);

    // SessionView
    void viewPage(editing::Page page) override;
    void showDocument(editing::Page page) override;
    void followCursor() override;
    void showProgress(int percentage) override;
    void showStatus(const std::string& text) override;
    void offerReadNames() override;
    void withdrawReadNames() override;
    void showRecentFiles() override;
    void showAtlas() override;
    void showColours() override;
    void showPointers() override;
    void showModes() override;
    void showGames() override;
    void showViewChoices() override;

    const ui::Platform& m_platform;
    Session m_session;
    GlyphColumn* m_glyphColumn;
    PageColumn* m_pageColumn;
    Commands m_commands;
    FileCommands m_files;
    Exchange m_exchange;
    MainMenus* m_menus;
    ScrollingCentre* m_centre = nullptr;
    ProgressIndicator* picProgress = nullptr;
    StatusLine* m_statusLine = nullptr;
    Recovery* m_recovery = nullptr;
    QTimer tmrCursor;
    ui::qt::KeyReader m_keys;
    CtrlNotice m_ctrlNotice;
    bool m_isUnloaded = false;
};

} // namespace shell
