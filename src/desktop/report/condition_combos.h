// The condition combos above the grid of a report: account, department, person, unit or unit class, clerk, month or
// months, as the report's conditions have them. They show what the grid shows; choosing another entry changes the
// condition. F2 opens a reference window of what a combo offers.
#pragma once

#include <QWidget>
#include <vector>

#include "core/reports/offers.h"
#include "desktop/query/quick_months.h"

class QHBoxLayout;

namespace tz {

class CUsefulCombox;
class MonthCombos;
class PaintedStatic;

class ConditionCombos : public QWidget {
  Q_OBJECT

 public:
  ConditionCombos(const DialogSpec& dialog, QWidget* parent);

  // Whether a condition of this kind has a combo.
  [[nodiscard]] static bool HasCombo(ControlSpec::Kind kind);

  // False when the report needs an account and none qualifies.
  [[nodiscard]] bool HasAccounts(const CQnCwDB& db) const;
  // Fills the lists that depend on nothing else, where no report can be shown that would bring them along.
  void Fill(const CQnCwDB& db);
  // What each list offers under these conditions, and which of it they name: in each list the first entry when there is
  // no such one; of a name left out none, of a list in which something always stands its first entry.
  struct List {
    ComboList entries;
    int place = -1;
  };
  using Lists = std::vector<List>;
  [[nodiscard]] Lists Read(const Request& request, const CQnCwDB& db) const;
  void Show(const Lists& lists);
  // The month or months of a request, that of logon where it has none; nothing for a report that asks for none.
  void ShowMonths(const Request& request, Date logon);
  // Fills the list of persons with those of the department asked for and selects none of them.
  void RefillPersons(const Request& request, const CQnCwDB& db);
  [[nodiscard]] bool AskForPerson() const;
  // Lets the request follow another account: a clerk or a project class that it does not have becomes the first one
  // that it has.
  void FollowAccount(Request& request, const CQnCwDB& db);

  // With the months in a row of their own.
  [[nodiscard]] QSize minimumSizeHint() const override;

 signals:
  // Another entry than before was chosen by hand.
  void chosen(tz::ParameterKey key, const tz::MemberChoice& member);
  void monthsChosen(tz::MonthSpan months);
  // Words about text that was typed and stands for nothing.
  void told(const QString& words);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool event(QEvent* event) override;

 private:
  struct Member {
    const ControlSpec* control;
    CUsefulCombox* combo;
  };
  void AddCombo(const ControlSpec& control, int comboId);
  void AddMonths(const ControlSpec& control);
  void AddMonth(const ControlSpec& control);
  // What a combo says of text that stands for nothing.
  void TellOf(CUsefulCombox* combo);
  PaintedStatic* AddLabel(int id, const QString& caption);
  void PlaceMonths();
  void GoOnFrom(const ControlSpec& control);
  [[nodiscard]] const Member* Find(ParameterKey key) const;
  [[nodiscard]] List ReadOne(const Member& member, const Request& request, const CQnCwDB& db) const;

  const DialogSpec& dialog_;
  std::vector<Member> members_;
  QHBoxLayout* row_;
  MonthCombos* months_ = nullptr;
  CUsefulCombox* month_ = nullptr;  // of a report up to one month
  int placeInRow_ = 0;              // of the months
  int year_ = 0;                    // whose months they offer
};

}  // namespace tz
