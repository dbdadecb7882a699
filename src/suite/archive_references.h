// The reference windows of the archives: departments, persons, units, project items. An archive is read when its window
// is made, which throws DbError when it cannot be.
#pragma once

#include <string>

#include "data/qncw_db.h"
#include "suite/reference_dialog.h"

namespace tz {

class CDeptReferenceDlg : public ReferenceDialog {
  Q_OBJECT

 public:
  CDeptReferenceDlg(const CQnCwDB& db, QWidget* parent);
  void SetDeptName(const std::string& name);
  [[nodiscard]] std::string DeptName() const;
};

// Persons under their departments.
class CPersonReferenceDlg : public ReferenceDialog {
  Q_OBJECT

 public:
  CPersonReferenceDlg(const CQnCwDB& db, QWidget* parent);
  void SetNames(const std::string& dept, const std::string& person);
  // Empty for a person whose department does not exist.
  [[nodiscard]] std::string DeptName() const;
  [[nodiscard]] std::string PersonName() const;
};

// Units under their classes.
class CUnitReferenceDlg : public ReferenceDialog {
  Q_OBJECT

 public:
  CUnitReferenceDlg(const CQnCwDB& db, QWidget* parent);
  void SetUnitName(const std::string& name);
  [[nodiscard]] std::string UnitName() const;
};

// The items of one project class.
class CItemReferenceDlg : public ReferenceDialog {
  Q_OBJECT

 public:
  CItemReferenceDlg(const CQnCwDB& db, const std::string& classId, QWidget* parent);
  void SetItemName(const std::string& name);
  [[nodiscard]] std::string ItemName() const;
};

}  // namespace tz
