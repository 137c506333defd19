#include "Vantrel/platform/posix/ThreadPriority.h"

#if __has_include(<pthread/qos.h>)
#include <pthread/qos.h>
#else
#include <sys/resource.h>
#endif

namespace vantrel::posix {

#if __has_include(<pthread/qos.h>)

void takePriority(WorkPriority priority) {
    pthread_set_qos_class_self_np(
        priority == WorkPriority::userInitiated ? QOS_CLASS_USER_INITIATED : QOS_CLASS_UTILITY, 0);
}

#else

// Added to the nice value, whose maximum is 19 on Linux. The thread still gets about a tenth of a busy
// processor.
constexpr int utilitySteps = 10;

void takePriority(WorkPriority priority) {
    if (priority != WorkPriority::userInitiated) {
        // On Linux, 0 means the calling thread, not the process.
        setpriority(PRIO_PROCESS, 0, getpriority(PRIO_PROCESS, 0) + utilitySteps);
    }
}

#endif

} // namespace vantrel::posix
