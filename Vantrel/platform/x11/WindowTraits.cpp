#include "Vantrel/platform/x11/WindowTraits.h"

namespace vantrel {

WindowKind WindowTraits::kind() const {
    if (isOverrideRedirect) {
        return WindowKind::other;
    }
    switch (type.value_or(isTransient ? WindowType::dialog : WindowType::normal)) {
    case WindowType::normal:
        return isModal || isSkipTaskbar ? WindowKind::panel : WindowKind::ordinary;
    case WindowType::dialog:
    case WindowType::utility:
    case WindowType::toolbar:
        return WindowKind::panel;
    default:
        return WindowKind::other;
    }
}

ActivationPolicy WindowTraits::policy() const {
    const bool isDialog =
        type.value_or(isTransient ? WindowType::dialog : WindowType::normal) == WindowType::dialog || isModal;
    return kind() == WindowKind::ordinary || (kind() == WindowKind::panel && isDialog)
               ? ActivationPolicy::regular
               : ActivationPolicy::accessory;
}

PlaceStates WindowTraits::placeStates() const {
    return {.isMinimized = isMinimized(),
            .isFullscreen = isFullscreen,
            .isMaximizedHorizontally = isMaximizedHorizontally,
            .isMaximizedVertically = isMaximizedVertically,
            .isShaded = isShaded,
            // fluxbox may report it of a full-screen window that nobody put above the others.
            .isAbove = isAbove && !isFullscreen};
}

} // namespace vantrel
