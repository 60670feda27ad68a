#pragma once

#include <QAbstractTableModel>

#include "form/grid.h"

namespace vireon::adapters {

// The rows of a grid below its header row; the header row gives the column titles.
class GridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  // `grid` outlives the model, which is the only one that takes its changes.
  GridModel(form::Grid& grid, QObject* parent);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  // Takes over the grid's present size and the cells that changed.
  void follow();

 private:
  form::Grid& grid_;
  int rows_ = 0;
  int columns_ = 0;
};

}  // namespace vireon::adapters
