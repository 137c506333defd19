#include "Vantrel/platform/macos/ApplicationPictures.h"

#include "Vantrel/platform/macos/FoundationText.h"
#include "Vantrel/platform/macos/ImageData.h"

#if !__has_feature(objc_arc)
#error "compile this with -fobjc-arc"
#endif

namespace vantrel::ApplicationPictures {

std::vector<std::string> read(const std::string& bundleID) {
    // In points: beside a line of text, and in a drawing.
    constexpr double sides[] = {32, 128};
    std::vector<std::string> pictures;
    @autoreleasepool {
        NSWorkspace* const workspace = NSWorkspace.sharedWorkspace;
        NSString* const identifier = FoundationText::make(bundleID);
        NSURL* const application =
            identifier == nil ? nil : [workspace URLForApplicationWithBundleIdentifier:identifier];
        if (NSString* const path = application.path) {
            // Without an icon of its own, an application has the system's for all.
            NSImage* const icon = [workspace iconForFile:path];
            for (const double side : sides) {
                if (std::string png = ImageData::png(icon, {side, side}); !png.empty()) {
                    pictures.push_back(std::move(png));
                }
            }
        }
    }
    return pictures;
}

} // namespace vantrel::ApplicationPictures
