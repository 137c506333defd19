// Reports when a second instance was refused because of this one's lock (InstanceLock).
#pragma once

#include <QFileSystemWatcher>

#include <filesystem>
#include <functional>
#include <vector>

namespace vantrel {

// Lives on the main thread. Sees second instances on this computer only.
class SecondStartWatch {
public:
    // The folders are locked by this program.
    SecondStartWatch(const std::vector<std::filesystem::path>& folders, std::function<void()> started);

private:
    QFileSystemWatcher m_watcher;
};

} // namespace vantrel
