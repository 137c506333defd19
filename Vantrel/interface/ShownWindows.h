// Reports when the program opens a window that takes keyboard focus, and when the last such window closes.
#pragma once

#include <QObject>

#include <functional>
#include <set>

namespace vantrel {

// Menus, tooltips and the heads-up display do not count.
class ShownWindows final : public QObject {
public:
    struct Handlers {
        std::function<void()> shown;
        std::function<void()> lastClosed;
    };

    // Watches windows shown from now on; needs an application.
    explicit ShownWindows(Handlers handlers);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void remove(const QObject* window);

    Handlers m_handlers;
    std::set<const QObject*> m_shown;
};

} // namespace vantrel
