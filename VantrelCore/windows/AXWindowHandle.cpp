#include "VantrelCore/windows/AXWindowHandle.h"

#include <array>
#include <cmath>
#include <utility>

namespace vantrel {

namespace {

bool isFinite(Point point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

bool isFinite(Size size) {
    return std::isfinite(size.width) && std::isfinite(size.height);
}

// Queries the element, whose program may be crashing at this moment: any exception becomes an unavailable
// value.
template <typename Result, typename Question>
Result answerOr(Result unavailable, const std::shared_ptr<WindowElement>& element, Question question) {
    if (!element) {
        return unavailable;
    }
    try {
        return question(*element);
    } catch (...) {
        return unavailable;
    }
}

WindowAttributes read(const std::shared_ptr<WindowElement>& element, AttributeGroup group) {
    return answerOr(WindowAttributes{}, element, [&](WindowElement& window) { return window.read(group); });
}

// True when the platform accepted the first `needed` writes.
bool write(const std::shared_ptr<WindowElement>& element, std::span<const FrameWrite> writes,
           std::size_t needed) {
    return answerOr(false, element, [&](WindowElement& window) {
        const std::vector<bool> taken = window.write(writes);
        bool allTaken = taken.size() >= needed;
        for (std::size_t i = 0; allTaken && i < needed; ++i) {
            allTaken = taken[i];
        }
        return allTaken;
    });
}

} // namespace

AXWindowHandle::AXWindowHandle(std::shared_ptr<WindowElement> element) : m_element(std::move(element)) {}

WindowAttributes AXWindowHandle::attributes() const {
    return read(m_element, AttributeGroup::all);
}

std::string AXWindowHandle::title() const {
    return read(m_element, AttributeGroup::all).title.value_or("");
}

std::optional<std::string> AXWindowHandle::subrole() const {
    return read(m_element, AttributeGroup::all).subrole;
}

bool AXWindowHandle::isMinimized() const {
    return read(m_element, AttributeGroup::all).isMinimized.value_or(false);
}

bool AXWindowHandle::isFullscreen() const {
    return read(m_element, AttributeGroup::all).isFullscreen.value_or(false);
}

std::optional<Rect> AXWindowHandle::frame() const {
    return read(m_element, AttributeGroup::frame).frame();
}

bool AXWindowHandle::raise() const {
    return answerOr(false, m_element, [](WindowElement& window) { return window.raise(); });
}

std::shared_ptr<void> AXWindowHandle::beginMoves() const {
    return answerOr(std::shared_ptr<void>{}, m_element,
                    [](WindowElement& window) { return window.beginMoves(); });
}

bool AXWindowHandle::setMinimized(bool isMinimized) const {
    return answerOr(false, m_element,
                    [&](WindowElement& window) { return window.setMinimized(isMinimized); });
}

bool AXWindowHandle::setPosition(Point position) const {
    const std::array<FrameWrite, 1> writes{position};
    return isFinite(position) && write(m_element, writes, 1);
}

bool AXWindowHandle::setFrame(const Rect& frame) const {
    const std::array<FrameWrite, 3> writes{frame.origin, frame.size, frame.origin};
    return isFinite(frame.origin) && isFinite(frame.size) && write(m_element, writes, 2);
}

bool AXWindowHandle::setFrameSizeFirst(const Rect& frame) const {
    const std::array<FrameWrite, 3> writes{frame.size, frame.origin, frame.origin};
    return isFinite(frame.origin) && isFinite(frame.size) && write(m_element, writes, 2);
}

} // namespace vantrel
