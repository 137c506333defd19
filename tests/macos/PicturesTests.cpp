#include "Vantrel/platform/macos/MacDesktopPictures.h"
#include "tests/macos/CocoaTest.h"

#include <gmock/gmock.h>

namespace vantrel::fake {
namespace {

using testing::ElementsAre;

// Whoever waits is on the main thread here.
class PromptQueue final : public MainQueue {
public:
    void post(std::function<void()> work) override { work(); }
    std::unique_ptr<ScheduledWork> after(double, std::function<void()>) override { return nullptr; }
    std::unique_ptr<ScheduledWork> every(double, std::function<void()>) override { return nullptr; }
};

std::vector<ActiveDisplay> twoDisplays() {
    return {{.id = 1, .isBuiltin = true, .bounds = {}, .uuid = "UUID-1"},
            {.id = 2, .isBuiltin = false, .bounds = {}, .uuid = std::nullopt}};
}

class PicturesOfTheMac : public CocoaTest {
protected:
    PicturesOfTheMac() {
        mac().screens = {{.number = 1, .name = "one", .picture = "file:///a%20b.heic"},
                         {.number = 2, .name = "two"}};
    }

    static DisplayInfo display(const std::string& uuid) {
        DisplayInfo info;
        info.uuid = uuid;
        return info;
    }

    PromptQueue m_queue;
    Calls m_log;
    MacDesktopPictures m_pictures{twoDisplays, m_queue,
                                  [this](const std::string& message) { m_log.push_back(message); }};
};

TEST_F(PicturesOfTheMac, AreReadByDisplayIdentity) {
    EXPECT_EQ(m_pictures.picture(display("UUID-1")), "file:///a%20b.heic");
    EXPECT_EQ(m_pictures.picture(display("display-2")), std::nullopt);
    EXPECT_EQ(m_pictures.picture(display("unplugged")), std::nullopt);
}

TEST_F(PicturesOfTheMac, AreUnknownWhereTheyChangeByThemselves) {
    for (const char* url :
         {"file:///System/Library/CoreServices/DefaultDesktop.heic",
          "file:///System/Library/Desktop%20Pictures/Sonoma.heic", "file:///Users/ada/Pictures/",
          "file:///tmp", "https://example.com/a.png",
          "file:///System/Library/Desktop%20Pictures/.wallpapers/Ventura/Ventura.madesktop",
          "file:///Library/Application%20Support/com.apple.idleassetsd/Customer/4KSDR240FPS/A.mov"}) {
        mac().screens[0].picture = url;
        EXPECT_EQ(m_pictures.picture(display("UUID-1")), std::nullopt) << url;
    }
    mac().screens[0].picture = "file:///System/Library/Desktop%20Pictures/Solid%20Colors/Teal.png";
    EXPECT_EQ(m_pictures.picture(display("UUID-1")), mac().screens[0].picture);
}

TEST_F(PicturesOfTheMac, AreSetByPathOrUrlAndKeepTheirScaling) {
    EXPECT_TRUE(m_pictures.setPicture(display("display-2"), "/Users/ada/My cat.png"));
    EXPECT_TRUE(m_pictures.setPicture(display("UUID-1"), "file:///other.png"));
    EXPECT_THAT(mac().calls, ElementsAre("picture file:///Users/ada/My%20cat.png options 1",
                                         "picture file:///other.png options 1"));
    EXPECT_EQ(m_pictures.picture(display("display-2")), "file:///Users/ada/My%20cat.png");
    EXPECT_EQ(m_pictures.picture(display("UUID-1")), "file:///other.png");
}

TEST_F(PicturesOfTheMac, ARefusedOneIsLoggedWithTheSystemsReason) {
    mac().screens[0].acceptsPictures = false;
    EXPECT_FALSE(m_pictures.setPicture(display("UUID-1"), "/gone.png"));
    EXPECT_THAT(m_log, ElementsAre("desktop picture: /gone.png: The file doesn’t exist."));
    EXPECT_FALSE(m_pictures.setPicture(display("unplugged"), "/a.png"));
    EXPECT_FALSE(m_pictures.setPicture(display("display-2"), "no url"));
    EXPECT_FALSE(m_pictures.setPicture(display("display-2"), "\xff"));
    EXPECT_EQ(mac().calls.size(), 1U);
}

} // namespace
} // namespace vantrel::fake
