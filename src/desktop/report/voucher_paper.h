// A voucher as it looks on paper: title, word and number, date and attachments above its lines, the total and who made,
// checked and posted it below.
#pragma once

#include <QFrame>
#include <QLabel>

#include "core/voucher/voucher.h"

namespace tz {

class VoucherSheet;
class VoucherTotal;

// Whether the voucher is posted, as a stamp in a frame: one that is not stands out.
class BookStamp : public QLabel {
  Q_OBJECT

 public:
  explicit BookStamp(QWidget* parent);
  void Show(Book book);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Book shown_ = Book::posted;
};

class VoucherPaper : public QFrame {
  Q_OBJECT

 public:
  explicit VoucherPaper(QWidget* parent);

  // The voucher must live as long as it is shown.
  void Show(const Voucher& voucher, Id line);
  [[nodiscard]] VoucherSheet& Sheet() const { return *sheet_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* window, QEvent* event) override;

 private:
  [[nodiscard]] QLabel* Label(const char* name, Qt::Alignment alignment);
  void LayOut();

  QLabel* title_;
  BookStamp* book_;
  QLabel* period_;
  QLabel* date_;
  QLabel* number_;
  VoucherSheet* sheet_;
  VoucherTotal* total_;
  QLabel* maker_;
  QLabel* checker_;
  QLabel* poster_;
};

}  // namespace tz
