// The reference windows of the archives: departments, persons, units, project items. An archive is read when its window
// is made, which throws DbError when it cannot be.
#pragma once

#include <string>

#include "core/data/qncw_db.h"
#include "desktop/picking/reference_dialog.h"

namespace tz {

class CDeptReferenceDlg : public ReferenceDialog {
  Q_OBJECT

 public:
  CDeptReferenceDlg(const CQnCwDB& db, QWidget* parent);
  void SetDept(const MemberChoice& dept);
  [[nodiscard]] MemberChoice Dept() const;
};

// Persons under their departments.
class CPersonReferenceDlg : public ReferenceDialog {
  Q_OBJECT

 public:
  CPersonReferenceDlg(const CQnCwDB& db, QWidget* parent);
  void SetNames(const MemberChoice& dept, const MemberChoice& person);
  // Empty for a person whose department does not exist.
  [[nodiscard]] MemberChoice Dept() const;
  [[nodiscard]] MemberChoice Person() const;
};

// Units under their classes.
class CUnitReferenceDlg : public ReferenceDialog {
  Q_OBJECT

 public:
  CUnitReferenceDlg(const CQnCwDB& db, QWidget* parent);
  void SetUnit(const MemberChoice& unit);
  [[nodiscard]] MemberChoice Unit() const;
};

// The items of one project class.
class CItemReferenceDlg : public ReferenceDialog {
  Q_OBJECT

 public:
  CItemReferenceDlg(const CQnCwDB& db, const std::string& classId, QWidget* parent);
  void SetItem(const MemberChoice& item);
  [[nodiscard]] MemberChoice Item() const;
};

}  // namespace tz
