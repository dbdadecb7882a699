// The reference windows of the archives: departments, persons, units, project items. An archive that was not read yet
// is read when its window is made, which throws DbError when it cannot be.
#pragma once

#include <string>

#include "core/data/qncw_db.h"
#include "desktop/picking/reference_dialog.h"

namespace tz {

class CDeptReferenceDlg : public ReferenceDialog {
  Q_OBJECT

 public:
  CDeptReferenceDlg(const CQnCwDB& db, QWidget* parent);
  CDeptReferenceDlg(Names depts, QWidget* parent);
  void SetDept(const MemberChoice& dept) { OpenAt(dept); }
  [[nodiscard]] MemberChoice Dept() const { return Chosen(); }
};

// Persons under their departments.
class CPersonReferenceDlg : public ReferenceDialog {
  Q_OBJECT

 public:
  CPersonReferenceDlg(const CQnCwDB& db, QWidget* parent);
  CPersonReferenceDlg(Names persons, QWidget* parent);
  void SetNames(const MemberChoice& dept, const MemberChoice& person) { OpenAt(person, dept); }
  // Empty for a person whose department does not exist.
  [[nodiscard]] MemberChoice Dept() const { return ChosenGroup(); }
  [[nodiscard]] MemberChoice Person() const { return Chosen(); }
};

// Units under their classes.
class CUnitReferenceDlg : public ReferenceDialog {
  Q_OBJECT

 public:
  CUnitReferenceDlg(const CQnCwDB& db, QWidget* parent);
  CUnitReferenceDlg(Names units, QWidget* parent);
  void SetUnit(const MemberChoice& unit) { OpenAt(unit); }
  [[nodiscard]] MemberChoice Unit() const { return Chosen(); }
};

// The items of one project class.
class CItemReferenceDlg : public ReferenceDialog {
  Q_OBJECT

 public:
  CItemReferenceDlg(const CQnCwDB& db, const std::string& classId, QWidget* parent);
  CItemReferenceDlg(Names items, QWidget* parent);
  void SetItem(const MemberChoice& item) { OpenAt(item); }
  [[nodiscard]] MemberChoice Item() const { return Chosen(); }
};

}  // namespace tz
