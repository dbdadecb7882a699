// bare_libpq ADDRESS SELECT: reads the whole result of a SELECT through libpq and looks at every value.
#include <libpq-fe.h>
#include <stdio.h>

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  PGconn* connection = PQconnectdb(argv[1]);
  if (PQstatus(connection) != CONNECTION_OK) return 1;
  PGresult* result = PQexecParams(connection, argv[2], 0, NULL, NULL, NULL, NULL, 1);
  if (PQresultStatus(result) != PGRES_TUPLES_OK) return 1;
  long bytes = 0;
  for (int row = 0; row < PQntuples(result); ++row) {
    for (int column = 0; column < PQnfields(result); ++column) {
      bytes += PQgetlength(result, row, column) + PQgetvalue(result, row, column)[0];
    }
  }
  printf("%d %ld\n", PQntuples(result), bytes);
  PQclear(result);
  PQfinish(connection);
  return 0;
}
