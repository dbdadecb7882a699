// PostgreSQL's client library, loaded when a server address is first used: it alone would triple the start of every
// process. Its header gives types and constants; its functions are called through the table below, under their own
// names. Together with its source file this is the only place that needs POSIX.
#pragma once

#include <chrono>
#include <libpq-fe.h>
#include <memory>

namespace tz {

struct PostgresClient {
#define TZ_FUNCTION(name) decltype(&::name) name = nullptr;
#define TZ_FUNCTIONS                     \
  TZ_FUNCTION(PQconninfoParse)           \
  TZ_FUNCTION(PQconninfoFree)            \
  TZ_FUNCTION(PQfreemem)                 \
  TZ_FUNCTION(PQconnectStartParams)      \
  TZ_FUNCTION(PQconnectPoll)             \
  TZ_FUNCTION(PQconninfo)                \
  TZ_FUNCTION(PQsetnonblocking)          \
  TZ_FUNCTION(PQflush)                   \
  TZ_FUNCTION(PQconnectionNeedsPassword) \
  TZ_FUNCTION(PQfinish)                  \
  TZ_FUNCTION(PQstatus)                  \
  TZ_FUNCTION(PQsocket)                  \
  TZ_FUNCTION(PQerrorMessage)            \
  TZ_FUNCTION(PQsetErrorVerbosity)       \
  TZ_FUNCTION(PQsetNoticeProcessor)      \
  TZ_FUNCTION(PQtransactionStatus)       \
  TZ_FUNCTION(PQsendQuery)               \
  TZ_FUNCTION(PQsendQueryParams)         \
  TZ_FUNCTION(PQisBusy)                  \
  TZ_FUNCTION(PQconsumeInput)            \
  TZ_FUNCTION(PQgetResult)               \
  TZ_FUNCTION(PQgetCancel)               \
  TZ_FUNCTION(PQcancel)                  \
  TZ_FUNCTION(PQfreeCancel)              \
  TZ_FUNCTION(PQputCopyData)             \
  TZ_FUNCTION(PQputCopyEnd)              \
  TZ_FUNCTION(PQclear)                   \
  TZ_FUNCTION(PQresultStatus)            \
  TZ_FUNCTION(PQresultErrorField)        \
  TZ_FUNCTION(PQcmdStatus)               \
  TZ_FUNCTION(PQcmdTuples)               \
  TZ_FUNCTION(PQntuples)                 \
  TZ_FUNCTION(PQnfields)                 \
  TZ_FUNCTION(PQfname)                   \
  TZ_FUNCTION(PQftype)                   \
  TZ_FUNCTION(PQgetisnull)               \
  TZ_FUNCTION(PQgetlength)               \
  TZ_FUNCTION(PQgetvalue)
  TZ_FUNCTIONS
#undef TZ_FUNCTION
};

// Loads the library on the first call; throws DbError when it is not installed.
[[nodiscard]] const PostgresClient& postgresClient();

struct ClearResult {
  void operator()(PGresult* result) const { postgresClient().PQclear(result); }
};
using PostgresResult = std::unique_ptr<PGresult, ClearResult>;

enum class SocketUse { reading, writing, either };
// Waits until the socket can be used, which true tells, or the time is over.
bool waitForSocket(int socket, SocketUse use, std::chrono::milliseconds time);
// From here on nothing is sent or read any more; whoever tries is told at once.
void shutSocket(int socket);

}  // namespace tz
