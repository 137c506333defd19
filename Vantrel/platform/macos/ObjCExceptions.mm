#include "Vantrel/platform/macos/ObjCExceptions.h"

#include "Vantrel/platform/macos/FoundationText.h"

#if !__has_feature(objc_arc)
#error "compile this with -fobjc-arc"
#endif

namespace vantrel::ObjCExceptions {

namespace {

void (*reportOne)(const CrashReportText::UncaughtException&) = nullptr;

void handle(NSException* exception) {
    @autoreleasepool {
        std::string callStack;
        for (NSString* const line in exception.callStackSymbols) {
            callStack += callStack.empty() ? "" : "\n";
            callStack += FoundationText::utf8(line).value_or("");
        }
        const auto reason = FoundationText::utf8(exception.reason);
        reportOne({.name = FoundationText::utf8(exception.name).value_or("unknown"),
                   .reason = reason ? CrashReportText::shareableReason(*reason) : "none given",
                   .callStack = std::move(callStack)});
    }
}

} // namespace

void reportUncaught(void (*report)(const CrashReportText::UncaughtException&)) {
    reportOne = report;
    NSSetUncaughtExceptionHandler(&handle);
    @autoreleasepool {
        // AppKit would catch what event handlers throw and go on, and nobody would learn of it.
        NSDictionary* const defaults = @{@"NSApplicationCrashOnExceptions" : [NSNumber numberWithInt:1]};
        [NSUserDefaults.standardUserDefaults registerDefaults:defaults];
    }
}

} // namespace vantrel::ObjCExceptions
