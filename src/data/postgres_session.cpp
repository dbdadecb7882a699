#include "data/postgres_session.h"

#include <array>
#include <cstring>

#include "data/backends.h"
#include "data/postgres_errors.h"

namespace tz {
namespace {

using namespace std::chrono_literals;

constexpr auto timeBetweenChecks = 100ms;
constexpr auto connectTime = 15s;

// The server infers types from the place of a value; a text must not end at a NUL unseen.
std::string parameterText(const Value& value) {
  if (const auto* integer = std::get_if<std::int64_t>(&value)) return std::to_string(*integer);
  if (const auto* real = std::get_if<double>(&value)) return shortestText(*real);
  if (const auto* date = std::get_if<Date>(&value)) return isoText(*date);
  const auto& text = std::get<std::string>(value);
  if (text.find('\0') != std::string::npos) throw DbError(DbError::Kind::other, "a text holds a NUL byte");
  return text;
}

}  // namespace

PostgresSession::PostgresSession(const std::string& address) : client_(postgresClient()) {
  const auto readable = readableAddress(address);
  try {
    connect(readable);
  } catch (...) {
    client_.PQfinish(handle_);
    throw;
  }
}

PostgresSession::~PostgresSession() { client_.PQfinish(handle_); }

void PostgresSession::connect(const std::string& address) {
  constexpr std::array<const char*, 4> names = {"fallback_application_name", "dbname", "client_encoding", nullptr};
  const std::array<const char*, 4> values = {"TzAssistant", address.c_str(), "UTF8", nullptr};
  constexpr int addressInDbname = 1;
  handle_ = client_.PQconnectStartParams(names.data(), values.data(), addressInDbname);
  if (handle_ == nullptr) throw DbError(DbError::Kind::other, "out of memory");
  client_.PQsetNoticeProcessor(
      handle_, [](void*, const char*) {}, nullptr);
  // Only the verbose message of a refused connection holds the error code.
  client_.PQsetErrorVerbosity(handle_, PQERRORS_VERBOSE);

  const auto end = std::chrono::steady_clock::now() + connectTime;
  auto step = broken() && client_.PQsocket(handle_) < 0 ? PGRES_POLLING_FAILED : PGRES_POLLING_WRITING;
  while (step == PGRES_POLLING_READING || step == PGRES_POLLING_WRITING) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
    if (left <= 0ms) throw DbError(DbError::Kind::unreachable, "the server does not answer");
    waitForSocket(client_.PQsocket(handle_), step == PGRES_POLLING_READING ? SocketUse::reading : SocketUse::writing,
                  left);
    step = client_.PQconnectPoll(handle_);
  }
  if (step != PGRES_POLLING_OK) {
    throw connectError(client_.PQerrorMessage(handle_), client_.PQconnectionNeedsPassword(handle_) != 0);
  }
  client_.PQsetErrorVerbosity(handle_, PQERRORS_DEFAULT);
}

PostgresResult PostgresSession::run(const std::string& text, const std::vector<Value>& values) {
  std::vector<std::string> texts;
  std::vector<const char*> pointers;
  texts.reserve(values.size());
  for (const auto& value : values) pointers.push_back(texts.emplace_back(parameterText(value)).c_str());
  if (cancelWanted()) throw DbError(DbError::Kind::other, "stopped before the statement began");
  constexpr int binary = 1;
  return collect(client_.PQsendQueryParams(handle_, text.c_str(), static_cast<int>(pointers.size()), nullptr,
                                           pointers.data(), nullptr, nullptr, binary),
                 Stop::allowed);
}

PostgresResult PostgresSession::command(const char* text) {
  return collect(client_.PQsendQuery(handle_, text), Stop::never);
}

void PostgresSession::copyIn(const std::string& statement, std::string_view rows) {
  (void)run(statement);
  const bool sent = client_.PQputCopyData(handle_, rows.data(), static_cast<int>(rows.size())) == 1 &&
                    client_.PQputCopyEnd(handle_, nullptr) == 1;
  collect(sent ? 1 : 0, Stop::allowed);
}

// All results of what was sent; the first failure counts. While COPY waits for rows there is no further result.
PostgresResult PostgresSession::collect(int sent, Stop stop) {
  if (sent != 1) fail(nullptr);
  PostgresResult kept;
  bool failed = false;
  for (;;) {
    await(stop);
    PostgresResult result(client_.PQgetResult(handle_));
    if (result == nullptr) break;
    if (failed) continue;
    kept = std::move(result);
    const auto status = client_.PQresultStatus(kept.get());
    if (status == PGRES_COPY_IN) return kept;
    failed = status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK && status != PGRES_EMPTY_QUERY;
  }
  if (failed || kept == nullptr) fail(kept.get());
  return kept;
}

void PostgresSession::await(Stop stop) {
  while (client_.PQisBusy(handle_) != 0) {
    const bool checking = stop == Stop::allowed && cancelled_ != nullptr;
    if (checking && cancelWanted()) sendCancel();
    waitForSocket(client_.PQsocket(handle_), SocketUse::reading, checking ? timeBetweenChecks : -1ms);
    if (client_.PQconsumeInput(handle_) == 0) return;  // broken; the next result says how
  }
}

void PostgresSession::setCancelCheck(bool (*cancelled)(void*), void* context) {
  cancelled_ = cancelled;
  context_ = context;
}

bool PostgresSession::cancelWanted() {
  const auto now = std::chrono::steady_clock::now();
  if (cancelled_ == nullptr || now - lastCheck_ < timeBetweenChecks) return false;
  lastCheck_ = now;
  if (!cancelled_(context_)) return false;
  lastCheck_ = {};  // should this statement end first, the next one asks again and does not begin
  return true;
}

void PostgresSession::sendCancel() {
  auto* cancel = client_.PQgetCancel(handle_);
  if (cancel == nullptr) return;
  std::array<char, 256> reason{};
  // A failure to reach the server shows in the statement itself.
  (void)client_.PQcancel(cancel, reason.data(), static_cast<int>(reason.size()));
  client_.PQfreeCancel(cancel);
}

void PostgresSession::fail(const PGresult* result) const {
  const auto field = [&](int code) -> std::string {
    const char* text = result == nullptr ? nullptr : client_.PQresultErrorField(result, code);
    return text == nullptr ? "" : text;
  };
  auto message = field(PG_DIAG_MESSAGE_PRIMARY);
  if (const auto detail = field(PG_DIAG_MESSAGE_DETAIL); !detail.empty()) message += ": " + detail;
  if (message.empty()) message = client_.PQerrorMessage(handle_);
  while (!message.empty() && message.back() == '\n') message.pop_back();
  throw DbError(broken() ? DbError::Kind::lost : kindOfSqlState(field(PG_DIAG_SQLSTATE)), message);
}

}  // namespace tz
