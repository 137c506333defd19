#include "Vantrel/platform/qtx11/X11WindowPictures.h"

#include <QCoreApplication>

#include <algorithm>
#include <chrono>
#include <utility>

namespace vantrel {

namespace {

// A first picture shows soon; that a window has changed can wait for the others that have.
constexpr std::chrono::milliseconds firstDelay{200};
constexpr std::chrono::milliseconds changeDelay{1'500};

QImage imageOf(const WindowPicture& picture) {
    // A copy, as the image does not own these pixels.
    return QImage(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width, picture.height,
                  static_cast<qsizetype>(picture.width) * 4, QImage::Format_RGB32)
        .copy();
}

} // namespace

X11WindowPictures::X11WindowPictures(std::string displayName)
    : m_capture(
          [self = std::weak_ptr(m_self)](WindowID window, const WindowPicture& picture) {
              QMetaObject::invokeMethod(
                  QCoreApplication::instance(),
                  [self, window, image = imageOf(picture)] {
                      if (const auto pictures = self.lock()) {
                          (*pictures)->take(window, image);
                      }
                  },
                  Qt::QueuedConnection);
          },
          std::move(displayName)) {
    m_news.setSingleShot(true);
    m_news.callOnTimeout([this] { tellChanged(); });
}

void X11WindowPictures::follow(const std::vector<WindowID>& windows, Freshness freshness) {
    m_followed = windows;
    const auto dropped = std::erase_if(m_pictures, [&](const auto& each) {
        return std::ranges::find(m_followed, each.first) == m_followed.end();
    });
    m_capture.follow(freshness == Freshness::live ? windows : std::vector<WindowID>());
    if (dropped > 0) {
        tellChanged();
    }
}

QImage X11WindowPictures::picture(WindowID window) const {
    const auto found = m_pictures.find(window);
    return found == m_pictures.end() ? QImage() : found->second;
}

// A picture may arrive after its window has been dropped.
void X11WindowPictures::take(WindowID window, const QImage& picture) {
    if (std::ranges::find(m_followed, window) == m_followed.end()) {
        return;
    }
    const bool isFirst = m_pictures.insert_or_assign(window, picture).second;
    const auto delay = isFirst ? firstDelay : changeDelay;
    if (!m_news.isActive() || m_news.remainingTimeAsDuration() > delay) {
        m_news.start(delay);
    }
}

} // namespace vantrel
