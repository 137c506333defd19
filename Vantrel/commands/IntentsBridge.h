// What the C functions of VantrelIntents.h act on: the running program.
#pragma once

#include "Vantrel/commands/Intents.h"

#include <optional>

namespace vantrel {

// One at a time, on the main thread; the controller outlives it. Without one the functions say that Vantrel
// is not running, and so does its end to actions that are still open.
class IntentsBridge {
public:
    using FocusFilterRan = std::function<void(const std::optional<std::string>& name)>;

    IntentsBridge(AppController& controller, FocusFilterRan focusFilterRan);
    ~IntentsBridge();
    IntentsBridge(const IntentsBridge&) = delete;
    IntentsBridge& operator=(const IntentsBridge&) = delete;
};

} // namespace vantrel
