#include "Vantrel/platform/x11/X11Accessibility.h"

#include "Vantrel/platform/x11/X11DeskReading.h"

#include <chrono>
#include <utility>

namespace vantrel {

namespace {

constexpr std::chrono::seconds quietLimit(1);

} // namespace

X11Accessibility::X11Accessibility(std::shared_ptr<X11Connection> connection)
    : m_desk(std::make_shared<X11Desk>(std::move(connection))) {}

bool X11Accessibility::isTrusted() {
    const auto windowManager = WindowManager::query(*m_desk->connection);
    m_desk->windowManager = windowManager;
    return windowManager.isPresent && windowManager.moves;
}

std::unique_ptr<DeskReading> X11Accessibility::beginReading() {
    return std::make_unique<X11DeskReading>(m_desk);
}

bool X11Accessibility::awaitQuiet() {
    return m_desk->fence.await(std::chrono::steady_clock::now() + quietLimit);
}

} // namespace vantrel
