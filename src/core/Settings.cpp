#include "core/Settings.h"

namespace plenair {

SettingsRecord Settings;

} // namespace plenair
