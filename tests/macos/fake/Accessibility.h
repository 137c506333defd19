// The fake platform's Accessibility: applications and windows as elements with attributes, and the hand of a
// test that breaks them.
#pragma once

#include "tests/macos/fake/CoreFoundationObjects.h"

#include <ApplicationServices/ApplicationServices.h>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vantrel::fake {

// What stands behind an AXUIElementRef; many references may name the same.
struct Element {
    pid_t pid = 0;
    std::map<std::string, Value> attributes;
    // What a call for the attribute or the action of that name answers.
    std::map<std::string, AXError> readErrors;
    std::map<std::string, AXError> writeErrors;
    std::map<std::string, AXError> actionErrors;
    // The application has closed the window, or ended.
    bool isDead = false;
    // Its application does not answer.
    bool isHanging = false;
};

// How applications answer to several questions at once.
enum class Batch : std::uint8_t {
    answers,
    // An attribute without a value is a null in the list rather than an error.
    answersWithNulls,
    refuses,
    answersTooFew,
};

struct AccessibilityControl {
    bool isTrusted = true;
    // The user says yes when the dialog shows.
    bool grantsOnPrompt = false;
    int prompts = 0;
    Batch batch = Batch::answers;
    // When set, the error of every call for several attributes.
    std::optional<AXError> batchError;
    // No AXValue can be made.
    bool isOutOfValues = false;
    std::map<pid_t, std::shared_ptr<Element>> applications;

    // What was asked, as "get AXTitle", "get AXPosition AXSize", "set AXSize 300x200", "do AXRaise".
    std::vector<std::string> calls;
    // How often the process-wide messaging timeout was set, and to what.
    int processTimeouts = 0;
    float processTimeout = 0;
    // Messages sent through a reference that has no timeout of its own of one second.
    int callsWithoutTimeout = 0;
};

[[nodiscard]] AccessibilityControl& accessibility();

// Runs and has no windows.
std::shared_ptr<Element> runApplication(pid_t pid);
// An ordinary window, which no application lists yet.
[[nodiscard]] std::shared_ptr<Element> makeWindow(const std::string& title, const CGRect& frame);
void listWindows(Element& application, const std::vector<std::shared_ptr<Element>>& windows);

[[nodiscard]] Value reference(const std::shared_ptr<Element>& element);
[[nodiscard]] Value pointValue(double x, double y);
[[nodiscard]] Value sizeValue(double width, double height);
[[nodiscard]] Value errorValue(AXError error);
[[nodiscard]] CGRect frameOf(const Element& window);
void setFrame(Element& window, const CGRect& frame);

} // namespace vantrel::fake
