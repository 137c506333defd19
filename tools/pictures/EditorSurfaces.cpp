// The scene editor: at rest, with boxes selected, during drags, and what it says.
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/editor/SceneEditor.h"
#include "tools/pictures/SampleDesks.h"
#include "tools/pictures/SampleWallpapers.h"
#include "tools/pictures/StandInIcons.h"
#include "tools/pictures/Surface.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QDoubleSpinBox>
#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QMouseEvent>

namespace vantrel::pictures {

namespace {

using SampleDesks::Placed;

// Front to back.
const std::vector<Placed> writing{
    {"Notes", "Outline", {{1640, 68}, {896, 620}}}, {"Documents", "Chapter 3", {{24, 68}, {1592, 1348}}},
    {"Firefox", "", {{1640, 760}, {896, 656}}},     {"Music", "Spaces", {{3300, 900}, {740, 512}}},
    {"Mail", "Inbox", {{2584, 530}, {900, 640}}},   {"Files", "Sources", {{2584, 1000}, {640, 412}}}};

Scene sceneOf(const std::vector<DisplayInfo>& displays, const std::vector<Placed>& windows,
              const std::string& name = "Write") {
    Scene scene = Scene::make(name, "desk", SampleDesks::layout("Default", displays, windows), Date{});
    for (WindowRecord& window : scene.layout.windows) {
        if (window.appName == "Firefox") {
            window.isGhost = true;
        }
    }
    return scene;
}

std::unique_ptr<SceneEditor> editor(const Scene& scene) {
    static StandInIcons icons;
    static ApplicationLooks looks(&icons);
    SceneEditor::Start start{.scene = scene};
    start.limits["org.example.Notes"] = AppSizeBehavior::MinClamped{{480, 300}};
    for (const char* const name : {"Documents", "Files", "Mail", "Music", "Notes", "Terminal"}) {
        start.applications.push_back({std::string("org.example.") + name, name,
                                      name == std::string_view("Terminal")    ? 3U
                                      : name == std::string_view("Documents") ? 2U
                                                                              : 1U});
    }
    for (const char* const name : {"Calendar", "Chat", "Code", "Firefox"}) {
        start.applications.push_back({std::string("org.example.") + name, name});
    }
    SceneEditorActions actions;
    actions.wallpapers = sampleWallpapers(SampleWallpapers::usual);
    actions.problemWithName = [](const auto&) {
        return SceneEditorActions::Problem("A scene with this name exists already.");
    };
    auto made = std::make_unique<SceneEditor>(looks, std::move(start), std::move(actions));
    // As large as the workbench at first.
    made->resize(Metrics::points(*made, 1180), Metrics::points(*made, 688));
    // Lays it out, so that there is something to press.
    made->grab();
    return made;
}

std::unique_ptr<SceneEditor> writingEditor() {
    auto made = editor(sceneOf(SampleDesks::usualDisplays(), writing));
    // Three changes.
    const auto notes = made->draft().stack().front();
    for (const double width : {700.0, 710.0, 720.0}) {
        made->draft().apply(SceneDraft::Place{{{notes, {{1640, 68}, {width, 610}}}}});
    }
    made->canvas().refresh();
    return made;
}

void send(EditorCanvas& canvas, QEvent::Type type, QPointF point) {
    QMouseEvent event(type, point, canvas.mapToGlobal(point), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&canvas, &event);
}

// From the middle of the front-most box by this many points of the scene's screen.
std::unique_ptr<QWidget> dragged(Point by) {
    auto made = writingEditor();
    EditorCanvas& canvas = made->canvas();
    const auto front = made->draft().stack().front();
    const QRectF box = canvas.shownFrame(front);
    const double scale = box.width() / made->draft().box(front)->record.frame.width();
    send(canvas, QEvent::MouseButtonPress, box.center());
    send(canvas, QEvent::MouseMove, box.center() + QPointF(by.x, by.y) * scale);
    return made;
}

std::unique_ptr<QWidget> selected() {
    auto made = writingEditor();
    made->canvas().select({made->draft().stack().front()});
    return made;
}

std::unique_ptr<QWidget> several() {
    auto made = writingEditor();
    const auto stack = made->draft().stack();
    made->canvas().select({stack.begin(), stack.begin() + 3});
    return made;
}

std::unique_ptr<QWidget> draggedIn() {
    auto made = writingEditor();
    QMimeData data;
    data.setData(ListRowsModel::rowFormat, "org.example.Chat");
    const QPointF place(made->canvas().width() * 0.4, made->canvas().height() * 0.5);
    QDragEnterEvent event(place.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&made->canvas(), &event);
    return made;
}

std::unique_ptr<QWidget> typed() {
    auto made = writingEditor();
    made->canvas().select({made->draft().stack().front()});
    made->inspector().findChildren<QDoubleSpinBox*>()[2]->setValue(300);
    return made;
}

std::unique_ptr<QWidget> changedElsewhere() {
    auto made = writingEditor();
    Scene elsewhere = sceneOf(SampleDesks::usualDisplays(), writing);
    elsewhere.layout.windows.front().frame.origin.x += 30;
    made->storedIsNow(elsewhere);
    return made;
}

std::unique_ptr<QWidget> savedAsNew() {
    auto made = writingEditor();
    for (auto* const button : made->findChildren<QAbstractButton*>()) {
        if (button->accessibleName().startsWith(QString::fromUtf8("Save as new…"))) {
            button->click();
        }
    }
    for (auto* const field : made->findChildren<QLineEdit*>()) {
        if (field->accessibleName() == "Name of the new scene") {
            field->setText("Meetings");
        }
    }
    return made;
}

std::unique_ptr<QWidget> crowded() {
    std::vector<Placed> windows;
    const auto everyday = SampleDesks::everyday();
    for (int i = 0; i < 60; ++i) {
        Placed window = everyday[static_cast<std::size_t>(i) % everyday.size()];
        const int row = i / 10;
        window.frame = {{40.0 + i % 10 * 240, 70.0 + row * 210}, {330, 250}};
        windows.push_back(window);
    }
    auto made = editor(sceneOf(SampleDesks::usualDisplays(), windows, "Everything"));
    made->canvas().select({made->draft().stack()[30]});
    return made;
}

std::unique_ptr<QWidget> otherDesk() {
    const std::vector<DisplayInfo> displays{SampleDesks::display("Beamer", {{0, 0}, {1920, 1080}}),
                                            SampleDesks::display("Left", {{-1080, -400}, {1080, 1920}}),
                                            SampleDesks::display("Laptop", {{0, 1080}, {1440, 900}}, true)};
    return editor(sceneOf(displays,
                          {{"Code", "slides", {{0, 44}, {1920, 1036}}},
                           {"Chat", "Team", {{-1040, -300}, {1000, 800}}},
                           {"Notes", "Talk", {{100, 1180}, {700, 600}}}},
                          "Lecture"));
}

} // namespace

std::vector<Surface> editorSurfaces() {
    return {
        {"editor", selected},
        {"editor-empty",
         []() -> std::unique_ptr<QWidget> { return editor(sceneOf(SampleDesks::usualDisplays(), {})); }},
        {"editor-several", several},
        {"editor-dragging", [] { return dragged({-100, 90}); }},
        {"editor-zone", [] { return dragged({540, 300}); }},
        {"editor-dragged-in", draggedIn},
        {"editor-number-refused", typed},
        {"editor-name-taken", savedAsNew},
        {"editor-changed-elsewhere", changedElsewhere},
        {"editor-pinned",
         []() -> std::unique_ptr<QWidget> {
             Scene scene = sceneOf(SampleDesks::usualDisplays(), writing);
             scene.pinned = true;
             return editor(scene);
         }},
        {"editor-narrow",
         []() -> std::unique_ptr<QWidget> {
             auto made = selected();
             made->resize(Metrics::points(*made, 740), Metrics::points(*made, 420));
             return made;
         }},
        {"editor-crowded", crowded},
        {"editor-other-desk", otherDesk},
    };
}

} // namespace vantrel::pictures
