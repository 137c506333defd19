// The workbench on a simulated desk: what its tabs show, and what a click, a key or a typed name does.
#include "Vantrel/interface/workbench/Workbench.h"
#include "Vantrel/interface/wallpaper/WallpaperPicker.h"
#include "Vantrel/interface/workbench/desks/DesksPage.h"
#include "Vantrel/interface/workbench/history/HistoryPage.h"
#include "Vantrel/interface/workbench/scenes/SceneDetailView.h"
#include "Vantrel/interface/workbench/scenes/ScenesPage.h"
#include "tests/Vantrel/controller/Story.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>

#include <gmock/gmock.h>

namespace vantrel {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class WorkbenchTest : public testing::Test {
protected:
    WorkbenchTest() {
        story.start();
        story.openPrograms();
        story.learn();
        bench.emplace(*story.controller, Workbench::Services{.keyCode = [](const QKeyEvent& event) {
            return event.key() == Qt::Key_2 ? std::optional<std::int64_t>(19) : std::nullopt;
        }});
    }
    ~WorkbenchTest() override { bench.reset(); }

    void open(std::optional<WorkbenchTab> tab = {}) {
        ASSERT_TRUE(bench->open(tab));
        settle();
    }
    void settle(double seconds = 3) {
        story.runFor(seconds);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
    }
    WorkbenchWindow& window() { return *bench->window(); }
    ScenesPage& scenes() { return dynamic_cast<ScenesPage&>(*window().page()); }

    // By its accessible name or text; null when it is not shown.
    template <typename Widget>
    Widget* find(const char* name) {
        for (auto* const widget : window().template findChildren<Widget*>()) {
            if (widget->isVisible() && widget->accessibleName() == QString::fromUtf8(name)) {
                return widget;
            }
        }
        return nullptr;
    }
    void click(const char* name) {
        for (auto* const button : window().findChildren<QAbstractButton*>()) {
            if (button->isVisible() && (button->accessibleName() == QString::fromUtf8(name) ||
                                        button->text() == QString::fromUtf8(name))) {
                button->click();
                settle();
                return;
            }
        }
        ADD_FAILURE() << "no button " << name;
    }
    void type(const char* field, const char* text) {
        auto* const edit = find<QLineEdit>(field);
        ASSERT_NE(edit, nullptr) << field;
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, text);
    }
    void enter(const char* field, const char* text) {
        type(field, text);
        QTest::keyClick(find<QLineEdit>(field), Qt::Key_Return);
        settle();
    }
    bool says(const char* text) {
        const auto labels = window().findChildren<QLabel*>();
        return std::ranges::any_of(labels, [&](const QLabel* label) {
            return label->isVisible() && label->accessibleName() == QString::fromUtf8(text);
        });
    }
    std::vector<std::string> rail() {
        std::vector<std::string> titles;
        for (const ListRow& row : scenes().rail().rows().rows()) {
            titles.push_back((row.kind == ListRow::Kind::heading ? "# " : "") + row.title);
        }
        return titles;
    }
    void saveScene(const char* name) { enter("Save this desk as a scene", name); }

    simulated::Story story{"laptop-and-monitor"};
    std::optional<Workbench> bench;
};

