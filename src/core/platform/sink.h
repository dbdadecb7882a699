// What takes an output piece by piece, and what it throws when that cannot be written.
#pragma once

#include <functional>
#include <stdexcept>
#include <string_view>

namespace tz {

// Takes the output piece by piece; returns false when it can take no more, which ends the writing.
using Sink = std::function<bool(std::string_view)>;

// Writes an output into the sink it is given; may be called again when a first sink came to nothing.
using Producer = std::function<bool(const Sink&)>;

// An output could not be written: which and why.
struct OutputError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

}  // namespace tz
