#include "Common/LogSink.h"

namespace keo {

LogSink::~LogSink() = default;

} // namespace keo
