#include "Vantrel/platform/macos/MacFolders.h"

#include "Vantrel/platform/macos/FoundationText.h"

#if !__has_feature(objc_arc)
#error "compile this with -fobjc-arc"
#endif

namespace vantrel::MacFolders {

std::optional<std::filesystem::path> supportDirectory() {
    @autoreleasepool {
        NSURL* const url = [NSFileManager.defaultManager URLForDirectory:NSApplicationSupportDirectory
                                                                inDomain:NSUserDomainMask
                                                       appropriateForURL:nil
                                                                  create:YES
                                                                   error:nullptr];
        const auto path = FoundationText::utf8(url.path);
        return path ? std::optional(std::filesystem::path(*path) / "Vantrel") : std::nullopt;
    }
}

} // namespace vantrel::MacFolders
