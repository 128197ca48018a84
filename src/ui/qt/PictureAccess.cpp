// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/PictureAccess.h"

#include "ui/qt/PictureWidget.h"

namespace ui::qt {

namespace {

/// A cell of a picture.
class CellAccess final : public AccessiblePart, public QAccessibleTableCellInterface {
public:
    CellAccess(const PictureAccess& table, int index)
        : AccessiblePart(table, index)
        , m_table(table) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface*>(this)
                                                       : AccessiblePart::interface_cast(type);
    }

    [[nodiscard]] bool isSelected() const override { return state().selected; }

    [[nodiscard]] QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }

    [[nodiscard]] QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }

    [[nodiscard]] int columnIndex() const override { return index() % m_table.columnCount(); }

    [[nodiscard]] int rowIndex() const override { return index() / m_table.columnCount(); }

    [[nodiscard]] int columnExtent() const override { return 1; }

    [[nodiscard]] int rowExtent() const override { return 1; }

    [[nodiscard]] QAccessibleInterface* table() const override { return parent(); }

private:
    const PictureAccess& m_table;
};

} // namespace

PictureAccess::PictureAccess(PictureWidget& picture)
    : AccessibleParts(picture, QAccessible::Graphic) {}

PictureWidget& PictureAccess::picture() const {
    return *static_cast<PictureWidget*>(owner());
}

int PictureAccess::currentIndex() const {
    return picture().cellIndex(picture().currentRow(), picture().currentColumn());
}

QAccessible::Role PictureAccess::role() const {
    return picture().hasCells() ? QAccessible::Table : QAccessible::Graphic;
}

QAccessible::State PictureAccess::state() const {
    QAccessible::State state = AccessibleParts::state();
    // A page's picture is given the focus by its window, not by the Tab key.
    state.focusable = state.focusable || owner()->hasFocus();
    return state;
}

QString PictureAccess::text(QAccessible::Text kind) const {
    if (kind == QAccessible::Value && currentIndex() >= 0 && picture().cells().rowText) {
        return picture().cells().rowText(picture().currentRow());
    }
    return AccessibleParts::text(kind);
}

QAccessibleInterface* PictureAccess::focusChild() const {
    return owner()->hasFocus() ? child(currentIndex()) : nullptr;
}

void* PictureAccess::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableInterface) {
        return picture().hasCells() ? static_cast<QAccessibleTableInterface*>(this) : nullptr;
    }
    return AccessibleParts::interface_cast(type);
}

int PictureAccess::partCount() const {
    return rowCount() * columnCount();
}

QAccessible::Role PictureAccess::partRole() const {
    return QAccessible::Cell;
}

QString PictureAccess::partText(QAccessible::Text kind, int index) const {
    const int row = index / columnCount() + 1;
    const int column = index % columnCount() + 1;
    switch (kind) {
    case QAccessible::Name:
        return picture().cells().cellText(row, column);
    case QAccessible::Description:
        return picture().cells().cellNote ? picture().cells().cellNote(row, column) : QString();
    default:
        return {};
    }
}

QRect PictureAccess::partRect(int index) const {
    return picture().cellRect(index / columnCount() + 1, index % columnCount() + 1);
}

QAccessible::State PictureAccess::partState(int index) const {
    QAccessible::State state = AccessibleParts::partState(index);
    const bool isCurrent = index == currentIndex();
    state.focusable = canPressParts();
    state.selectable = canPressParts();
    state.selected = isCurrent;
    state.focused = isCurrent && owner()->hasFocus();
    return state;
}

bool PictureAccess::canPressParts() const {
    return picture().cells().canBePressed;
}

void PictureAccess::pressPart(int index) const {
    picture().pressCell(index / columnCount() + 1, index % columnCount() + 1);
}

AccessiblePart* PictureAccess::makePart(int index) const {
    return new CellAccess(*this, index);
}

QAccessibleInterface* PictureAccess::caption() const {
    return nullptr;
}

QAccessibleInterface* PictureAccess::summary() const {
    return nullptr;
}

QAccessibleInterface* PictureAccess::cellAt(int row, int column) const {
    return child(picture().cellIndex(row + 1, column + 1));
}

int PictureAccess::selectedCellCount() const {
    return currentIndex() < 0 ? 0 : 1;
}

QList<QAccessibleInterface*> PictureAccess::selectedCells() const {
    return currentIndex() < 0 ? QList<QAccessibleInterface*>() : QList{child(currentIndex())};
}

QString PictureAccess::columnDescription(int /*column*/) const {
    return {};
}

QString PictureAccess::rowDescription(int row) const {
    return row >= 0 && row < rowCount() && picture().cells().rowText ? picture().cells().rowText(row + 1)
                                                                     : QString();
}

int PictureAccess::selectedColumnCount() const {
    return 0;
}

int PictureAccess::selectedRowCount() const {
    return 0;
}

int PictureAccess::columnCount() const {
    return picture().hasCells() ? picture().cells().columns : 0;
}

int PictureAccess::rowCount() const {
    return picture().hasCells() ? picture().cells().rows() : 0;
}

QList<int> PictureAccess::selectedColumns() const {
    return {};
}

QList<int> PictureAccess::selectedRows() const {
    return {};
}

bool PictureAccess::isColumnSelected(int /*column*/) const {
    return false;
}

bool PictureAccess::isRowSelected(int /*row*/) const {
    return false;
}

bool PictureAccess::selectRow(int /*row*/) {
    return false;
}

bool PictureAccess::selectColumn(int /*column*/) {
    return false;
}

bool PictureAccess::unselectRow(int /*row*/) {
    return false;
}

bool PictureAccess::unselectColumn(int /*column*/) {
    return false;
}

void PictureAccess::modelChange(QAccessibleTableModelChangeEvent* /*event*/) {
    // Cells are known by their place alone, so nothing is kept that could be out of date.
}

} // namespace ui::qt
