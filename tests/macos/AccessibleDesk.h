// A simulated desk as Accessibility, Quartz and AppKit show it to the Mac's adapters.
#pragma once

#include "Vantrel/platform/macos/MacAccessibility.h"
#include "Vantrel/platform/macos/MacDisplayServices.h"
#include "VantrelCore/windows/AccessibilityDesk.h"
#include "tests/Vantrel/controller/Story.h"
#include "tests/macos/fake/Accessibility.h"

#include <map>
#include <memory>

namespace vantrel::fake {

// Every read and write of an element becomes one of the desk's window, with its time, its refusals and its
// failures. Outlives the story's controller.
class AccessibleDesk {
public:
    // The story's controller uses the adapters from its next start on.
    explicit AccessibleDesk(simulated::Story& story);

private:
    [[nodiscard]] std::shared_ptr<Element> application(std::int32_t pid);
    [[nodiscard]] std::shared_ptr<Element> element(WindowID window);
    void refreshApplication(Element& application);
    void refreshWindow(Element& element, WindowID window);
    AXError write(WindowID window, const std::string& attribute, const Value& value);
    [[nodiscard]] Value windowList();
    [[nodiscard]] std::vector<RunningApp> runningApps();

    class Displays final : public DisplayServices {
    public:
        explicit Displays(simulated::SimulatedDesk& desk);
        [[nodiscard]] std::vector<DisplayInfo> displays() override;
        void setReconfigurationHandler(std::function<void()> handler) override;

    private:
        simulated::SimulatedDesk& m_desk;
        MacDisplayServices m_services;
    };

    simulated::SimulatedDesk& m_desk;
    std::map<WindowID, std::shared_ptr<Element>> m_elements;
    MacAccessibility m_accessibility;
    AccessibilityDesk m_port;
    Displays m_displays;
};

} // namespace vantrel::fake
