#include "simulator/EventLog.h"

namespace simulator
{

Q_LOGGING_CATEGORY(events, "simulator")

} // namespace simulator
