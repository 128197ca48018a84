// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/StatusLine.h"
#include "shell/frmVTM.h"

#include <QAction>
#include <algorithm>

namespace shell {

using editing::Page;

void frmVTM::record() {
    // What the start brings is what everything else is taken back to.
    if (m_isStartingUp) {
        m_history.start(m_workspace.documents);
    } else {
        m_history.record(m_workspace.documents, m_workspace.page(), m_command);
    }
    const auto offer = [](QAction& entry, const QString& verb, const std::string* command) {
        entry.setText(command == nullptr ? verb : verb + QLatin1Char(' ') + QString::fromStdString(*command));
        entry.setEnabled(command != nullptr);
    };
    offer(*mnuEditUndo, tr("&Undo"), m_history.undoCommand());
    offer(*mnuEditRedo, tr("&Redo"), m_history.redoCommand());
}

void frmVTM::mnuEditUndo_Click() {
    showTakenBack(m_history.undo(m_workspace.documents));
}

void frmVTM::mnuEditRedo_Click() {
    showTakenBack(m_history.redo(m_workspace.documents));
}

/// Shows pages that were taken back, or done again, as their documents are; one of them comes into view.
void frmVTM::showTakenBack(const std::vector<Page>& pages) {
    for (const Page page : pages) {
        editing::PaintRowsFrom(painter(), page, 1);
        if (page == Page::Animation && m_statusLine->offersShow()) {
            m_statusLine->clearMessage(); // nothing is left that it could show
        }
    }
    if (!pages.empty() && std::ranges::find(pages, m_workspace.page()) == pages.end()) {
        view(pages.front());
    } else {
        Refresh();
    }
}

} // namespace shell
