// The lines of a voucher as rows: what their cells say, to the eye, to a screen reader and on the clipboard.
#pragma once

#include <QAbstractTableModel>
#include <QStringList>

#include "core/voucher/voucher.h"

namespace tz {

class VoucherModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { summary, account, debit, credit, columns };

  using QAbstractTableModel::QAbstractTableModel;

  // The voucher must outlive what is shown of it.
  void Show(const Voucher* voucher);

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  [[nodiscard]] double Amount(const QModelIndex& index) const;
  // What stands in a cell of text, line by line: below an account its members, figures and remarks.
  [[nodiscard]] QStringList Texts(const QModelIndex& index) const;
  // The whole line, its cells parted by tabs.
  [[nodiscard]] QString LineText(int row) const;
  // Of a line's id; -1 when it is none of this voucher.
  [[nodiscard]] int RowOf(Id line) const;

 private:
  const Voucher* voucher_ = nullptr;
};

}  // namespace tz
