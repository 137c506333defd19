// Starts an installed application and ends at once. Exit code 0: started; 1: not started; 2: the application
// is a child of this process. With --start-application: as systemd runs it for a restricted vantrel.
#include "Vantrel/platform/x11/DesktopLauncher.h"

#include "Vantrel/platform/x11/UnrestrictedStart.h"

#include <cerrno>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

int main(int argumentCount, char** arguments) {
    if (argumentCount == 3 && arguments[1] == std::string(vantrel::UnrestrictedStart::applicationOption)) {
        return vantrel::DesktopLauncher::startHere(arguments[2]) ? 0 : 1;
    }
    // A descriptor that a careless start would leak.
    if (argumentCount != 2 || dup2(STDERR_FILENO, 9) < 0) {
        return 3;
    }
    if (!vantrel::DesktopLauncher::start(arguments[1])) {
        return 1;
    }
    return waitpid(-1, nullptr, WNOHANG) == -1 && errno == ECHILD ? 0 : 2;
}
