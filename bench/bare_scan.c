// bare_scan LEDGER SELECT: steps the rows of a SELECT in SQLite and reads every column, nothing else.
#include <sqlite3.h>
#include <stdio.h>

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  sqlite3* db = NULL;
  sqlite3_stmt* statement = NULL;
  if (sqlite3_open_v2(argv[1], &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, NULL) != SQLITE_OK) return 1;
  if (sqlite3_prepare_v2(db, argv[2], -1, &statement, NULL) != SQLITE_OK) return 1;
  const int columns = sqlite3_column_count(statement);
  long rows = 0;
  long texts = 0;
  double figures = 0;
  while (sqlite3_step(statement) == SQLITE_ROW) {
    ++rows;
    for (int column = 0; column < columns; ++column) {
      if (sqlite3_column_type(statement, column) == SQLITE_TEXT) {
        texts += sqlite3_column_text(statement, column)[0] + sqlite3_column_bytes(statement, column);
      } else {
        figures += sqlite3_column_double(statement, column);
      }
    }
  }
  sqlite3_finalize(statement);
  sqlite3_close(db);
  printf("%ld %ld %f\n", rows, texts, figures);
  return 0;
}
