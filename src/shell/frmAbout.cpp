// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/frmAbout.h"

#include "ui_frmAbout.h"

#include <QKeyEvent>

#include "shell/AboutBanner.h"
#include "shell/Product.h"
#include "shell/mdlLaunch.h"
#include "ui/qt/DialogButtons.h"

namespace shell {

namespace {

/// Keys that do nothing by themselves: pressed on the way to a mnemonic.
bool IsModifier(int key) {
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_AltGr ||
           key == Qt::Key_Meta;
}

} // namespace

frmAbout::frmAbout(const ui::Platform& platform, const glyphs::GlyphAtlas& atlas, QWidget* parent)
    : QDialog(parent)
    , m_platform(platform)
    , m_banner(AboutBanner(atlas))
    , m_form(std::make_unique<Ui::frmAbout>()) {
    m_form->setupUi(this);
    m_form->picBanner->setBlock(BannerBlock);
    m_form->picBanner->setPicture(&m_banner);
    QPalette bannerPalette = m_form->fraBanner->palette();
    bannerPalette.setColor(QPalette::Window, QColor::fromRgb(m_banner.pixel(0, 0)));
    m_form->fraBanner->setPalette(bannerPalette);
    QFont bold = m_form->lblVersion->font();
    bold.setBold(true);
    m_form->lblVersion->setFont(bold);
    m_form->lblVersion->setText(QStringLiteral("Vortigo (VTM) %1").arg(QString::fromLatin1(ProductVersion)));
    cmdOK = ui::qt::NameButton(
        *m_form->buttons, QDialogButtonBox::Ok, QStringLiteral("cmdOK"), QStringLiteral("OK"));
    cmdOK->setDefault(true);
    for (auto* const button : {m_form->cmdGotoVTM, m_form->cmdEmailMe, cmdOK}) {
        button->setFocusPolicy(Qt::NoFocus);
        button->installEventFilter(this);
    }
    connectControls();
}

frmAbout::~frmAbout() = default;

void frmAbout::connectControls() {
    connect(m_form->cmdGotoVTM, &QPushButton::clicked, this, &frmAbout::cmdGotoVTM_Click);
    connect(m_form->cmdEmailMe, &QPushButton::clicked, this, &frmAbout::cmdEmailMe_Click);
    connect(cmdOK, &QPushButton::clicked, this, &frmAbout::cmdOK_Click);
}

bool frmAbout::eventFilter(QObject* watched, QEvent* event) {
    // A button must not take the keys that would press it.
    if (event->type() == QEvent::KeyPress) {
        Form_KeyPress(static_cast<const QKeyEvent&>(*event));
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmAbout::keyPressEvent(QKeyEvent* event) {
    Form_KeyPress(*event);
}

void frmAbout::Form_KeyPress(const QKeyEvent& event) {
    if (!IsModifier(event.key())) {
        accept();
    }
}

void frmAbout::cmdGotoVTM_Click() {
    OpenWebSite(m_platform);
}

void frmAbout::cmdEmailMe_Click() {
    SendMail(m_platform);
}

void frmAbout::cmdOK_Click() {
    accept();
}

} // namespace shell
