// The actions for the Shortcuts application as C functions, for the Swift that declares them to the system.
//
// Every function is called on the main thread. Texts are UTF-8 and live until the function that they were
// given to returns.
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
// `message` is for the user's eyes.
typedef void (*VantrelIntentAnswer)(void* context, VantrelIntentOutcome outcome, const char* message);

void vantrelRestoreNow(void* context, VantrelIntentAnswer answer);
void vantrelApplyScene(const char* sceneID, void* context, VantrelIntentAnswer answer);
void vantrelSaveScene(const char* name, void* context, VantrelIntentAnswer answer);
void vantrelStash(void* context, VantrelIntentAnswer answer);
void vantrelUndoLastRestore(void* context, VantrelIntentAnswer answer);

// Calls `visit` for every scene before it returns; for none while nothing runs.
typedef void (*VantrelSceneVisitor)(void* context, const char* sceneID, const char* name);
void vantrelVisitScenes(void* context, VantrelSceneVisitor visit);

// The Focus filter ran with the name that the user has written there; null at the end of a Focus.
void vantrelFocusFilterRan(const char* name);

#ifdef __cplusplus
}
#endif
