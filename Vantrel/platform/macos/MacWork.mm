#include "Vantrel/platform/macos/MacWork.h"

#include "Vantrel/platform/macos/Activity.h"

#if !__has_feature(objc_arc)
#error "compile this with -fobjc-arc"
#endif

namespace vantrel::MacWork {

void perform(const std::function<void()>& work) {
    @autoreleasepool {
        const Activity activity;
        work();
    }
}

} // namespace vantrel::MacWork
