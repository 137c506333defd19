#include "Vantrel/commands/IntentsBridge.h"

#include "Vantrel/commands/VantrelIntents.h"

#include <memory>
#include <utility>
#include <vector>

namespace vantrel {

namespace {

// An action that has not been answered yet.
struct OpenAction {
    void* context = nullptr;
    VantrelIntentAnswer answer = nullptr;

    void finish(const Intents::Result& result) {
        if (const VantrelIntentAnswer callback = std::exchange(answer, nullptr)) {
            const bool isNotRunning = !result && result.error().kind == VantrelIntentError::Kind::notRunning;
            callback(context,
                     result         ? VantrelIntentDone
                     : isNotRunning ? VantrelIntentNotRunning
                                    : VantrelIntentNothingHappened,
                     result ? result->c_str() : result.error().message.c_str());
        }
    }
};

// The running program, if any.
struct Running {
    AppController* controller = nullptr;
    IntentsBridge::FocusFilterRan focusFilterRan;
    std::vector<std::weak_ptr<OpenAction>> open;
    Intents intents{[this] { return controller; }};
};

Running& running() {
    static Running only;
    return only;
}

Intents::Done done(void* context, VantrelIntentAnswer answer) {
    const auto action = std::make_shared<OpenAction>(OpenAction{context, answer});
    auto& open = running().open;
    std::erase_if(open, [](const auto& other) { return other.expired(); });
    open.push_back(action);
    return [action](const Intents::Result& result) { action->finish(result); };
}

std::string text(const char* given) {
    return given != nullptr ? given : "";
}

} // namespace

IntentsBridge::IntentsBridge(AppController& controller, FocusFilterRan focusFilterRan) {
    running().controller = &controller;
    running().focusFilterRan = std::move(focusFilterRan);
}

IntentsBridge::~IntentsBridge() {
    running().controller = nullptr;
    running().focusFilterRan = nullptr;
    for (const auto& waiting : std::exchange(running().open, {})) {
        if (const auto action = waiting.lock()) {
            action->finish(std::unexpected(VantrelIntentError{VantrelIntentError::Kind::notRunning,
                                                              std::string(Intents::vantrelIsNotRunning)}));
        }
    }
}

} // namespace vantrel

using namespace vantrel;

void vantrelRestoreNow(void* context, VantrelIntentAnswer answer) {
    running().intents.restoreNow(done(context, answer));
}

void vantrelApplyScene(const char* sceneID, void* context, VantrelIntentAnswer answer) {
    running().intents.applyScene(text(sceneID), done(context, answer));
}

void vantrelSaveScene(const char* name, void* context, VantrelIntentAnswer answer) {
    running().intents.saveScene(text(name), done(context, answer));
}

void vantrelStash(void* context, VantrelIntentAnswer answer) {
    running().intents.stash(done(context, answer));
}

void vantrelUndoLastRestore(void* context, VantrelIntentAnswer answer) {
    running().intents.undoLastRestore(done(context, answer));
}

void vantrelVisitScenes(void* context, VantrelSceneVisitor visit) {
    for (const SceneEntity& scene : running().intents.scenes()) {
        visit(context, scene.id.c_str(), scene.name.c_str());
    }
}

void vantrelFocusFilterRan(const char* name) {
    if (const auto ran = running().focusFilterRan) {
        ran(name != nullptr ? std::optional<std::string>(name) : std::nullopt);
    }
}
