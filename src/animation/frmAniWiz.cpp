// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/frmAniWiz.h"

#include "animation/Texts.h"
#include "animation/mdlAniServer.h"
#include "animation/mdlAniTrial.h"

#include "ui/qt/DialogButtons.h"
#include "ui/qt/Text.h"
#include "ui_frmAniWiz.h"

#include <QApplication>
#include <QShortcut>

#include <algorithm>
#include <array>
#include <utility>

namespace animation {

namespace {

/// Gives a list "No Change" and the titles of the patterns, with the first chosen.
void FillOptions(QComboBox& list, const std::vector<std::string>& titles) {
    list.addItem(QStringLiteral("No Change"));
    for (const std::string& title : titles) {
        list.addItem(ui::qt::FromLatin1(title));
    }
    list.setCurrentIndex(0);
}

/// A scroll bar does not show that it has the keyboard; its number does.
void ShowFocusOf(const QScrollBar& bar, QLabel& number) {
    QObject::connect(
        qApp, &QApplication::focusChanged, &number,
        [&bar, &number](const QWidget* /*before*/, const QWidget* now) {
            number.setAutoFillBackground(now == &bar);
            number.setBackgroundRole(now == &bar ? QPalette::Highlight : QPalette::NoRole);
            number.setForegroundRole(now == &bar ? QPalette::HighlightedText : QPalette::NoRole);
        });
}

} // namespace

frmAniWiz::frmAniWiz(
    AnimationDocument& animation, glyphs::CaseChoice caseChoice, const glyphs::GlyphAtlas& atlas,
    ui::Dialogs& dialogs, const ui::Files& files, const ui::ProgramDirectory& directory, QWidget* parent)
    : QDialog(parent)
    , m_form(std::make_unique<Ui::frmAniWiz>())
    , m_animation(animation)
    , m_caseChoice(caseChoice)
    , m_dialogs(dialogs)
    , m_files(files)
    , m_directory(directory) {
    m_form->setupUi(this);
    auto* const build = ui::qt::NameButton(
        *m_form->buttons, QDialogButtonBox::Ok, QStringLiteral("cmdBuild"), QStringLiteral("Build"));
    build->setToolTip(QStringLiteral("Build the animation using these settings"));
    build->setDefault(true);
    ui::qt::NameButton(
        *m_form->buttons, QDialogButtonBox::Cancel, QStringLiteral("cmdCancel"), QStringLiteral("Cancel"));
    // The numbers keep their place when they grow to two digits.
    const int width = fontMetrics().horizontalAdvance(QStringLiteral("00"));
    for (QLabel* const label : {m_form->lblNameToUse, m_form->lblStartName, m_form->lblEndName}) {
        label->setMinimumWidth(width);
    }
    m_form->strip->setAtlas(atlas);
    setTabOrder(m_form->chkSafeForServers, m_form->strip->button());
    addShortcuts();
    Form_Load();
    connectControls();
    showTrial();
}

frmAniWiz::~frmAniWiz() = default;

void frmAniWiz::connectControls() {
    connect(m_form->NameToUseScroll, &QScrollBar::valueChanged, this, &frmAniWiz::NameToUseScroll_Change);
    connect(m_form->StartNameScroll, &QScrollBar::valueChanged, this, &frmAniWiz::StartNameScroll_Change);
    ShowFocusOf(*m_form->NameToUseScroll, *m_form->lblNameToUse);
    ShowFocusOf(*m_form->StartNameScroll, *m_form->lblStartName);
    for (PatternList* const list :
         {m_form->cmboPos_1, m_form->cmboPos_2, m_form->cmboColor, m_form->cmboCase}) {
        list->keepFree([this] { return m_form->strip->globalArea(); });
        connect(list, &PatternList::tried, this, &frmAniWiz::showTrial);
    }
    for (const QRadioButton* const option : findChildren<QRadioButton*>()) {
        connect(option, &QRadioButton::clicked, this, &frmAniWiz::showTrial);
    }
    connect(m_form->NameToUseScroll, &QScrollBar::valueChanged, this, &frmAniWiz::showTrial);
    connect(m_form->StartNameScroll, &QScrollBar::valueChanged, this, &frmAniWiz::showTrial);
    connect(m_form->chkSafeForServers, &QCheckBox::toggled, this, &frmAniWiz::showTrial);
    connect(m_form->buttons, &QDialogButtonBox::accepted, this, &frmAniWiz::cmdBuild_Click);
    connect(m_form->buttons, &QDialogButtonBox::rejected, this, &frmAniWiz::cmdCancel_Click);
}

void frmAniWiz::addShortcuts() {
    // Alt and the number of a heading leads to what stands under it.
    const std::array<QWidget*, 8> controls = {
        m_form->cmboPos_1,  m_form->cmboPos_2, m_form->NameToUseScroll, m_form->cmboColor,
        m_form->optColor_0, m_form->cmboCase,  m_form->optCase_0,       m_form->StartNameScroll};
    int key = Qt::Key_1;
    for (QWidget* const control : controls) {
        auto* const shortcut = new QShortcut(QKeySequence(Qt::ALT | static_cast<Qt::Key>(key)), this);
        connect(shortcut, &QShortcut::activated, this, [this, control] { goTo(control); });
        ++key;
    }
    // The tabs know these keys too, but a list that has the focus would keep them.
    auto* const nextPage = new QShortcut(Qt::CTRL | Qt::Key_Tab, this);
    connect(nextPage, &QShortcut::activated, this, [this] { turnPage(1); });
    auto* const previousPage = new QShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, this);
    connect(previousPage, &QShortcut::activated, this, [this] { turnPage(-1); });
}

