#include "Vantrel/interface/StatusIcon.h"

#include "Vantrel/interface/PhaseIcon.h"

#include <QApplication>
#include <QEvent>

#include <utility>

namespace vantrel {

// Draws the icon again when the desktop becomes dark or light.
class StatusIcon::PaletteWatch final : public QObject {
public:
    explicit PaletteWatch(StatusIcon& icon) : m_icon(icon) { qApp->installEventFilter(this); }

protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (object == qApp && event->type() == QEvent::ApplicationPaletteChange) {
            m_icon.m_shownPhase.reset();
            m_icon.refresh();
        }
        return QObject::eventFilter(object, event);
    }

private:
    StatusIcon& m_icon;
};

StatusIcon::StatusIcon(AppController& controller, Actions actions)
    : m_controller(controller), m_menu(controller, std::move(actions)),
      m_observer(controller.addObserver([this](Topics changed) {
          if (changed.contains(Topic::status)) {
              refresh();
          }
      })),
      m_paletteWatch(std::make_unique<PaletteWatch>(*this)) {}

StatusIcon::~StatusIcon() {
    m_controller.removeObserver(m_observer);
    if (m_item != nullptr) {
        m_item->setHandlers({});
    }
}

void StatusIcon::show(Tray tray) {
    if (m_icon) {
        return;
    }
    m_tray = tray;
    m_icon.emplace();
    refresh();
    m_menu.install(*m_icon, tray);
    QObject::connect(&*m_icon, &QSystemTrayIcon::activated, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger) {
            m_menu.clicked();
        }
    });
    m_icon->show();
}

void StatusIcon::showInMenuBar(MenuBarItem& item) {
    m_item = &item;
    item.setHandlers(
        {.clicked = [this] { m_menu.clicked(); }, .menu = [this] { return m_menu.menuBarEntries(); }});
    refresh();
}

std::optional<QRect> StatusIcon::place() const {
    if (m_item != nullptr) {
        const auto frame = m_item->frame();
        return frame ? QRectF(frame->origin.x, frame->origin.y, frame->size.width, frame->size.height)
                           .toAlignedRect()
                     : QRect();
    }
    return m_icon ? std::optional(m_icon->geometry()) : std::nullopt;
}

void StatusIcon::leaveStatusNotifier() {
    if (m_tray == Tray::statusNotifier) {
        m_menu.uninstall();
        m_icon.reset();
        m_shownPhase.reset();
    }
}

void StatusIcon::refresh() {
    const auto& state = m_controller.published();
    if (m_shownPhase == state.phase || (!m_icon && m_item == nullptr)) {
        return;
    }
    m_shownPhase = state.phase;
    const std::string description = "Vantrel: " + StatusPhase::text(state.phase);
    if (m_item != nullptr) {
        m_item->setPicture(PhaseIcon::masks(state.phase));
        m_item->setDescription(description);
        return;
    }
    const auto tone = PhaseIcon::toneOfDesktop();
    m_icon->setIcon(m_tray == Tray::statusNotifier ? PhaseIcon::namedIcon(state.phase, tone)
                                                   : PhaseIcon::icon(state.phase, tone));
    m_icon->setToolTip(QString::fromStdString(description));
}

} // namespace vantrel
