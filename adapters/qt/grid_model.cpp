#include "adapters/qt/grid_model.h"

#include <algorithm>

#include "adapters/qt/text.h"

namespace vireon::adapters {

GridModel::GridModel(const form::Grid& grid, QObject* parent) : QAbstractTableModel(parent), grid_(grid) {
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
    return shown(grid_.text(index.row() + 1, index.column()));
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
  return shown(grid_.text(0, section));
}

void GridModel::follow() {
  const int rows = grid_.rows() - 1;
  if (grid_.columns() != columns_) {
    beginResetModel();
    rows_ = rows;
    columns_ = grid_.columns();
    endResetModel();
    return;
  }
  if (rows > rows_) {
    beginInsertRows({}, rows_, rows - 1);
    rows_ = rows;
    endInsertRows();
  } else if (rows < rows_) {
    beginRemoveRows({}, rows, rows_ - 1);
    rows_ = rows;
    endRemoveRows();
  }
  if (rows_ > 0 && columns_ > 0) {
    Q_EMIT dataChanged(index(0, 0), index(rows_ - 1, columns_ - 1));
  }
  Q_EMIT headerDataChanged(Qt::Horizontal, 0, std::max(0, columns_ - 1));
}

}  // namespace vireon::adapters
