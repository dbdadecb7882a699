// The lines of a voucher between the heads of their columns and the total, which stay while the lines scroll.
#pragma once

#include <QLabel>
#include <QTableView>

#include "desktop/report/money_grid.h"
#include "desktop/report/voucher_model.h"

namespace tz {

class VoucherSheet;

// The total below the lines: in capital numerals, and in figures below those of the lines.
class VoucherTotal : public QLabel {
  Q_OBJECT

 public:
  explicit VoucherTotal(VoucherSheet& sheet);
  void Show(const Voucher& voucher);
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  VoucherSheet& sheet_;
  QString capital_;
  double debit_ = 0;
  double credit_ = 0;
};

class VoucherSheet : public QTableView {
  Q_OBJECT

 public:
  explicit VoucherSheet(QWidget* parent);

  // The voucher must live as long as it is shown. The line becomes the current one, the first where it is none of it.
  void Show(const Voucher& voucher, Id line);
  // -1 in a voucher without lines.
  [[nodiscard]] int CurrentRow() const { return currentIndex().row(); }
  [[nodiscard]] const VoucherModel& Lines() const { return model_; }
  [[nodiscard]] const MoneyGrid& Money() const { return money_; }
  // A column between the edges of this widget.
  [[nodiscard]] QRect ColumnRect(int column) const;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void ShareRoom();

  VoucherModel model_;
  MoneyGrid money_;
};

}  // namespace tz
