// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/qt/AccessibleParts.h"

namespace ui::qt {

class PictureWidget;

/// A picture as assistive tools see it: a table of its cells, or a graphic if it has none. Its value is the
/// text of the row with the current cell. Rows and columns are counted from 0 here, as the tools count.
class PictureAccess final : public AccessibleParts, public QAccessibleTableInterface {
public:
    explicit PictureAccess(PictureWidget& picture);

    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] int partCount() const override;
    [[nodiscard]] QAccessible::Role partRole() const override;
    [[nodiscard]] QString partText(QAccessible::Text kind, int index) const override;
    [[nodiscard]] QRect partRect(int index) const override;
    [[nodiscard]] QAccessible::State partState(int index) const override;
    [[nodiscard]] bool canPressParts() const override;
    void pressPart(int index) const override;

    [[nodiscard]] QAccessibleInterface* caption() const override;
    [[nodiscard]] QAccessibleInterface* summary() const override;
    [[nodiscard]] QAccessibleInterface* cellAt(int row, int column) const override;
    [[nodiscard]] int selectedCellCount() const override;
    [[nodiscard]] QList<QAccessibleInterface*> selectedCells() const override;
    [[nodiscard]] QString columnDescription(int column) const override;
    [[nodiscard]] QString rowDescription(int row) const override;
    [[nodiscard]] int selectedColumnCount() const override;
    [[nodiscard]] int selectedRowCount() const override;
    [[nodiscard]] int columnCount() const override;
    [[nodiscard]] int rowCount() const override;
    [[nodiscard]] QList<int> selectedColumns() const override;
    [[nodiscard]] QList<int> selectedRows() const override;
    [[nodiscard]] bool isColumnSelected(int column) const override;
    [[nodiscard]] bool isRowSelected(int row) const override;
    bool selectRow(int row) override;
    bool selectColumn(int column) override;
    bool unselectRow(int row) override;
    bool unselectColumn(int column) override;
    void modelChange(QAccessibleTableModelChangeEvent* event) override;

protected:
    [[nodiscard]] AccessiblePart* makePart(int index) const override;

private:
    [[nodiscard]] PictureWidget& picture() const;
    [[nodiscard]] int currentIndex() const; // -1: there is no current cell
};

} // namespace ui::qt
