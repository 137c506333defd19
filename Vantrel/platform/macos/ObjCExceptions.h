// Exceptions of Objective-C that nobody catches, for crash reports.
#pragma once

#include "VantrelCore/diagnostics/CrashReportText.h"

namespace vantrel::ObjCExceptions {

// Has `report` told of each, on the thread that threw it, before the process ends.
void reportUncaught(void (*report)(const CrashReportText::UncaughtException&));

} // namespace vantrel::ObjCExceptions
