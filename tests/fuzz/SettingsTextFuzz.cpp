// In any settings file, changing one key changes only its lines, and the new value reads as it was written.
#include "Vantrel/platform/qt/SettingsText.h"
#include "tests/fuzz/Law.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vantrel;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto before = SettingsText::parse(text);

    // The file's first key, and one that it may lack.
    std::vector<std::string> keys{"settleDelay"};
    if (!before.values.empty()) {
        keys.push_back(before.values.begin()->first);
    }
    for (const std::string& key : keys) {
        // The rest of the file as a value: it holds quotes, comments and line ends.
        const auto head = text.substr(0, 64);
        const DefaultsValue value = size % 2 == 0 ? DefaultsValue(std::string(head)) : DefaultsValue(0.5);
        const auto changed = SettingsText::parse(SettingsText::withValue(text, key, value));
        auto expected = before.values;
        expected.erase(key);
        auto others = changed.values;
        const bool isWritten = others.erase(key) == 1;
        fuzz::require(isWritten, "a written key is read");
        fuzz::require(others == expected, "the other keys keep their values");
        if (const auto* const number = std::get_if<double>(&value)) {
            fuzz::require(changed.values.at(key) == DefaultsValue(*number),
                          "a number reads as it was written");
        }
        const auto removed = SettingsText::parse(SettingsText::withoutKey(text, key));
        fuzz::require(removed.values == expected, "only the removed key is gone");
    }
    return 0;
}
