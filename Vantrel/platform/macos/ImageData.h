// Converts AppKit's images to PNG data. Objective-C++ only.
#pragma once

#import <AppKit/AppKit.h>

#include <string>

namespace vantrel::ImageData {

// The representation that suits this size in points; the number of its pixels is up to AppKit. Empty if the
// image cannot be drawn. Needs an autorelease pool.
[[nodiscard]] inline std::string png(NSImage* _Nonnull image, NSSize size) {
    NSRect area{{0, 0}, size};
    const CGImageRef pixels = [image CGImageForProposedRect:&area context:nil hints:nil];
    if (pixels == nullptr) {
        return "";
    }
    NSBitmapImageRep* const bitmap = [[NSBitmapImageRep alloc] initWithCGImage:pixels];
    NSData* const data = [bitmap representationUsingType:NSBitmapImageFileTypePNG
                                              properties:[NSDictionary dictionary]];
    return data == nil ? "" : std::string(static_cast<const char*>(data.bytes), data.length);
}

} // namespace vantrel::ImageData
