// The scene editor with real pointer and key events.
#include "Vantrel/interface/editor/SceneEditor.h"

#include <QAction>
#include <QDoubleSpinBox>
#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QMouseEvent>
#include <QTest>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace vantrel {
namespace {

class EditorTest : public testing::Test {
protected:
    EditorTest() {
        DisplayInfo left;
        left.uuid = "left";
        left.name = "Left";
        left.frame = {{0, 0}, {1920, 1080}};
        DisplayInfo right = left;
        right.uuid = "right";
        right.name = "Right";
        right.frame = {{1920, 0}, {1920, 1080}};
        m_scene.layout.displays = {left, right};
        for (const char* const app : {"mail", "notes", "code"}) {
            WindowRecord record;
            record.bundleID = app;
            record.appName = app;
            record.zOrder = std::ssize(m_scene.layout.windows);
            record.frame = {{100.0 + 620 * static_cast<double>(record.zOrder), 300}, {500, 400}};
            record.displayUUID = "left";
            m_scene.layout.windows.push_back(record);
        }
        SceneEditorActions actions;
        actions.save = [this](const Scene& edited) {
            m_saved = edited;
            return m_problem;
        };
        actions.saveAsNew = [this](const Scene& edited, const std::string& name) {
            m_saved = edited;
            m_saved->name = name;
            return m_problem;
        };
        actions.problemWithName = [](const std::string& name) {
            return name == "Taken" ? SceneEditorActions::Problem("This name is taken.") : std::nullopt;
        };
        actions.tryOut = [this](const Scene& edited) {
            m_tried = edited;
            return true;
        };
        actions.goBack = [this] { ++m_wentBack; };
        actions.captureDesk = [this](const auto& done) { done(m_desk); };
        actions.unpin = [this] { ++m_unpinned; };
        actions.close = [this] { ++m_closed; };
        actions.discarded = [this](SceneDraft draft) { m_discarded = std::move(draft); };
        actions.kept = [this](SceneDraft draft) { m_kept = std::move(draft); };
        m_editor = std::make_unique<SceneEditor>(
            m_looks,
            SceneEditor::Start{.scene = m_scene,
                               .limits = {{"notes", AppSizeBehavior::MinClamped{{480, 300}}}},
                               .applications = {{"mail", "Mail", 1}, {"chat", "Chat"}, {"web", "Web"}}},
            std::move(actions));
        m_editor->resize(1180, 640);
        m_editor->show();
        m_editor->grab();
    }

    [[nodiscard]] EditorCanvas& canvas() { return m_editor->canvas(); }
    [[nodiscard]] SceneDraft& draft() { return m_editor->draft(); }
    [[nodiscard]] SceneDraft::BoxID box(std::size_t index) { return draft().boxes()[index].id; }
    [[nodiscard]] Rect frame(std::size_t index) { return draft().boxes()[index].record.frame; }
    [[nodiscard]] QPointF centre(std::size_t index) { return canvas().shownFrame(box(index)).center(); }

    void mouse(QEvent::Type type, QPointF point, Qt::KeyboardModifiers keys = {}) {
        QMouseEvent event(type, point, canvas().mapToGlobal(point), Qt::LeftButton, Qt::LeftButton, keys);
        QCoreApplication::sendEvent(&canvas(), &event);
    }
    void drag(QPointF from, QPointF to, Qt::KeyboardModifiers keys = {}) {
        mouse(QEvent::MouseButtonPress, from);
        mouse(QEvent::MouseMove, (from + to) / 2, keys);
        mouse(QEvent::MouseMove, to, keys);
        mouse(QEvent::MouseButtonRelease, to, keys);
    }
    void click(const char* text) {
        for (auto* const button : m_editor->findChildren<QAbstractButton*>()) {
            if (button->accessibleName() == text) {
                button->click();
                return;
            }
        }
        FAIL() << "no button " << text;
    }
    void choose(const char* entry) {
        for (auto* const action : m_editor->findChildren<QAction*>()) {
            if (action->text().remove('&') == entry) {
                action->trigger();
                return;
            }
        }
        FAIL() << "no menu entry " << entry;
    }
    std::string foot() { return m_editor->foot().text().toStdString(); }
    bool says(const char* text) {
        const auto labels = m_editor->findChildren<QLabel*>();
        return std::ranges::any_of(labels, [&](const QLabel* label) {
            return label->isVisible() && label->accessibleName() == QString::fromUtf8(text);
        });
    }
    template <typename Event>
    void drag(const char* application, QPointF place) {
        QMimeData data;
        data.setData(ListRowsModel::rowFormat, application);
        Event event(place.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&canvas(), &event);
    }

