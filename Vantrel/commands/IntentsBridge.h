// Connects the C functions of VantrelIntents.h to the running program.
#pragma once

#include "Vantrel/commands/Intents.h"

#include <optional>

namespace vantrel {

// At most one exists at a time, on the main thread; the controller outlives it. Without one, the functions
// report that Vantrel is not running; its destructor reports the same to pending actions.
class IntentsBridge {
public:
    using FocusFilterRan = std::function<void(const std::optional<std::string>& name)>;

    IntentsBridge(AppController& controller, FocusFilterRan focusFilterRan);
    ~IntentsBridge();
    IntentsBridge(const IntentsBridge&) = delete;
    IntentsBridge& operator=(const IntentsBridge&) = delete;
};

} // namespace vantrel
