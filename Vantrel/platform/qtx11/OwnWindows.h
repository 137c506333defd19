// Names the program's desktop file on each of its own windows. Taskbars take the icon from it, and vantrel
// recognises its own windows by it, so that it neither learns nor moves them.
#pragma once

#include <QObject>

#include <cstdint>
#include <string>

namespace vantrel {

class OwnWindows final : public QObject {
public:
    // `desktopFile` is the file's name without its suffix. For windows made from now on; needs a
    // QGuiApplication on an X server.
    explicit OwnWindows(std::string desktopFile);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::string m_desktopFile;
    std::uint32_t m_property = 0;
    std::uint32_t m_type = 0;
};

} // namespace vantrel
