// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/ScriptFlow.h"
#include "shell/CtrlNotice.h"
#include "shell/History.h"
#include "shell/Workspace.h"
#include "ui/KeyStroke.h"
#include "ui/Platform.h"
#include "ui/qt/KeyReader.h"

#include <QMainWindow>
#include <QTimer>
#include <array>
#include <functional>
#include <span>
#include <string>
#include <vector>

class QAction;
class QLabel;
class QMenu;
class QPushButton;
class QStackedWidget;
class QToolBar;

namespace editing {
class DirectionPad;
class PagePanel;
} // namespace editing

namespace animation {
class AnimationPage;
} // namespace animation

namespace shell {

struct AltKey;
struct WorkState;
class GlyphColumn;
class OptionsModel;
class ProgressIndicator;
class Recovery;
class ScrollingCentre;
class StatusLine;
class TabPicture;

/// The main window: menus, toolbar, the three pages, the glyph grid with its buttons. Its load is the
/// program's start-up and its unload the shut-down.
class frmVTM : public QMainWindow {
    Q_OBJECT

public:
    explicit frmVTM(ui::Platform& platform);
    ~frmVTM() override;

    /// The start-up sequence; ends with the window shown. `arguments`: without the program's
    /// own name.
    /// The failure says why the program cannot run.
    ui::Status Form_Load(std::span<const std::string> arguments);

    /// The shut-down: saves the settings if "saveatexit" says so. The second call does nothing. The failure
    /// says what could not be saved.
    ui::Status Form_Unload();

    [[nodiscard]] bool isUnloaded() const { return m_isUnloaded; }

    /// A key press; keys that mean nothing here are left to the window. Returns whether it was used.
    bool Form_KeyDown(const ui::KeyStroke& stroke);

    [[nodiscard]] Workspace& workspace() { return m_workspace; }

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct MenuCommand;
    struct ToolCommand;
    static const std::array<MenuCommand, 43> MenuCommands;
    static const std::array<ToolCommand, 31> ToolCommands;

    /// A menu entry's command: a handler with its arguments.
    template <auto Handler, auto... Arguments>
    static void Run(frmVTM& window) {
        (window.*Handler)(Arguments...);
    }

    // Building the window
    void buildMenus();
    QMenu* addMenu(QMenu* parent, const char* name, const QString& caption);
    QAction* addEntry(QMenu& menu, const QString& name, const QString& caption, std::function<void()> run);
    void addEntriesOf(const editing::Kind& kind);
    void buildToolbar();
    /// The menu of that name, or nullptr.
    [[nodiscard]] QMenu* menu(const char* name) const;
    void buildCentre();
    QWidget* buildPageColumn();
    void connectControls();

    // What every command ends with, and how pages are shown
    void Refresh();
    /// Shows a page as its document is, without moving the view or the focus.
    void showPage(editing::Page page);
    void showDamage();
    void switchPageFor(editing::Page page);
    /// Brings a page into view.
    void view(editing::Page page);
    /// Keeps what the running command has changed, and says in the menu what can be taken back.
    void record();
    void showTakenBack(const std::vector<editing::Page>& pages);
    void describeKeys();
    [[nodiscard]] QSize firstSize() const;
    [[nodiscard]] editing::PagePanel& panel(editing::Page page) const;
    [[nodiscard]] editing::PageCursor cursor();
    [[nodiscard]] editing::PagePainter painter();
    /// Tells a text in the status line; an empty one leaves what stands there.
    void showStatus(const std::string& text);
    void updateCursorLabel();

    // Start-up and files
    ui::Status loadSettings();
    void registerFileTypes();
    void restoreWindow();
    /// Puts a state that was kept for after a crash on the pages.
    void showWork(const WorkState& state);
    /// Reads a script into its page and tells of it. Whether it was read to its end.
    bool loadScript(
        editing::Page page, const ui::Path& path,
        editing::OpenFailure openFailure = editing::OpenFailure::StatusLine);
    void rebuildRecentMenus();
    void scriptSaved(editing::Page kind, const ui::Path& path);
    void offerBinding();
    [[nodiscard]] editing::SaveOutcome saveScript(const editing::Kind& kind);
    void repaintPage(editing::Page page);
    void showReadNames();
    [[nodiscard]] ui::Path dialogFolder() const;

