#include "Vantrel/interface/switcher/QuickSwitcher.h"

#include "Vantrel/interface/controls/KeyModifiers.h"
#include "VantrelCore/scenes/SceneRail.h"

#include <QGuiApplication>

#include <algorithm>
#include <chrono>
#include <utility>

namespace vantrel {

namespace {

constexpr std::chrono::milliseconds timeToRead{2200};

// Shift does not count unless it is the only modifier: with it the switcher goes back.
Qt::KeyboardModifiers heldModifiers(HotKeyCombo combo) {
    const auto modifiers = KeyModifiers::ofQt(combo.modifiers);
    const auto withoutShift = modifiers & ~Qt::KeyboardModifiers(Qt::ShiftModifier);
    return withoutShift ? withoutShift : modifiers;
}

} // namespace

QuickSwitcher::QuickSwitcher(AppController& controller, Services services)
    : m_controller(controller), m_services(services), m_looks(services.icons, services.windowPictures) {
    m_closing.setSingleShot(true);
    m_closing.setInterval(timeToRead);
    m_closing.callOnTimeout([this] { close(); });
    m_controller.setQuickSwitcherHandler([this] { pressed(); });
}

QuickSwitcher::~QuickSwitcher() {
    m_controller.setQuickSwitcherHandler({});
    close();
}

void QuickSwitcher::pressed() {
    if (m_view) {
        handle({.kind = HeldKeyboard::Key::Kind::next});
    } else if (const auto combo = Settings(m_controller.defaults()).quickSwitcherHotkey()) {
        open(*combo);
    }
}

void QuickSwitcher::open(HotKeyCombo combo) {
    const PublishedState& state = m_controller.published();
    m_strip = QuickSwitcherStrip(SceneRail::scenes(state.configID, state.scenes),
                                 state.recentlyAppliedSceneIDs, state.lastAppliedSceneID);
    // First of all, as from now on keys are for the switcher.
    if (m_services.keyboard != nullptr) {
        m_hold = m_services.keyboard->hold(combo,
                                           {.pressed = [this](const HeldKeyboard::Key& key) { handle(key); },
                                            .released = [this] { released(); }});
    }
    m_modifiers = m_services.keyboard == nullptr ? heldModifiers(combo) : Qt::NoModifier;
    QuickSwitcherView::Handlers handlers;
    handlers.pressed = [this](const HeldKeyboard::Key& key) { handle(key); };
    handlers.released = [this](Qt::KeyboardModifiers modifiers) {
        if (modifiers & m_modifiers) {
            released();
        }
    };
    handlers.pointed = [this](std::size_t index) {
        m_strip.select(index);
        refresh();
    };
    handlers.clicked = [this](std::size_t index) {
        m_strip.select(index);
        apply();
    };
    handlers.left = [this] { close(); };
    m_view = std::make_unique<QuickSwitcherView>(
        m_looks, m_hold ? QuickSwitcherView::Kind::held : QuickSwitcherView::Kind::window,
        std::move(handlers));
    m_live = m_controller.watchLiveDesk();
    m_observer = m_controller.addObserver([this](Topics /*changed*/) { refresh(); });
    refresh();
    m_view->open();
    if (m_modifiers && !(QGuiApplication::queryKeyboardModifiers() & m_modifiers)) {
        released();
    }
}

void QuickSwitcher::handle(const HeldKeyboard::Key& key) {
    using Kind = HeldKeyboard::Key::Kind;
    const int onward = QGuiApplication::isRightToLeft() ? -1 : 1;
    switch (key.kind) {
    case Kind::next:
        m_strip.go(1);
        break;
    case Kind::previous:
        m_strip.go(-1);
        break;
    case Kind::left:
        m_strip.go(-onward);
        break;
    case Kind::right:
        m_strip.go(onward);
        break;
    case Kind::first:
        m_strip.goToFirst();
        break;
    case Kind::last:
        m_strip.goToLast();
        break;
    case Kind::backspace:
        m_strip.erase();
        break;
    case Kind::text:
        m_strip.type(key.text);
        break;
    case Kind::enter:
        apply();
        return;
    case Kind::escape:
        close();
        return;
    }
    refresh();
}

void QuickSwitcher::released() {
    if (m_strip.isEmpty()) {
        m_hold.reset();
        m_closing.start();
    } else {
        apply();
    }
}

void QuickSwitcher::apply() {
    const Scene* const selected = m_strip.selectedScene();
    const std::string id = selected == nullptr ? "" : selected->id;
    close();
    // As it is now: it may have changed while the switcher was open.
    const auto& scenes = m_controller.published().scenes;
    if (const auto found = std::ranges::find(scenes, id, &Scene::id); found != scenes.end()) {
        // A copy: applying it publishes the scenes anew.
        m_controller.applyScene(Scene(*found));
    }
}

void QuickSwitcher::close() {
    m_closing.stop();
    m_hold.reset();
    m_live.reset();
    if (m_observer) {
        m_controller.removeObserver(*std::exchange(m_observer, std::nullopt));
    }
    // Hiding it makes it leave. One of its own events may be closing it.
    if (auto view = std::move(m_view)) {
        view->hide();
        view.release()->deleteLater();
    }
    m_looks.forget();
}

void QuickSwitcher::refresh() {
    if (!m_view) {
        return;
    }
    std::map<std::string, DeskPicture> pictures;
    for (const Scene* const scene : m_strip.shown()) {
        pictures.emplace(scene->id, DeskPicture::ofScene(*scene, m_controller.published()));
    }
    m_view->show(m_strip, pictures);
}

} // namespace vantrel
