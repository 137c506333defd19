#include "Vantrel/platform/macos/MacDesktopPictures.h"

#include "Vantrel/platform/macos/FoundationText.h"
#include "Vantrel/platform/macos/MainThreadCall.h"
#include "Vantrel/platform/macos/ScreenNumber.h"

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

} // namespace

std::optional<std::string> MacDesktopPictures::picture(const DisplayInfo& display) {
    const auto read = [active = m_activeDisplays, uuid = display.uuid]() -> std::optional<std::string> {
        @autoreleasepool {
            NSScreen* const screen = screenOf(uuid, active());
            return screen != nil
                       ? FoundationText::utf8(
                             [NSWorkspace.sharedWorkspace desktopImageURLForScreen:screen].absoluteString)
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
