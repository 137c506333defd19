#include "Vantrel/controller/MoveScheduler.h"

#include <utility>

namespace vantrel {

class MoveScheduler::Turn final : public ScheduledWork {
public:
    explicit Turn(std::function<void()> work)
        : m_work(std::make_shared<std::function<void()>>(std::move(work))) {}

    void cancel() override { m_work.reset(); }
    [[nodiscard]] std::weak_ptr<std::function<void()>> work() const { return m_work; }

private:
    std::shared_ptr<std::function<void()>> m_work;
};

MoveScheduler::MoveScheduler(DeskGate& gate, ErrorBoundary::Log log) : m_gate(gate), m_log(std::move(log)) {
    m_gate.onPassEnded = [this] { startNext(); };
}

void MoveScheduler::request(Restore restore) {
    if (m_gate.isIdle()) {
        restore.start();
        return;
    }
    if (m_gate.isPassUnderWay()) {
        abandon();
    }
    if (const auto replaced = std::exchange(m_restore, std::move(restore))) {
        replaced->replaced();
    }
}

std::unique_ptr<ScheduledWork> MoveScheduler::inTurn(std::function<void()> work) {
    if (m_gate.isIdle() && m_line.empty()) {
        work();
        return nullptr;
    }
    auto turn = std::make_unique<Turn>(std::move(work));
    m_line.push_back(turn->work());
    return turn;
}

std::shared_ptr<const MovePermit> MoveScheduler::newPermit() {
    return m_permit = std::make_shared<MovePermit>();
}

void MoveScheduler::abandon() {
    m_permit->revoke();
    onAbandoned();
}

void MoveScheduler::startNext() {
    while (m_gate.isIdle() && (m_restore || !m_line.empty())) {
        if (const auto restore = std::exchange(m_restore, std::nullopt)) {
            ErrorBoundary::run("controller", m_log, restore->start);
            continue;
        }
        const auto work = m_line.front().lock();
        m_line.pop_front();
        if (work) {
            ErrorBoundary::run("controller", m_log, *work);
        }
    }
}

} // namespace vantrel
