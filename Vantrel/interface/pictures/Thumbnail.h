// Shows a small version of a picture file. The widget has its size from the start; the picture arrives later.
#pragma once

#include "Vantrel/interface/ports/Thumbnails.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace vantrel {

class Thumbnail final : public QWidget {
public:
    // `thumbnails` outlives the widget; null for no picture.
    Thumbnail(Thumbnails* thumbnails, std::string path, QSize size, QWidget* parent = nullptr);

    // Called when the picture, or that there is none, is known.
    std::function<void(FileThumbnail::State state)> onLoaded = [](FileThumbnail::State) {};

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Thumbnails* m_thumbnails;
    std::string m_path;
    std::optional<FileThumbnail> m_found;
    std::shared_ptr<void> m_request;
};

} // namespace vantrel
