// The small windows of two-clearing: how far automatic matching is, what it came to, marked lines that are not level,
// and the group to go to. Controls carry their ids as object names.
#pragma once

#include <QDialog>

#include "core/data/init_combo_fun.h"
#include "core/output/report_output.h"
#include "core/receivables/automatic_matching.h"

class QLabel;
class QProgressBar;

namespace tz {

class CUsefulCombox;
class ReportWindow;

// How far automatic matching is: the account and the party that it is at, and a step of the bar for each account.
class MatchProgressDialog : public QDialog {
  Q_OBJECT

 public:
  static constexpr int templateId = 1147;

  explicit MatchProgressDialog(QWidget* parent);

  void ShowAccount(const QString& account);
  void ShowParty(const QString& party);
  void ShowProgress(int done, int of);
  [[nodiscard]] bool Stopping() const { return stopping_; }

 signals:
  // By the button, Esc or the caption: the party that is being matched is finished first.
  void cancelled();

 protected:
  void accept() override {}
  void reject() override;

 private:
  QLabel* account_;
  QLabel* party_;
  QLabel* note_;
  QProgressBar* bar_;
  bool stopping_ = false;
};

// What automatic matching came to: per account how many lines each rule cleared.
class MatchResultDialog : public QDialog {
 public:
  static constexpr int templateId = 1145;

  MatchResultDialog(const MatchOutcome& outcome, QWidget* parent);

 private:
  CTzGrid grid_;
};

// Marked lines that do not settle each other, with what can be done with a report.
class ClearingCheckDialog : public QDialog {
 public:
  // `check` is shown, and printed and exported by the window.
  ClearingCheckDialog(ComputedReport check, ReportWindow& window);

 private:
  void OnCommand(int id);

  ComputedReport check_;
  ReportWindow& window_;
};

// Which group to go to.
class ClearingLocateDialog : public QDialog {
 public:
  static constexpr int templateId = 1156;

  // The group caption, "部门", and the names of the groups.
  ClearingLocateDialog(const QString& caption, const ComboList& groups, QWidget* parent);
  [[nodiscard]] std::string Chosen() const;

 protected:
  void accept() override;

 private:
  CUsefulCombox* groups_;
};

}  // namespace tz
