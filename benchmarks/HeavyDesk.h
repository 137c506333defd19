// A desk of 60 windows with a controller that has a heavy user's files: 100 desks of 60 windows, full logs.
#pragma once

#include "Vantrel/controller/AppController.h"
#include "Vantrel/platform/posix/PosixFileSystem.h"
#include "benchmarks/HeavyUser.h"
#include "benchmarks/StoreMeasuring.h"
#include "tests/Vantrel/platform/posix/TemporaryFolder.h"
#include "tests/simulated/SimulatedCalendar.h"
#include "tests/simulated/SimulatedDefaults.h"
#include "tests/simulated/SimulatedDesk.h"
#include "tests/simulated/SimulatedFocus.h"
#include "tests/simulated/SimulatedHotKeys.h"
#include "tests/simulated/SimulatedLicense.h"
#include "tests/simulated/SimulatedPictures.h"
#include "tests/simulated/SimulatedSystemEvents.h"
#include "tests/simulated/SimulatedWorkspace.h"
#include "tests/simulated/SimulatedZone.h"

#include <algorithm>
#include <fmt/format.h>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

namespace vantrel::bench {

// A main queue that measures its turns.
class MeasuredQueue final : public MainQueue {
public:
    explicit MeasuredQueue(MainQueue& queue) : m_queue(queue) {}

    void post(std::function<void()> work) override { m_queue.post(measured(std::move(work))); }
    [[nodiscard]] std::unique_ptr<ScheduledWork> after(double seconds, std::function<void()> work) override {
        return m_queue.after(seconds, measured(std::move(work)));
    }
    [[nodiscard]] std::unique_ptr<ScheduledWork> every(double seconds, std::function<void()> work) override {
        return m_queue.every(seconds, measured(std::move(work)));
    }

    // In seconds, since the last reset.
    [[nodiscard]] double longest() const { return m_longest; }
    void reset() { m_longest = 0; }

private:
    [[nodiscard]] std::function<void()> measured(std::function<void()> work) {
        return [this, work = std::move(work)] { m_longest = std::max(m_longest, secondsOf(work)); };
    }

    MainQueue& m_queue;
    double m_longest = 0;
};

class HeavyDesk {
public:
    HeavyDesk() {
        keep(HeavyUser::layouts(1), "layouts.json");
        keep(HeavyUser::scenes(1), "scenes.json");
        keep(HeavyUser::restoreLog(1), "restore-log.json");
        keep(HeavyUser::receipts(1), "receipts.json");
        keep(HeavyUser::usage(1), "usage.json");
        keep(HeavyUser::reliability(1), "app-reliability.json");
        keep(HeavyUser::sizeBehavior(1), "app-size-behavior.json");
        for (std::size_t i = 0; i < HeavyUser::windowsPerDesk; ++i) {
            if (i < 25) {
                m_pids.push_back(m_desk.launch(fmt::format("org.example.application{}", i), "Application"));
            }
            m_windows.push_back(m_desk.open(m_pids[i % 25], fmt::format("Document {}", i), place(i, 0)));
        }
        auto created = AppController::create(
            {.desk = m_desk.port(),
             .displays = m_desk.displayServices(),
             .workspace = m_workspace,
             .systemEvents = m_system,
             .defaults = m_defaults,
             .clock = m_time,
             .mainQueue = m_queue,
             .background = m_time,
             .localZone = m_zone,
             .calendar = m_calendar,
             .focus = m_focus,
             .pictures = m_pictures,
             .hotKeys = m_hotKeys,
             .license = m_license},
            {m_files, &m_incidents}, m_log,
            {.supportDirectory = m_folder.path(), .ownBundleID = std::nullopt, .version = "1"});
        controller = std::move(created.value());
        controller->startEngine();
        m_time.runFor(learningSeconds);
    }

    ~HeavyDesk() {
        controller.reset();
        m_time.endJobs();
    }

    // The main thread's longest turn of a restore that moves every window, in seconds; none when it failed.
    [[nodiscard]] std::optional<double> restore() {
        for (std::size_t i = 0; i < m_windows.size(); ++i) {
            m_desk.window(m_windows[i]).frame = place(i, 40);
        }
        std::optional<RestoreOutcome> outcome;
        m_queue.reset();
        controller->restoreNow(RestoreSource::command, [&](const RestoreOutcome& told) { outcome = told; });
        m_time.runUntil([&] { return outcome && !controller->restoreInFlight(); }, 60);
        const double longest = m_queue.longest();
        m_time.runFor(1);
        return outcome && outcome->report.restoredCount() == m_windows.size() ? std::optional(longest)
                                                                              : std::nullopt;
    }

    void runFor(double seconds) { m_time.runFor(seconds); }

    std::unique_ptr<AppController> controller;

private:
    static constexpr double learningSeconds = 70;

    template <typename File>
    void keep(const File& file, const char* name) {
        if (!JsonStore<File>::open(m_folder.path(), name, m_files).value().write(file)) {
            throw std::runtime_error(name);
        }
    }

    [[nodiscard]] static Rect place(std::size_t window, double offset) {
        const auto step = static_cast<double>(window) * 5;
        return {{step + offset, 50 + step + offset}, {400, 300}};
    }

    TemporaryFolder m_folder;
    PosixFileSystem m_files;
    simulated::SimulatedTime m_time;
    MeasuredQueue m_queue{m_time};
    simulated::SimulatedDefaults m_defaults{m_time};
    simulated::SimulatedDesk m_desk{m_time, simulated::DeskSetup::named("laptop")};
    simulated::SimulatedWorkspace m_workspace{m_time, m_desk};
    simulated::SimulatedSystemEvents m_system;
    simulated::SimulatedHotKeys m_hotKeys;
    simulated::SimulatedZone m_zone;
    simulated::SimulatedCalendar m_calendar{m_time};
    simulated::SimulatedFocus m_focus;
    simulated::SimulatedPictures m_pictures;
    simulated::SimulatedLicense m_license;
    AppLog m_log{m_folder.path(), m_files, m_time};
    FileIncidents m_incidents;
    std::vector<std::int32_t> m_pids;
    std::vector<WindowID> m_windows;
};

} // namespace vantrel::bench
