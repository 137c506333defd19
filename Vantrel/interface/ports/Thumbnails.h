// Port of the interface: small pictures of image files.
#pragma once

#include <QImage>
#include <QSize>

#include <functional>
#include <memory>
#include <string>

namespace vantrel {

struct FileThumbnail {
    enum class State : std::uint8_t {
        picture,
        // There is no such file.
        gone,
        // Damaged, too large, or of a kind that cannot be shown small.
        unreadable,
    };

    State state = State::unreadable;
    // Fills the size that was asked for; edges that do not fit are cut off.
    QImage image{};
    // Of the file; empty when unknown.
    QSize fullSize{};
};

// Used on the main thread.
class Thumbnails {
public:
    using Done = std::function<void(const FileThumbnail&)>;

    Thumbnails() = default;
    Thumbnails(const Thumbnails&) = delete;
    Thumbnails& operator=(const Thumbnails&) = delete;
    virtual ~Thumbnails() = default;

    // Calls `done` once, later, with the picture in `size` pixels. Never calls it once the result has been
    // released: then nobody wants the picture any more, and what has not begun is dropped.
    [[nodiscard]] virtual std::shared_ptr<void> request(const std::string& file, QSize size, Done done) = 0;
};

} // namespace vantrel
