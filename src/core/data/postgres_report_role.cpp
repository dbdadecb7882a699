// What a report may write on PostgreSQL: the grants of one role, which the session takes on when it is a report's.
#include "core/data/backends.h"
#include "core/data/report_writes.h"

namespace tz {
namespace {

constexpr std::string_view role = "tzassistant_report";

std::string_view privilege(ReportWrite::Action action) {
  switch (action) {
    case ReportWrite::Action::insert:
      return "INSERT";
    case ReportWrite::Action::update:
      return "UPDATE";
    case ReportWrite::Action::remove:
      return "DELETE";
  }
  return "";
}

// True where the role holds this grant; not true as well where the table does not exist.
std::string holdsGrant(const ReportWrite& write) {
  const std::string table = "to_regclass('" + std::string(write.table) + "')";
  const std::string action = "'" + std::string(privilege(write.action)) + "')";
  if (write.column.empty()) return "has_table_privilege(r.oid, " + table + ", " + action;
  return "has_column_privilege(r.oid, " + table + ", lower('" + std::string(write.column) + "'), " + action;
}

std::string grantText(const ReportWrite& write) {
  const std::string column = write.column.empty() ? "" : " (" + std::string(write.column) + ")";
  return "GRANT " + std::string(privilege(write.action)) + column + " ON " + std::string(write.table) + " TO " +
         std::string(role) + "; ";
}

// The role exists, this session may take it on, and with it a report can read and write all that it has to.
bool roleIsReady(Connection& connection) {
  std::string text = "SELECT 1 FROM pg_catalog.pg_roles r WHERE r.rolname = '" + std::string(role) +
                     "' AND NOT r.rolsuper AND pg_has_role(current_user, r.oid, 'MEMBER')"
                     " AND has_schema_privilege(r.oid, current_schema(), 'USAGE')"
                     " AND NOT EXISTS (SELECT 1 FROM (" +
                     connection.dialect().catalogueView() +
                     ") AS t WHERE NOT has_table_privilege(r.oid, t.table_name, 'SELECT'))"
                     " AND has_table_privilege(r.oid, to_regclass('systable'), 'SELECT')";
  for (const auto& write : reportWrites) text += " AND " + holdsGrant(write);
  return connection.query(Sql(text))->next();
}

std::string text(Connection& connection, const Sql& sql) {
  const auto cursor = connection.query(sql);
  return cursor->next() ? cursor->anyText(0) : std::string();
}

// A block whose refusal leaves the surrounding transaction as it was.
void attempt(Connection& connection, const std::string& statements) {
  connection.execute(Sql("DO $tz$ BEGIN " + statements +
                         " EXCEPTION WHEN insufficient_privilege OR duplicate_object OR unique_violation OR "
                         "wrong_object_type OR lock_not_available OR undefined_function THEN NULL; END $tz$"));
}

// A mark takes its three values. Lines that hold another stay; whoever does not own the table works without.
void guardMarks(Connection& connection) {
  const bool wanting =
      connection
          .query(
              "SELECT 1 FROM pg_catalog.pg_class t WHERE t.oid = to_regclass('RegSub') AND t.relkind IN ('r', 'p') "
              "AND pg_has_role(current_user, t.relowner, 'USAGE') AND NOT EXISTS (SELECT 1 FROM "
              "pg_catalog.pg_constraint c WHERE c.conrelid = t.oid AND c.conname = 'regsub_marks')")
          ->next();
  if (!wanting) return;
  attempt(
      connection,
      "ALTER TABLE RegSub ADD CONSTRAINT regsub_marks CHECK (byFlag IS NOT NULL AND byFlag IN (0, 1, 2)) NOT VALID;");
}

void takeReportRole(Connection& connection) {
  guardMarks(connection);
  try {
    if (roleIsReady(connection)) {
      connection.execute(Sql("SET ROLE " + std::string(role)));
      return;
    }
  } catch (const DbError& error) {
    if (error.kind() != DbError::Kind::denied) throw;
  }
  connection.execute("SET default_transaction_read_only = on");
}

}  // namespace

void restrictPostgres(Connection& connection, Access access) {
  if (access == Access::keeper) return;
  if (access == Access::report) takeReportRole(connection);
  takeDataStatementsOnly(connection);
}

void grantPostgresReportWrites(Connection& connection) {
  guardMarks(connection);
  if (roleIsReady(connection)) return;
  const std::string roleName(role);
  attempt(connection, "CREATE ROLE " + roleName + " NOLOGIN;");
  if (text(connection, Sql("SELECT 1 FROM pg_catalog.pg_roles WHERE rolname = ?", roleName)).empty()) return;
  attempt(connection, "GRANT " + roleName + " TO CURRENT_USER;");

  const auto schema = text(connection, "SELECT quote_ident(current_schema())");
  std::string grants = "GRANT USAGE ON SCHEMA " + schema + " TO " + roleName + "; ";
  // Item tables of classes that are made later are read as well.
  grants += "ALTER DEFAULT PRIVILEGES IN SCHEMA " + schema + " GRANT SELECT ON TABLES TO " + roleName + "; ";
  const auto tables = text(connection, Sql("SELECT string_agg(t.table_name, ', ') FROM (" +
                                           connection.dialect().catalogueView() + ") AS t"));
  grants += "GRANT SELECT ON systable, " + tables + " TO " + roleName + "; ";
  for (const auto& write : reportWrites) grants += grantText(write);
  attempt(connection, grants);
}

}  // namespace tz
