// The window of vouchers: one that all reports share. It shows the voucher of a line, goes on to the one before and
// behind it, and leads from its lines to the ledgers of their accounts and members.
#pragma once

#include <memory>
#include <optional>

#include "core/reports/report_definition.h"
#include "core/voucher/voucher.h"
#include "desktop/frame/need_bitmap.h"
#include "desktop/frame/process_window.h"
#include "desktop/report/page_output.h"

class QAction;

namespace tz {

class ReportStatus;
class VoucherPaper;

class VoucherWindow : public ProcessWindow {
  Q_OBJECT

 public:
  static constexpr int templateId = 925;
  // Commands of its own, beside those that all windows have.
  static constexpr int previousVoucher = 50011;
  static constexpr int nextVoucher = 50012;
  static constexpr int copyLine = 50013;

  explicit VoucherWindow(QWidget* parent);
  ~VoucherWindow() override;

  // Reads the voucher of a line. When there is none to show, or the ledger cannot be read, that is told over `asker`,
  // false comes back and what was shown stays.
  bool Read(const LineId& line, QWidget* asker);
  // Null before the first one is shown.
  [[nodiscard]] const Voucher* Shown() const { return voucher_.get(); }
  [[nodiscard]] VoucherPaper* Paper() const { return paper_; }

  // Where PDFs go and how pages are made, as ReportWindow has them.
  void KeepFolder(ExportFolder folder);
  void KeepPages(KeptPages kept);

  bool OnInitDialog() override;
  void RefreshDisplay() override;
  void OnCommand(int id) override;
  [[nodiscard]] QString ListEntry() const override;
  [[nodiscard]] QToolBar* CommandBar() const override { return toolBar_; }

 signals:
  // A ledger is to open, with these conditions.
  void ledgerWanted(const tz::DetailTarget& target);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void LayOut();
  void ShowVoucher();
  void GoTo(Id voucher);
  void OnDetail();
  void CopyLine();
  // What can be done with the current line.
  void OpenMenu(QPoint where);
  void AddLedgers(class QMenu& menu);
  [[nodiscard]] const VoucherLine* CurrentLine() const;
  [[nodiscard]] QAction* ActionOf(int command) const;

  CNeedBitmap background_;
  std::unique_ptr<const Voucher> voucher_;
  Id line_ = 0;
  QToolBar* toolBar_ = nullptr;
  VoucherPaper* paper_ = nullptr;
  ReportStatus* status_ = nullptr;
  std::unique_ptr<PageOutput> pages_;
};

}  // namespace tz
