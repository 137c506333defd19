#include "VantrelCore/stores/BackgroundWriter.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vantrel {

class BackgroundWriter::Queue : public std::enable_shared_from_this<Queue> {
public:
    using File = std::filesystem::path;

    Queue(Background& background, MainQueue& mainQueue, ErrorBoundary::Log log)
        : m_background(background), m_mainQueue(mainQueue), m_log(std::move(log)) {}

    void submit(const File& file, Write write) {
        const std::scoped_lock lock(m_mutex);
        const auto known = std::ranges::find(m_waiting, file, &Job::file);
        if (known != m_waiting.end()) {
            known->write = std::move(write);
            return;
        }
        m_waiting.push_back({file, std::move(write)});
        if (!m_isDraining) {
            m_isDraining = true;
            m_background.run(WorkPriority::writing, [self = shared_from_this()] { self->drain(); });
        }
    }

    // Only writes of `file`, if given.
    void finish(const std::optional<File>& file) {
        const auto isMeant = [&](const File& other) { return !file || *file == other; };
        std::unique_lock lock(m_mutex);
        for (;;) {
            // The file being written may wait to be written again; its writes must not overlap.
            const auto next = std::ranges::find_if(
                m_waiting, [&](const Job& job) { return isMeant(job.file) && job.file != m_inProgress; });
            if (next != m_waiting.end()) {
                const Job job = std::move(*next);
                m_waiting.erase(next);
                lock.unlock();
                Report report = run(job);
                lock.lock();
                m_reports.push_back(std::move(report));
            } else if (m_inProgress && isMeant(*m_inProgress)) {
                m_hasWritten.wait(lock);
            } else {
                break;
            }
        }
        lock.unlock();
        deliver();
    }

private:
    struct Job {
        File file;
        Write write;
    };

    // In the background.
    void drain() {
        std::unique_lock lock(m_mutex);
        while (!m_waiting.empty()) {
            std::optional<Job> job = std::move(m_waiting.front());
            m_waiting.pop_front();
            m_inProgress = job->file;
            lock.unlock();
            Report report = run(*job);
            // Free what it holds before anybody is told that it has ended.
            job.reset();
            lock.lock();
            m_inProgress.reset();
            m_reports.push_back(std::move(report));
            m_hasWritten.notify_all();
            m_mainQueue.post([queue = weak_from_this()] {
                if (const auto self = queue.lock()) {
                    self->deliver();
                }
            });
        }
        m_isDraining = false;
    }

    Report run(const Job& job) {
        Report report;
        std::string problem;
        ErrorBoundary::run(
            "writer", [&](const std::string& line) { problem = line; }, [&] { report = job.write(); });
        return problem.empty() ? report : Report([this, problem] {
            if (m_log) {
                m_log(problem);
            }
        });
    }

    void deliver() {
        std::unique_lock lock(m_mutex);
        const auto reports = std::exchange(m_reports, {});
        lock.unlock();
        for (const Report& report : reports) {
            if (report) {
                ErrorBoundary::run("writer", m_log, report);
            }
        }
    }

    Background& m_background;
    MainQueue& m_mainQueue;
    ErrorBoundary::Log m_log;
    std::mutex m_mutex;
    std::condition_variable m_hasWritten;
    std::deque<Job> m_waiting;
    // The file that the background is writing.
    std::optional<File> m_inProgress;
    bool m_isDraining = false;
    std::vector<Report> m_reports;
};

BackgroundWriter::BackgroundWriter(Background& background, MainQueue& queue, ErrorBoundary::Log log)
    : m_queue(std::make_shared<Queue>(background, queue, std::move(log))) {}

BackgroundWriter::~BackgroundWriter() {
    finishAll();
}

void BackgroundWriter::submit(const std::filesystem::path& file, Write write) {
    m_queue->submit(file, std::move(write));
}

void BackgroundWriter::finish(const std::filesystem::path& file) {
    m_queue->finish(file);
}

void BackgroundWriter::finishAll() {
    m_queue->finish(std::nullopt);
}

} // namespace vantrel
