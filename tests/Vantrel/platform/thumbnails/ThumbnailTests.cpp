// Thumbnails of real files: from the shared cache, into it, and of what is no picture.
#include "Vantrel/platform/posix/WallpaperFolders.h"
#include "Vantrel/platform/thumbnails/ThumbnailStore.h"
#include "tests/Vantrel/platform/posix/TemporaryFolder.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QImageReader>
#include <QTimer>

#include <chrono>
#include <gmock/gmock.h>
#include <sys/stat.h>

namespace vantrel {
namespace {

namespace fs = std::filesystem;
using State = FileThumbnail::State;
using testing::ElementsAre;
using testing::IsEmpty;

class ThumbnailTest : public testing::Test {
protected:
    static constexpr QSize wanted{160, 90};

    // The digest of "file:///tmp/…" depends on the folder, so files are found by their keys.
    [[nodiscard]] std::vector<fs::path> kept(const char* size) const {
        std::vector<fs::path> found;
        std::error_code none;
        for (const auto& entry : fs::directory_iterator(folder.path() / "cache" / size, none)) {
            found.push_back(entry.path());
        }
        return found;
    }
    fs::path save(const char* name, QSize size, const QColor& color) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(color);
        fs::path file = folder.path() / name;
        EXPECT_TRUE(image.save(QString::fromStdString(file)));
        return file;
    }
    FileThumbnail get(const fs::path& file, ThumbnailStore::Limits limits = {}) {
        ThumbnailStore store{ThumbnailCache(folder.path() / "cache"), limits};
        std::optional<FileThumbnail> found;
        QEventLoop loop;
        const auto request = store.request(file, wanted, [&](const FileThumbnail& each) {
            found = each;
            loop.quit();
        });
        QTimer::singleShot(std::chrono::seconds(60), &loop, &QEventLoop::quit);
        loop.exec();
        EXPECT_TRUE(found) << file;
        return found.value_or(FileThumbnail{});
    }

