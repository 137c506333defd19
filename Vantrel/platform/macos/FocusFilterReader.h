// A Focus as the user has set Vantrel up in it: the system runs the Focus filter that the application offers,
// with the name that the user wrote there, when that Focus is turned on, and without one when it ends. No
// program may read the name of the Focus itself.
#pragma once

#include "VantrelCore/ports/FocusReader.h"

#include <optional>

namespace vantrel {

class FocusFilterReader final : public FocusReader {
public:
    void setHandler(std::function<void(const std::string& name)> handler) override {
        m_handler = std::move(handler);
    }

    // What the filter was run with, on the main thread; none at the end of a Focus. The system also runs it
    // again when the user edits it, and as the program starts: a Focus that is on already is not turned on.
    void filterRan(const std::optional<std::string>& name);

private:
    std::function<void(const std::string& name)> m_handler;
    std::optional<std::string> m_name;
};

} // namespace vantrel
