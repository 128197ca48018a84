// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "shell/RecoveryFile.h"
#include "shell/Workspace.h"

#include <QObject>
#include <QTimer>
#include <functional>
#include <optional>

namespace shell {

class StatusLine;

/// Keeps what stands on the pages for after a crash, every few seconds and beside the typing, and offers in
/// the status line what a crashed program has left.
class Recovery final : public QObject {
    Q_OBJECT

public:
    /// Everything is borrowed and outlives the object. `show` puts a state on the pages.
    Recovery(
        const Workspace& workspace, StatusLine& statusLine, ui::Files& files, const ui::Path& folder,
        std::function<void(const WorkState&)> show, QObject* parent);

    /// The pages hold what the program starts with. What is left over is looked for once the window is
    /// painted.
    void start();

    /// Does what the links in the status line do; nothing while they are not there.
    void restore();
    void discard();

    /// The program ends as it should: nothing is left over.
    void end();

private:
    void tmrRecovery_Timer();
    void offer();
    [[nodiscard]] WorkState currentState() const;

    const Workspace& m_workspace;
    StatusLine& m_statusLine;
    RecoveryFile m_file;
    std::function<void(const WorkState&)> m_show;
    std::optional<WorkState> m_leftOver;
    QTimer tmrRecovery;
};

} // namespace shell
