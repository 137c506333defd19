// A Focus that the test turns on.
#pragma once

#include "VantrelCore/ports/FocusReader.h"

#include <utility>

namespace vantrel::simulated {

class SimulatedFocus final : public FocusReader {
public:
    void turnOn(const std::string& name) const {
        if (m_handler) {
            m_handler(name);
        }
    }

    void setHandler(std::function<void(const std::string&)> handler) override {
        m_handler = std::move(handler);
    }

private:
    std::function<void(const std::string&)> m_handler;
};

} // namespace vantrel::simulated
