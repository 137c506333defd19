// The wallpaper picker: what it offers, what a click, a key or a dropped file chooses, and which pictures it
// reads.
#include "Vantrel/interface/wallpaper/WallpaperPicker.h"

#include <QAbstractButton>
#include <QAbstractItemModel>
#include <QApplication>
#include <QCheckBox>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QScrollArea>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <gmock/gmock.h>
#include <map>

namespace vantrel {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

DisplayInfo display(const char* uuid, double left) {
    DisplayInfo display;
    display.uuid = uuid;
    display.name = uuid;
    display.frame = {{left, 0}, {1000, 600}};
    return display;
}

std::vector<std::string> paths(const std::vector<WallpaperContent::Tile>& tiles) {
    std::vector<std::string> found;
    for (const auto& tile : tiles) {
        found.push_back(tile.path + (tile.isChosen ? " chosen" : ""));
    }
    return found;
}

// Gives pictures when the test says so.
class SlowThumbnails final : public Thumbnails {
public:
    std::shared_ptr<void> request(const std::string& file, QSize size, Done done) override {
        auto wanted = std::make_shared<Done>(std::move(done));
        m_wanted.insert_or_assign({file, size.width()}, wanted);
        return wanted;
    }
    [[nodiscard]] std::vector<std::string> wanted() const {
        std::vector<std::string> files;
        for (const auto& [key, done] : m_wanted) {
            if (!done.expired()) {
                files.push_back(key.first);
            }
        }
        return files;
    }
    void give(FileThumbnail::State state) {
        for (const auto& [key, wanted] : std::exchange(m_wanted, {})) {
            if (const auto done = wanted.lock()) {
                QImage image(16, 9, QImage::Format_RGB32);
                image.fill(Qt::red);
                (*done)({.state = state,
                         .image = state == FileThumbnail::State::picture ? image : QImage(),
                         .fullSize = QSize(1600, 900)});
            }
        }
    }

private:
    std::map<std::pair<std::string, int>, std::weak_ptr<Done>> m_wanted;
};

class WallpaperPickerTest : public testing::Test {
protected:
    WallpaperPickerTest() {
        services.thumbnails = &thumbnails;
        services.recents = [] { return std::vector<std::string>{"/lake.jpg", "/hills.jpg"}; };
        services.readSystem = [this](const auto& done) { listArrived = done; };
        for (int i = 100; i < 400; ++i) {
            system.push_back({"Picture " + std::to_string(i), "/" + std::to_string(i) + ".jpg"});
        }
    }

    void open() {
        picker = std::make_unique<WallpaperPicker>(services);
        picker->onChosen = [this](const auto& displays, const auto& file) {
            for (const std::string& each : displays) {
                chosen.push_back(each + " " + file.value_or("none"));
            }
        };
        picker->resize(900, 500);
        picker->show(
            {.scene = "Write", .displays = {display("A", 0), display("B", 1000)}, .wallpaper = wallpaper});
        picker->QWidget::show();
        QApplication::processEvents();
    }
    void drop(const QString& file) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(file)});
        QDragEnterEvent enter(QPoint(300, 200), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(picker.get(), &enter);
        QDropEvent event(QPointF(300, 200), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(picker.get(), &event);
    }
    void click(const char* button) {
        for (auto* const each : picker->findChildren<QAbstractButton*>()) {
            if (each->accessibleName() == button || each->text() == button) {
                each->click();
                return;
            }
        }
        ADD_FAILURE() << button;
    }
    [[nodiscard]] std::string texts() const {
        QApplication::processEvents();
        std::string all;
        for (const auto* const label : picker->findChildren<QLabel*>()) {
            if (label->isVisible()) {
                all += label->text().toStdString() + "\n";
            }
        }
        return all;
    }

    SlowThumbnails thumbnails;
    WallpaperServices services;
    std::function<void(WallpaperServices::List)> listArrived;
    WallpaperServices::List system;
    SceneWallpaper wallpaper{{{"A", "/lake.jpg"}}};
    std::vector<std::string> chosen;
    std::unique_ptr<WallpaperPicker> picker;
};

TEST(WallpaperContent, ListsEachPictureOnceAndMarksTheChosenOne) {
    WallpaperContent::Context context{.displays = {display("A", 0), display("B", 1000)},
                                      .wallpaper = {{{"A", "/own.png"}, {"B", "/dunes.jpg"}}},
                                      .display = "A",
                                      .recents = {"/lake.jpg", "/dunes.jpg"},
                                      .system = {{{"Dunes at night", "/dunes.jpg"}, {"Mist", "/mist.jpg"}}}};
    auto content = WallpaperContent::of(context);
    EXPECT_THAT(paths(content.recent), ElementsAre("/lake.jpg", "/dunes.jpg", "/own.png chosen"));
    EXPECT_THAT(paths(content.system), ElementsAre("/mist.jpg"));
    EXPECT_EQ(content.recent[1].name, "Dunes at night");
    // For all displays, a picture is chosen if they share it.
    context.display.clear();
    EXPECT_THAT(paths(WallpaperContent::of(context).recent),
                ElementsAre("/lake.jpg", "/dunes.jpg", "/own.png"));
    context.wallpaper = {{{"A", "/dunes.jpg"}, {"B", "/dunes.jpg"}}};
    EXPECT_THAT(paths(WallpaperContent::of(context).recent), ElementsAre("/lake.jpg", "/dunes.jpg chosen"));
    // As long as the system's are not known, none of them moves later.
    context.system.reset();
    context.recents.clear();
    EXPECT_THAT(WallpaperContent::of(context).recent, IsEmpty());
}

