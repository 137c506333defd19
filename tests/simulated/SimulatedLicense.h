// A licence that tests grant and revoke.
#pragma once

#include "VantrelCore/ports/LicenseGate.h"

#include <utility>

namespace vantrel::simulated {

class SimulatedLicense final : public LicenseGate {
public:
    void setEntitled(bool isEntitled) {
        set({.kind = isEntitled ? Entitlement::Kind::licensed : Entitlement::Kind::trialOver, .reason = {}});
    }

    void set(Entitlement entitlement) {
        if (std::exchange(m_entitlement, std::move(entitlement)) != m_entitlement && m_handler) {
            m_handler();
        }
    }

    [[nodiscard]] const Entitlement& entitlement() const override { return m_entitlement; }
    void setChangeHandler(std::function<void()> handler) override { m_handler = std::move(handler); }
    void activate(const std::string& /*key*/, Done done) override {
        setEntitled(true);
        done({});
    }
    void deactivate(Done done) override {
        setEntitled(false);
        done({});
    }

private:
    Entitlement m_entitlement;
    std::function<void()> m_handler;
};

} // namespace vantrel::simulated