    const bool isOffscreen = qputenv("QT_QPA_PLATFORM", "offscreen");
    int count = 0;
    QGuiApplication application{count, nullptr};
    TemporaryFolder folder;
};

TEST_F(ThumbnailTest, FillsTheSharedCacheAndReadsIt) {
    // The example in the Thumbnail Managing Standard of freedesktop.org.
    EXPECT_EQ(ThumbnailCache::uriOf("/home/jens/photos/me.png"), "file:///home/jens/photos/me.png");
    const auto file = save("a lake.jpg", {1600, 900}, Qt::blue);
    const auto first = get(file);
    EXPECT_EQ(first.state, State::picture);
    EXPECT_EQ(first.image.size(), wanted);
    EXPECT_EQ(first.fullSize, QSize(1600, 900));
    EXPECT_GT(first.image.pixelColor(80, 45).blue(), 250);

    ASSERT_EQ(kept("large").size(), 1U);
    const auto thumbnail = kept("large")[0];
    struct stat status{};
    ASSERT_EQ(stat(thumbnail.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
    QImage image(QString::fromStdString(thumbnail));
    EXPECT_EQ(image.size(), QSize(256, 144));
    EXPECT_EQ(image.text("Thumb::URI"),
              QString("file://%1/a%20lake.jpg").arg(QString::fromStdString(folder.path())));
    ASSERT_EQ(stat(file.c_str(), &status), 0);
    EXPECT_EQ(image.text("Thumb::MTime"), QString::number(status.st_mtime));

    // What is there is taken, also if another program wrote it, but only for this version of the picture.
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(QString::fromStdString(thumbnail), "PNG"));
    const auto cached = get(file);
    EXPECT_GT(cached.image.pixelColor(80, 45).red(), 250);
    EXPECT_EQ(cached.fullSize, QSize(1600, 900));
    fs::last_write_time(file, fs::last_write_time(file) + std::chrono::seconds(5));
    EXPECT_GT(get(file).image.pixelColor(80, 45).blue(), 250);
    image.setText("Thumb::URI", "file:///another.jpg");
    ASSERT_TRUE(image.save(QString::fromStdString(thumbnail), "PNG"));
    EXPECT_GT(get(file).image.pixelColor(80, 45).blue(), 250);
}

TEST_F(ThumbnailTest, KeepsNoneOfSmallPicturesAndCutsOverhangingEdges) {
    const auto file = save("narrow.png", {40, 200}, Qt::green);
    const auto found = get(file);
    EXPECT_EQ(found.image.size(), wanted);
    EXPECT_EQ(found.fullSize, QSize(40, 200));
    EXPECT_THAT(kept("large"), IsEmpty());
}

TEST_F(ThumbnailTest, NotesWhatCannotBeReadAndReadsItAgainWhenItChanges) {
    const auto whole = save("whole.png", {800, 450}, Qt::red);
    const auto damaged = folder.path() / "damaged.png";
    putText(damaged, textOf(whole).substr(0, 120));
    EXPECT_EQ(get(damaged).state, State::unreadable);
    EXPECT_EQ(kept("fail/vantrel-1").size(), 1U);
    const auto modified = fs::last_write_time(damaged);
    fs::copy_file(whole, damaged, fs::copy_options::overwrite_existing);
    // As far as anybody can see, it is the file that could not be read.
    fs::last_write_time(damaged, modified);
    EXPECT_EQ(get(damaged).state, State::unreadable);
    fs::last_write_time(damaged, modified + std::chrono::seconds(5));
    EXPECT_EQ(get(damaged).state, State::picture);

    EXPECT_EQ(get(whole, {.pixels = 1000}).state, State::unreadable);
    EXPECT_EQ(get(save("heavy.png", {800, 450}, Qt::red), {.bytes = 10}).state, State::unreadable);
    EXPECT_GT(QImageReader::allocationLimit(), 0);
    EXPECT_EQ(get(folder.path()).state, State::unreadable);
    EXPECT_EQ(get(folder.path() / "gone.png").state, State::gone);
    EXPECT_EQ(get(std::string(whole) + '\0' + "more").state, State::gone);
}

TEST_F(ThumbnailTest, DropsWhatNobodyWantsAnyMore) {
    ThumbnailStore store{ThumbnailCache({})};
    const auto file = save("a.png", {800, 450}, Qt::red);
    bool isLateCalled = false;
    QEventLoop loop;
    auto dropped = store.request(file, wanted, [&](const auto& /*late*/) { isLateCalled = true; });
    dropped.reset();
    // Many more than are read at a time.
    std::vector<std::shared_ptr<void>> requests;
    int found = 0;
    for (std::size_t i = 0; i < 8; ++i) {
        requests.push_back(store.request(file, wanted, [&, i](const auto& /*each*/) {
            requests[i].reset();
            if (++found == 8) {
                loop.quit();
            }
        }));
    }
    QTimer::singleShot(std::chrono::seconds(60), &loop, &QEventLoop::quit);
    loop.exec();
    EXPECT_EQ(found, 8);
    EXPECT_FALSE(isLateCalled);
}

TEST(WallpaperFolders, ReadEveryDesktopsPicturesOnce) {
    const TemporaryFolder folder;
    const auto data = folder.path() / "share";
    putText(data / "backgrounds/gnome/blobs.jpg", "picture");
    putText(data / "backgrounds/xfce/Mouse.png", "picture");
    putText(data / "backgrounds/notes.txt", "text");
    putText(data / "backgrounds/.hidden/h.png", "picture");
    putText(data / "wallpapers/Altai/contents/images/1280x800.png", "picture");
    putText(data / "wallpapers/Altai/contents/images/3840x2160.png", "picture");
    putText(data / "wallpapers/Altai/metadata.json", R"({"KPlugin": {"Name": "Altai mountains"}})");
    putText(data / "wallpapers/Bare/contents/images/2x1.png", "picture");
    putText(
        data / "gnome-background-properties/list.xml",
        "<wallpapers><wallpaper><name>Blobs</name><filename>" +
            (data / "backgrounds/gnome/blobs.jpg").string() +
            "</filename></wallpaper><wallpaper><name>Gone</name><filename>/gone.jpg</filename></wallpaper>");
    fs::create_directory_symlink(data / "backgrounds", data / "backgrounds/loop");
    const auto found = posix::WallpaperFolders::in({folder.path() / "home", data}).read({});
    std::vector<std::pair<std::string, std::string>> names;
    for (const auto& each : found) {
        names.emplace_back(each.name, fs::path(each.path).filename());
    }
    EXPECT_THAT(names,
                ElementsAre(std::pair("Altai mountains", "3840x2160.png"), std::pair("Bare", "2x1.png"),
                            std::pair("Blobs", "blobs.jpg"), std::pair("Mouse", "Mouse.png")));
}

} // namespace
} // namespace vantrel
