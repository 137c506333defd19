#include "tools/pictures/LongTexts.h"

#include <string_view>

namespace vantrel::pictures {

QString LongTexts::translate(const char* context, const char* text, const char* /*disambiguation*/,
                             int /*count*/) const {
    if (std::string_view(context) != "Vantrel") {
        return {};
    }
    // Words as long as the text's own, because a longer text is not one longer word.
    constexpr double longer = 1.4;
    const QString original = QString::fromUtf8(text);
    const auto wanted = static_cast<qsizetype>(static_cast<double>(original.size()) * longer);
    QString result = original;
    for (const QString& word : original.split(' ', Qt::SkipEmptyParts)) {
        if (result.size() >= wanted || word.contains('%') || word.contains('{')) {
            continue;
        }
        result += " " + word;
    }
    return result.size() <= wanted || original.contains(' ')
               ? result
               : original + original.left(wanted - original.size());
}

} // namespace vantrel::pictures
