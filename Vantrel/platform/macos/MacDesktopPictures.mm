#include "Vantrel/platform/macos/MacDesktopPictures.h"

#include "Vantrel/platform/macos/FoundationText.h"
#include "Vantrel/platform/macos/MainThreadCall.h"
#include "Vantrel/platform/macos/ScreenNumber.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>

#if !__has_feature(objc_arc)
#error "compile this with -fobjc-arc"
#endif

namespace vantrel {

namespace {

// Returns nil if the screen is gone.
NSScreen* screenOf(const std::string& displayUUID, const std::vector<ActiveDisplay>& active) {
    for (NSScreen* const screen in NSScreen.screens) {
        const auto number = Screens::displayID(screen);
        if (number && DisplayTopology::uuid(*number, active) == displayUUID) {
            return screen;
        }
    }
    return nil;
}

// Converts a path or a URL string; nil if it is neither.
NSURL* urlOf(const std::string& picture) {
    NSString* const text = FoundationText::make(picture);
    if (text == nil) {
        return nil;
    }
    return picture.starts_with('/') ? [NSURL fileURLWithPath:text] : [NSURL URLWithString:text];
}

// Whether the system shows just this file. For pictures that change by themselves (dynamic, rotating, aerial)
// it gives a folder, a file of its own or a stand-in; setting that again would end the user's choice.
bool isFixedPicture(NSURL* url) {
    const std::string path = FoundationText::utf8(url.path).value_or("");
    constexpr std::array systemFolders{
        std::string_view("/System/Library/CoreServices/"), std::string_view("/System/Library/ExtensionKit/"),
        std::string_view("/Library/Application Support/com.apple.idleassetsd/")};
    const bool isSystems = std::ranges::any_of(
        systemFolders, [&](std::string_view folder) { return path.find(folder) != std::string::npos; });
    const bool isDynamic = path.starts_with("/System/Library/Desktop Pictures/") && path.ends_with(".heic");
    std::error_code error;
    return url.fileURL && !path.empty() && !isSystems && !isDynamic && !path.ends_with(".madesktop") &&
           !url.hasDirectoryPath && !std::filesystem::is_directory(path, error);
}

} // namespace

std::optional<std::string> MacDesktopPictures::picture(const DisplayInfo& display) {
    const auto read = [active = m_activeDisplays, uuid = display.uuid]() -> std::optional<std::string> {
        @autoreleasepool {
            NSScreen* const screen = screenOf(uuid, active());
            NSURL* const url =
                screen != nil ? [NSWorkspace.sharedWorkspace desktopImageURLForScreen:screen] : nil;
            return url != nil && isFixedPicture(url) ? FoundationText::utf8(url.absoluteString)
                                                     : std::nullopt;
        }
    };
    return callOnMainThread(m_queue, deadline, read).value_or(std::nullopt);
}

bool MacDesktopPictures::setPicture(const DisplayInfo& display, const std::string& picture) {
    const auto set = [active = m_activeDisplays, log = m_log, uuid = display.uuid, picture] {
        @autoreleasepool {
            NSScreen* const screen = screenOf(uuid, active());
            NSURL* const url = urlOf(picture);
            if (screen == nil || url == nil) {
                return false;
            }
            NSWorkspace* const workspace = NSWorkspace.sharedWorkspace;
            NSDictionary* const options = [workspace desktopImageOptionsForScreen:screen];
            NSError* error = nil;
            const bool isSet =
                [workspace setDesktopImageURL:url
                                    forScreen:screen
                                      options:options != nil ? options : [NSDictionary dictionary]
                                        error:&error];
            if (!isSet) {
                log("desktop picture: " + picture + ": " +
                    FoundationText::utf8(error.localizedDescription).value_or("no reason given"));
            }
            return isSet;
        }
    };
    return callOnMainThread(m_queue, deadline, set).value_or(false);
}

} // namespace vantrel
