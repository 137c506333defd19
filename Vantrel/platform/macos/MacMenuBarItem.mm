#include "Vantrel/platform/macos/MacMenuBarItem.h"

#include "Vantrel/platform/macos/FoundationText.h"
#include "VantrelCore/commands/KeyCodeFormatter.h"

#import <AppKit/AppKit.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>
#include <utility>

#if !__has_feature(objc_arc)
#error "compile this with -fobjc-arc"
#endif

// Runs work when AppKit sends it an action.
@interface VantrelActionTarget : NSObject {
@public
    std::function<void()> m_work;
}
- (void)perform:(id)sender;
@end

@implementation VantrelActionTarget
- (void)perform:(id)sender {
    // A copy: the work may end the owner of this object.
    if (const auto work = m_work) {
        work();
    }
}
@end

namespace vantrel {

namespace {

// In points, as Apple recommends for menu bar icons.
constexpr double pictureSide = 18;

VantrelActionTarget* target(std::function<void()> work) {
    VantrelActionTarget* const made = [[VantrelActionTarget alloc] init];
    made->m_work = std::move(work);
    return made;
}

// The key equivalent that AppKit expects; empty for keys not listed here.
std::string keyEquivalent(std::int64_t keyCode) {
    // AppKit's NSUpArrowFunctionKey is U+F700, and so on.
    constexpr std::array<std::pair<std::string_view, std::string_view>, 19> named{{{"Space", " "},
                                                                                   {"Return", "\r"},
                                                                                   {"Tab", "\t"},
                                                                                   {"↑", "\uF700"},
                                                                                   {"↓", "\uF701"},
                                                                                   {"←", "\uF702"},
                                                                                   {"→", "\uF703"},
                                                                                   {"F1", "\uF704"},
                                                                                   {"F2", "\uF705"},
                                                                                   {"F3", "\uF706"},
                                                                                   {"F4", "\uF707"},
                                                                                   {"F5", "\uF708"},
                                                                                   {"F6", "\uF709"},
                                                                                   {"F7", "\uF70A"},
                                                                                   {"F8", "\uF70B"},
                                                                                   {"F9", "\uF70C"},
                                                                                   {"F10", "\uF70D"},
                                                                                   {"F11", "\uF70E"},
                                                                                   {"F12", "\uF70F"}}};
    const std::string glyph = KeyCodeFormatter::keyGlyph(keyCode);
    const auto* const found = std::ranges::find(named, glyph, [](const auto& each) { return each.first; });
    if (found != named.end()) {
        return std::string(found->second);
    }
    // A capital letter would add Shift.
    return glyph.size() == 1
               ? std::string(1, static_cast<char>(std::tolower(static_cast<unsigned char>(glyph.front()))))
               : "";
}

bool asksForMenu(NSEvent* event) {
    return event.type == NSEventTypeRightMouseDown ||
           (event.type == NSEventTypeLeftMouseDown &&
            (event.modifierFlags & NSEventModifierFlagControl) != 0);
}

} // namespace

struct MacMenuBarItem::State {
    Handlers handlers;
    NSStatusItem* item = nil;
    VantrelActionTarget* click = nil;
    // Of the menu that was opened last: AppKit does not retain them and may send an action after the menu has
    // closed.
    std::vector<VantrelActionTarget*> targets;

    void clicked() {
        if (asksForMenu(NSApplication.sharedApplication.currentEvent)) {
            openMenu();
        } else if (handlers.clicked) {
            handlers.clicked();
        }
    }

    // While the item has a menu, every click opens that. So it gets a new one each time, and only until that
    // closes, which is when performClick: returns.
    void openMenu() {
        if (!handlers.menu) {
            return;
        }
        NSMenu* const menu = [[NSMenu alloc] init];
        menu.autoenablesItems = NO;
        targets.clear();
        for (auto& entry : handlers.menu()) {
            [menu addItem:menuItem(std::move(entry))];
        }
        item.menu = menu;
        [item.button performClick:nil];
        item.menu = nil;
    }

    NSMenuItem* menuItem(Entry entry) {
        NSString* const title = FoundationText::make(entry.title);
        if (title.length == 0) {
            return NSMenuItem.separatorItem;
        }
        NSMenuItem* const made = [[NSMenuItem alloc] initWithTitle:title
                                                            action:@selector(perform:)
                                                     keyEquivalent:@""];
        targets.push_back(target(std::move(entry.perform)));
        made.target = targets.back();
        if (entry.shortcut) {
            // Always valid UTF-8.
            NSString* const key = FoundationText::make(keyEquivalent(entry.shortcut->keyCode));
            made.keyEquivalent = key != nil ? key : @"";
            made.keyEquivalentModifierMask = KeyCodeFormatter::eventFlags(entry.shortcut->modifiers);
        }
        made.enabled = entry.isEnabled;
        made.state = entry.isChecked ? NSControlStateValueOn : NSControlStateValueOff;
        return made;
    }
};

MacMenuBarItem::MacMenuBarItem() : m_state(std::make_shared<State>()) {
    @autoreleasepool {
        m_state->item = [NSStatusBar.systemStatusBar statusItemWithLength:NSSquareStatusItemLength];
        m_state->click = target([state = std::weak_ptr(m_state)] {
            // Kept alive: an entry of the menu may quit the program.
            if (const auto kept = state.lock()) {
                kept->clicked();
            }
        });
        NSStatusBarButton* const button = m_state->item.button;
        button.target = m_state->click;
        button.action = @selector(perform:);
        [button sendActionOn:NSEventMaskLeftMouseDown | NSEventMaskRightMouseDown];
    }
}

MacMenuBarItem::~MacMenuBarItem() {
    @autoreleasepool {
        m_state->item.button.target = nil;
        [NSStatusBar.systemStatusBar removeStatusItem:m_state->item];
    }
}

void MacMenuBarItem::setHandlers(Handlers handlers) {
    m_state->handlers = std::move(handlers);
}

void MacMenuBarItem::setPicture(const std::vector<std::string>& resolutions) {
    @autoreleasepool {
        const NSSize size{pictureSide, pictureSide};
        NSImage* const image = [[NSImage alloc] initWithSize:size];
        for (const std::string& png : resolutions) {
            NSData* const data = [NSData dataWithBytes:png.data() length:png.size()];
            if (NSBitmapImageRep* const picture = [NSBitmapImageRep imageRepWithData:data]) {
                picture.size = size;
                [image addRepresentation:picture];
            }
        }
        [image setTemplate:YES];
        m_state->item.button.image = image;
    }
}

void MacMenuBarItem::setDescription(const std::string& text) {
    @autoreleasepool {
        NSString* const shown = FoundationText::make(text);
        m_state->item.button.toolTip = shown;
        m_state->item.button.accessibilityLabel = shown;
    }
}

std::optional<Rect> MacMenuBarItem::frame() {
    @autoreleasepool {
        NSWindow* const window = m_state->item.button.window;
        NSScreen* const primary = NSScreen.screens.firstObject;
        if (window == nil || primary == nil) {
            return std::nullopt;
        }
        const NSRect area = window.frame;
        // AppKit counts from the bottom of the primary display.
        return Rect{{area.origin.x, primary.frame.size.height - area.origin.y - area.size.height},
                    {area.size.width, area.size.height}};
    }
}

} // namespace vantrel