TEST_F(WorkbenchTest, RemembersSizeAndTabAndIsGoneWhenClosed) {
    open(WorkbenchTab::scenes);
    EXPECT_TRUE(story.published().liveWindows.has_value());
    window().showMinimized();
    settle();
    EXPECT_FALSE(story.published().liveWindows.has_value()) << "nobody sees them";
    window().showNormal();
    settle();
    EXPECT_TRUE(story.published().liveWindows.has_value());
    // The offscreen display is 800 x 800.
    window().resize(780, 600);
    QTest::keyClick(&window(), Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(bench->window(), nullptr);
    settle();
    EXPECT_FALSE(story.published().liveWindows.has_value());
    EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
    open();
    EXPECT_EQ(window().size(), QSize(780, 600));
    EXPECT_EQ(window().tab(), WorkbenchTab::scenes);
    window().toggleHelp();
    EXPECT_NE(QApplication::activePopupWidget(), nullptr);
    window().toggleHelp();
}

TEST_F(WorkbenchTest, ASceneIsMadeRenamedGivenATimeAppliedDeletedAndBroughtBack) {
    open(WorkbenchTab::scenes);
    EXPECT_TRUE(says("No scenes yet"));
    EXPECT_THAT(rail(), IsEmpty());
    saveScene("Write");
    saveScene("Code");
    EXPECT_THAT(rail(), ElementsAre("# This desk", "Write", "Code"));
    type("Save this desk as a scene", "write");
    EXPECT_TRUE(says("That name is used by another scene."));

    // What is half typed stays while something else changes and another tab is shown.
    QTest::keyClick(&window(), Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ(window().tab(), WorkbenchTab::history);
    QTest::keyClick(&window(), Qt::Key_1, Qt::ControlModifier);
    ASSERT_EQ(scenes().content().detail->name, "Write");
    type("Name of the scene", "Let");
    ASSERT_TRUE(story.controller->scenes().setPinned(true, story.published().scenes[1].id));
    settle();
    EXPECT_EQ(find<QLineEdit>("Name of the scene")->text(), "Let");
    EXPECT_EQ(find<QLineEdit>("Save this desk as a scene")->text(), "write");
    type("Name of the scene", "code");
    EXPECT_TRUE(says("That name is used by another scene."));
    enter("Name of the scene", "Letters");
    EXPECT_THAT(rail(), ElementsAre("# This desk", "Letters", "Code"));

    click("Add a time");
    enter("Time at which the scene is applied", "25:00");
    EXPECT_TRUE(says("A time needs an hour from 0 to 23 and a minute from 0 to 59."));
    enter("Time at which the scene is applied", "9:30");
    EXPECT_TRUE(says("Every day at 9:30 AM"));
    EXPECT_TRUE(says("Next: Today 9:30 AM"));
    click("Remove “Every day at 9:30 AM”");
    EXPECT_THAT(story.published().triggers, IsEmpty());
    EXPECT_THAT(window().notices().text().toStdString(), HasSubstr("9:30 AM"));
    click("Undo the deletion");
    EXPECT_TRUE(says("Every day at 9:30 AM"));

    const Rect home = story.frame(story.mail);
    story.move(story.mail, {{300, 200}, home.size});
    settle();
    EXPECT_TRUE(says("1 window has moved"));
    click("Apply");
    EXPECT_EQ(story.frame(story.mail), home);
    EXPECT_TRUE(says("Every window is in its place"));

    const auto first = story.published().scenes[0].id;
    scenes().rail().setFocus();
    QTest::keyClick(&scenes().rail(), Qt::Key_Down, Qt::AltModifier);
    settle();
    EXPECT_THAT(rail(), ElementsAre("# This desk", "Code", "Letters"));
    EXPECT_EQ(scenes().rail().chosen(), first);
    QTest::keyClick(&scenes().rail(), Qt::Key_Down, Qt::AltModifier);
    QTest::keyClick(&scenes().rail(), Qt::Key_Up, Qt::AltModifier);
    settle();
    EXPECT_THAT(rail(), ElementsAre("# This desk", "Letters", "Code"));

    // The next one takes its place; Undo brings it back with everything that belongs to it.
    const auto before = story.published().scenes;
    scenes().rail().setFocus();
    QTest::keyClick(&scenes().rail(), Qt::Key_Delete);
    settle();
    EXPECT_THAT(rail(), ElementsAre("# This desk", "Code"));
    EXPECT_EQ(scenes().content().detail->name, "Code");
    EXPECT_FALSE(scenes().content().detail->remove.isPossible) << "a pinned scene is protected";
    QTest::keyClick(&scenes().rail(), Qt::Key_Delete);
    settle();
    EXPECT_EQ(window().notices().text().toStdString(), "The scene \"Letters\" was deleted.");
    QTest::keyClick(&window(), Qt::Key_Z, Qt::ControlModifier);
    settle();
    EXPECT_EQ(story.published().scenes, before);
    EXPECT_TRUE(window().notices().isHidden());
}

TEST_F(WorkbenchTest, AnEditedSceneIsAppliedOnceSavedAndItsChangesSurviveClosingAndDiscarding) {
    open(WorkbenchTab::scenes);
    saveScene("Write");
    const Rect before = story.frame(story.mail);
    const auto sceneEditor = [&]() -> SceneEditor& { return *scenes().editor(); };
    const auto changes = [&] { return sceneEditor().draft().changeCount(); };
    click("Edit");
    ASSERT_NE(scenes().editor(), nullptr);
    EXPECT_EQ(find<ListRowsView>("Tabs"), nullptr);
    const auto& boxes = sceneEditor().draft().boxes();
    const auto mail = std::ranges::find(boxes, before, [](const auto& box) { return box.record.frame; });
    ASSERT_NE(mail, boxes.end());
    sceneEditor().canvas().select({mail->id});
    QTest::keyClick(&sceneEditor().canvas(), Qt::Key_Down, Qt::ShiftModifier);
    const auto applied = [&] { return story.frame(story.mail).minY() - before.minY(); };

    const auto stored = story.published().scenes;
    const auto lastApplied = story.published().lastAppliedSceneID;
    click("Try it");
    EXPECT_EQ(applied(), 10);
    EXPECT_EQ(story.published().scenes, stored);
    EXPECT_EQ(story.published().lastAppliedSceneID, lastApplied);
    click("Go back");
    EXPECT_EQ(applied(), 0);

    window().close();
    settle();
    open(WorkbenchTab::scenes);
    click("Edit");
    EXPECT_EQ(changes(), 1U);
    click("Discard");
    EXPECT_EQ(scenes().editor(), nullptr);
    QTest::keyClick(&window(), Qt::Key_Z, Qt::ControlModifier);
    settle();
    ASSERT_NE(scenes().editor(), nullptr);
    EXPECT_EQ(changes(), 1U);

    click("Save");
    EXPECT_TRUE(says("The scene was saved."));
    EXPECT_EQ(changes(), 0U);
    click("Back to the scenes");
    click("Apply");
    EXPECT_EQ(applied(), 10);

    type("Save this desk as a scene", "Meet");
    click("Make an empty scene with this name and edit it");
    ASSERT_NE(scenes().editor(), nullptr);
    EXPECT_TRUE(sceneEditor().draft().boxes().empty());
    EXPECT_THAT(sceneEditor().applications().rows().rows(), Not(IsEmpty()));
}

TEST_F(WorkbenchTest, ASceneGetsItsWallpapersInThePlaceOfItsFacts) {
    open(WorkbenchTab::scenes);
    saveScene("Write");
    const std::string first = story.published().displays.front().uuid;
    click("Change the wallpaper");
    auto* const picker = scenes().wallpaperPicker();
    ASSERT_NE(picker, nullptr);
    EXPECT_FALSE(find<QAbstractButton>("Change the wallpaper"));
    picker->onChosen({first}, "/lake.jpg");
    settle();
    EXPECT_EQ(story.published().scenes[0].wallpaper, (SceneWallpaper{{{first, "/lake.jpg"}}}));
    EXPECT_THAT(Settings(story.defaults).wallpaperRecents(), ElementsAre("/lake.jpg"));
    QTest::keyClick(picker, Qt::Key_Escape);
    settle();
    EXPECT_EQ(scenes().wallpaperPicker(), nullptr);
    EXPECT_EQ(scenes().content().detail->wallpapers.size(), 1U);
    // It closes by itself when its scene is deleted.
    click("Change the wallpaper");
    ASSERT_TRUE(story.controller->scenes().deleteScene(story.published().scenes[0].id));
    settle();
    EXPECT_EQ(scenes().wallpaperPicker(), nullptr);
}

TEST_F(WorkbenchTest, OffersToUndoWhatAnotherClientDeletesUntilThatIsUndone) {
    open(WorkbenchTab::scenes);
    saveScene("Write");
    const std::string id = story.published().scenes[0].id;
    ASSERT_TRUE(story.controller->scenes().deleteScene(id));
    settle();
    EXPECT_TRUE(window().notices().offersUndo());
    ASSERT_TRUE(story.controller->deletions().putBack());
    settle();
    EXPECT_TRUE(window().notices().isHidden());
    EXPECT_THAT(rail(), ElementsAre("# This desk", "Write"));
}

TEST_F(WorkbenchTest, SearchesScenesAndTheirAppsAndReturnsToTheChosenOne) {
    open(WorkbenchTab::scenes);
    saveScene("Write");
    saveScene("Code");
    QTest::keyClick(&scenes().rail(), Qt::Key_Down);
    ASSERT_EQ(scenes().content().detail->name, "Code");
    QTest::keyClick(&window(), Qt::Key_F, Qt::ControlModifier);
    auto* const search = find<QLineEdit>("Search scenes");
    EXPECT_TRUE(search->hasFocus());
    QTest::keyClicks(search, "wRI");
    EXPECT_THAT(rail(), ElementsAre("# This desk", "Write"));
    EXPECT_EQ(scenes().content().detail->name, "Write");
    search->setText("mail");
    EXPECT_THAT(rail(), ElementsAre("# This desk", "Write", "Code"));
    search->setText("nothing like it");
    EXPECT_TRUE(says("No scene found"));
    QTest::keyClick(search, Qt::Key_Escape);
    EXPECT_EQ(scenes().content().detail->name, "Code");
}

TEST_F(WorkbenchTest, DesksSaysWhatARestoreWouldDoAndKeepsLayoutsAndStashes) {
    open(WorkbenchTab::desks);
    auto& page = dynamic_cast<DesksPage&>(*window().page());
    const auto& content = page.content();
    const auto detail = [&]() -> const DesksContent::Detail& { return content.detail.value(); };
    EXPECT_THAT(detail().subtitle, testing::StartsWith("Here now · 4 windows · learned "));
    EXPECT_THAT(detail().lines, IsEmpty());
    EXPECT_EQ(detail().inPlace, "4 windows are in place");
    const Rect home = story.frame(story.mail);
    story.move(story.mail, {{300, 200}, home.size});
    settle();
    ASSERT_EQ(detail().lines.size(), 1U);
    EXPECT_EQ(detail().lines[0].title, "Mail");
    EXPECT_EQ(detail().lines[0].note, "would move, the same window");
    EXPECT_EQ(detail().drawing.windows.at(detail().drawn.at(detail().lines[0].id)).appName, "Mail");
    click("Restore");
    EXPECT_EQ(story.frame(story.mail), home);
    EXPECT_THAT(detail().lines, IsEmpty());

    enter("Name of the desk", "Office");
    EXPECT_EQ(story.published().deskName(), "Office");
    story.controller->stashes().stashNow([](const auto&) {});
    settle();
    EXPECT_TRUE(says("Stash of 4 windows"));
    click("Delete the stash");
    EXPECT_FALSE(says("Stash of 4 windows"));
    click("Undo the deletion");
    EXPECT_TRUE(says("Stash of 4 windows"));
    click("Keep this layout as it is");
    EXPECT_TRUE(story.published().activePinned);
    click("Learn this layout again");
    EXPECT_FALSE(story.published().activePinned);
}

TEST_F(WorkbenchTest, AnAbsentDeskIsRenamedAppliedForgottenAndBroughtBack) {
    ASSERT_EQ(story.controller->desks().rename(story.published().configID, "Office").kind,
              LayoutChange::Kind::done);
    const std::string office = story.published().configID;
    story.connect("laptop");
    story.learn();
    open(WorkbenchTab::desks);
    auto& page = dynamic_cast<DesksPage&>(*window().page());
    const auto& content = page.content();
    ASSERT_EQ(content.cards.size(), 2U);
    EXPECT_TRUE(content.detail->isPresent);
    page.cards().setFocus();
    QTest::keyClick(&page.cards(), Qt::Key_Right);
    settle();
    ASSERT_EQ(content.detail->configID, office);
    EXPECT_EQ(content.detail->drawing.displays.size(), 2U);
    EXPECT_EQ(content.detail->previewTitle, "If it were applied here now");
    EXPECT_FALSE(content.detail->lines.empty());
    enter("Name of the desk", "Studio");
    EXPECT_EQ(content.detail->name, "Studio");

    type("Search desks", "STUDIO");
    EXPECT_EQ(content.cards.size(), 1U);
    type("Search desks", "mail");
    EXPECT_EQ(content.cards.size(), 2U);
    type("Search desks", "nothing like it");
    EXPECT_EQ(content.detail, std::nullopt);
    find<QLineEdit>("Search desks")->clear();
    settle();
    ASSERT_EQ(content.detail->configID, office);

    const auto remembered = story.published().desks;
    page.cards().setFocus();
    QTest::keyClick(&page.cards(), Qt::Key_Delete);
    settle();
    EXPECT_EQ(content.cards.size(), 1U);
    EXPECT_THAT(window().notices().text().toStdString(), HasSubstr("Studio"));
    click("Undo the deletion");
    EXPECT_EQ(content.cards.size(), 2U);
    EXPECT_EQ(story.published().desks, remembered);
}

TEST_F(WorkbenchTest, TheHistoryShowsEveryWindowFiltersAndUndoesTheNewest) {
    open(WorkbenchTab::history);
    EXPECT_TRUE(says("Nothing was put back yet"));
    const Rect home = story.frame(story.mail);
    const Rect away{{300, 200}, home.size};
    story.move(story.mail, away);
    story.controller->restoreNow(RestoreSource::menu);
    settle();
    auto& page = dynamic_cast<HistoryPage&>(*window().page());
    const auto& content = page.content();
    ASSERT_EQ(content.rows.size(), 2U);
    EXPECT_EQ(content.rows[0].title, "Today");
    EXPECT_EQ(content.rows[1].title, "Restore now");
    ASSERT_TRUE(content.detail.has_value());
    ASSERT_EQ(content.detail->lines.size(), 1U);
    EXPECT_EQ(content.detail->lines[0].note, "Put back");
    EXPECT_EQ(content.detail->inPlace, "3 windows were in place already");
    click("3 windows were in place already");
    EXPECT_EQ(content.detail->lines.size(), 4U);
    ASSERT_TRUE(content.detail->drawing.has_value());
    EXPECT_EQ(content.detail->drawing->movedCount(), 1U);
    EXPECT_EQ(content.days.back(), 4);
    click("Copy as text");
    EXPECT_THAT(QApplication::clipboard()->text().toStdString(), HasSubstr("Mail — Inbox: Put back\n"));

    click("Problems");
    EXPECT_TRUE(says("Nothing found"));
    click("Problems");
    type("Search the history", "no such app");
    EXPECT_TRUE(says("Nothing found"));
    type("Search the history", "mail");
    click("Apps");
    ASSERT_EQ(content.rows.size(), 1U);
    EXPECT_EQ(content.rows[0].detail, "1 put back");
    click("Restores");

    click("Undo");
    EXPECT_EQ(story.frame(story.mail), away);
    ASSERT_EQ(content.rows.size(), 3U);
    EXPECT_EQ(content.rows[1].title, "Undo");
    EXPECT_EQ(content.detail->title, "Undo") << "the newest is open until the user opens another one";
    EXPECT_FALSE(content.detail->canUndo);
    QTest::keyClick(&page.rows(), Qt::Key_Down);
    story.controller->restoreNow(RestoreSource::menu);
    settle();
    EXPECT_EQ(content.rows.size(), 4U);
    EXPECT_EQ(content.detail->lines[0].note, "Put back");
    EXPECT_FALSE(content.detail->canUndo) << "the older one stays open";
}

TEST(HistoryContent, GroupsByDayNamesTheCauseAndSumsUpThirtyDays) {
    const Date now = *dateFromIso8601("2026-11-24T00:30:00Z");
    HistoryContent::Context context{.now = now, .zone = TimeZone::posix("CET-1").value()};
    const auto add = [&](std::chrono::minutes age, const char* reason, const char* scene = nullptr) {
        RestoreLog::Entry entry;
        entry.date = now - age;
        entry.reason = reason;
        entry.configID = "desk";
        if (scene != nullptr) {
            entry.sceneName = scene;
        }
        context.log.entries.push_back(entry);
    };
    using std::chrono::hours;
    add(hours(1), "Studio Display reconnected");
    add(hours(2), "switch layout (Evening) (abandoned: the displays changed)");
    add(hours(3), "undo (scene)", "Write");
    add(hours(30), "trigger schedule", "Write");
    add(hours(24 * 6), "stash");
    add(hours(24 * 40), "display change");
    PublishedState state;
    state.receipts.entries = {{now - hours(24 * 30), 100}, {now - hours(24 * 29), 5}, {now, 2}};
    const auto content = HistoryContent::of(state, context);
    std::vector<std::string> titles;
    for (const ListRow& row : content.rows) {
        titles.push_back(row.title);
    }
    EXPECT_THAT(titles, ElementsAre("Today", "Studio Display reconnected", "Yesterday", "Layout “Evening”",
                                    "Undo", "Sunday", "Scene “Write”", "Wednesday", "Stash brought back",
                                    "15 October", "The displays changed"));
    EXPECT_EQ(content.rows[1].note, "12:30 AM");
    EXPECT_EQ(content.days.front(), 5);
    EXPECT_EQ(content.daysText, "7 windows put back in 30 days");
}

TEST(ListRowsModel, TellsViewsExactlyWhatChangesAndKeepsTheChosenRow) {
    const auto rows = [](const char* ids) {
        std::vector<ListRow> result;
        for (const char id : std::string_view(ids)) {
            result.push_back({.id = std::string(1, id), .title = std::string(1, id)});
        }
        return result;
    };
    ListRowsView view(nullptr);
    std::vector<std::string> chosen;
    view.onChosen = [&](const std::string& id) { chosen.push_back(id); };
    view.show(rows("abcdef"));
    view.choose("c");
    for (const char* const ids : {"cab", "xcyab", "fedcba", "c", "abcdef"}) {
        const QPersistentModelIndex kept = view.currentIndex();
        view.show(rows(ids));
        EXPECT_EQ(view.rows().rows(), rows(ids));
        EXPECT_TRUE(kept.isValid());
        EXPECT_EQ(view.chosen(), "c") << ids;
    }
    view.show(rows("ab"));
    EXPECT_EQ(view.chosen(), "");
    EXPECT_THAT(chosen, IsEmpty()) << "only the user chooses";
}

} // namespace

} // namespace vantrel
