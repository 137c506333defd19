// Fake menu bar: the status item, its button and menu, and the events of clicks.
#import "tests/macos/fake/cocoa/Cocoa.h"

#import <AppKit/AppKit.h>

extern "C" void objc_msgSend();

using namespace vantrel::fake::cocoa;

namespace {

MenuBar& menuBar() {
    return vantrel::fake::cocoa::system().menuBar;
}

// The action of the chosen entry, which is sent after the menu has gone. Does not retain the target.
std::pair<id, SEL>& chosen() {
    static std::pair<id, SEL> action;
    return action;
}

void send(id target, SEL action, id sender) {
    if (target != nil && action != nullptr) {
        reinterpret_cast<void (*)(id, SEL, id)>(objc_msgSend)(target, action, sender);
    }
}

} // namespace

@implementation NSEvent
- (NSEventType)type {
    return menuBar().isRightClick ? NSEventTypeRightMouseDown : NSEventTypeLeftMouseDown;
}
- (NSUInteger)modifierFlags {
    return menuBar().isControlHeld ? NSEventModifierFlagControl : 0;
}
@end

@implementation NSMenuItem {
@public
    std::string _title;
    SEL _action;
    // Not retained.
    id _target;
    BOOL _enabled;
    std::string _key;
}
@synthesize enabled = _enabled;
@synthesize state = _state;
@synthesize keyEquivalentModifierMask = _keyEquivalentModifierMask;
+ (NSMenuItem*)separatorItem {
    return [[NSMenuItem new] autorelease];
}
- (instancetype)initWithTitle:(NSString*)title action:(SEL)action keyEquivalent:(NSString*)keyEquivalent {
    _title = text(title);
    _action = action;
    _enabled = YES;
    return self;
}
- (id)target {
    return _target;
}
- (void)setTarget:(id)target {
    _target = target;
}
- (NSString*)keyEquivalent {
    return make(_key);
}
- (void)setKeyEquivalent:(NSString*)key {
    _key = text(key);
}
- (std::string)shown {
    const std::string flags = std::to_string(_keyEquivalentModifierMask);
    return (_enabled ? "" : "disabled ") + _title + (_key.empty() ? "" : " [" + flags + " " + _key + "]");
}
@end

@implementation NSMenu {
@public
    std::vector<NSMenuItem*> _items;
}
@synthesize autoenablesItems = _autoenablesItems;
- (void)dealloc {
    for (NSMenuItem* const item : _items) {
        [item release];
    }
    [super dealloc];
}
- (void)addItem:(NSMenuItem*)item {
    _items.push_back([item retain]);
}
@end

@implementation NSStatusBarButton {
@public
    NSImage* _image;
    // Not retained.
    id _target;
    SEL _action;
}
- (void)dealloc {
    [_image release];
    [super dealloc];
}
- (id)target {
    return _target;
}
- (void)setTarget:(id)target {
    _target = target;
}
- (SEL)action {
    return _action;
}
- (void)setAction:(SEL)action {
    _action = action;
}
- (NSImage*)image {
    return _image;
}
- (void)setImage:(NSImage*)image {
    [image retain];
    [_image release];
    _image = image;
    menuBar().resolutions = resolutions(image);
    menuBar().isTemplate = image.isTemplate;
}
- (NSString*)toolTip {
    return nil;
}
- (void)setToolTip:(NSString*)toolTip {
    menuBar().toolTip = text(toolTip);
}
- (NSString*)accessibilityLabel {
    return nil;
}
- (void)setAccessibilityLabel:(NSString*)label {
    menuBar().label = text(label);
}
- (NSInteger)sendActionOn:(NSEventMask)mask {
    menuBar().isRightClickSent = (mask & NSEventMaskRightMouseDown) != 0;
    return 0;
}
- (void)performClick:(id)sender {
    NSMenu* const menu = [[static_cast<NSStatusItem*>(shared([NSStatusItem class])).menu retain] autorelease];
    if (menu == nil) {
        send(_target, _action, self);
        return;
    }
    // Returns when the user has chosen an entry or closed the menu.
    menuBar().opened.clear();
    for (NSMenuItem* const item : menu->_items) {
        menuBar().opened.push_back([item shown]);
    }
    for (NSMenuItem* const item : menu->_items) {
        if (!item->_title.empty() && item->_title == menuBar().chosen && item.enabled) {
            chosen() = {item->_target, item->_action};
        }
    }
}
@end

@implementation NSStatusItem {
    NSMenu* _menu;
}
- (void)dealloc {
    [_menu release];
    [super dealloc];
}
- (NSMenu*)menu {
    return _menu;
}
- (void)setMenu:(NSMenu*)menu {
    [menu retain];
    [_menu release];
    _menu = menu;
}
- (NSStatusBarButton*)button {
    return shared([NSStatusBarButton class]);
}
@end

@implementation NSStatusBar
+ (NSStatusBar*)systemStatusBar {
    return shared(self);
}
- (NSStatusItem*)statusItemWithLength:(double)length {
    menuBar().hasItem = true;
    return shared([NSStatusItem class]);
}
- (void)removeStatusItem:(NSStatusItem*)item {
    menuBar().hasItem = false;
}
@end

@implementation NSAppleEventDescriptor
@end

@implementation NSAppleEventManager {
@public
    // Not retained.
    id _handler;
    SEL _selector;
}
+ (NSAppleEventManager*)sharedAppleEventManager {
    return shared(self);
}
- (void)setEventHandler:(id)handler
            andSelector:(SEL)selector
          forEventClass:(FourCharCode)eventClass
             andEventID:(FourCharCode)eventID {
    if (eventClass == kCoreEventClass && eventID == kAEReopenApplication) {
        _handler = handler;
        _selector = selector;
    }
}
- (void)removeEventHandlerForEventClass:(FourCharCode)eventClass andEventID:(FourCharCode)eventID {
    _handler = nil;
}
@end

namespace vantrel::fake::cocoa {

void clickMenuBarItem(Click click) {
    @autoreleasepool {
        menuBar().isRightClick = click == Click::right;
        menuBar().isControlHeld = click == Click::control;
        NSStatusBarButton* const button = shared([NSStatusBarButton class]);
        // AppKit opens the menu of an item that has one, whatever the button.
        if (click != Click::right || menuBar().isRightClickSent) {
            [button performClick:nil];
        }
    }
    @autoreleasepool {
        const auto [target, action] = std::exchange(chosen(), {});
        send(target, action, nil);
    }
}

void reopen() {
    @autoreleasepool {
        NSAppleEventManager* const manager = NSAppleEventManager.sharedAppleEventManager;
        if (manager->_handler != nil) {
            reinterpret_cast<void (*)(id, SEL, id, id)>(objc_msgSend)(
                manager->_handler, manager->_selector, [[NSAppleEventDescriptor new] autorelease], nil);
        }
    }
}

} // namespace vantrel::fake::cocoa
