#include "Logging.h"

namespace kest {

Q_LOGGING_CATEGORY(hostLog, "kest.mailhost")

} // namespace kest
