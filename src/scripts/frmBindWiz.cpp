// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/frmBindWiz.h"

#include "ui/qt/DialogButtons.h"
#include "ui/qt/SmallPrint.h"
#include "ui/qt/Text.h"
#include "ui_frmBindWiz.h"

#include <QSignalBlocker>

namespace scripts {

namespace {

constexpr int KeyRole = Qt::UserRole;

/// The path of a typed text, which may begin in the user's home.
ui::Path PathOf(const QString& text) {
    return ui::qt::ToPath(ui::qt::WithHome(text));
}

/// Shows a hint, which takes no room when there is none.
void Tell(ui::qt::LineLabel& hint, const std::string& text, const std::string& reason = {}) {
    hint.tell(QString::fromStdString(text), QString::fromStdString(reason));
    hint.setVisible(!text.empty());
}

/// Fills a list with the keys of which `isListed` is true, in the order of the table.
template <class Predicate>
void ListKeys(QListWidget& list, Predicate isListed) {
    list.clear();
    for (std::size_t key = 0; key < KeyCount; ++key) {
        if (isListed(key)) {
            auto* const item = new QListWidgetItem(ui::qt::FromLatin1(KeyNames[key]), &list);
            item->setData(KeyRole, static_cast<int>(key));
        }
    }
}

/// Selects the entry of a key and brings it into view, or selects nothing if it is not listed.
void Select(QListWidget& list, std::optional<int> key) {
    list.clearSelection();
    for (int row = 0; key && row < list.count(); ++row) {
        if (list.item(row)->data(KeyRole).toInt() == *key) {
            list.setCurrentRow(row);
            list.scrollToItem(list.item(row));
        }
    }
}

} // namespace

frmBindWiz::frmBindWiz(
    ui::Dialogs& dialogs, ui::Files& files, const ui::ProgramDirectory& directory, Paths remembered,
    GamesHere games, QWidget* parent)
    : QDialog(parent)
    , m_form(std::make_unique<Ui::frmBindWiz>())
    , m_dialogs(dialogs)
    , m_files(files)
    , m_directory(directory)
    , m_remembered(std::move(remembered))
    , m_games(std::move(games)) {
    m_form->setupUi(this);
    for (QLabel* const remark : {m_form->lblCFGAdvice, m_form->lblKeyHint}) {
        ui::qt::SetSmallPrint(*remark);
    }
    ui::qt::NameOkAndCancel(*m_form->buttons);
    Form_Load();
    connectControls();
}

frmBindWiz::~frmBindWiz() = default;

void frmBindWiz::connectControls() {
    connect(m_form->txtCFGFileName, &QLineEdit::textEdited, this, &frmBindWiz::txtCFGFileName_Change);
    connect(m_form->cmdGetCFGFile, &QPushButton::clicked, this, &frmBindWiz::cmdGetCFGFile_Click);
    connect(m_form->txtSCRFileName, &QLineEdit::textEdited, this, &frmBindWiz::txtSCRFileName_Change);
    connect(m_form->cmdGetSCRFile, &QPushButton::clicked, this, &frmBindWiz::cmdGetSCRFile_Click);
    connect(m_form->BindList, &QListWidget::itemSelectionChanged, this, &frmBindWiz::BindList_Click);
    connect(m_form->NotBound, &QListWidget::itemSelectionChanged, this, &frmBindWiz::NotBound_Click);
    connect(m_form->PreBound, &QListWidget::itemSelectionChanged, this, &frmBindWiz::PreBound_Click);
    connect(m_form->buttons, &QDialogButtonBox::accepted, this, &frmBindWiz::cmdOK_Click);
    connect(m_form->buttons, &QDialogButtonBox::rejected, this, &frmBindWiz::cmdCancel_Click);
}

void frmBindWiz::Form_Load() {
    ListKeys(*m_form->BindList, [](std::size_t) { return true; });
    setConfig(m_files.exists(m_remembered.config) ? m_remembered.config : ui::Path());
    setScript(m_files.exists(m_remembered.script) ? m_remembered.script : ui::Path());
}

void frmBindWiz::setConfig(const ui::Path& path) {
    m_choice.config = path;
    m_form->txtCFGFileName->setText(ui::qt::FromPath(path));
    showBoundKeys();
}

void frmBindWiz::setScript(const ui::Path& path) {
    m_choice.script = path;
    m_form->txtSCRFileName->setText(ui::qt::FromPath(path));
    showScriptHint();
}

void frmBindWiz::showBoundKeys() {
    m_keys = ReadBoundKeys(m_files, m_choice.config);
    Tell(*m_form->lblCFGHint, m_keys.hint, m_keys.reason);
    Tell(*m_form->lblCFGAdvice, ConfigAdvice(m_choice.config, m_games));
    // Where the script is looked for depends on the game.
    showScriptHint();

    // A list that is disabled loses the focus, and the user the place where they were.
    QWidget* const focus = focusWidget();
    const QSignalBlocker quietNotBound(m_form->NotBound);
    const QSignalBlocker quietPreBound(m_form->PreBound);
    m_form->NotBound->setEnabled(false);
    m_form->PreBound->setEnabled(false);
    ListKeys(*m_form->NotBound, [this](std::size_t key) { return !m_keys.bound[key]; });
    ListKeys(*m_form->PreBound, [this](std::size_t key) { return m_keys.bound[key]; });
    m_form->NotBound->setEnabled(true);
    m_form->PreBound->setEnabled(true);
    if (focus != nullptr) {
        focus->setFocus();
    }
    showChosenKey();
}

void frmBindWiz::showScriptHint() {
    std::string hint = ScriptHint(m_files, m_choice.script);
    if (hint.empty()) {
        hint = ScriptPlaceHint(m_choice.script, m_choice.config, m_games);
    }
    Tell(*m_form->lblSCRHint, hint);
}

void frmBindWiz::chooseKey(const QListWidget& list) {
    const auto selected = list.selectedItems();
    if (!selected.isEmpty()) {
        m_choice.key = selected.constFirst()->data(KeyRole).toInt();
        showChosenKey();
    }
}

void frmBindWiz::showChosenKey() {
    for (QListWidget* const list : {m_form->BindList, m_form->NotBound, m_form->PreBound}) {
        const QSignalBlocker quiet(list);
        Select(*list, m_choice.key);
    }
    const std::string_view key = m_choice.key ? KeyNames.at(static_cast<std::size_t>(*m_choice.key)) : "";
    Tell(*m_form->lblKeyHint, KeyHint(key, m_choice.config, m_games));
    m_form->lblForecast->tell(QString::fromStdString(m_keys.forecast(m_choice.key)));
}

void frmBindWiz::txtCFGFileName_Change(const QString& text) {
    m_choice.config = PathOf(text);
    showBoundKeys();
}

void frmBindWiz::cmdGetCFGFile_Click() {
    auto request = BindConfigRequest();
    request.folder = m_choice.config.parent_path();
    if (const auto path = m_dialogs.chooseFileToOpen(request)) {
        m_remembered.config = *path;
        setConfig(*path);
    }
}

void frmBindWiz::txtSCRFileName_Change(const QString& text) {
    m_choice.script = PathOf(text);
    showScriptHint();
}

void frmBindWiz::cmdGetSCRFile_Click() {
    auto request = BindScriptRequest();
    request.folder = m_choice.script.parent_path();
    if (const auto path = m_dialogs.chooseFileToOpen(request)) {
        m_remembered.script = *path;
        setScript(*path);
    }
}

void frmBindWiz::BindList_Click() {
    chooseKey(*m_form->BindList);
}

void frmBindWiz::NotBound_Click() {
    chooseKey(*m_form->NotBound);
}

void frmBindWiz::PreBound_Click() {
    chooseKey(*m_form->PreBound);
}

void frmBindWiz::cmdOK_Click() {
    // The file may have changed since it was read.
    showBoundKeys();
    const ConfigOutcome outcome = BindKey(m_dialogs, m_files, m_directory, m_choice);
    if (outcome.written) {
        m_remembered = {m_choice.config, m_choice.script};
        m_statusText = outcome.statusText;
        accept();
    }
}

void frmBindWiz::cmdCancel_Click() {
    reject();
}

} // namespace scripts
