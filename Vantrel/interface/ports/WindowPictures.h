// Port of the interface: small pictures of live windows. They are never written to disk.
#pragma once

#include "VantrelCore/model/DeskSnapshot.h"

#include <QImage>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace vantrel {

// Used on the main thread.
class WindowPictures {
public:
    enum class Freshness : std::uint8_t {
        // Pictures are taken now, and again when a window has changed, but never twice within two seconds. A
        // window that cannot be seen keeps the last one.
        live,
        // What was taken is kept, and nothing is captured.
        kept,
    };

    WindowPictures() = default;
    WindowPictures(const WindowPictures&) = delete;
    WindowPictures& operator=(const WindowPictures&) = delete;
    virtual ~WindowPictures() = default;

    // Pictures of other windows are dropped at once, and none is taken of them.
    virtual void follow(const std::vector<WindowID>& windows, Freshness freshness) = 0;

    // The content of the window, without title bar; null without one.
    [[nodiscard]] virtual QImage picture(WindowID window) const = 0;

    // Calls `changed` after pictures have come or gone, until the result is released.
    [[nodiscard]] std::shared_ptr<void> onChanged(std::function<void()> changed) {
        std::erase_if(m_listeners, [](const auto& each) { return each.expired(); });
        auto listener = std::make_shared<std::function<void()>>(std::move(changed));
        m_listeners.push_back(listener);
        return listener;
    }

protected:
    void tellChanged() {
        // A listener may add others.
        for (const auto& each : std::vector(m_listeners)) {
            if (const auto listener = each.lock()) {
                (*listener)();
            }
        }
    }

private:
    std::vector<std::weak_ptr<std::function<void()>>> m_listeners;
};

} // namespace vantrel
