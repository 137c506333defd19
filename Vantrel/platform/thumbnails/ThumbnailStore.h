// Thumbnails from the user's shared cache, which it fills, or else from the pictures themselves.
#pragma once

#include "Vantrel/interface/ports/Thumbnails.h"
#include "Vantrel/platform/thumbnails/ThumbnailCache.h"

#include <QThreadPool>

#include <memory>

namespace vantrel {

// Reads a few pictures at a time, on threads that end when there is nothing to read.
class ThumbnailStore final : public Thumbnails {
public:
    // No wallpaper is larger than one of these; more would only cost.
    struct Limits {
        std::uint64_t bytes = std::uint64_t{128} << 20U;
        std::uint64_t pixels = 100'000'000;
    };

    explicit ThumbnailStore(ThumbnailCache cache, Limits limits);
    explicit ThumbnailStore(ThumbnailCache cache) : ThumbnailStore(std::move(cache), Limits{}) {}
    // Waits for what is being read, but not for ever: a file may be on a server that is gone.
    ~ThumbnailStore() override;

    [[nodiscard]] std::shared_ptr<void> request(const std::string& file, QSize size, Done done) override;

private:
    struct Reader;

    std::shared_ptr<const Reader> m_reader;
    std::unique_ptr<QThreadPool> m_threads;
};

} // namespace vantrel
