// Reports uncaught Objective-C exceptions for crash reports.
#pragma once

#include "VantrelCore/diagnostics/CrashReportText.h"

namespace vantrel::ObjCExceptions {

// Calls `report` on the throwing thread before the process ends. Exceptions in event handlers end it, too.
void reportUncaught(void (*report)(const CrashReportText::UncaughtException&));

} // namespace vantrel::ObjCExceptions
