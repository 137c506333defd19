// A window that does what a test tells it to and notes what was asked of it, with a clock and workers to
// match.
#pragma once

#include "VantrelCore/ports/Background.h"
#include "VantrelCore/ports/Clock.h"
#include "VantrelCore/windows/AccessibilityDesk.h"

#include <deque>
#include <fmt/format.h>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace vantrel {

// What happened, in order, over all windows and the clock of a test.
using Journal = std::vector<std::string>;

class ScriptedWindow : public WindowElement {
public:
    explicit ScriptedWindow(Journal& journal, std::string name = "")
        : m_journal(journal), m_name(std::move(name)) {}

    WindowAttributes attributes;
    // How the application turns a write into a frame; it obeys unless told otherwise.
    std::function<Rect(Rect before, const FrameWrite& write)> respond = obey;
    // For each write in turn whether the platform takes it; all further ones are taken.
    std::deque<bool> taken;
    bool doesThrow = false;

    void setFrame(const Rect& frame) {
        attributes.position = frame.origin;
        attributes.size = frame.size;
    }

    static Rect obey(Rect before, const FrameWrite& write) {
        if (const auto* position = std::get_if<Point>(&write)) {
            return {*position, before.size};
        }
        return {before.origin, std::get<Size>(write)};
    }

    WindowAttributes read(AttributeGroup group) override {
        note(group == AttributeGroup::frame ? "look" : "read");
        breakIfTold();
        return attributes;
    }

    std::vector<bool> write(std::span<const FrameWrite> writes) override {
        std::string event;
        std::vector<bool> results;
        for (const auto& write : writes) {
            const auto* position = std::get_if<Point>(&write);
            event += event.empty() ? "" : " ";
            event += position ? "position" : "size";
            bool isTaken = true;
            if (!taken.empty()) {
                isTaken = taken.front();
                taken.pop_front();
            }
            results.push_back(isTaken);
            if (const auto frame = attributes.frame(); frame && isTaken) {
                setFrame(respond(*frame, write));
            }
        }
        note(event);
        breakIfTold();
        return results;
    }

    bool setMinimized(bool isMinimized) override {
        attributes.isMinimized = isMinimized;
        return true;
    }

    bool raise() override {
        note("raise");
        breakIfTold();
        return true;
    }

private:
    void note(const std::string& event) {
        m_journal.push_back(m_name.empty() ? event : m_name + ": " + event);
    }

    void breakIfTold() const {
        if (doesThrow) {
            throw std::runtime_error("the program broke down");
        }
    }

    Journal& m_journal;
    std::string m_name;
};

// Time passes only by sleeping.
class ScriptedClock : public Clock {
public:
    explicit ScriptedClock(Journal& journal) : m_journal(journal) {}

    Date now() override { return {}; }

    double monotonicSeconds() override { return m_seconds; }

    void sleep(double seconds) override {
        m_journal.push_back(fmt::format("sleep {}", seconds));
        m_seconds += seconds;
    }

private:
    Journal& m_journal;
    double m_seconds = 1000;
};

// Runs the work of a wave in order on the calling thread.
class InTurn : public Background {
public:
    std::vector<std::size_t> waveSizes;

    void run(WorkPriority, std::function<void()> work) override { work(); }

    void concurrentPerform(std::size_t count, const std::function<void(std::size_t)>& work) override {
        waveSizes.push_back(count);
        for (std::size_t i = 0; i < count; ++i) {
            work(i);
        }
    }

    [[nodiscard]] StopToken stopToken() const override { return {}; }
};

// A desk of scripted windows, moved one application after the other.
class ScriptedDesk : private Accessibility {
public:
    std::shared_ptr<ScriptedWindow> open(const std::string& bundleID, const std::string& name,
                                         const Rect& frame) {
        auto window = std::make_shared<ScriptedWindow>(journal, name);
        window->setFrame(frame);
        const auto [pid, isNew] = m_pids.try_emplace(bundleID, static_cast<std::int32_t>(m_pids.size() + 1));
        ids.push_back(port.identify({.pid = pid->second, .bundleID = bundleID, .localizedName = {}}, window));
        return window;
    }

    Journal journal;
    ScriptedClock clock{journal};
    InTurn background;
    AccessibilityDesk port{*this, background};
    MovePermit permit;
    // In the order of opening.
    std::vector<WindowID> ids;

private:
    bool isTrusted() override { return true; }
    bool prompt() override { return true; }
    bool awaitQuiet() override { return true; }
    std::unique_ptr<DeskReading> beginReading() override { return nullptr; }

    std::map<std::string, std::int32_t> m_pids;
};
} // namespace vantrel
