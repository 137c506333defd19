#include "Vantrel/platform/qt/OperatingSystemName.h"

#include <QString>
#include <QSysInfo>

namespace vantrel {

std::string operatingSystemName() {
    const QString kernel = QSysInfo::kernelType() + ' ' + QSysInfo::kernelVersion();
    return (QSysInfo::prettyProductName() + ", " + kernel).toStdString();
}

} // namespace vantrel
