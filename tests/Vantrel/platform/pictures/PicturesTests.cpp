// What pictures are read from: a note that any program can write, and the files that it names.
#include "Vantrel/platform/pictures/FittedImage.h"
#include "Vantrel/platform/pictures/PictureFile.h"
#include "Vantrel/platform/pictures/RootPainting.h"
#include "Vantrel/platform/pictures/XfceImages.h"
#include "tests/Vantrel/platform/posix/TemporaryFolder.h"

#include <QBuffer>

#include <fcntl.h>
#include <future>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vantrel {
namespace {

TEST(RootPainting, ReadsValuesOfTheRightTypeAndSkipsOthers) {
    const RootPainting whole{.pixmap = 7, .base = 3, .pictures = {{"A", "file:///a.png"}}};
    EXPECT_EQ(RootPainting::parse(whole.note()), whole);
    const std::pair<const char*, RootPainting> notes[] = {
        {"", {}},
        {"no JSON", {}},
        {"[1, 2]", {}},
        {R"({"pixmap": "7", "base": [3], "pictures": 1})", {}},
        {R"({"pixmap": -7, "base": 7.5, "pictures": null})", {}},
        {R"({"pixmap": 4294967296, "base": {}, "pictures": ["a"]})", {}},
        {R"({"pixmap": 7, "base": 3, "pictures": {"A": "file:///a.png", "B": 2}})", whole}};
    for (const auto& [note, painting] : notes) {
        EXPECT_EQ(RootPainting::parse(note), painting) << note;
    }
}

TEST(PictureFile, ReadsOnlyRegularFilesOfBoundedSizeAndNeverBlocks) {
    const TemporaryFolder folder;
    const auto file = folder.path() / "a picture.png";
    putText(file, "12345");
    std::filesystem::create_symlink(file, folder.path() / "link");
    std::filesystem::create_symlink("/dev/zero", folder.path() / "device");
    const auto fifo = folder.path() / "fifo";
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);

    EXPECT_EQ(PictureFile::read(PictureFile::url(file)), QByteArray("12345"));
    EXPECT_EQ(PictureFile::read(folder.path() / "link", 5), QByteArray("12345"));
    EXPECT_FALSE(PictureFile::read(file, 4));
    EXPECT_FALSE(PictureFile::isReadable(file, 4));
    EXPECT_FALSE(PictureFile::isReadable(std::string(file) + '\0' + "more"));
    for (const auto& other : {fifo, folder.path(), folder.path() / "device", folder.path() / "nothing"}) {
        auto reading = std::async([&] { return PictureFile::read(other) || PictureFile::isReadable(other); });
        if (reading.wait_for(std::chrono::seconds(60)) != std::future_status::ready) {
            ADD_FAILURE() << other << " is waited for";
            // Ends the wait of whoever opened it.
            close(open(fifo.c_str(), O_RDWR | O_CLOEXEC));
        }
        EXPECT_FALSE(reading.get()) << other;
    }
}

TEST(XfceImages, ReadsOnlyRepliesOfTheRightType) {
    g_log_set_always_fatal(G_LOG_LEVEL_CRITICAL);
    const auto images = [](const char* text) {
        GVariant* const answer = g_variant_parse(nullptr, text, nullptr, nullptr, nullptr);
        auto result = xfceImages(answer);
        g_variant_unref(answer);
        return result;
    };
    using Images = std::map<std::string, std::string>;
    EXPECT_EQ(images("({'/a/last-image': <'/x.png'>, '/b/last-image': <1>, '/c': <'/y.png'>},)"),
              (Images{{"/a/last-image", "/x.png"}}));
    for (const char* const other : {"(1,)", "({'/a/last-image': '/x.png'},)", "'/x.png'"}) {
        EXPECT_EQ(images(other), Images()) << other;
    }
}

TEST(FittedImage, CropsLongEdgesBeforeEnlarging) {
    QImage stripes(4, 20'000, QImage::Format_RGB32);
    stripes.fill(Qt::red);
    for (int row = 9'999; row <= 10'001; ++row) {
        for (int column = 0; column < 4; ++column) {
            stripes.setPixelColor(column, row, Qt::blue);
        }
    }
    QByteArray file;
    QBuffer buffer(&file);
    ASSERT_TRUE(stripes.save(&buffer, "PNG"));
    const QImage fitted = fittedImage(file, {1920, 1080});
    EXPECT_EQ(fitted.size(), QSize(1920, 1080));
    EXPECT_EQ(fitted.pixelColor(960, 540), Qt::blue);
    EXPECT_TRUE(fittedImage("no picture", {1920, 1080}).isNull());
}

} // namespace
} // namespace vantrel
