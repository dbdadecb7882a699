#include "core/data/postgres_session.h"

#include <array>
#include <charconv>
#include <cstdlib>
#include <thread>

#include "core/data/backends.h"
#include "core/data/postgres_errors.h"

namespace tz {
namespace {

using namespace std::chrono_literals;

constexpr auto timeBetweenChecks = 100ms;
constexpr auto usualConnectTime = 15s;
constexpr auto usualAnswerTime = 300s;
constexpr auto patience = 2s;

// A number of seconds that somebody has set; the usual one when it is none.
std::chrono::seconds secondsIn(const char* text, std::chrono::seconds usual) {
  if (text == nullptr) return usual;
  const std::string_view digits(text);
  int seconds = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), seconds);
  const bool number = error == std::errc{} && end == digits.data() + digits.size() && seconds >= 0;
  return number ? std::chrono::seconds(seconds) : usual;
}

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

PostgresSession::PostgresSession(const std::string& address)
    : client_(postgresClient()), answerTime_(secondsIn(std::getenv("TZ_SERVER_TIMEOUT"), usualAnswerTime)) {
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
  // What stands before the address gives way to it. A dead network is noticed within a minute.
  constexpr std::array<const char*, 8> names = {
      "fallback_application_name", "keepalives_idle", "keepalives_interval", "keepalives_count",
      "tcp_user_timeout",          "dbname",          "client_encoding",     nullptr};
  const std::array<const char*, 8> values = {"TzAssistant", "30", "10", "3", "60000", address.c_str(), "UTF8", nullptr};
  constexpr int addressInDbname = 1;
  handle_ = client_.PQconnectStartParams(names.data(), values.data(), addressInDbname);
  if (handle_ == nullptr) throw DbError(DbError::Kind::other, "out of memory");
  client_.PQsetNoticeProcessor(
      handle_, [](void*, const char*) {}, nullptr);
  // Only the verbose message of a refused connection holds the error code.
  client_.PQsetErrorVerbosity(handle_, PQERRORS_VERBOSE);

  const auto limit = connectTime();
  const Wait wait;
  auto step = broken() && client_.PQsocket(handle_) < 0 ? PGRES_POLLING_FAILED : PGRES_POLLING_WRITING;
  while (step == PGRES_POLLING_READING || step == PGRES_POLLING_WRITING) {
    const auto use = step == PGRES_POLLING_READING ? SocketUse::reading : SocketUse::writing;
    if (stopWanted(wait)) throw DbError(DbError::Kind::unreachable, "stopped while waiting for the server");
    if (waitForSocket(client_.PQsocket(handle_), use, timeBetweenChecks)) step = client_.PQconnectPoll(handle_);
    if (limit > 0s && Clock::now() - wait.start > limit) {
      throw DbError(DbError::Kind::unreachable, "no answer within " + std::to_string(limit.count()) + " seconds");
    }
  }
  if (step != PGRES_POLLING_OK) {
    throw connectError(client_.PQerrorMessage(handle_), client_.PQconnectionNeedsPassword(handle_) != 0);
  }
  client_.PQsetErrorVerbosity(handle_, PQERRORS_DEFAULT);
  client_.PQsetnonblocking(handle_, 1);
}

// The library's own setting, of the address or the environment; it counts only where the library itself waits.
std::chrono::seconds PostgresSession::connectTime() const {
  auto limit = usualConnectTime;
  auto* options = client_.PQconninfo(handle_);
  for (const auto* option = options; option != nullptr && option->keyword != nullptr; ++option) {
    if (std::string_view(option->keyword) != "connect_timeout" || option->val == nullptr) continue;
    limit = secondsIn(option->val, usualConnectTime);
  }
  client_.PQconninfoFree(options);
  return limit;
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
                 Stop::atServer);
}

PostgresResult PostgresSession::command(const char* text) {
  return collect(client_.PQsendQuery(handle_, text), Stop::byLeaving);
}

PostgresResult PostgresSession::commit(const char* text) {
  return collect(client_.PQsendQuery(handle_, text), Stop::never);
}

