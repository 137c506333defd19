// The Shortcuts actions as C functions, for the Swift code that declares them to the system.
//
// Call every function on the main thread. Strings are UTF-8 and remain valid until the function that received
// them returns.
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

typedef enum VantrelIntentOutcome {
    VantrelIntentDone = 0,
    VantrelIntentNothingHappened = 1,
    VantrelIntentNotRunning = 2
} VantrelIntentOutcome;

// Called exactly once for each action, on the main thread, before the action's function returns or later.
// `message` can be shown to the user.
typedef void (*VantrelIntentAnswer)(void* context, VantrelIntentOutcome outcome, const char* message);

void vantrelRestoreNow(void* context, VantrelIntentAnswer answer);
void vantrelApplyScene(const char* sceneID, void* context, VantrelIntentAnswer answer);
void vantrelSaveScene(const char* name, void* context, VantrelIntentAnswer answer);
void vantrelStash(void* context, VantrelIntentAnswer answer);
void vantrelUndoLastRestore(void* context, VantrelIntentAnswer answer);

// Calls `visit` for every scene before returning; never while nothing is running.
typedef void (*VantrelSceneVisitor)(void* context, const char* sceneID, const char* name);
void vantrelVisitScenes(void* context, VantrelSceneVisitor visit);

// The Focus filter ran with the name that the user entered there; null at the end of a Focus.
void vantrelFocusFilterRan(const char* name);

#ifdef __cplusplus
}
#endif
