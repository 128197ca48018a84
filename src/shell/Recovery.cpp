// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/Recovery.h"

#include "shell/StatusLine.h"

#include <QDateTime>
#include <QLocale>
#include <chrono>
#include <utility>

namespace shell {

namespace {

constexpr std::chrono::seconds KeepInterval(3);

/// From the start on; the first paint takes a fraction of it.
constexpr std::chrono::milliseconds LookTime(500);

QString TimeText(std::int64_t seconds) {
    const QDateTime time = QDateTime::fromSecsSinceEpoch(seconds);
    return time.date() == QDate::currentDate() ? QLocale().toString(time.time(), QLocale::ShortFormat)
                                               : QLocale().toString(time, QLocale::ShortFormat);
}

} // namespace

Recovery::Recovery(
    const Workspace& workspace, StatusLine& statusLine, ui::Files& files, const ui::Path& folder,
    std::function<void(const WorkState&)> show, QObject* parent)
    : QObject(parent)
    , m_workspace(workspace)
    , m_statusLine(statusLine)
    , m_file(files, folder)
    , m_show(std::move(show)) {
    tmrRecovery.setParent(this);
    tmrRecovery.setObjectName(QStringLiteral("tmrRecovery"));
    tmrRecovery.setInterval(KeepInterval);
    connect(&tmrRecovery, &QTimer::timeout, this, &Recovery::tmrRecovery_Timer);
    connect(&statusLine, &StatusLine::restorePressed, this, &Recovery::restore);
    connect(&statusLine, &StatusLine::discardPressed, this, &Recovery::discard);
}

WorkState Recovery::currentState() const {
    return {m_workspace.documents, m_workspace.page(), QDateTime::currentSecsSinceEpoch()};
}

void Recovery::start() {
    m_file.start(currentState());
    tmrRecovery.start();
    QTimer::singleShot(LookTime, this, &Recovery::offer);
}

void Recovery::offer() {
    m_leftOver = m_file.claimLeftOver();
    if (!m_leftOver) {
        return;
    }
    QString text = m_statusLine.currentMessage();
    text += text.isEmpty() ? QString() : QStringLiteral(" ");
    m_statusLine.showMessage(
        text + tr("VTM was not closed at %1. What stood on its pages then can be restored.")
                   .arg(TimeText(m_leftOver->time)));
    m_statusLine.offerRestore();
}

void Recovery::restore() {
    if (m_leftOver) {
        m_statusLine.endRestore();
        m_statusLine.clearMessage();
        const WorkState state = *std::exchange(m_leftOver, {});
        m_show(state);
        m_file.adoptLeftOver(state);
    }
}

void Recovery::discard() {
    if (std::exchange(m_leftOver, {})) {
        m_statusLine.endRestore();
        m_statusLine.clearMessage();
        m_file.discardLeftOver();
    }
}

void Recovery::tmrRecovery_Timer() {
    if (const ui::Status kept = m_file.keep(currentState()); !kept) {
        m_statusLine.showMessage(tr("What is on the pages is not kept for after a crash: %1")
                                     .arg(QString::fromStdString(kept.failure().message)));
    }
}

void Recovery::end() {
    tmrRecovery.stop();
    m_file.end();
}

} // namespace shell
