// Whether the queue of the system's print service took a job: the toolkit keeps that to itself.
#pragma once

namespace tz {

// The job that was just sent. False where nothing is known.
[[nodiscard]] bool queueRefused();

}  // namespace tz
