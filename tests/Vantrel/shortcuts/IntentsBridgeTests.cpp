#include "Vantrel/commands/IntentsBridge.h"
#include "Vantrel/commands/VantrelIntents.h"
#include "tests/Vantrel/controller/Story.h"

#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>

namespace vantrel::simulated {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Answer = std::pair<VantrelIntentOutcome, std::string>;
using Answers = std::vector<Answer>;

void keep(void* context, VantrelIntentOutcome outcome, const char* message) {
    static_cast<Answers*>(context)->emplace_back(outcome, message);
}

std::vector<SceneEntity> scenes() {
    std::vector<SceneEntity> visited;
    vantrelVisitScenes(&visited, [](void* context, const char* id, const char* name) {
        static_cast<std::vector<SceneEntity>*>(context)->push_back({id, name});
    });
    return visited;
}

struct ShortcutsActions : testing::Test {
    Story story;
    std::vector<std::optional<std::string>> filters;
    std::unique_ptr<IntentsBridge> bridge;
    Answers answers;

    ShortcutsActions() {
        story.openPrograms();
        story.start();
        bridge = std::make_unique<IntentsBridge>(*story.controller,
                                                 [this](const auto& name) { filters.push_back(name); });
    }

    Answer next() {
        story.runFor(5);
        return answers.empty() ? Answer{VantrelIntentNotRunning, "no answer"}
                               : std::exchange(answers, {}).front();
    }
};

TEST_F(ShortcutsActions, SayWhyNothingHappened) {
    const std::string cannotMove = "Nothing moved. This desk has no saved layout yet, or Vantrel is paused, "
                                   "missing Accessibility permission, or past its trial.";
    vantrelRestoreNow(&answers, keep);
    EXPECT_EQ(next(), Answer(VantrelIntentNothingHappened, cannotMove));
    vantrelUndoLastRestore(&answers, keep);
    EXPECT_EQ(next(), Answer(VantrelIntentNothingHappened, "There is nothing to undo."));
    vantrelApplyScene("deleted", &answers, keep);
    EXPECT_EQ(next(), Answer(VantrelIntentNothingHappened, "That scene no longer exists."));
    vantrelSaveScene(nullptr, &answers, keep);
    EXPECT_EQ(next(), Answer(VantrelIntentNothingHappened, "A scene needs a name."));
}

TEST_F(ShortcutsActions, SaveASceneOfferItAndApplyIt) {
    story.learn();
    vantrelSaveScene("Writing", &answers, keep);
    EXPECT_THAT(answers, IsEmpty());
    EXPECT_EQ(next(), Answer(VantrelIntentDone, "Saved the desk as \"Writing\"."));
    ASSERT_EQ(scenes().size(), 1U);
    EXPECT_EQ(scenes()[0].name, "Writing");
    const Rect before = story.frame(story.mail);
    story.move(story.mail, {{5, 300}, {500, 400}});
    vantrelApplyScene(scenes()[0].id.c_str(), &answers, keep);
    EXPECT_EQ(next(), Answer(VantrelIntentDone, "Applied \"Writing\"."));
    EXPECT_EQ(story.frame(story.mail), before);
}

TEST_F(ShortcutsActions, SayWhatHappenedOnceItHas) {
    story.learn();
    vantrelStash(&answers, keep);
    EXPECT_THAT(answers, IsEmpty());
    EXPECT_EQ(next(), Answer(VantrelIntentDone, "4 windows put aside."));
    vantrelStash(&answers, keep);
    EXPECT_EQ(next(), Answer(VantrelIntentDone, "4 windows brought back."));
    story.move(story.mail, {{5, 300}, {500, 400}});
    vantrelRestoreNow(&answers, keep);
    EXPECT_EQ(next(), Answer(VantrelIntentDone, "4 windows put back."));
    vantrelUndoLastRestore(&answers, keep);
    EXPECT_EQ(next(), Answer(VantrelIntentDone, "Undid the last restore."));
    story.files.failAll(MemoryFileSystem::Operation::writeAtomically, std::errc::no_space_on_device);
    vantrelStash(&answers, keep);
    EXPECT_EQ(next(), Answer(VantrelIntentNothingHappened,
                             "The layout could not be written to disk. Nothing was changed."));
}

TEST_F(ShortcutsActions, AreAnsweredOnceEvenWhenTheProgramEndsMeanwhile) {
    const Answer notRunning(VantrelIntentNotRunning, "Vantrel is not running.");
    vantrelSaveScene("Writing", &answers, keep);
    bridge.reset();
    EXPECT_THAT(answers, ElementsAre(notRunning));
    story.runFor(5);
    EXPECT_EQ(answers.size(), 1U);
    vantrelRestoreNow(&answers, keep);
    EXPECT_EQ(answers.back(), notRunning);
    EXPECT_THAT(scenes(), IsEmpty());
    vantrelFocusFilterRan("Work");
    EXPECT_THAT(filters, IsEmpty());
}

TEST_F(ShortcutsActions, PassTheFocusFilterOn) {
    vantrelFocusFilterRan("Work");
    vantrelFocusFilterRan(nullptr);
    EXPECT_THAT(filters, ElementsAre(std::optional<std::string>("Work"), std::nullopt));
}

// The system reads titles and phrases out of the Swift source as it is compiled, so they stand there again.
TEST(ShortcutsSource, SaysTheSameAsTheActionsThemselves) {
    std::ifstream file(VANTREL_INTENTS_SWIFT);
    const std::string swift{std::istreambuf_iterator<char>(file), {}};
    for (const IntentDescription& intent : Intents::all) {
        const std::string name(intent.identifier);
        EXPECT_THAT(swift, HasSubstr("struct " + name + ": AppIntent"));
        EXPECT_THAT(swift, HasSubstr("LocalizedStringResource = \"" + std::string(intent.title) + "\""));
        EXPECT_THAT(swift, HasSubstr("systemImageName: \"" + std::string(intent.symbol) + "\""));
        std::string phrase(intent.phrase);
        if (const auto place = phrase.find("%1"); place != std::string::npos) {
            EXPECT_THAT(swift, HasSubstr("\"" + phrase.replace(place, 2, "\\(.applicationName)") + "\""));
        }
    }
    EXPECT_THAT(swift, HasSubstr("\"" + std::string(Intents::vantrelIsNotRunning) + "\""));
}

} // namespace
} // namespace vantrel::simulated
