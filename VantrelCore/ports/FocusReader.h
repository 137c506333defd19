// Port: the user's Focus mode, which silences notifications ("Do Not Disturb", "Work").
#pragma once

#include "VantrelCore/text/Translation.h"

#include <functional>
#include <string>

namespace vantrel {

// Used on the main thread.
class FocusReader {
public:
    // The name used on desktops with a single, unnamed mode.
    static constexpr const char* unnamed = marked("Do Not Disturb");

    FocusReader() = default;
    FocusReader(const FocusReader&) = delete;
    FocusReader& operator=(const FocusReader&) = delete;
    virtual ~FocusReader() = default;

    // Calls `handler` with a Focus's name when the user turns it on. A Focus that is already on when the
    // program starts is not reported. An empty function stops the calls.
    virtual void setHandler(std::function<void(const std::string& name)> handler) = 0;
};

} // namespace vantrel
