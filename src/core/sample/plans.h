// The sample company's plan figures and aging intervals.
#pragma once

#include "core/data/connection.h"

namespace tz::sample {

void writePlans(Connection& connection);
void writeAges(Connection& connection);

}  // namespace tz::sample
