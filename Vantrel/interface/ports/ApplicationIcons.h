// Port of the interface: the icons of installed applications.
#pragma once

#include <QIcon>

#include <string>

namespace vantrel {

// Used on the main thread.
class ApplicationIcons {
public:
    ApplicationIcons() = default;
    ApplicationIcons(const ApplicationIcons&) = delete;
    ApplicationIcons& operator=(const ApplicationIcons&) = delete;
    virtual ~ApplicationIcons() = default;

    // Null when the application is not installed or has no icon.
    [[nodiscard]] virtual QIcon icon(const std::string& bundleID) = 0;
};

} // namespace vantrel
