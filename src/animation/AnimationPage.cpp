// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/AnimationPage.h"

#include "animation/RowTimes.h"
#include "ui/qt/PictureWidget.h"

#include <QApplication>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <utility>

namespace animation {

using editing::MaxNames;
using editing::MinNames;
using editing::NameLength;

namespace {

constexpr int VisibleNames = RowTimes::Rows;
constexpr int ViewLargeStep = 10;
constexpr int NamesSpacing = 2;

struct ListButton {
    const char* caption;
    const char* tooltip;
    const char* keys;
};

constexpr std::array<ListButton, 4> ListButtons{{
    {"Insert", "Insert a new name at the cursor", "Ctrl+Insert"},
    {"Delete", "Delete the current name", "Ctrl+Delete"},
    {"Move Up", "Move current name up", "Ctrl+Up"},
    {"Move Dn", "Move current name down", "Ctrl+Down"},
}};

QLabel* MakeLabel(const char* name, const QString& text, const QString& tooltip, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(QLatin1String(name));
    label->setToolTip(tooltip);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QStringLiteral("00")));
    return label;
}

/// The label beside a control.
QLabel* MakeCaption(const QString& text, QWidget* control) {
    auto* label = new QLabel(text, control->parentWidget());
    label->setBuddy(control);
    return label;
}

/// A list of the ticks offered. It shows any number, also one that is not offered, but takes none from the
/// keyboard.
QComboBox* MakeTickList(const char* name, const QString& tooltip, QWidget* parent) {
    auto* list = new QComboBox(parent);
    list->setObjectName(QLatin1String(name));
    list->setAccessibleName(tooltip);
    list->setToolTip(tooltip);
    for (int ticks = 0; ticks <= editing::MaxOfferedTicks; ++ticks) {
        list->addItem(QString::number(ticks));
    }
    list->setMaxVisibleItems(editing::MaxOfferedTicks + 1);
    list->setEditable(true);
    list->setInsertPolicy(QComboBox::NoInsert);
    list->lineEdit()->setReadOnly(true);
    list->lineEdit()->setFocusPolicy(Qt::NoFocus);
    list->setFocusPolicy(Qt::NoFocus);
    return list;
}

} // namespace

AnimationPage::AnimationPage(
    editing::AnimationDocument& document, glyphs::PagePicture& picture, QWidget* parent)
    : PagePanel(picture, QStringLiteral("AniPic"), QStringLiteral("AniPosShape"), parent)
    , m_document(document)
    , m_shownTotal(document.nameCount) {
    setObjectName(QStringLiteral("pgeAnimation"));
    setAccessibleName(tr("Animation page"));
    pictureWidget()->setAccessibleName(tr("Animation names"));
    pictureWidget()->setToolTip(tr("The names in the aniimation"));
    buildControls();
    layOut();
    connectControls();
    VScroll1_Change(VScroll1->value());
    fitPicture();
    refresh();
}

void AnimationPage::buildControls() {
    AniTotalScroll = makeScrollBar(
        Qt::Horizontal, QStringLiteral("AniTotalScroll"), tr("Total names"), MinNames, MaxNames);
    AniScroll = makeScrollBar(
        Qt::Horizontal, QStringLiteral("AniScroll"), tr("Current name"), 1, m_document.nameCount);
    AniNameScroll = makeScrollBar(
        Qt::Horizontal, QStringLiteral("AniNameScroll"), tr("Cursor position in the name"), 1, NameLength);
    VScroll1 = makeScrollBar(
        Qt::Vertical, QStringLiteral("VScroll1"), tr("First name in view"), 1,
        m_document.nameCount - VisibleNames + 1);
    VScroll1->setPageStep(ViewLargeStep);

    lblAniTotalNum = MakeLabel("lblAniTotalNum", {}, tr("The total names"), this);
    lblAniNameNum = MakeLabel("lblAniNameNum", {}, tr("The current name"), this);
    lblNum[0] = MakeLabel("lblNum_0", QString::number(1), {}, this);
    lblNum[0]->setAccessibleDescription(tr("First name in view"));
    lblNum[1] = MakeLabel("lblNum_1", QString::number(VisibleNames), {}, this);
    lblNum[1]->setAccessibleDescription(tr("Last name in view"));

    ThisTickList = MakeTickList("ThisTickList", tr("Set this names tick"), this);
    TickList = MakeTickList("TickList", tr("Set all ticks to selected number"), this);
    TickList->setCurrentIndex(-1);
    for (QComboBox* const list : {ThisTickList, TickList}) {
        list->installEventFilter(this);
        list->lineEdit()->installEventFilter(this);
        list->lineEdit()->setCursor(Qt::ArrowCursor);
    }

    for (std::size_t i = 0; i < cmdName.size(); ++i) {
        cmdName[i] = new QPushButton(tr(ListButtons[i].caption), this);
        cmdName[i]->setObjectName(QStringLiteral("cmdName_%1").arg(i));
        cmdName[i]->setToolTip(tr(ListButtons[i].tooltip));
        cmdName[i]->setAccessibleDescription(
            tr("%1 (%2)").arg(cmdName[i]->toolTip(), QLatin1String(ListButtons[i].keys)));
        cmdName[i]->setFocusPolicy(Qt::NoFocus);
    }
}

