// What the scene editor's commands do, and laws that hold for any boxes and displays.
#include "VantrelCore/studio/Distances.h"
#include "VantrelCore/studio/GroupArrangement.h"
#include "VantrelCore/studio/Rehoming.h"
#include "VantrelCore/studio/SceneDraft.h"
#include "VantrelCore/studio/SizeLimit.h"
#include "VantrelCore/studio/TakenFromDesk.h"
#include "VantrelCore/studio/Zones.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <numeric>
#include <rapidcheck.h>

namespace vantrel {
namespace {

double number(int from, int to) {
    return *rc::gen::inRange(from, to);
}

Rect anyFrame() {
    return {{number(-6000, 6000), number(-4000, 4000)}, {number(40, 3000), number(40, 2000)}};
}

DisplayInfo display(const std::string& uuid, const Rect& frame) {
    DisplayInfo display;
    display.uuid = uuid;
    display.name = uuid;
    display.frame = frame;
    display.visibleFrame = Rect{{frame.minX(), frame.minY() + 25}, {frame.width(), frame.height() - 25}};
    return display;
}

WindowRecord window(const std::string& app, const Rect& frame) {
    WindowRecord record;
    record.bundleID = app;
    record.appName = app;
    record.frame = frame;
    return record;
}

// Side by side, each at a height of its own.
std::vector<DisplayInfo> anyDisplays() {
    std::vector<DisplayInfo> displays;
    double x = number(-4000, 1);
    for (int i = *rc::gen::inRange(1, 5); i > 0; --i) {
        const Rect frame{{x, number(-1500, 1500)}, {number(800, 7681), number(600, 4321)}};
        displays.push_back(display("display " + std::to_string(i), frame));
        x = frame.maxX();
    }
    return displays;
}

bool isInside(const Rect& inner, const Rect& outer) {
    constexpr double slack = 1e-6;
    return inner.minX() >= outer.minX() - slack && inner.maxX() <= outer.maxX() + slack &&
           inner.minY() >= outer.minY() - slack && inner.maxY() <= outer.maxY() + slack;
}

bool isOnADisplay(const Rect& frame, const std::vector<DisplayInfo>& displays) {
    return std::ranges::any_of(displays,
                               [&](const DisplayInfo& each) { return isInside(frame, each.usableFrame()); });
}

TEST(Zones, TileTheDisplayWithEqualGaps) {
    using enum Zone;
    const std::vector<std::vector<Zone>> tilings{
        {full},
        {leftHalf, rightHalf},
        {upperHalf, lowerHalf},
        {leftThird, middleThird, rightThird},
        {leftTwoThirds, rightThird},
        {leftThird, rightTwoThirds},
        {upperLeftQuarter, upperRightQuarter, lowerLeftQuarter, lowerRightQuarter}};
    EXPECT_TRUE(rc::check("tile", [&] {
        const Rect usable{{number(-5000, 5000), number(-5000, 5000)}, {number(400, 8000), number(400, 5000)}};
        const double gap = number(0, 40);
        for (const auto& tiling : tilings) {
            double area = 0;
            for (std::size_t i = 0; i < tiling.size(); ++i) {
                const Rect frame = Zones::frame(tiling[i], usable, gap);
                RC_ASSERT(isInside(frame, usable));
                // Grown by half the gap, neighbours meet exactly: together they cover all, and none overlaps.
                area += (frame.width() + gap) * (frame.height() + gap);
                for (std::size_t j = 0; j < i; ++j) {
                    RC_ASSERT(intersection(frame, Zones::frame(tiling[j], usable, gap)).area() < 1e-6);
                }
            }
            RC_ASSERT(std::abs(area - (usable.width() + gap) * (usable.height() + gap)) < 1e-3);
        }
    }));
}

TEST(Zones, AreChosenByTheDropPoint) {
    const Rect usable{{100, 50}, {1200, 900}};
    const std::pair<Point, std::optional<Zone>> drops[] = {
        {{110, 500}, Zone::leftHalf},
        {{1290, 500}, Zone::rightHalf},
        {{700, 55}, Zone::full},
        {{110, 55}, Zone::upperLeftQuarter},
        {{1290, 945}, Zone::lowerRightQuarter},
        {{200, 945}, Zone::leftThird},
        {{500, 945}, Zone::leftTwoThirds},
        {{700, 945}, Zone::middleThird},
        {{900, 945}, Zone::rightTwoThirds},
        {{1200, 945}, Zone::rightThird},
        {{700, 500}, std::nullopt},
    };
    for (const auto& [point, zone] : drops) {
        EXPECT_EQ(Zones::at(point, usable, 24), zone) << point.x << "," << point.y;
    }
    EXPECT_EQ(Zones::at({0, 0}, {}, 24), std::nullopt);
}

TEST(Rehoming, KeepsBoxesOnDisplaysAndRestoresSizesThatFit) {
    EXPECT_TRUE(rc::check("rehome", [] {
        const auto displays = anyDisplays();
        const Rect before = Rehoming::placed(anyFrame(), displays);
        const Rect wanted{{number(-6000, 9000), number(-4000, 4000)}, before.size};
        const Rect there = Rehoming::placed(wanted, displays);
        RC_ASSERT(isOnADisplay(there, displays));
        RC_ASSERT(Rehoming::home(there, displays) == Rehoming::home(wanted, displays));
        RC_ASSERT(there.width() <= before.width() + 1e-9);
        // The drag keeps the size from before, so going back undoes it.
        const Rect back{before.origin, before.size};
        RC_ASSERT(approxEqual(Rehoming::placed(back, displays), before, 1e-6));
    }));
    EXPECT_EQ(Rehoming::placed({{5, 5}, {10, 10}}, {}), (Rect{{5, 5}, {10, 10}}));
}

TEST(GroupArrangement, FillsTheAreaWithoutOverlapAndRespectsMinimumSizes) {
    using GroupArrangement::Form;
    EXPECT_TRUE(rc::check("arrange", [] {
        const Rect area{{number(-3000, 3000), number(-2000, 2000)}, {number(600, 5000), number(500, 3000)}};
        const double gap = number(0, 20);
        std::vector<GroupArrangement::Box> boxes;
        for (int i = *rc::gen::inRange(1, 10); i > 0; --i) {
            boxes.push_back({anyFrame(), {number(0, 700), number(0, 500)}});
        }
        for (const Form form : {Form::columns, Form::rows, Form::grid, Form::mainAndStack}) {
            const auto frames = GroupArrangement::arranged(form, boxes, area, gap);
            if (!frames) {
                continue;
            }
            RC_ASSERT(frames->size() == boxes.size());
            double covered = 0;
            for (std::size_t i = 0; i < boxes.size(); ++i) {
                const Rect& frame = (*frames)[i];
                RC_ASSERT(isInside(frame, area));
                RC_ASSERT(frame.width() > boxes[i].minimum.width - 1e-3);
                RC_ASSERT(frame.height() > boxes[i].minimum.height - 1e-3);
                covered += (frame.width() + gap) * (frame.height() + gap);
                for (std::size_t j = 0; j < i; ++j) {
                    RC_ASSERT(intersection(frame, (*frames)[j]).area() < 1e-3);
                }
            }
            RC_ASSERT(std::abs(covered - (area.width() + gap) * (area.height() + gap)) < 1);
        }
    }));
    // Without minimum sizes everything fits, and equal shares are equal.
    const std::vector<GroupArrangement::Box> three(3, {{{0, 0}, {100, 100}}, {}});
    EXPECT_EQ(GroupArrangement::arranged(Form::columns, three, {{0, 0}, {920, 400}}, 10),
              (std::vector<Rect>{{{0, 0}, {300, 400}}, {{310, 0}, {300, 400}}, {{620, 0}, {300, 400}}}));
    const std::vector<GroupArrangement::Box> wide(2, {{{0, 0}, {100, 100}}, {600, 10}});
    EXPECT_EQ(GroupArrangement::arranged(Form::columns, wide, {{0, 0}, {1000, 400}}, 0), std::nullopt);
}

TEST(GroupArrangement, AlignsDistributesAndEqualizes) {
    using namespace GroupArrangement;
    const std::vector<Rect> frames{{{0, 10}, {100, 50}}, {{500, 40}, {100, 20}}, {{150, 0}, {50, 90}}};
    EXPECT_EQ(aligned(Line::right, frames)[0].maxX(), 600);
    EXPECT_EQ(aligned(Line::bottom, frames)[1].maxY(), 90);
    EXPECT_EQ(aligned(Line::centreDown, frames)[1].center().y, 45);
    const auto spread = distributed(Axis::across, frames);
    EXPECT_EQ(spread[2].minX() - spread[0].maxX(), spread[1].minX() - spread[2].maxX());
    EXPECT_EQ(spread[1], frames[1]);
    const auto equal = equalized(Axis::across, {{frames[0]}, {frames[2], {120, 0}}});
    EXPECT_EQ(equal[0].width(), 120);
    EXPECT_EQ(equal[1].width(), 120);
}

// A scene with gaps in its order of windows and an unknown display, as files have them.
Scene anyScene(const std::vector<DisplayInfo>& displays) {
    Scene scene = Scene::make("Work", "desk", {}, Date{});
    scene.layout.displays = displays;
    for (int i = *rc::gen::inRange(0, 7); i > 0; --i) {
        WindowRecord record = window("app" + std::to_string(i % 3), anyFrame());
        record.displayUUID = "gone";
        record.zOrder = *rc::gen::inRange(0, 20);
        scene.layout.windows.push_back(record);
    }
    return scene;
}

SceneDraft::Command anyCommand(const SceneDraft& draft) {
    const auto anyBox = [&] { return draft.boxes().empty() ? 0 : (*rc::gen::elementOf(draft.boxes())).id; };
    switch (*rc::gen::inRange(0, 9)) {
    case 0:
        return SceneDraft::Place{{{anyBox(), anyFrame()}, {anyBox(), anyFrame()}}};
    case 1:
        return SceneDraft::Add{{window("new", anyFrame())}};
    case 2:
        return SceneDraft::Remove{{anyBox()}};
    case 3:
        return SceneDraft::Duplicate{{anyBox(), anyBox()}};
    case 4:
        return SceneDraft::Retitle{anyBox(), *rc::gen::element<std::string>("", "Inbox")};
    case 5:
        return SceneDraft::SetGhost{anyBox(), *rc::gen::arbitrary<bool>()};
    case 6:
        return SceneDraft::Order{
            anyBox(), *rc::gen::element(SceneDraft::Order::Step::forward, SceneDraft::Order::Step::toBack)};
    case 7:
        return SceneDraft::SetOpensMissingApps{*rc::gen::arbitrary<bool>()};
    default:
        return SceneDraft::SetWallpaper{"display 1", *rc::gen::element<std::optional<std::string>>(
                                                         std::nullopt, std::string("/hills.png"))};
    }
}

TEST(SceneDraft, AsManyUndosAsCommandsRestoreTheSceneToTheByte) {
    EXPECT_TRUE(rc::check("undo", [] {
        const auto displays = anyDisplays();
        const Scene scene = anyScene(displays);
        const std::string before = nlohmann::json(scene).dump();
        SceneDraft draft(scene, {{"app1", AppSizeBehavior::MinClamped{{480, 300}}},
                                 {"app2", AppSizeBehavior::FixedSize{{400, 250}}}});
        RC_ASSERT(nlohmann::json(draft.scene()).dump() == before);
        std::set<SceneDraft::BoxID> edited;
        for (int i = *rc::gen::inRange(1, 30); i > 0; --i) {
            const auto command = anyCommand(draft);
            const auto added = draft.apply(command);
            edited.insert(added.begin(), added.end());
            if (const auto* place = std::get_if<SceneDraft::Place>(&command)) {
                for (const auto& [id, frame] : place->frames) {
                    edited.insert(id);
                }
            }
        }
        for (const SceneDraft::Box& box : draft.boxes()) {
            RC_ASSERT(!edited.contains(box.id) || isOnADisplay(box.record.frame, displays));
        }
        const Scene after = draft.scene();
        std::size_t steps = 0;
        for (; draft.canUndo(); ++steps) {
            draft.undo();
        }
        RC_ASSERT(nlohmann::json(draft.scene()).dump() == before);
        RC_ASSERT(!draft.isDirty());
        for (; steps > 0; --steps) {
            draft.redo();
        }
        RC_ASSERT(draft.scene() == after);
    }));
}

class SceneDraftTest : public testing::Test {
protected:
    SceneDraftTest() {
        scene.layout.displays = {display("left", {{0, 0}, {1920, 1080}}),
                                 display("right", {{1920, 0}, {1280, 800}})};
        for (const char* const app : {"mail", "notes", "code"}) {
            WindowRecord record = window(app, {{100, 100}, {600, 400}});
            record.displayUUID = "left";
            record.zOrder = std::ssize(scene.layout.windows);
            record.states.isMaximizedHorizontally = true;
            scene.layout.windows.push_back(record);
        }
    }

