// The log of who marked and planned, by operator and day, the latest first; a line leads to its voucher.
#pragma once

#include <memory>

#include "core/operators/work_log.h"
#include "desktop/frame/process_window.h"
#include "desktop/report/page_output.h"

class QComboBox;
class QDateEdit;
class QToolBar;

namespace tz {

class GridTools;
class GridView;
class NoticeBar;
class ReportStatus;

class WorkLogWindow : public ProcessWindow {
  Q_OBJECT

 public:
  // No template has this number.
  static constexpr int workLogWindow = 90002;

  // Whoever lacks the right to everything sees his own work only.
  WorkLogWindow(Operator who, QWidget* parent);

  void KeepFolder(ExportFolder folder) { files_.KeepFolder(std::move(folder)); }
  [[nodiscard]] GridView& Grid() const { return *view_; }
  [[nodiscard]] QToolBar* CommandBar() const override { return toolBar_; }

  bool OnInitDialog() override;
  void OnCommand(int id) override;
  void RefreshDisplay() override;

 signals:
  // The voucher of a line is to open.
  void voucherWanted(const tz::LineId& line);

 private:
  void LayOut();
  [[nodiscard]] QWidget* MakeConditions();
  void FillOperators();
  [[nodiscard]] LogAsk Asked() const;
  void Read();
  void OpenVoucher();
  void Export();

  Operator who_;
  QToolBar* toolBar_ = nullptr;
  QComboBox* by_ = nullptr;
  QDateEdit* from_ = nullptr;
  QDateEdit* to_ = nullptr;
  NoticeBar* warnings_ = nullptr;
  GridView* view_ = nullptr;
  GridTools* tools_ = nullptr;
  ReportStatus* status_ = nullptr;
  PageOutput files_{*this};
  std::unique_ptr<ComputedReport> shown_;
};

}  // namespace tz