void AnimationPage::layOut() {
    auto* frame = new QFrame(this);
    frame->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    AniPicBox = new QWidget(frame);
    AniPicBox->setObjectName(QStringLiteral("AniPicBox"));
    AniPicBox->installEventFilter(this);
    pictureWidget()->setParent(AniPicBox);
    pictureWidget()->installEventFilter(this);
    auto* frameLayout = new QHBoxLayout(frame);
    frameLayout->setContentsMargins(0, 0, 0, 0);
    frameLayout->addWidget(AniPicBox);
    frame->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);

    auto* names = new QGridLayout;
    names->setSpacing(NamesSpacing);
    for (QLabel* const number : lblNum) {
        number->setAlignment(Qt::AlignRight);
    }
    names->addWidget(lblNum[0], 0, 0, Qt::AlignTop | Qt::AlignRight);
    names->addWidget(lblNum[1], 0, 0, Qt::AlignBottom | Qt::AlignRight);
    names->addWidget(frame, 0, 1);
    names->addWidget(VScroll1, 0, 2);
    names->addWidget(AniNameScroll, 1, 1);
    m_times = new RowTimes(m_document, this);
    lblLength =
        MakeLabel("lblLength", LengthText(m_document), tr("The whole animation in the preview"), this);
    for (QWidget* const part : std::array<QWidget*, 2>{m_times, lblLength}) {
        part->hide();
    }
    names->addWidget(m_times, 0, 3);
    names->addWidget(lblLength, 2, 1, Qt::AlignHCenter);

    auto* controls = new QGridLayout;
    controls->setHorizontalSpacing(6);
    controls->setVerticalSpacing(6);
    controls->setColumnStretch(1, 1);
    controls->addWidget(MakeCaption(tr("Total:"), AniTotalScroll), 0, 0);
    controls->addWidget(AniTotalScroll, 0, 1);
    controls->addWidget(lblAniTotalNum, 0, 2);
    controls->addWidget(MakeCaption(tr("Name:"), AniScroll), 1, 0);
    controls->addWidget(AniScroll, 1, 1);
    controls->addWidget(lblAniNameNum, 1, 2);
    controls->addWidget(MakeCaption(tr("Wait:"), ThisTickList), 2, 0);
    controls->addWidget(ThisTickList, 2, 1, 1, 2);
    controls->addWidget(MakeCaption(tr("Set All:"), TickList), 3, 0);
    controls->addWidget(TickList, 3, 1, 1, 2);
    auto* buttons = new QGridLayout;
    buttons->setSpacing(6);
    for (std::size_t i = 0; i < cmdName.size(); ++i) {
        buttons->addWidget(cmdName[i], static_cast<int>(i) / 2, static_cast<int>(i) % 2);
    }
    controls->setRowMinimumHeight(4, 8);
    controls->addLayout(buttons, 5, 0, 1, 3);
    controls->setRowStretch(6, 1);

    // Names and controls stay together, in the middle of a larger window.
    auto* together = new QHBoxLayout;
    together->setSpacing(14);
    together->addStretch(1);
    together->addLayout(names);
    together->addLayout(controls);
    together->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->addStretch(1);
    layout->addLayout(together);
    layout->addStretch(1);
}

void AnimationPage::connectControls() {
    connect(AniTotalScroll, &QScrollBar::valueChanged, this, &AnimationPage::AniTotalScroll_Change);
    connect(AniScroll, &QScrollBar::valueChanged, this, &AnimationPage::AniScroll_Change);
    connect(AniNameScroll, &QScrollBar::valueChanged, this, &AnimationPage::AniNameScroll_Change);
    connect(VScroll1, &QScrollBar::valueChanged, this, &AnimationPage::VScroll1_Change);
    connect(VScroll1, &QScrollBar::sliderMoved, this, &AnimationPage::VScroll1_Scroll);
    // activated, not a change of the index: only a choice of the user sets ticks.
    connect(ThisTickList, &QComboBox::activated, this, &AnimationPage::ThisTickList_Click);
    connect(TickList, &QComboBox::activated, this, &AnimationPage::TickList_Click);
    for (int i = 0; i < static_cast<int>(cmdName.size()); ++i) {
        connect(cmdName[static_cast<std::size_t>(i)], &QPushButton::clicked, this, [this, i] {
            Q_EMIT nameButtonClicked(i);
        });
    }
}

