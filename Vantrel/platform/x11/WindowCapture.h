// Takes small pictures of windows again and again, as long as somebody wants them.
#pragma once

#include "Vantrel/platform/x11/CaptureConnection.h"
#include "VantrelCore/model/DeskSnapshot.h"

#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace vantrel {

class WindowCapture {
public:
    // Called on the capturing thread.
    using Sink = std::function<void(WindowID window, WindowPicture picture)>;

    // In pixels. In a drawing, windows are hardly larger.
    static constexpr int longestSide = 320;

    // An empty name is the display of the environment.
    explicit WindowCapture(Sink sink, std::string displayName = {})
        : m_sink(std::move(sink)), m_displayName(std::move(displayName)) {}
    // Waits for a picture that is being taken.
    ~WindowCapture();
    WindowCapture(const WindowCapture&) = delete;
    WindowCapture& operator=(const WindowCapture&) = delete;

    // From now on, takes pictures of these windows: soon, and again when they have changed, but never twice
    // within two seconds. With none there is neither a connection nor anything that wakes up.
    void follow(std::vector<WindowID> windows);

private:
    class Round;

    void start();
    void run();
    void wake() const;

    Sink m_sink;
    std::string m_displayName;
    std::mutex m_mutex;
    // Guarded by the mutex.
    std::vector<WindowID> m_wanted;
    bool m_isStopping = false;
    // Wakes the thread; made with it.
    posix::FileDescriptor m_news;
    std::thread m_thread;
};

} // namespace vantrel
