// Gathers output and hands it to a sink in blocks of about 64 KB: one growing text per million rows would cost its
// whole size in memory, one call per line its overhead.
#pragma once

#include <string>

#include "core/output/report_output.h"

namespace tz {

class BlockWriter {
 public:
  explicit BlockWriter(const Sink& sink) : sink_(sink) { text.reserve(blockBytes + blockBytes / 4); }

  // What is written next is appended here.
  std::string text;

  // To be called now and then, for example after each row. False when the sink takes no more.
  bool HandOver() { return text.size() < blockBytes ? going_ : Finish(); }
  // Hands over what is left.
  bool Finish() {
    if (going_ && !text.empty()) going_ = sink_(text);
    text.clear();
    return going_;
  }

 private:
  static constexpr std::size_t blockBytes = std::size_t{64} * 1024;

  const Sink& sink_;
  bool going_ = true;
};

}  // namespace tz
