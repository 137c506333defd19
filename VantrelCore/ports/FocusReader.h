// Port: the mode that keeps notifications away, as the user switches it on and off ("Do Not Disturb",
// "Work").
#pragma once

#include <functional>
#include <string>

namespace vantrel {

// Used on the main thread.
class FocusReader {
public:
    // The one that a desktop has which does not name it.
    static constexpr const char* unnamed = "Do Not Disturb";

    FocusReader() = default;
    FocusReader(const FocusReader&) = delete;
    FocusReader& operator=(const FocusReader&) = delete;
    virtual ~FocusReader() = default;

    // Calls `handler` with the name of a Focus that the user turns on; one that is on already when the
    // program starts does not turn on. An empty function ends the calls.
    virtual void setHandler(std::function<void(const std::string& name)> handler) = 0;
};

} // namespace vantrel
