#pragma once

#include "platform/text/LocalTime.h"

namespace plenair {

// Date and time of day, in local time.
LocalTime Now();

} // namespace plenair
