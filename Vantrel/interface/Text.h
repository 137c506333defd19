// Translated texts as Qt's strings.
#pragma once

#include "VantrelCore/text/Translation.h"

#include <QString>

#include <string>

namespace vantrel {

[[nodiscard]] inline QString qtr(const char* english) {
    return QString::fromUtf8(tr(english));
}

[[nodiscard]] inline QString qt(const std::string& text) {
    return QString::fromStdString(text);
}

} // namespace vantrel
