#include "core/reports/password_hash.h"

#include <charconv>
#include <cstdint>
#include <new>
#include <optional>
#include <sodium.h>
#include <stdexcept>
#include <string_view>

#include "core/platform/libraries.h"

namespace tz {
namespace {

struct PasswordLibrary {
  decltype(&::sodium_init) init = nullptr;
  decltype(&::crypto_pwhash_str_alg) make = nullptr;
  decltype(&::crypto_pwhash_str_verify) verify = nullptr;
};

// Loaded when somebody logs on: starting every program with it would cost more than reading a small report.
const PasswordLibrary& passwordLibrary() {
  static const PasswordLibrary functions = [] {
    void* library = platform::loadLibrary("libsodium.so.23");
    if (library == nullptr) throw std::runtime_error("核对口令需要 libsodium，本机没有安装");
    PasswordLibrary found;
    found.init = reinterpret_cast<decltype(found.init)>(platform::functionOf(library, "sodium_init"));
    found.make = reinterpret_cast<decltype(found.make)>(platform::functionOf(library, "crypto_pwhash_str_alg"));
    found.verify = reinterpret_cast<decltype(found.verify)>(platform::functionOf(library, "crypto_pwhash_str_verify"));
    if (found.init == nullptr || found.make == nullptr || found.verify == nullptr)
      throw std::runtime_error("libsodium 太旧");
    if (found.init() < 0) throw std::runtime_error("the password library does not start");
    return found;
  }();
  return functions;
}

// Takes "m=65536" and the like off the front.
std::optional<std::uint32_t> takeNumber(std::string_view& text, std::string_view name) {
  if (!text.starts_with(name)) return std::nullopt;
  text.remove_prefix(name.size());
  std::uint32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{}) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return number;
}

}  // namespace

bool acceptableHash(const std::string& hash) {
  constexpr std::uint64_t mostMemory = 1024 * 1024;  // KiB
  constexpr std::uint64_t mostWork = 4 * mostMemory;
  constexpr std::uint32_t mostLanes = 16;
  std::string_view text(hash);
  if (text.size() >= crypto_pwhash_STRBYTES || !text.starts_with("$argon2i")) return false;
  text.remove_prefix(std::string_view("$argon2i").size());
  if (text.starts_with('d')) text.remove_prefix(1);
  const auto version = takeNumber(text, "$v=");
  const auto memory = takeNumber(text, "$m=");
  const auto passes = takeNumber(text, ",t=");
  const auto lanes = takeNumber(text, ",p=");
  return version && memory && passes && lanes && text.starts_with('$') && *memory <= mostMemory &&
         std::uint64_t{*memory} * *passes <= mostWork && *lanes <= mostLanes;
}

const std::string& nobodysHash() {
  static const std::string hash =
      "$argon2id$v=19$m=65536,t=2,p=1$AAAAAAAAAAAAAAAAAAAAAA$AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA";
  return hash;
}

std::string passwordHash(const std::string& password) {
  std::string hash(crypto_pwhash_STRBYTES, '\0');
  if (passwordLibrary().make(hash.data(), password.data(), password.size(), crypto_pwhash_OPSLIMIT_INTERACTIVE,
                             crypto_pwhash_MEMLIMIT_INTERACTIVE, crypto_pwhash_ALG_ARGON2ID13) != 0) {
    throw std::bad_alloc();
  }
  hash.resize(hash.find('\0'));
  return hash;
}

bool passwordFits(const std::string& hash, const std::string& password) {
  return passwordLibrary().verify(hash.c_str(), password.data(), password.size()) == 0;
}

}  // namespace tz
