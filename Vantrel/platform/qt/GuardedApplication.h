// A Qt application whose event handlers may throw: bus slots, menus, server replies.
#pragma once

#include "VantrelCore/diagnostics/ErrorBoundary.h"

#include <QEvent>
#include <QObject>

#include <utility>

namespace vantrel {

// `Application` is QCoreApplication or derived from it. Main queue work has its own error boundary; this one
// covers what Qt calls directly.
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
