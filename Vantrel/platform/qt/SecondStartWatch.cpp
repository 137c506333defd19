#include "Vantrel/platform/qt/SecondStartWatch.h"

#include <QString>

#include <utility>

namespace vantrel {

SecondStartWatch::SecondStartWatch(const std::vector<std::filesystem::path>& folders,
                                   std::function<void()> started) {
    for (const std::filesystem::path& folder : folders) {
        // As InstanceLock names it.
        m_watcher.addPath(QString::fromStdString((folder / "vantrel.lock").string()));
    }
    QObject::connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_watcher,
                     [started = std::move(started)](const QString& /*path*/) { started(); });
}

} // namespace vantrel
