#include "Vantrel/platform/macos/MacWindowElement.h"

#include "Vantrel/platform/macos/CFText.h"
#include "Vantrel/platform/macos/MacUserMoveWatch.h"

#include <array>
#include <functional>
#include <utility>

namespace vantrel {

namespace {

// Indices of a window's attributes in query order. Position comes before size.
constexpr std::size_t positionIndex = 0;
constexpr std::size_t sizeIndex = 1;
constexpr std::size_t titleIndex = 2;
constexpr std::size_t subroleIndex = 3;
constexpr std::size_t minimizedIndex = 4;
constexpr std::size_t fullscreenIndex = 5;
constexpr std::size_t frameCount = 2;
constexpr std::size_t allCount = 6;

std::array<CFStringRef, allCount> attributeNames() {
    return {kAXPositionAttribute, kAXSizeAttribute,      kAXTitleAttribute,
            kAXSubroleAttribute,  kAXMinimizedAttribute, CFSTR("AXFullScreen")};
}

// `value` returns the value at an index. It is not called for the size if there is no position.
WindowAttributes attributesOf(AttributeGroup group,
                              const std::function<AXAttribute::Value(std::size_t index)>& value) {
    WindowAttributes result;
    result.position = AXAttribute::point(value(positionIndex));
    if (result.position) {
        result.size = AXAttribute::size(value(sizeIndex));
    }
    if (group == AttributeGroup::all) {
        result.title = CFText::utf8Of(value(titleIndex).get());
        result.subrole = CFText::utf8Of(value(subroleIndex).get());
        result.isMinimized = AXAttribute::boolean(value(minimizedIndex));
        result.isFullscreen = AXAttribute::boolean(value(fullscreenIndex));
    }
    return result;
}

struct PreparedWrite {
    CFStringRef name = nullptr;
    CFRef<AXValueRef> value;
};

PreparedWrite prepare(const FrameWrite& write) {
    if (const auto* const point = std::get_if<Point>(&write)) {
        return {kAXPositionAttribute, AXAttribute::make(*point)};
    }
    return {kAXSizeAttribute, AXAttribute::make(std::get<Size>(write))};
}

} // namespace

MacWindowElement::MacWindowElement(CFRef<AXUIElementRef> element, std::shared_ptr<MacApplication> application)
    : m_element(std::move(element)), m_application(std::move(application)) {}

bool MacWindowElement::isSameWindow(const WindowElement& other) const {
    const auto* const mac = dynamic_cast<const MacWindowElement*>(&other);
    return mac != nullptr && CFEqual(m_element.get(), mac->m_element.get()) != 0;
}

WindowAttributes MacWindowElement::read(AttributeGroup group) {
    const auto names = attributeNames();
    const auto asked = std::span(names).first(group == AttributeGroup::all ? allCount : frameCount);
    if (const auto together = AXAttribute::copyTogether(m_element.get(), asked)) {
        return attributesOf(group, [&](std::size_t index) { return (*together)[index]; });
    }
    return attributesOf(group,
                        [&](std::size_t index) { return AXAttribute::copy(m_element.get(), names[index]); });
}

std::vector<bool> MacWindowElement::write(std::span<const FrameWrite> writes) {
    std::vector<bool> results(writes.size(), false);
    std::vector<PreparedWrite> prepared;
    for (const FrameWrite& write : writes) {
        prepared.push_back(prepare(write));
        if (!prepared.back().value) {
            return results;
        }
    }
    const auto moves = beginMoves();
    // Each write has its own one-second timeout. A write without a reply may still have happened.
    for (std::size_t i = 0; i < prepared.size(); ++i) {
        const AXError error =
            AXUIElementSetAttributeValue(m_element.get(), prepared[i].name, prepared[i].value.get());
        results[i] = error == kAXErrorSuccess;
        m_application->ownMoves()->note();
    }
    return results;
}

std::unique_ptr<UserMoveWatch> MacWindowElement::watchUserMoves() {
    return MacUserMoveWatch::begin(m_element, m_application->ownMoves());
}

bool MacWindowElement::setMinimized(bool isMinimized) {
    return AXUIElementSetAttributeValue(m_element.get(), kAXMinimizedAttribute,
                                        isMinimized ? kCFBooleanTrue : kCFBooleanFalse) == kAXErrorSuccess;
}

bool MacWindowElement::raise() {
    return AXUIElementPerformAction(m_element.get(), kAXRaiseAction) == kAXErrorSuccess;
}

} // namespace vantrel
