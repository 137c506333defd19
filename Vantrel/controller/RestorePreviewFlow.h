// Says what a restore, a layout or a scene would do now. Reads the desk and moves nothing.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/SaveOutcome.h"
#include "VantrelCore/windows/RestorePreview.h"

#include <expected>
#include <functional>
#include <optional>
#include <set>
#include <string>

namespace vantrel {

class RestorePreviewFlow {
public:
    // The preview, or why there is none, as a sentence.
    using Result = std::expected<RestorePreview, std::string>;
    using Done = std::function<void(const Result&)>;

    explicit RestorePreviewFlow(ControllerContext& context) : m_context(context) {}

    // The active layout of the current desk. `done` is called once, on the main thread, after one capture in
    // the background; at once if that is refused. Needs no license.
    void preview(const Done& done);
    // Any layout, translated to the current displays if it is another desk's.
    void previewLayout(const Layout& layout, const Done& done);
    void previewScene(const Scene& scene, const Done& done);

private:
    struct Question {
        Layout layout;
        DeskCapture::Reach reach = DeskCapture::Reach::every;
        // The scene starts applications that are not running.
        bool opensMissingApps = false;
        // Further windows that a scene keeps places for.
        std::vector<WindowRecord> slots{};
    };

    void capture(Question question, Done done);
    void answer(const Question& question, const DeskSnapshot& snapshot, const Done& done);

    ControllerContext& m_context;
};

} // namespace vantrel
