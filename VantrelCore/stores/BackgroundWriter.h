// Writes the program's files in the background: one after the other, in order, and only the newest content of
// each file.
#pragma once

#include "VantrelCore/diagnostics/ErrorBoundary.h"
#include "VantrelCore/ports/Background.h"
#include "VantrelCore/ports/MainQueue.h"

#include <filesystem>
#include <functional>
#include <memory>

namespace vantrel {

// Lives on the main thread.
class BackgroundWriter {
public:
    // Runs on the main thread after a write, and says how it went.
    using Report = std::function<void()>;
    // Writes the file, on any thread.
    using Write = std::function<Report()>;

    // Both ports must outlive this object. `log` receives a line, on the main thread, when a write throws.
    BackgroundWriter(Background& background, MainQueue& queue, ErrorBoundary::Log log = {});
    // Finishes all writes.
    ~BackgroundWriter();
    BackgroundWriter(const BackgroundWriter&) = delete;
    BackgroundWriter& operator=(const BackgroundWriter&) = delete;

    // Queues the write. If an earlier one of the same file has not begun, this one replaces it; the earlier
    // one is then neither run nor reported.
    void submit(const std::filesystem::path& file, Write write);

    // Returns when no write of this file, or of any file, is left and all that have ended are reported.
    // Writes that have not begun run on the calling thread.
    void finish(const std::filesystem::path& file);
    void finishAll();

private:
    class Queue;

    // Shared with the background work.
    std::shared_ptr<Queue> m_queue;
};

} // namespace vantrel
