// Fake Accessibility: applications and windows as elements with attributes, and controls for tests to break
// them.
#pragma once

#include "tests/macos/fake/CoreFoundationObjects.h"

#include <ApplicationServices/ApplicationServices.h>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vantrel::fake {

// The target of an AXUIElementRef. Several references may share one.
struct Element {
    pid_t pid = 0;
    std::map<std::string, Value> attributes;
    // Errors by attribute or action name.
    std::map<std::string, AXError> readErrors;
    std::map<std::string, AXError> writeErrors;
    std::map<std::string, AXError> actionErrors;
    // The window was closed or the application has quit.
    bool isDead = false;
    // Its application does not respond.
    bool isHanging = false;

    // Called at the start of every request, for example to bring the attributes up to date.
    std::function<void()> onRequest;
    // Does what a write or an action does otherwise.
    std::function<AXError(const std::string& attribute, const Value& value)> onWrite;
    std::function<AXError(const std::string& action)> onAction;
};

// How applications respond to batch requests.
enum class Batch : std::uint8_t {
    normal,
    // Missing values are null in the list instead of an error value.
    nullsForErrors,
    unsupported,
    tooFewValues,
};

// The pointer and its main button.
struct Mouse {
    bool isDown = false;
    double secondsSinceUp = 3600;
    CGPoint location{};
};

struct AccessibilityControl {
    bool isTrusted = true;
    // If set, says that instead.
    std::function<bool()> trust;
    // The user revokes the trust after this many more requests.
    std::optional<int> requestsUntilRevoked;
    // The user grants access when the dialog is shown.
    bool grantsOnPrompt = false;
    int prompts = 0;
    Batch batch = Batch::normal;
    // If set, the error of every batch request.
    std::optional<AXError> batchError;
    // Every request autoreleases an object, as the real ones may.
    bool isAutoreleasing = false;
    // No AXValue can be created.
    bool isOutOfValues = false;
    std::map<pid_t, std::shared_ptr<Element>> applications;
    Mouse mouse;
    // Applications report neither moves nor changes of size.
    bool isMoveUnreported = false;
    // Called when there is something for deliverMoves() to do.
    std::function<void()> onMove;

    // All requests, such as "get AXTitle", "get AXPosition AXSize", "set AXSize 300x200", "do AXRaise".
    std::vector<std::string> calls;
    // How often the process-wide messaging timeout was set, and to what.
    int processTimeouts = 0;
    float processTimeout = 0;
    // Requests through a reference whose own timeout is not one second.
    int callsWithoutTimeout = 0;
};

[[nodiscard]] AccessibilityControl& accessibility();

// Adds a running application without windows.
std::shared_ptr<Element> runApplication(pid_t pid);
// Creates a standard window that no application lists yet.
[[nodiscard]] std::shared_ptr<Element> makeWindow(const std::string& title, const CGRect& frame);
void listWindows(Element& application, const std::vector<std::shared_ptr<Element>>& windows);

[[nodiscard]] Value reference(const std::shared_ptr<Element>& element);
[[nodiscard]] Value pointValue(double x, double y);
[[nodiscard]] Value sizeValue(double width, double height);
[[nodiscard]] Value errorValue(AXError error);
[[nodiscard]] CGRect frameOf(const Element& window);
void setFrame(Element& window, const CGRect& frame);

// Moves that observers have not been told of yet are reported now, as the main run loop does a little later.
void deliverMoves();
[[nodiscard]] std::size_t moveObservers();

} // namespace vantrel::fake