    ApplicationLooks m_looks{nullptr};
    Scene m_scene = Scene::make("Work", "desk", {}, Date{});
    std::optional<std::string> m_problem;
    std::optional<Scene> m_saved;
    std::optional<Scene> m_tried;
    SceneEditorActions::Captured m_desk = std::unexpected("The desk cannot be read.");
    std::optional<SceneDraft> m_discarded;
    std::optional<SceneDraft> m_kept;
    int m_wentBack = 0;
    int m_unpinned = 0;
    int m_closed = 0;
    std::unique_ptr<SceneEditor> m_editor;
};

TEST_F(EditorTest, ABoxDraggedToTheOtherDisplayAndBackStandsWhereItStood) {
    const Rect before = frame(0);
    const QPointF start = centre(0);
    const double scale = canvas().shownFrame(box(0)).width() / before.width();
    const QPointF there = start + QPointF(2100 * scale, 30);
    drag(start, there, Qt::AltModifier);
    EXPECT_EQ(draft().boxes()[0].record.displayUUID, "right");
    EXPECT_EQ(frame(0).size, before.size);
    drag(centre(0), start, Qt::AltModifier);
    EXPECT_EQ(draft().boxes()[0].record.displayUUID, "left");
    EXPECT_TRUE(approxEqual(frame(0), before, 1));
    for (int i = 0; i < 40; ++i) {
        QTest::keyClick(&canvas(), Qt::Key_Z, Qt::ControlModifier);
    }
    EXPECT_EQ(nlohmann::json(draft().scene()).dump(), nlohmann::json(m_scene).dump());
}

TEST_F(EditorTest, DroppedAtAnEdgeABoxFillsTheZoneUnlessAltIsHeld) {
    const QRectF first = canvas().shownFrame(box(0));
    const double scale = first.width() / frame(0).width();
    const QPointF edge(first.left() - 98 * scale, first.center().y());
    drag(centre(0), edge);
    EXPECT_EQ(frame(0).minX(), 0);
    EXPECT_EQ(frame(0).height(), 1080);
    QTest::keyClick(&canvas(), Qt::Key_Z, Qt::ControlModifier);
    drag(centre(0), edge, Qt::AltModifier);
    EXPECT_EQ(frame(0).size, (Size{500, 400}));
    EXPECT_EQ(frame(0).minX(), 0);
    EXPECT_EQ(foot(), "Arrows move by 1 point, with Shift by 10; with Ctrl they resize.");
    // Escape in the middle of a drag leaves everything as it was.
    const auto scene = draft().scene();
    mouse(QEvent::MouseButtonPress, centre(1));
    mouse(QEvent::MouseMove, centre(1) + QPointF(60, 40));
    QTest::keyClick(&canvas(), Qt::Key_Escape);
    mouse(QEvent::MouseButtonRelease, centre(1));
    EXPECT_EQ(draft().scene(), scene);
}

TEST_F(EditorTest, HandlesResizeAndStopAtWhatTheApplicationAcceptsAndSaySo) {
    canvas().select({box(1)});
    const QRectF shown = canvas().shownFrame(box(1));
    const QPointF to(shown.right() - shown.width() * 0.6, shown.center().y());
    mouse(QEvent::MouseButtonPress, {shown.right(), shown.center().y()});
    mouse(QEvent::MouseMove, to, Qt::AltModifier);
    EXPECT_EQ(foot(), "notes is never narrower than 480.");
    mouse(QEvent::MouseButtonRelease, to, Qt::AltModifier);
    EXPECT_EQ(frame(1), (Rect{{720, 300}, {480, 400}}));
}

TEST_F(EditorTest, TheRubberBandSelectsShiftAddsAndAltDragsACopyInOneStep) {
    const QRectF first = canvas().shownFrame(box(0));
    const QRectF third = canvas().shownFrame(box(2));
    drag(first.topLeft() - QPointF(3, 3), first.center());
    EXPECT_EQ(canvas().selection(), std::set{box(0)});
    mouse(QEvent::MouseButtonPress, third.bottomRight() + QPointF(3, 3), Qt::ShiftModifier);
    mouse(QEvent::MouseMove, third.center(), Qt::ShiftModifier);
    mouse(QEvent::MouseButtonRelease, third.center(), Qt::ShiftModifier);
    EXPECT_EQ(canvas().selection(), (std::set{box(0), box(2)}));
    canvas().select({box(0)});
    mouse(QEvent::MouseButtonPress, first.center(), Qt::AltModifier);
    mouse(QEvent::MouseMove, first.center() + QPointF(0, 40), Qt::AltModifier);
    mouse(QEvent::MouseButtonRelease, first.center() + QPointF(0, 40), Qt::AltModifier);
    ASSERT_EQ(draft().boxes().size(), 4U);
    EXPECT_EQ(frame(0), m_scene.layout.windows[0].frame);
    EXPECT_EQ(frame(3).minX(), frame(0).minX());
    EXPECT_GT(frame(3).minY(), frame(0).minY());
    EXPECT_EQ(canvas().selection(), std::set{box(3)});
    EXPECT_EQ(draft().changeCount(), 1U);
}

TEST_F(EditorTest, AnApplicationBecomesASlotWhereItIsDroppedOrOnReturn) {
    const QPointF right(canvas().width() * 0.75, canvas().height() / 2.0);
    drag<QDragEnterEvent>("nobody", right);
    drag<QDropEvent>("nobody", right);
    EXPECT_EQ(draft().boxes().size(), 3U);
    drag<QDragEnterEvent>("chat", right);
    drag<QDropEvent>("chat", right);
    ASSERT_EQ(draft().boxes().size(), 4U);
    const WindowRecord& slot = draft().boxes()[3].record;
    EXPECT_EQ(slot.appName, "Chat");
    EXPECT_EQ(slot.displayUUID, "right");
    EXPECT_TRUE(slot.isGhost.value_or(false));
    EXPECT_EQ(canvas().selection(), std::set{box(3)});
    m_editor->applications().choose("web");
    QTest::keyClick(&m_editor->applications(), Qt::Key_Return);
    EXPECT_EQ(draft().boxes().back().record.bundleID, "web");
    QTest::keyClick(&canvas(), Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(&canvas(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(draft().scene(), m_scene);
}

TEST_F(EditorTest, TheKeyboardDoesEverythingThePointerDoes) {
    QTest::keyClick(&canvas(), Qt::Key_Tab);
    QTest::keyClick(&canvas(), Qt::Key_Tab);
    EXPECT_EQ(canvas().selection(), std::set{box(1)});
    EXPECT_TRUE(canvas().accessibleDescription().startsWith("notes"));
    QTest::keyClick(&canvas(), Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(&canvas(), Qt::Key_Up);
    EXPECT_EQ(frame(1).origin, (Point{730, 299}));
    QTest::keyClick(&canvas(), Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(frame(1).size, (Size{500, 410}));
    QTest::keyClick(&canvas(), Qt::Key_PageUp);
    EXPECT_EQ(draft().stack().front(), box(1));
    QTest::keyClick(&canvas(), Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(draft().boxes().size(), 4U);
    QTest::keyClick(&canvas(), Qt::Key_Delete);
    QTest::keyClick(&canvas(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(canvas().selection().size(), 3U);
    click("Columns");
    EXPECT_EQ(frame(0).height(), 1080);
    EXPECT_NEAR(frame(0).width() * 3 + 16, 1920, 1);
    const auto changes = draft().changeCount();
    QTest::keyClick(&canvas(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(draft().changeCount(), changes - 1);
    QTest::keyClick(&canvas(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(draft().changeCount(), changes);
}

TEST_F(EditorTest, NumbersAndTitlesAreTypedAndWhatDoesNotFitIsSaid) {
    canvas().select({box(1)});
    const auto numbers = m_editor->inspector().findChildren<QDoubleSpinBox*>();
    ASSERT_EQ(numbers.size(), 4);
    numbers[0]->setValue(40);
    numbers[3]->setValue(333);
    EXPECT_EQ(frame(1), (Rect{{40, 300}, {500, 333}}));
    numbers[2]->setValue(100);
    EXPECT_EQ(frame(1).width(), 480);
    EXPECT_EQ(numbers[2]->value(), 480);
    EXPECT_TRUE(says("notes is never narrower than 480."));
    numbers[0]->setValue(5000);
    EXPECT_EQ(frame(1).minX(), 1440);
    EXPECT_TRUE(says("There it would not be whole on Left."));
    numbers[2]->setValue(5000);
    EXPECT_TRUE(says("Left has room for 1920 × 1080."));
    click("Numbers in percent of the display");
    EXPECT_EQ(numbers[2]->value(), 100);
    numbers[2]->setValue(50);
    EXPECT_EQ(frame(1).width(), 960);
    EXPECT_FALSE(says("Left has room for 1920 × 1080."));
    auto* const title = m_editor->inspector().findChild<QLineEdit*>();
    title->setText("Inbox");
    Q_EMIT title->editingFinished();
    EXPECT_EQ(draft().boxes()[1].record.title, "Inbox");
}

TEST_F(EditorTest, SavesTriesAndNeverOverwritesWhatChangedElsewhere) {
    canvas().select({box(2)});
    QTest::keyClick(&canvas(), Qt::Key_Delete);
    click("Try it");
    ASSERT_TRUE(m_tried);
    EXPECT_EQ(m_tried->layout.windows.size(), 2U);
    click("Go back");
    EXPECT_EQ(m_wentBack, 1);
    m_problem = "The disk is full.";
    click("Save");
    EXPECT_TRUE(draft().isDirty());
    EXPECT_EQ(foot(), "The disk is full.");
    Scene elsewhere = m_scene;
    elsewhere.layout.windows[0].frame.origin.x = 0;
    m_editor->storedIsNow(elsewhere);
    m_problem.reset();
    m_saved.reset();
    QTest::keyClick(&canvas(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(m_saved);
    click("Keep mine");
    QTest::keyClick(&canvas(), Qt::Key_S, Qt::ControlModifier);
    ASSERT_TRUE(m_saved);
    EXPECT_EQ(m_saved->layout.windows.size(), 2U);
    EXPECT_FALSE(draft().isDirty());
    m_editor->storedIsNow(m_saved);
    EXPECT_EQ(foot(), "The scene was saved.");
    elsewhere.layout.windows[0].frame.origin.x = 7;
    m_editor->storedIsNow(elsewhere);
    EXPECT_EQ(frame(0).minX(), 7);
}

TEST_F(EditorTest, APinnedSceneIsLookedAtUntilItIsUnpinned) {
    m_scene.pinned = true;
    m_editor->storedIsNow(m_scene);
    drag(centre(0), centre(0) + QPointF(50, 50));
    QTest::keyClick(&canvas(), Qt::Key_Delete);
    drag<QDragEnterEvent>("chat", centre(0));
    m_editor->applications().onActivated("chat");
    EXPECT_EQ(draft().scene(), m_scene);
    EXPECT_EQ(foot(), "This scene is pinned, so it cannot be changed.");
    click("Unpin");
    EXPECT_EQ(m_unpinned, 1);
    m_scene.pinned = false;
    m_editor->storedIsNow(m_scene);
    QTest::keyClick(&canvas(), Qt::Key_Delete);
    EXPECT_EQ(draft().boxes().size(), 2U);
}

TEST_F(EditorTest, NothingIsLostWithoutSayingSo) {
    canvas().select({box(0)});
    QTest::keyClick(&canvas(), Qt::Key_Delete);
    click("Save as new…");
    auto* const name = m_editor->findChild<EditorToolbar*>()->findChild<QLineEdit*>();
    QTest::keyClicks(name, "Taken");
    EXPECT_TRUE(says("This name is taken."));
    m_problem = "There is no room.";
    QTest::keyClick(name, Qt::Key_Return);
    EXPECT_TRUE(says("There is no room."));
    EXPECT_EQ(m_closed, 0);
    m_editor->storedIsNow(std::nullopt);
    EXPECT_EQ(foot(), "This scene was deleted elsewhere. Save it as new to keep it.");
    click("Discard");
    EXPECT_EQ(m_closed, 1);
    ASSERT_TRUE(m_discarded);
    EXPECT_EQ(m_discarded->boxes().size(), 2U);
    m_editor.reset();
    EXPECT_FALSE(m_kept);
}

TEST_F(EditorTest, WallpapersAreChosenInPlaceAndUndoneLikeEverything) {
    click("Change the wallpaper");
    WallpaperPicker* const picker = m_editor->wallpaperPicker();
    ASSERT_NE(picker, nullptr);
    EXPECT_FALSE(canvas().isVisible());
    picker->onChosen({"left", "right"}, "/lake.jpg");
    EXPECT_EQ(draft().scene().wallpaper, (SceneWallpaper{{{"left", "/lake.jpg"}, {"right", "/lake.jpg"}}}));
    QTest::keyClick(picker, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(draft().scene().wallpaper, (SceneWallpaper{{{"left", "/lake.jpg"}}}));
    QTest::keyClick(picker, Qt::Key_Escape);
    EXPECT_EQ(m_editor->wallpaperPicker(), nullptr);
    EXPECT_TRUE(canvas().isVisible());
    EXPECT_TRUE(says("lake · Left"));
}

TEST_F(EditorTest, TakesTheDeskWholeOrOnlyTheSelectedWindows) {
    choose("All windows");
    EXPECT_EQ(foot(), "The desk cannot be read.");
    auto open = m_scene.layout.windows;
    open.resize(2);
    open[1].frame.origin = {5, 6};
    m_desk = open;
    canvas().select({box(1), box(2)});
    choose("Only the selected windows");
    EXPECT_EQ(frame(1).origin, (Point{5, 6}));
    EXPECT_EQ(foot(), "1 window of the scene is not open now and stays where it is.");
    choose("All windows");
    EXPECT_EQ(draft().boxes().size(), 2U);
    m_editor.reset();
    ASSERT_TRUE(m_kept);
    EXPECT_EQ(m_kept->changeCount(), 2U);
}

TEST(EditorApplications, AreFoundByNameTheOpenOnesFirst) {
    const std::vector<EditorApplication> all{
        {"w", "writer"}, {"m", "Mail", 2}, {"c", "Chat"}, {"a", "Ärger", 1}};
    const auto titles = [&](const char* searched) {
        std::string found;
        for (const ListRow& row : EditorApplications::rows(all, searched)) {
            found += row.title + row.note + " ";
        }
        return found;
    };
    EXPECT_EQ(titles(""), "Open now Ärger1 Mail2 Installed Chat writer ");
    EXPECT_EQ(titles(" RIT "), "Installed writer ");
    EXPECT_EQ(titles("x"), "");
}

} // namespace
} // namespace vantrel
