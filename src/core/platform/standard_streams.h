// What a process does first, before it opens any file: it makes sure that nothing it opens later is taken for its
// standard streams, that a failed write is an error instead of its end, and that its children learn no password.
#pragma once

#include <optional>
#include <string>

namespace tz::platform {

// Standard streams that are closed stand on the null device, where writing fails as it would have failed before.
void openClosedStandardStreams();
// A write to a reader that has gone, or beyond a limit on file sizes, fails instead of ending the process.
void failOnBrokenWrites();
// Takes the variable out of the environment, which children inherit; nothing when it was not set.
[[nodiscard]] std::optional<std::string> takeVariable(const char* name);
// Sets a variable of the environment.
void giveVariable(const char* name, const std::string& value);

}  // namespace tz::platform