void PostgresSession::copyIn(const std::string& statement, std::string_view rows) {
  (void)run(statement);
  const auto put = [&](const auto& send) {
    int sent = send();
    for (; sent == 0; sent = send()) flush(Stop::atServer);
    return sent == 1;
  };
  const bool sent = put([&] { return client_.PQputCopyData(handle_, rows.data(), static_cast<int>(rows.size())); }) &&
                    put([&] { return client_.PQputCopyEnd(handle_, nullptr); });
  collect(sent ? 1 : 0, Stop::atServer);
}

// All results of what was sent; the first failure counts. While COPY waits for rows there is no further result.
PostgresResult PostgresSession::collect(int sent, Stop stop) {
  if (abandoned_) throw DbError(DbError::Kind::lost, "the connection was given up when the server did not answer");
  if (sent != 1) fail(nullptr);
  flush(stop);
  PostgresResult kept;
  bool failed = false;
  Wait wait;  // one for all results: the server is asked to stop once, or the next statement would be stopped too
  for (;;) {
    await(stop, wait);
    PostgresResult result(client_.PQgetResult(handle_));
    if (result == nullptr) break;
    // A server that ends after it has answered a COMMIT has written it.
    if (failed || (stop == Stop::never && kept != nullptr)) continue;
    kept = std::move(result);
    const auto status = client_.PQresultStatus(kept.get());
    if (status == PGRES_COPY_IN) return kept;
    failed = status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK && status != PGRES_EMPTY_QUERY;
  }
  if (failed || kept == nullptr) fail(kept.get());
  return kept;
}

void PostgresSession::flush(Stop stop) {
  Wait wait;
  while (client_.PQflush(handle_) == 1) {
    waitABit(SocketUse::either, stop, wait);
    if (client_.PQconsumeInput(handle_) == 0) return;  // broken; the next result says how
  }
}

void PostgresSession::await(Stop stop, Wait& wait) {
  while (client_.PQisBusy(handle_) != 0) {
    waitABit(SocketUse::reading, stop, wait);
    if (client_.PQconsumeInput(handle_) == 0) return;
  }
}

// A server that is asked to stop a statement answers at once, if it answers at all.
void PostgresSession::waitABit(SocketUse use, Stop stop, Wait& wait) {
  const bool ready = waitForSocket(client_.PQsocket(handle_), use, timeBetweenChecks);
  const auto now = Clock::now();
  if (ready) wait.heard = now;
  const bool stopped = wait.stopped != Clock::time_point{};
  if (stopWanted(wait) && stop != Stop::never && !stopped) {
    wait.stopped = now;
    if (stop == Stop::atServer) sendCancel();
  }
  if (ready) return;
  if (stopped && now - wait.stopped > patience) {
    abandon(DbError::Kind::lost, "stopped, without an answer of the server");
  }
  if (answerTime_ > 0s && now - wait.heard > answerTime_) {
    abandon(DbError::Kind::silent, "no answer for " + std::to_string(answerTime_.count()) + " seconds");
  }
}

void PostgresSession::abandon(DbError::Kind kind, const std::string& message) {
  abandoned_ = true;
  shutSocket(client_.PQsocket(handle_));
  throw DbError(kind, message);
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

// Also while nothing has a check of its own: then it is the program's.
bool PostgresSession::stopWanted(const Wait& wait) {
  if (cancelled_ != nullptr) return cancelWanted();
  constexpr auto moment = 300ms;
  const auto waited = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - wait.start);
  return serverWaitCheck() && waited > moment && serverWaitCheck()(waited);
}

// The library asks by a connection of its own and waits for its end, which a silent server never brings.
void PostgresSession::sendCancel() {
  auto* cancel = client_.PQgetCancel(handle_);
  if (cancel == nullptr) return;
  std::thread([cancel, &client = client_] {
    std::array<char, 256> reason{};
    // A failure to reach the server shows in the statement itself.
    (void)client.PQcancel(cancel, reason.data(), static_cast<int>(reason.size()));
    client.PQfreeCancel(cancel);
  }).detach();
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
