// The item table of a project class, made and changed together with the class: each belongs inside the transaction that
// writes ProjClass and ProjItems. What is made on a server can be read by reports as well.
#pragma once

#include <string_view>
#include <vector>

#include "core/data/connection.h"
#include "core/data/records.h"

namespace tz {

void makeItemTable(Connection& connection, std::string_view classId, const std::vector<ProjItemsInfo>& fields);
void dropItemTable(Connection& connection, std::string_view classId);
// The column of a field from 2 on; its type follows from the field's.
void addItemColumn(Connection& connection, const ProjItemsInfo& field);
void dropItemColumn(Connection& connection, std::string_view classId, int field);
// The fields that have a column in the table.
[[nodiscard]] std::vector<int> itemColumns(Connection& connection, std::string_view classId);

}  // namespace tz
