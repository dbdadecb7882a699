// Departments, persons, units and their classes.
#include "core/archives/archive.h"

#include <algorithm>
#include <array>

#include "core/archives/archive_uses.h"

namespace tz {
namespace {

using Kind = ArchiveField::Kind;

constexpr std::array directories = {
    ArchiveDirectory{ArchiveDirectory::Kind::persons, 10178, 1, "个人目录", "个人档案"},
    ArchiveDirectory{ArchiveDirectory::Kind::projects, 10179, 13, "项目目录", "项目档案"},
    ArchiveDirectory{ArchiveDirectory::Kind::units, 10180, 75, "单位目录", "单位档案"},
    ArchiveDirectory{ArchiveDirectory::Kind::departments, 10181, 8, "部门目录", "部门档案"},
};

// Departments bear two ids, which need not go together.
Id newDepartmentId(Connection& connection, Id lId) {
  const auto last = connection.query("SELECT coalesce(max(lDeptId), 0) FROM Dept");
  return last->next() ? std::max(lId, last->integer(0) + 1) : lId;
}

}  // namespace

std::span<const ArchiveDirectory> archiveDirectories() { return directories; }

const ArchiveDirectory* findArchiveDirectory(int command) {
  const auto* const found = std::ranges::find(directories, command, &ArchiveDirectory::command);
  return found == directories.end() ? nullptr : &*found;
}

Archive departmentArchive() {
  return {
      .noun = "部门",
      .title = "部门目录",
      .table = "Dept",
      .fields =
          {
              {.kind = Kind::code, .column = "sDeptId", .caption = "部门编码", .longest = 20, .width = 120},
              {.kind = Kind::name, .column = "sDeptName", .caption = "部门名称", .longest = 60, .width = 260},
          },
      .idColumn = "lDeptId",
      .order = "sDeptId, lId",
      .code = 0,
      .name = 1,
      .tables = {"Dept"},
      .uses = departmentUses(),
      .newId = newDepartmentId,
  };
}

Archive personArchive() {
  return {
      .noun = "个人",
      .title = "个人目录",
      .table = "Person",
      .fields =
          {
              {.kind = Kind::code, .column = "sPersonId", .caption = "个人编码", .longest = 20, .width = 120},
              {.kind = Kind::name, .column = "sName", .caption = "姓名", .longest = 60, .width = 160},
              {.kind = Kind::department, .column = "lDeptId", .caption = "部门", .width = 200},
          },
      .order = "sPersonId, lId",
      .code = 0,
      .name = 1,
      .group = 2,
      .tables = {"Person", "Dept"},
      .uses = personUses(),
  };
}

Archive unitArchive() {
  return {
      .noun = "单位",
      .title = "单位目录",
      .table = "Enter",
      .fields =
          {
              {.kind = Kind::code, .column = "sEnterId", .caption = "单位编码", .longest = 20, .width = 90},
              {.kind = Kind::name, .column = "sEnterName", .caption = "单位名称", .longest = 100, .width = 200},
              {.kind = Kind::unitClass, .column = "lClassId", .caption = "分类", .width = 90},
              {.kind = Kind::amount, .column = "mCredit", .caption = "信用额度", .width = 110},
              {.kind = Kind::text, .column = "sAddress", .caption = "地址", .longest = 200, .width = 180},
              {.kind = Kind::text, .column = "sContact", .caption = "联系人", .longest = 60, .width = 80},
              {.kind = Kind::text, .column = "sPhone", .caption = "电话", .longest = 60, .width = 120},
          },
      .order = "sEnterId, lId",
      .code = 0,
      .name = 1,
      .group = 2,
      .tables = {"Enter", "EnterClass"},
      .uses = unitUses(),
  };
}

Archive unitClassArchive() {
  return {
      .noun = "单位分类",
      .title = "单位分类",
      .table = "EnterClass",
      .fields = {{.kind = Kind::name, .column = "sName", .caption = "分类名称", .longest = 60, .width = 260}},
      .order = "lId",
      .name = 0,
      .tables = {"Enter", "EnterClass"},
      .uses = unitClassUses(),
  };
}

}  // namespace tz
