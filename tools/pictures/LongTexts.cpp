#include "tools/pictures/LongTexts.h"

#include <QStringList>

namespace vantrel::pictures {

namespace {

std::string lengthened(const char* text) {
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
    // A format grows by whole words only.
    return (result.size() <= wanted || original.contains(' ') || original.contains('{')
                ? result
                : original + original.left(wanted - original.size()))
        .toStdString();
}

} // namespace

const char* LongTexts::text(const char* english) const {
    const auto [found, isNew] = m_longer.try_emplace(english);
    if (isNew) {
        found->second = lengthened(english);
    }
    return found->second.c_str();
}

const char* LongTexts::plural(const char* one, const char* many, std::int64_t count) const {
    return text(count == 1 ? one : many);
}

} // namespace vantrel::pictures
