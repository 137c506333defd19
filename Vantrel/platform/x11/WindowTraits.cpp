#include "Vantrel/platform/x11/WindowTraits.h"

#include "VantrelCore/ports/Accessibility.h"

namespace vantrel {

namespace {

constexpr std::int64_t dockLayer = 20;
constexpr std::int64_t notificationLayer = 25;
constexpr std::int64_t menuLayer = 101;

} // namespace

const char* WindowTraits::subrole() const {
    if (isOverrideRedirect) {
        return unknownWindowSubrole;
    }
    switch (type.value_or(isTransient ? WindowType::dialog : WindowType::normal)) {
    case WindowType::normal:
        if (isModal) {
            return dialogWindowSubrole;
        }
        return isSkipTaskbar ? floatingWindowSubrole : standardWindowSubrole;
    case WindowType::dialog:
        return dialogWindowSubrole;
    case WindowType::utility:
    case WindowType::toolbar:
        return floatingWindowSubrole;
    default:
        return unknownWindowSubrole;
    }
}

std::optional<std::int64_t> WindowTraits::layer() const {
    switch (type.value_or(WindowType::normal)) {
    case WindowType::desktop:
        return std::nullopt;
    case WindowType::dock:
        return dockLayer;
    case WindowType::menu:
        return menuLayer;
    case WindowType::splash:
    case WindowType::notification:
    case WindowType::dragAndDrop:
        return notificationLayer;
    default:
        return isOverrideRedirect ? menuLayer : normalWindowLayer;
    }
}

} // namespace vantrel
