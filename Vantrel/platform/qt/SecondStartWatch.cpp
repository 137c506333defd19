#include "Vantrel/platform/qt/SecondStartWatch.h"

#include <QString>

#include <utility>

namespace vantrel {

SecondStartWatch::SecondStartWatch(const std::filesystem::path& folder, std::function<void()> started) {
    // As InstanceLock names it.
    m_watcher.addPath(QString::fromStdString((folder / "vantrel.lock").string()));
    QObject::connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_watcher,
                     [started = std::move(started)](const QString& /*path*/) { started(); });
}

} // namespace vantrel
