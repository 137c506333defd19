// The actions that Vantrel offers to the Shortcuts application, Siri and Spotlight, and its Focus filter.
// The C functions in VantrelIntents.h do the work; titles and phrases are here because the system extracts them from
// the source at build time.
import AppIntents

enum VantrelIntentError: Error, CustomLocalizedStringResourceConvertible {
    case nothingHappened(String)
    case notRunning

    var localizedStringResource: LocalizedStringResource {
        switch self {
        case .nothingHappened(let message): return "\(message)"
        case .notRunning: return "Vantrel is not running."
        }
    }
}

/// One action in progress: the C function replies to it exactly once.
private final class OpenIntent {
    let continuation: CheckedContinuation<String, Error>

    init(_ continuation: CheckedContinuation<String, Error>) {
        self.continuation = continuation
    }

    static let answer: VantrelIntentAnswer = { context, outcome, message in
        let intent = Unmanaged<OpenIntent>.fromOpaque(context!).takeRetainedValue()
        let text = String(cString: message!)
        switch outcome {
        case VantrelIntentDone: intent.continuation.resume(returning: text)
        case VantrelIntentNotRunning: intent.continuation.resume(throwing: VantrelIntentError.notRunning)
        default: intent.continuation.resume(throwing: VantrelIntentError.nothingHappened(text))
        }
    }
}

/// Runs one of the C functions and returns its reply.
@MainActor
private func runAction(_ function: (UnsafeMutableRawPointer, @escaping VantrelIntentAnswer) -> Void) async throws -> String {
    try await withCheckedThrowingContinuation { continuation in
        function(Unmanaged.passRetained(OpenIntent(continuation)).toOpaque(), OpenIntent.answer)
    }
}

struct SceneEntity: AppEntity {
    static let typeDisplayRepresentation: TypeDisplayRepresentation = "Scene"
    static let defaultQuery = SceneQuery()

    let id: String
    let name: String

    var displayRepresentation: DisplayRepresentation {
        DisplayRepresentation(title: "\(name)")
    }
}

struct SceneQuery: EntityQuery {
    @MainActor
    private static func all() -> [SceneEntity] {
        final class Scenes { var found: [SceneEntity] = [] }
        let scenes = Scenes()
        vantrelVisitScenes(Unmanaged.passUnretained(scenes).toOpaque()) { context, id, name in
            let scenes = Unmanaged<Scenes>.fromOpaque(context!).takeUnretainedValue()
            scenes.found.append(SceneEntity(id: String(cString: id!), name: String(cString: name!)))
        }
        return scenes.found
    }

    @MainActor
    func entities(for identifiers: [String]) async throws -> [SceneEntity] {
        let all = Self.all()
        return identifiers.compactMap { id in all.first { $0.id == id } }
    }

    @MainActor
    func suggestedEntities() async throws -> [SceneEntity] {
        Self.all()
    }
}

struct RestoreNowIntent: AppIntent {
    static let title: LocalizedStringResource = "Restore Now"

    @MainActor
    func perform() async throws -> some IntentResult & ProvidesDialog {
        let message = try await runAction { vantrelRestoreNow($0, $1) }
        return .result(dialog: "\(message)")
    }
}

struct ApplySceneIntent: AppIntent {
    static let title: LocalizedStringResource = "Apply Scene"

    @Parameter(title: "Scene")
    var scene: SceneEntity

    static var parameterSummary: some ParameterSummary {
        Summary("Apply \(\.$scene)")
    }

    @MainActor
    func perform() async throws -> some IntentResult & ProvidesDialog {
        let message = try await runAction { vantrelApplyScene(scene.id, $0, $1) }
        return .result(dialog: "\(message)")
    }
}

struct SaveSceneIntent: AppIntent {
    static let title: LocalizedStringResource = "Save Scene"

    @Parameter(title: "Name")
    var name: String

    static var parameterSummary: some ParameterSummary {
        Summary("Save the desk as \(\.$name)")
    }

    @MainActor
    func perform() async throws -> some IntentResult & ProvidesDialog {
        let message = try await runAction { vantrelSaveScene(name, $0, $1) }
        return .result(dialog: "\(message)")
    }
}

struct StashIntent: AppIntent {
    static let title: LocalizedStringResource = "Stash or Bring Back"

    @MainActor
    func perform() async throws -> some IntentResult & ProvidesDialog {
        let message = try await runAction { vantrelStash($0, $1) }
        return .result(dialog: "\(message)")
    }
}

struct UndoLastRestoreIntent: AppIntent {
    static let title: LocalizedStringResource = "Undo Last Restore"

    @MainActor
    func perform() async throws -> some IntentResult & ProvidesDialog {
        let message = try await runAction { vantrelUndoLastRestore($0, $1) }
        return .result(dialog: "\(message)")
    }
}

/// Set up in System Settings, Focus: the system runs it when that Focus begins, and with empty parameters when it
/// ends. Programs are not told the name of the Focus, so the user enters the name used in the trigger.
struct VantrelFocusFilter: SetFocusFilterIntent {
    static let title: LocalizedStringResource = "Apply a Scene by Trigger"
    static let description: IntentDescription? = IntentDescription(
        "Tells Vantrel that this Focus turned on, so that its triggers apply their scenes.")

    @Parameter(title: "Name of this Focus")
    var name: String?

    var displayRepresentation: DisplayRepresentation {
        DisplayRepresentation(title: "Triggers for \(name ?? "no Focus")")
    }

    @MainActor
    func perform() async throws -> some IntentResult {
        if let name {
            vantrelFocusFilterRan(name)
        } else {
            vantrelFocusFilterRan(nil)
        }
        return .result()
    }
}

struct VantrelShortcuts: AppShortcutsProvider {
    static var appShortcuts: [AppShortcut] {
        AppShortcut(intent: RestoreNowIntent(), phrases: ["Restore my windows with \(.applicationName)"],
                    shortTitle: "Restore Now", systemImageName: "arrow.uturn.backward")
        AppShortcut(intent: SaveSceneIntent(), phrases: ["Save this desk with \(.applicationName)"],
                    shortTitle: "Save Scene", systemImageName: "square.and.arrow.down")
        AppShortcut(intent: StashIntent(), phrases: ["Stash my desk with \(.applicationName)"],
                    shortTitle: "Stash or Bring Back", systemImageName: "tray.and.arrow.down")
        AppShortcut(intent: ApplySceneIntent(), phrases: ["Apply a scene with \(.applicationName)"],
                    shortTitle: "Apply Scene", systemImageName: "square.grid.2x2")
        AppShortcut(intent: UndoLastRestoreIntent(), phrases: ["Undo the last restore with \(.applicationName)"],
                    shortTitle: "Undo Last Restore", systemImageName: "arrow.uturn.left")
    }
}
