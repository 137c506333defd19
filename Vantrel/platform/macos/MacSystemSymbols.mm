#include "Vantrel/platform/macos/MacSystemSymbols.h"

#include "Vantrel/platform/macos/FoundationText.h"
#include "Vantrel/platform/macos/ImageData.h"

#if !__has_feature(objc_arc)
#error "compile this with -fobjc-arc"
#endif

namespace vantrel {

// In points. Larger than any symbol shown, because symbols are only scaled down.
static constexpr double fontSize = 64;

std::optional<SystemSymbols::Picture> MacSystemSymbols::picture(const std::string& name) {
    @autoreleasepool {
        NSString* const known = FoundationText::make(name);
        NSImage* const plain =
            known == nil ? nil : [NSImage imageWithSystemSymbolName:known accessibilityDescription:nil];
        NSImage* const symbol =
            [plain imageWithSymbolConfiguration:[NSImageSymbolConfiguration
                                                    configurationWithPointSize:fontSize
                                                                        weight:NSFontWeightRegular]];
        if (symbol == nil) {
            return std::nullopt;
        }
        Picture picture{.png = ImageData::png(symbol, symbol.size),
                        .size = {symbol.size.width / fontSize, symbol.size.height / fontSize}};
        return picture.png.empty() ? std::nullopt : std::optional(std::move(picture));
    }
}

} // namespace vantrel
