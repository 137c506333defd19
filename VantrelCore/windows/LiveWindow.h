// A window of the live desk in the form in which it is saved, and its identity.
#pragma once

#include "VantrelCore/model/DeskSnapshot.h"
#include "VantrelCore/model/WindowRecord.h"

namespace vantrel {

struct LiveWindow {
    WindowRecord record;
    WindowID id{};
    // False for minimised and full-screen windows and for those of another virtual desktop.
    bool isVisible = true;

    bool operator==(const LiveWindow&) const = default;
};

} // namespace vantrel
