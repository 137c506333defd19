#include "Vantrel/interface/Text.h"

#include <QCoreApplication>

namespace vantrel {

QString qtr(const char* text) {
    return QCoreApplication::translate("Vantrel", text);
}

std::string tr(const char* text) {
    return qtr(text).toStdString();
}

} // namespace vantrel