TEST_F(WallpaperPickerTest, ChoosesForOneDisplayOrForAllByClickAndKey) {
    open();
    EXPECT_THAT(texts(), testing::HasSubstr("Looking for pictures"));
    listArrived(system);
    picker->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(picker.get()));
    auto& recent = picker->recent();
    QTest::mouseClick(recent.viewport(), Qt::LeftButton, {},
                      recent.visualRect(recent.model()->index(1, 0)).center());
    EXPECT_THAT(chosen, ElementsAre("A /hills.jpg"));
    EXPECT_EQ(recent.model()->index(1, 0).data(Qt::AccessibleTextRole), "hills, chosen");

    picker->displays().setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    picker->system().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&picker->system(), Qt::Key_Right);
    QTest::keyClick(&picker->system(), Qt::Key_Return);
    click("None");
    EXPECT_THAT(chosen, ElementsAre("A /hills.jpg", "B /101.jpg", "B none"));

    chosen.clear();
    picker->chooseDisplay("A");
    click("The same on every display");
    QTest::keyClick(&recent, Qt::Key_Home);
    QTest::keyClick(&recent, Qt::Key_Space);
    EXPECT_THAT(chosen, ElementsAre("A /hills.jpg", "B /hills.jpg", "A /lake.jpg", "B /lake.jpg"));
    bool isDone = false;
    picker->onDone = [&] { isDone = true; };
    QTest::keyClick(&recent, Qt::Key_Escape);
    EXPECT_TRUE(isDone);
}

TEST_F(WallpaperPickerTest, TakesFilesByDialogAndDropAndRefusesWhatIsNoPicture) {
    const QTemporaryDir folder;
    const QString picture = folder.filePath("My own.PNG");
    const QString notes = folder.filePath("notes.txt");
    for (const QString& each : {picture, notes}) {
        QFile file(each);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    services.chooseFile = [&](QWidget&, const auto& done) { done(picture.toStdString()); };
    open();
    listArrived({});
    EXPECT_THAT(texts(), testing::HasSubstr("No pictures were found"));
    click("Choose a file…");
    EXPECT_THAT(chosen, ElementsAre("A " + picture.toStdString()));
    EXPECT_THAT(paths(picker->recent().tiles()),
                ElementsAre(picture.toStdString() + " chosen", "/lake.jpg", "/hills.jpg"));
    drop(notes);
    drop(folder.filePath("gone.png"));
    EXPECT_EQ(chosen.size(), 1U);
    EXPECT_THAT(picker->message().toStdString(), testing::HasSubstr("gone.png is not a picture"));
    drop(picture);
    EXPECT_EQ(chosen.size(), 2U);
}

TEST_F(WallpaperPickerTest, SaysWhatIsGoneAndKeepsIt) {
    open();
    listArrived(system);
    QApplication::processEvents();
    thumbnails.give(FileThumbnail::State::gone);
    EXPECT_THAT(texts(),
                testing::HasSubstr("lake.jpg is gone. It is kept until you choose another picture."));
    EXPECT_EQ(picker->recent().model()->index(0, 0).data(), "lake is gone");
    EXPECT_THAT(chosen, IsEmpty());
}

TEST_F(WallpaperPickerTest, ReadsOnlyWhatCanBeSeenAndNothingAfterItHasClosed) {
    open();
    listArrived(system);
    QApplication::processEvents();
    static_cast<void>(picker->grab());
    const auto first = thumbnails.wanted();
    EXPECT_THAT(first, testing::Contains("/100.jpg"));
    EXPECT_LT(first.size(), 60U);
    auto& bar = *picker->findChild<QScrollArea*>()->verticalScrollBar();
    bar.setValue(bar.maximum());
    QApplication::processEvents();
    static_cast<void>(picker->grab());
    // What was scrolled over is not wanted any more.
    EXPECT_THAT(thumbnails.wanted(), testing::Contains("/399.jpg"));
    EXPECT_THAT(thumbnails.wanted(), Not(testing::Contains("/100.jpg")));
    thumbnails.give(FileThumbnail::State::picture);
    EXPECT_EQ(picker->system().stateOf("/399.jpg"), FileThumbnail::State::picture);
    bar.setValue(0);
    static_cast<void>(picker->grab());
    picker.reset();
    EXPECT_THAT(thumbnails.wanted(), IsEmpty());
}

} // namespace

} // namespace vantrel