void AnimationPage::refresh() {
    const int total = m_document.nameCount;
    setBar(AniTotalScroll, total);
    lblAniTotalNum->setText(QString::number(total));
    if (const int before = std::exchange(m_shownTotal, total); total != before) {
        {
            const QSignalBlocker silent(AniScroll);
            AniScroll->setMaximum(total);
        }
        VScroll1->setValue(1);
        VScroll1->setMaximum(total - VisibleNames + 1);
        pictureWidget()->announceRows();
        if (total > before) {
            Q_EMIT namesAdded(before + 1);
        }
    }
    if (m_times->isVisible() && m_times->refresh()) {
        lblLength->setText(LengthText(m_document));
    }
    setBar(AniScroll, m_document.currentName);
    lblAniNameNum->setText(QString::number(m_document.currentName));
    setBar(AniNameScroll, m_document.cursorPos);
    moveMarker(m_document.cursorPos, m_document.currentName);

    const int ticks = m_document.ticks(m_document.currentName);
    const int index = ticks <= editing::MaxOfferedTicks ? ticks : -1;
    const QString text = QString::number(ticks);
    // Every key that is typed comes here; setting a text that is already there would lay it out again.
    if (ThisTickList->currentIndex() != index || ThisTickList->currentText() != text) {
        ThisTickList->setCurrentIndex(index);
        ThisTickList->setEditText(text);
    }
}

void AnimationPage::resizeEvent(QResizeEvent* event) {
    PagePanel::resizeEvent(event);
    showTimes();
}

QSize AnimationPage::timesSize() const {
    return {m_times->sizeHint().width() + NamesSpacing, lblLength->sizeHint().height() + NamesSpacing};
}

QSize AnimationPage::minimumSizeHint() const {
    const QSize least = PagePanel::minimumSizeHint();
    return m_times->isHidden() ? least : least - timesSize();
}

void AnimationPage::showTimes() {
    const QSize wanted = minimumSizeHint() + timesSize();
    const bool hasRoom = wanted.width() <= width() && wanted.height() <= height() &&
                         AniPicBox->height() >= VisibleNames * fontMetrics().ascent();
    if (hasRoom == m_times->isHidden()) {
        m_times->setVisible(hasRoom);
        lblLength->setVisible(hasRoom);
        refresh();
    }
}

void AnimationPage::openTickList(bool ofAllNames) {
    Q_EMIT userActed();
    (ofAllNames ? TickList : ThisTickList)->showPopup();
}

void AnimationPage::moveTotal(QAbstractSlider::SliderAction action) {
    // Told first: when it brings the page into view, the bars are set from the document.
    Q_EMIT userActed();
    AniTotalScroll->triggerAction(action);
}

void AnimationPage::moveView(QAbstractSlider::SliderAction action) {
    Q_EMIT userActed();
    VScroll1->triggerAction(action);
}

void AnimationPage::fitPicture() {
    AniPicBox->setFixedSize(pictureWidget()->viewSize());
}

editing::GlyphRows AnimationPage::rows() const {
    return m_document.rows();
}

int AnimationPage::rowsInUse() const {
    return m_document.nameCount;
}

QString AnimationPage::rowName(int row) const {
    return tr("Name %1").arg(row);
}

bool AnimationPage::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel) {
        if (watched == AniPicBox || watched == pictureWidget()) {
            QApplication::sendEvent(VScroll1, event);
            return true;
        }
        if (watched == ThisTickList || watched == TickList) {
            // A turn of the wheel in passing would change ticks, and few would notice.
            event->ignore();
            return true;
        }
    }
    if (watched == ThisTickList->lineEdit() || watched == TickList->lineEdit()) {
        return useTickText(static_cast<QComboBox*>(watched->parent()), *event);
    }
    return PagePanel::eventFilter(watched, event);
}

bool AnimationPage::useTickText(QComboBox* list, const QEvent& event) {
    switch (event.type()) {
    case QEvent::MouseButtonRelease:
        list->showPopup();
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::ContextMenu:
        return true;
    default:
        return false;
    }
}

void AnimationPage::AniTotalScroll_Change(int value) {
    Q_EMIT totalChosen(value);
}

void AnimationPage::AniScroll_Change(int value) {
    Q_EMIT cursorMoved(m_document.cursorPos, value);
}

void AnimationPage::AniNameScroll_Change(int value) {
    Q_EMIT cursorMoved(value, m_document.currentName);
}

void AnimationPage::VScroll1_Change(int value) {
    m_times->setFirst(value);
    pictureWidget()->setView((value - 1) * glyphs::CellSide, VisibleNames * glyphs::CellSide);
    lblNum[0]->setText(QString::number(value));
    lblNum[1]->setText(QString::number(value + VisibleNames - 1));
}

void AnimationPage::VScroll1_Scroll(int value) {
    VScroll1_Change(value);
}

void AnimationPage::ThisTickList_Click(int index) {
    Q_EMIT userActed();
    Q_EMIT ticksChosen(index, false);
}

void AnimationPage::TickList_Click(int index) {
    Q_EMIT userActed();
    Q_EMIT ticksChosen(index, true);
}

} // namespace animation
