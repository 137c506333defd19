// A scene while it is edited: commands in, the changed scene out, with unlimited undo and redo. The stored
// scene is untouched until somebody saves the result.
#pragma once

#include "VantrelCore/model/AppSizeBehavior.h"
#include "VantrelCore/model/Scene.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <variant>
#include <vector>

namespace vantrel {

class SceneDraft {
public:
    // Stays with a box through every edit, also through undo.
    using BoxID = std::uint64_t;

    struct Box {
        BoxID id = 0;
        WindowRecord record;

        bool operator==(const Box&) const = default;
    };

    // What is known of applications' sizes, by bundle identifier.
    using Limits = std::map<std::string, AppSizeBehavior::Classification>;

    // Puts boxes at frames in screen coordinates: shifted into their display's usable frame and cut to its
    // size (see Rehoming), and no smaller than their applications accept.
    struct Place {
        std::map<BoxID, Rect> frames;
    };
    // In front of the others. A record's zOrder and displayUUID are ignored.
    struct Add {
        std::vector<WindowRecord> records;
    };
    struct Remove {
        std::set<BoxID> boxes;
    };
    // In front of the others, each a little right of and below its original.
    struct Duplicate {
        std::set<BoxID> boxes;
    };
    struct Retitle {
        BoxID box = 0;
        std::string title;
    };
    // A slot that waits for its application, or a window that is remembered like any other.
    struct SetGhost {
        BoxID box = 0;
        bool isGhost = false;
    };
    struct Order {
        enum class Step : std::uint8_t { forward, backward, toFront, toBack };
        BoxID box = 0;
        Step step = Step::forward;
    };
    // All windows, as captured.
    struct Replace {
        std::vector<WindowRecord> records;
    };
    struct SetOpensMissingApps {
        bool opens = true;
    };
    struct SetWallpaper {
        // DisplayInfo::uuid.
        std::string display;
        // The image file; none leaves the display's picture alone.
        std::optional<std::string> file;
    };
    using Command = std::variant<Place, Add, Remove, Duplicate, Retitle, SetGhost, Order, Replace,
                                 SetOpensMissingApps, SetWallpaper>;

    explicit SceneDraft(Scene scene, Limits limits = {});

    // The scene with all changes so far; equal to the original if there are none.
    [[nodiscard]] Scene scene() const;
    [[nodiscard]] const std::vector<DisplayInfo>& displays() const { return m_original.layout.displays; }
    // In the order of the stored windows, not of the stack.
    [[nodiscard]] const std::vector<Box>& boxes() const { return current().boxes; }
    [[nodiscard]] const Box* box(BoxID id) const;
    // Front-most first.
    [[nodiscard]] std::vector<BoxID> stack() const;
    // The smallest size that the box's application is known to accept; zero if unknown.
    [[nodiscard]] Size minimum(BoxID id) const;
    // What is known of the sizes that the box's application accepts.
    [[nodiscard]] AppSizeBehavior::Classification limits(BoxID id) const;

    // Carries out the command as one step. Returns the boxes that it added. A command that changes nothing is
    // no step.
    std::vector<BoxID> apply(const Command& command);

    [[nodiscard]] bool canUndo() const { return m_position > 0; }
    [[nodiscard]] bool canRedo() const { return m_position + 1 < m_states.size(); }
    void undo();
    void redo();

    // Whether it differs from the stored scene, and by how many steps.
    [[nodiscard]] bool isDirty() const;
    [[nodiscard]] std::size_t changeCount() const;

    // True if what is edited here has changed in the stored scene since the draft was made or saved.
    [[nodiscard]] bool conflictsWith(const Scene& stored) const;
    // The stored scene with the edited parts; its name, shortcut and pin are left as they are.
    [[nodiscard]] Scene mergedInto(const Scene& stored) const;
    // After `stored` was saved: from here on, changes count against it. Undo goes on working.
    void saved(const Scene& stored);
    // The scene was stored by somebody else: what is edited here stays as it is and counts as changed against
    // it; name, shortcut and pin are taken over.
    void storedIs(const Scene& stored);

private:
    struct State {
        std::vector<Box> boxes;
        std::optional<bool> opensMissingApps;
        std::optional<SceneWallpaper> wallpaper;

        bool operator==(const State&) const = default;
    };
    class Editor;

    [[nodiscard]] const State& current() const { return m_states[m_position]; }
    [[nodiscard]] State state(const Scene& scene);

    Scene m_original;
    Limits m_limits;
    BoxID m_lastID = 0;
    // Never empty.
    std::vector<State> m_states;
    std::size_t m_position = 0;
    // None when that state was undone and replaced by another change.
    std::optional<std::size_t> m_savedPosition = 0;
};

} // namespace vantrel