    [[nodiscard]] std::string stacked(const SceneDraft& draft) const {
        std::string names;
        for (const auto id : draft.stack()) {
            names += draft.box(id)->record.bundleID + " ";
        }
        return names;
    }

    Scene scene = Scene::make("Work", "desk", {}, Date{});
};

TEST_F(SceneDraftTest, PlacedOnAnotherDisplayABoxBelongsThereAndIsOrdinary) {
    SceneDraft draft(scene, {{"notes", AppSizeBehavior::MinClamped{{480, 300}}}});
    const auto notes = draft.boxes()[1].id;
    draft.apply(SceneDraft::Place{{{notes, {{2000, 700}, {300, 200}}}}});
    const WindowRecord& record = draft.box(notes)->record;
    EXPECT_EQ(record.frame, (Rect{{2000, 500}, {480, 300}}));
    EXPECT_EQ(record.displayUUID, "right");
    EXPECT_EQ(record.states, PlaceStates{});
    EXPECT_EQ(draft.changeCount(), 1U);
    // The same place again is no step.
    draft.apply(SceneDraft::Place{{{notes, record.frame}}});
    EXPECT_EQ(draft.changeCount(), 1U);
}

TEST(SizeLimitTest, SaysWhichSizesAnApplicationDoesNotTake) {
    const AppSizeBehavior::Classification fixed = AppSizeBehavior::FixedSize{{600, 500}};
    const AppSizeBehavior::Classification clamped = AppSizeBehavior::MinClamped{{480, 300}};
    EXPECT_EQ(SizeLimit::problem("Mail", fixed, {600, 400}), "Mail is always 600 × 500.");
    EXPECT_EQ(SizeLimit::problem("Notes", clamped, {300, 200}), "Notes is never narrower than 480.");
    EXPECT_EQ(SizeLimit::problem("Notes", clamped, {500, 200}), "Notes is never lower than 300.");
    EXPECT_EQ(SizeLimit::problem("Notes", clamped, {478, 300}), "");
    EXPECT_EQ(SizeLimit::accepted(clamped, {500, 200}), (Size{500, 300}));
    EXPECT_EQ(SizeLimit::accepted(fixed, {900, 900}), (Size{600, 500}));
    EXPECT_EQ(SizeLimit::fact("Code", AppSizeBehavior::Flexible{}), "");
}

TEST(DistancesTest, ReachTheNearestBoxBesideElseTheEdge) {
    const Rect usable{{0, 20}, {1000, 580}};
    // One to the right, one further right behind it, one that reaches across the lower edge, and one that is
    // only diagonal.
    const std::vector<Rect> others{
        {{500, 100}, {100, 100}}, {{700, 100}, {100, 100}}, {{150, 180}, {300, 300}}, {{500, 500}, {50, 50}}};
    const auto found = Distances::of({{200, 100}, {200, 100}}, others, usable);
    EXPECT_EQ(found, (std::vector<Distances::Distance>{
                         {{200, 150}, {0, 150}}, {{400, 150}, {500, 150}}, {{300, 100}, {300, 20}}}));
    EXPECT_EQ(found[1].length(), 100);
    EXPECT_TRUE(Distances::of(usable, {}, usable).empty());
}

TEST_F(SceneDraftTest, TakesFramesFromOpenWindowsAndKeepsSlotsOfAppsThatAreNotOpen) {
    scene.layout.windows[2].isGhost = true;
    SceneDraft draft(scene);
    auto open = scene.layout.windows;
    open.resize(2);
    open[1].frame.origin = {700, 70};
    const auto all = TakenFromDesk::all(draft, open);
    ASSERT_EQ(all.size(), 3U);
    EXPECT_EQ(all[2].bundleID, "code");
    EXPECT_EQ(all[2].zOrder, 2);
    const auto notes = draft.boxes()[1].id;
    const auto frames = TakenFromDesk::frames(draft, {notes, draft.boxes()[2].id}, open);
    EXPECT_EQ(frames, (std::map<SceneDraft::BoxID, Rect>{{notes, open[1].frame}}));
}

TEST_F(SceneDraftTest, ChangesTheOrderStepByStepAndAddsBoxesInFront) {
    SceneDraft draft(scene);
    EXPECT_EQ(stacked(draft), "mail notes code ");
    const auto code = draft.boxes()[2].id;
    draft.apply(SceneDraft::Order{code, SceneDraft::Order::Step::forward});
    EXPECT_EQ(stacked(draft), "mail code notes ");
    draft.apply(SceneDraft::Order{code, SceneDraft::Order::Step::toFront});
    draft.apply(SceneDraft::Order{code, SceneDraft::Order::Step::forward});
    EXPECT_EQ(draft.changeCount(), 2U);
    const auto copies = draft.apply(SceneDraft::Duplicate{{code, draft.boxes()[0].id}});
    EXPECT_EQ(stacked(draft), "code mail code mail notes ");
    ASSERT_EQ(copies.size(), 2U);
    EXPECT_EQ(draft.box(copies[0])->record.frame.minX(), 128);
}

TEST_F(SceneDraftTest, NeverOverwritesChangesMadeElsewhere) {
    SceneDraft draft(scene);
    draft.apply(SceneDraft::Remove{{draft.boxes()[0].id}});
    Scene elsewhere = scene;
    elsewhere.name = "Renamed";
    EXPECT_FALSE(draft.conflictsWith(elsewhere));
    EXPECT_EQ(draft.mergedInto(elsewhere).name, "Renamed");
    EXPECT_EQ(draft.mergedInto(elsewhere).layout.windows.size(), 2U);
    elsewhere.layout.windows[2].frame.origin.x += 10;
    EXPECT_TRUE(draft.conflictsWith(elsewhere));
    draft.saved(draft.mergedInto(scene));
    EXPECT_FALSE(draft.isDirty());
    EXPECT_EQ(draft.changeCount(), 0U);
    draft.undo();
    EXPECT_TRUE(draft.isDirty());
    EXPECT_EQ(draft.changeCount(), 1U);
    EXPECT_EQ(draft.scene().layout.windows.size(), 3U);
}

} // namespace
} // namespace vantrel
