// Shows a small version of a picture file. The widget has its size from the start; the file is read off the
// main thread.
#pragma once

#include <QImage>
#include <QWidget>

#include <memory>
#include <string>

namespace vantrel {

class Thumbnail final : public QWidget {
public:
    Thumbnail(const std::string& path, QSize size, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void load(const std::string& path);

    QImage m_image;
    bool m_isMissing = false;
    // Expires with this object, which the reading may outlive.
    std::shared_ptr<Thumbnail*> m_self = std::make_shared<Thumbnail*>(this);
};

} // namespace vantrel
