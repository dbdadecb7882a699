// The condition combos above the grid of a report: account, department, person, unit or unit class, clerk, as the
// report's conditions have them.
// They show what the grid shows; choosing another entry changes the condition.
#pragma once

#include <QWidget>
#include <vector>

#include "core/reports/dialog_spec.h"

namespace tz {

class CUsefulCombox;

class ConditionCombos : public QWidget {
  Q_OBJECT

 public:
  ConditionCombos(const DialogSpec& dialog, QWidget* parent);

  // Whether a condition of this kind has a combo.
  [[nodiscard]] static bool HasCombo(ControlSpec::Kind kind);

  // Fills the lists that depend on nothing else. False when the report needs an account and none qualifies.
  bool Fill(const CQnCwDB& db);
  // Selects what the request names, in each list the first entry when there is no such one. Of a name left out nothing
  // is selected, of a list in which something always stands its first entry.
  void Select(const Request& request, const CQnCwDB& db);
  // Fills the list of persons with those of the chosen department and selects none of them.
  void RefillPersons(const CQnCwDB& db);
  [[nodiscard]] bool AskForPerson() const;
  // Lets the request follow another account: a clerk or a project class that it does not have becomes the first one
  // that it has.
  void FollowAccount(Request& request, const CQnCwDB& db);

 signals:
  // Another entry than before was chosen by hand.
  void chosen(tz::ParameterKey key, const tz::MemberChoice& member);
  // Words about text that was typed and stands for nothing.
  void told(const QString& words);

 private:
  struct Member {
    ParameterKey key;
    bool all;           // "全部" is offered
    bool alwaysStands;  // left out, it is the first entry
    CUsefulCombox* combo;
  };
  void AddCombo(const ControlSpec& control, int comboId);
  [[nodiscard]] CUsefulCombox* Find(ParameterKey key) const;
  void RefillClerks(const std::string& account, const CQnCwDB& db);
  [[nodiscard]] static MemberChoice ChosenIn(ParameterKey key, const CUsefulCombox& combo);
  [[nodiscard]] int PlaceOf(const Member& member, const MemberChoice& wanted, const CQnCwDB& db) const;

  const DialogSpec& dialog_;
  std::vector<Member> members_;
};

}  // namespace tz
