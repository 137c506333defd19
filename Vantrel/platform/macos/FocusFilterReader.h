// Reads the Focus through Vantrel's Focus filter. When a Focus with the filter is turned on, the system runs
// the filter with the name that the user entered in it; when the Focus ends, it runs it without a name.
// Programs cannot read the name of the Focus itself.
#pragma once

#include "VantrelCore/ports/FocusReader.h"

#include <optional>

namespace vantrel {

class FocusFilterReader final : public FocusReader {
public:
    void setHandler(std::function<void(const std::string& name)> handler) override {
        m_handler = std::move(handler);
    }

    // Call on the main thread when the filter runs; `name` is none when a Focus ends. The system also runs
    // the filter when the user edits it and when the program starts, so a repeated name does not count as
    // turned on.
    void filterRan(const std::optional<std::string>& name);

private:
    std::function<void(const std::string& name)> m_handler;
    std::optional<std::string> m_name;
};

} // namespace vantrel
