// Fake AppKit: images with their representations, the system's symbols, the icons of applications.
#import "tests/macos/fake/cocoa/Cocoa.h"

#import <AppKit/AppKit.h>

using namespace vantrel::fake::cocoa;

const NSFontWeight NSFontWeightRegular = 0;

@implementation NSData {
@public
    std::string _bytes;
}
+ (instancetype)dataWithBytes:(const void*)bytes length:(NSUInteger)length {
    NSData* const made = [[NSData new] autorelease];
    made->_bytes.assign(static_cast<const char*>(bytes), length);
    return made;
}
- (NSUInteger)length {
    return _bytes.size();
}
- (const void*)bytes {
    return _bytes.data();
}
@end

// What a CGImageRef points to: what the picture shows, in words.
@interface FakePixels : NSObject {
@public
    std::string _shown;
}
@end

@implementation FakePixels
@end

@implementation NSBitmapImageRep {
@public
    std::string _bytes;
}
- (NSSize)size {
    return {};
}
- (void)setSize:(NSSize)size {
}
+ (instancetype)imageRepWithData:(NSData*)data {
    if (!data->_bytes.starts_with("\x89PNG")) {
        return nil;
    }
    NSBitmapImageRep* const made = [[NSBitmapImageRep new] autorelease];
    made->_bytes = data->_bytes;
    return made;
}
- (instancetype)initWithCGImage:(CGImageRef)image {
    _bytes = reinterpret_cast<FakePixels*>(image)->_shown;
    return self;
}
- (NSData*)representationUsingType:(NSBitmapImageFileType)type properties:(NSDictionary*)properties {
    const std::string png = "\x89PNG " + _bytes;
    return type == NSBitmapImageFileTypePNG ? [NSData dataWithBytes:png.data() length:png.size()] : nil;
}
@end

@implementation NSImageSymbolConfiguration {
@public
    CGFloat _pointSize;
}
+ (instancetype)configurationWithPointSize:(CGFloat)pointSize weight:(NSFontWeight)weight {
    NSImageSymbolConfiguration* const made = [[NSImageSymbolConfiguration new] autorelease];
    made->_pointSize = pointSize;
    return made;
}
@end

@implementation NSImage {
@public
    std::vector<NSBitmapImageRep*> _pictures;
    // Empty for an image without pixels.
    std::string _shown;
    NSSize _size;
}
@synthesize isTemplate = _isTemplate;
- (instancetype)initWithSize:(NSSize)size {
    _size = size;
    return self;
}
- (NSSize)size {
    return _size;
}
- (void)setSize:(NSSize)size {
    _size = size;
}
+ (instancetype)imageWithSystemSymbolName:(NSString*)name accessibilityDescription:(NSString*)description {
    const auto& symbols = vantrel::fake::cocoa::system().symbols;
    const auto found = symbols.find(std::string(text(name)));
    if (found == symbols.end()) {
        return nil;
    }
    NSImage* const made = [[NSImage new] autorelease];
    made->_shown = found->first;
    made->_size = {found->second.width, found->second.height};
    return made;
}
- (NSImage*)imageWithSymbolConfiguration:(NSImageSymbolConfiguration*)configuration {
    NSImage* const made = [[NSImage new] autorelease];
    made->_shown = _shown;
    made->_size = {_size.width * configuration->_pointSize, _size.height * configuration->_pointSize};
    return made;
}
- (CGImageRef)CGImageForProposedRect:(NSRect*)rect
                             context:(NSGraphicsContext*)context
                               hints:(NSDictionary*)hints {
    if (_shown.empty()) {
        return nullptr;
    }
    FakePixels* const made = [[FakePixels new] autorelease];
    made->_shown = _shown + " " + std::to_string(static_cast<int>(rect->size.width)) + "x" +
                   std::to_string(static_cast<int>(rect->size.height));
    return reinterpret_cast<CGImageRef>(made);
}
- (void)dealloc {
    for (NSBitmapImageRep* const picture : _pictures) {
        [picture release];
    }
    [super dealloc];
}
- (void)addRepresentation:(NSBitmapImageRep*)picture {
    _pictures.push_back([picture retain]);
}
@end

namespace vantrel::fake::cocoa {

NSImage* makeImage(const std::string& shown) {
    NSImage* const made = [[NSImage new] autorelease];
    made->_shown = shown;
    return made;
}

std::size_t resolutions(NSImage* image) {
    return image == nil ? 0 : image->_pictures.size();
}

} // namespace vantrel::fake::cocoa
