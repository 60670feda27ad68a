#include "adapters/qt/grid_model.h"

#include <algorithm>

#include "adapters/qt/text.h"

namespace vireon::adapters {

GridModel::GridModel(form::Grid& grid, QObject* parent) : QAbstractTableModel(parent), grid_(grid) {
  follow();
}

int GridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columns_;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() + 1 >= grid_.rows() || index.column() >= grid_.columns()) {
    return {};
  }
  if (role == Qt::DisplayRole) {
    return shownUtf8(grid_.text(index.row() + 1, index.column()));
  }
  if (role == Qt::TextAlignmentRole) {
    const bool centred = grid_.columnAlignment(index.column()) == form::Alignment::kCenter;
    return QVariant::fromValue(Qt::Alignment(centred ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter));
  }
  return {};
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || orientation != Qt::Horizontal || section >= grid_.columns()) {
    return {};
  }
  return shownUtf8(grid_.text(0, section));
}

void GridModel::follow() {
  const form::RowRange changes = grid_.takeChanges();
  const int rows = grid_.rows() - 1;
  if (grid_.columns() != columns_) {
    beginResetModel();
    rows_ = rows;
    columns_ = grid_.columns();
    endResetModel();
    return;
  }
  const int kept = std::min(rows_, rows);
  if (rows > rows_) {
    beginInsertRows({}, rows_, rows - 1);
    rows_ = rows;
    endInsertRows();
  } else if (rows < rows_) {
    beginRemoveRows({}, rows, rows_ - 1);
    rows_ = rows;
    endRemoveRows();
  }
  const int first = std::max(changes.first, 1) - 1;
  const int last = std::min(changes.last, kept) - 1;
  if (first <= last) {
    Q_EMIT dataChanged(index(first, 0), index(last, columns_ - 1));
  }
  if (!changes.empty() && changes.first == 0) {
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, columns_ - 1);
  }
}

}  // namespace vireon::adapters
