// A Qt application whose event handlers may throw: slots of the bus, menus, answers of servers.
#pragma once

#include "VantrelCore/diagnostics/ErrorBoundary.h"

#include <QEvent>
#include <QObject>

#include <utility>

namespace vantrel {

// `Application` is QCoreApplication or one made of it. Work of the main queue has a boundary of its own,
// closer by; this one is for what Qt itself calls.
template <typename Application>
class GuardedApplication final : public Application {
public:
    GuardedApplication(int& argumentCount, char** arguments, ErrorBoundary::Log log)
        : Application(argumentCount, arguments), m_log(std::move(log)) {}

    bool notify(QObject* receiver, QEvent* event) override {
        bool isHandled = true;
        ErrorBoundary::run("main loop", m_log, [&] { isHandled = Application::notify(receiver, event); });
        return isHandled;
    }

private:
    ErrorBoundary::Log m_log;
};

} // namespace vantrel