void frmAniWiz::turnPage(int step) {
    auto* const tabs = m_form->SSTab2;
    tabs->setCurrentIndex((tabs->currentIndex() + step + tabs->count()) % tabs->count());
}

void frmAniWiz::goTo(QWidget* control) {
    for (int page = 0; page < m_form->SSTab2->count(); ++page) {
        if (m_form->SSTab2->widget(page)->isAncestorOf(control)) {
            m_form->SSTab2->setCurrentIndex(page);
        }
    }
    if (qobject_cast<QRadioButton*>(control) != nullptr) {
        const auto options = control->parentWidget()->findChildren<QRadioButton*>();
        control = *std::find_if(options.begin(), options.end(), [](auto* o) { return o->isChecked(); });
    }
    control->setFocus(Qt::ShortcutFocusReason);
}

void frmAniWiz::Form_Load() {
    WizardOptions options = LoadWizardOptions(m_files, m_directory);
    if (!options.available) {
        const std::array<QWidget*, 13> controls = {
            m_form->chkSafeForServers,
            m_form->cmboPos_1,
            m_form->cmboPos_2,
            m_form->cmboColor,
            m_form->cmboCase,
            m_form->lblNameToUse,
            m_form->NameToUseScroll,
            m_form->lblStart,
            m_form->lblStartName,
            m_form->lblEnd,
            m_form->StartNameScroll,
            m_form->lblEndName,
            m_form->buttons->button(QDialogButtonBox::Ok)};
        for (QWidget* const control : controls) {
            control->setEnabled(false);
        }
        m_message = std::move(options.message);
        return;
    }
    m_patterns = std::move(options.patterns);
    FillOptions(*m_form->cmboPos_1, options.positions);
    FillOptions(*m_form->cmboPos_2, options.positions);
    FillOptions(*m_form->cmboColor, options.changes);
    FillOptions(*m_form->cmboCase, options.changes);
}

void frmAniWiz::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!m_message.empty()) {
        // Once the window is on the screen, so that the box stands over it.
        QMetaObject::invokeMethod(
            this, [this, message = std::exchange(m_message, {})] { m_dialogs.inform(message); },
            Qt::QueuedConnection);
    }
}

WizardChoices frmAniWiz::choices() const {
    WizardChoices choices;
    choices.firstPosition = m_form->cmboPos_1->currentIndex();
    choices.secondPosition = m_form->cmboPos_2->currentIndex();
    choices.nameToUse = m_form->NameToUseScroll->value();
    choices.color = m_form->cmboColor->currentIndex();
    choices.colorChange = m_form->optColor_0->isChecked()   ? ColorChange::Color1
                          : m_form->optColor_1->isChecked() ? ColorChange::Color2
                                                            : ColorChange::Switch;
    choices.letterCase = m_form->cmboCase->currentIndex();
    choices.caseChange = m_form->optCase_0->isChecked()   ? CaseChange::Lower
                         : m_form->optCase_1->isChecked() ? CaseChange::Upper
                                                          : CaseChange::Switch;
    choices.startName = m_form->StartNameScroll->value();
    choices.safeForServers = m_form->chkSafeForServers->isChecked();
    return choices;
}

void frmAniWiz::showTrial() {
    WizardChoices tried = choices();
    tried.firstPosition = m_form->cmboPos_1->triedIndex();
    tried.secondPosition = m_form->cmboPos_2->triedIndex();
    tried.color = m_form->cmboColor->triedIndex();
    tried.letterCase = m_form->cmboCase->triedIndex();
    m_form->strip->show(TryChoices(m_animation, tried, m_caseChoice, m_patterns));
}

void frmAniWiz::NameToUseScroll_Change(int value) {
    m_form->lblNameToUse->setNum(value);
}

void frmAniWiz::StartNameScroll_Change(int value) {
    m_form->lblStartName->setNum(value);
    m_form->lblEndName->setNum(value + PatternSteps);
}

void frmAniWiz::cmdBuild_Click() {
    const WizardChoices chosen = choices();
    const BuildOutcome outcome = BuildAnimation(m_animation, chosen, m_caseChoice, m_files, m_directory);
    if (outcome.rowsWritten) {
        m_built = true;
        m_statusText = OutOfUseText(m_animation, chosen.startName);
        if (chosen.safeForServers && !IsSafeForServers(m_animation)) {
            m_statusText += (m_statusText.empty() ? "" : " ") + std::string(NotSafeText);
        }
    }
    switch (outcome.end) {
    case BuildEnd::NothingToDo:
        m_dialogs.inform(std::string(NothingToDoText));
        break;
    case BuildEnd::Built:
        accept();
        break;
    case BuildEnd::Stopped:
        break;
    }
}

void frmAniWiz::cmdCancel_Click() {
    reject();
}

} // namespace animation