    // Settings that show
    ui::Status SelectCharSet(int recordNumber);
    void RefreshCharSet();
    void useCharSet(const glyphs::CharSet& set);
    void buildAtlas(const ui::Picture& artwork);
    void applyOptions(const OptionsModel& model);
    void applyColours();
    void applyCursors();
    void applyModes();

    // Mouse and timers
    void ImgGrid_MouseDown(glyphs::GlyphCode code, Qt::MouseButton button);
    void cursor_Moved(editing::Page page, int column, int row);
    void PagePic_MouseDown(editing::Page page, int x, int y, Qt::MouseButton button);
    void cmdKey_Click(int index, bool isOn);
    void lockKey_Turned(ui::LockKey key, bool isOn);
    void cmdFavorite_MouseDown(int index, Qt::MouseButton button);
    void cmdFrequent_MouseDown(int index);
    void cmdCalcFrequent_Click();
    void cmdName_Click(int index);
    void total_Chosen(int count);
    void ticks_Chosen(int count, bool forAllNames);
    void imgDir_Arrow(int virtualKey);
    void tmrCursor_Timer();
    [[nodiscard]] glyphs::GlyphCode pickGlyph(glyphs::GlyphCode start);
    void putGlyph(glyphs::GlyphCode code);
    void putGlyphWithMarker(glyphs::GlyphCode code);
    void runAltKey(const AltKey& key);
    /// Opens the menu of a letter; false when it has none.
    bool openMenu(const ui::KeyStroke& stroke);
    void putPickedGlyph();

    // Menu and toolbar commands
    void mnuNew_Click(editing::Page page);
    void mnuLoad_Click(editing::Page page);
    void mnuFileLoadNameFromConfigFile_Click();
    void mnuSave_Click(editing::Page page);
    void mnuFileSaveNameToConfigFile_Click();
    void mnuFileSaveNameToClipboard_Click();
    void mnuRecentFiles_Click(editing::Page kind, int index);
    void mnuFileExit_Click();
    void mnuEditCut_Click();
    void mnuEditCopy_Click();
    void mnuEditPaste_Click();
    void mnuEditUndo_Click();
    void mnuEditRedo_Click();
    void mnuFormat_Click(editing::FormatOperation operation);
    void mnuFormatReverseNameOrder_Click();
    void mnuView_Click(editing::Page page);
    void mnuToolsAnimationWizard_Click();
    void mnuToolsAnimationViewer_Click();
    void mnuToolsBindingWizard_Click();
    void mnuToolsSettings_Click();
    void mnuHelp_Click();
    void mnuAboutVTM_Click();
    void Toolbar1_ButtonClick(const QString& key);

    ui::Platform& m_platform;
    Workspace m_workspace;
    ui::qt::KeyReader m_keys;
    CtrlNotice m_ctrlNotice;
    History m_history;
    std::string m_command; ///< the one that runs, as Undo names it
    bool m_isStartingUp = false;
    bool m_isUnloaded = false;
    bool m_hasRegistered = false; ///< the file types, in this run
    std::string m_startNotice;    ///< for the status line, once the start's own messages are through

    std::vector<QMenu*> m_menus;
    QList<QAction*> m_pageActions;
    QAction* mnuEditUndo = nullptr;
    QAction* mnuEditRedo = nullptr;
    QToolBar* Toolbar1 = nullptr;
    ScrollingCentre* m_centre = nullptr;
    GlyphColumn* m_glyphColumn = nullptr;
    editing::DirectionPad* imgDir = nullptr;
    QLabel* lblCurPos = nullptr;
    std::array<TabPicture*, editing::Kinds.size()> picTab{};
    QStackedWidget* m_pages = nullptr;
    animation::AnimationPage* m_animationPage = nullptr;
    StatusLine* m_statusLine = nullptr;
    Recovery* m_recovery = nullptr;
    ProgressIndicator* picProgress = nullptr;
    glyphs::Progress m_progress;
    QTimer tmrCursor;
};

} // namespace shell
