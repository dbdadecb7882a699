// The search across the ledger: a field for what is looked for, and the lines found, each of which leads to its
// voucher. What is found shows while the search goes on; Esc stops it and leaves that.
#pragma once

#include <memory>

#include "core/voucher/line_search.h"
#include "desktop/frame/process_window.h"
#include "desktop/report/page_output.h"

class QComboBox;
class QToolBar;

namespace tz {

class GridTools;
class GridView;
class NoticeBar;
class ReportStatus;

class SearchWindow : public ProcessWindow {
  Q_OBJECT

 public:
  // No template has this number.
  static constexpr int searchWindow = 90001;

  explicit SearchWindow(QWidget* parent);

  void KeepFolder(ExportFolder folder) { files_.KeepFolder(std::move(folder)); }
  [[nodiscard]] GridView& Grid() const { return *view_; }
  [[nodiscard]] QString ListEntry() const override;
  [[nodiscard]] QToolBar* CommandBar() const override { return toolBar_; }

  bool OnInitDialog() override;
  void OnCommand(int id) override;
  // Comes to the front with the field ready to be typed in.
  void RefreshDisplay() override;

 signals:
  // The voucher of a line is to open.
  void voucherWanted(const tz::LineId& line);

 protected:
  // Keys of the field.
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  void LayOut();
  [[nodiscard]] QWidget* MakeSearchRow();
  void Search();
  void Show(const SearchText& text, const FoundLines& found);
  void ShowNone(const QString& why);
  void TellFailure(const std::exception& error);
  // The field's list: the last ones first, each once.
  void Remember(const QString& text);
  void OpenVoucher();
  void Export();

  QToolBar* toolBar_ = nullptr;
  QComboBox* field_ = nullptr;
  NoticeBar* warnings_ = nullptr;
  GridView* view_ = nullptr;
  GridTools* tools_ = nullptr;
  ReportStatus* status_ = nullptr;
  PageOutput files_{*this};
  std::unique_ptr<ComputedReport> shown_;
};

}  // namespace tz
