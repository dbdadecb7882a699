#include "desktop/picking/archive_references.h"

#include "desktop/picking/archive_names.h"

namespace tz {
namespace {

Names shared(NameList names) { return std::make_shared<const NameList>(std::move(names)); }

}  // namespace

CDeptReferenceDlg::CDeptReferenceDlg(const CQnCwDB& db, QWidget* parent)
    : CDeptReferenceDlg(shared(deptNames(db)), parent) {}
CDeptReferenceDlg::CDeptReferenceDlg(Names depts, QWidget* parent)
    : ReferenceDialog(QStringLiteral("部门参照"), {}, std::move(depts), parent) {}

CPersonReferenceDlg::CPersonReferenceDlg(const CQnCwDB& db, QWidget* parent)
    : CPersonReferenceDlg(shared(personNames(db)), parent) {}
CPersonReferenceDlg::CPersonReferenceDlg(Names persons, QWidget* parent)
    : ReferenceDialog(QStringLiteral("个人参照"), QStringLiteral("部门"), std::move(persons), parent) {}

CUnitReferenceDlg::CUnitReferenceDlg(const CQnCwDB& db, QWidget* parent)
    : CUnitReferenceDlg(shared(unitNames(db)), parent) {}
CUnitReferenceDlg::CUnitReferenceDlg(Names units, QWidget* parent)
    : ReferenceDialog(QStringLiteral("单位参照"), QStringLiteral("分类"), std::move(units), parent) {}

CItemReferenceDlg::CItemReferenceDlg(const CQnCwDB& db, const std::string& classId, QWidget* parent)
    : CItemReferenceDlg(shared(itemNames(db, classId)), parent) {}
CItemReferenceDlg::CItemReferenceDlg(Names items, QWidget* parent)
    : ReferenceDialog(QStringLiteral("项目参照"), {}, std::move(items), parent) {}

}  // namespace tz
