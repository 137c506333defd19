#include "Vantrel/platform/posix/ReportedThread.h"

#include "Vantrel/platform/posix/AlternateSignalStack.h"
#include "Vantrel/platform/posix/CrashSignals.h"

#include <pthread.h>
#include <utility>

namespace vantrel::posix {

std::thread reportedThread(std::function<void()> work) {
    return std::thread([work = std::move(work)] {
        const AlternateSignalStack stack;
        sigset_t reported;
        sigemptyset(&reported);
        for (const int signal : crashSignals) {
            sigaddset(&reported, signal);
        }
        pthread_sigmask(SIG_UNBLOCK, &reported, nullptr);
        work();
    });
}

} // namespace vantrel::posix
