#include "Vantrel/interface/workbench/Workbench.h"

#include "Vantrel/controller/WorkbenchTabs.h"
#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/workbench/desks/DesksPage.h"
#include "Vantrel/interface/workbench/history/HistoryPage.h"
#include "Vantrel/interface/workbench/rules/RulesPage.h"
#include "Vantrel/interface/workbench/scenes/ScenesPage.h"
#include "Vantrel/interface/workbench/settings/SettingsPage.h"
#include "VantrelCore/scenes/SceneTriggerFormatting.h"

#include <QApplication>
#include <QClipboard>
#include <QScreen>

#include <algorithm>
#include <array>
#include <chrono>
#include <fmt/format.h>

namespace vantrel {

namespace {

constexpr std::chrono::seconds agingInterval{30};
constexpr const char* tabKey = "workbenchTab";
constexpr const char* sizeKey = "workbenchSize";
constexpr std::array shownTabs{WorkbenchTab::scenes, WorkbenchTab::desks, WorkbenchTab::history,
                               WorkbenchTab::rules, WorkbenchTab::settings};

} // namespace

Workbench::Workbench(AppController& controller, Services services)
    : m_controller(controller), m_services(std::move(services)),
      m_looks(m_services.icons, m_services.windowPictures) {
    m_aging.setInterval(agingInterval);
    m_aging.callOnTimeout([this] { refresh({Topic::status}); });
}

Workbench::~Workbench() {
    if (m_window) {
        m_window->onClosed = [] {};
        closed();
    }
    // The window uses members destroyed here.
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

bool Workbench::has(WorkbenchTab tab) {
    return std::ranges::find(shownTabs, tab) != shownTabs.end();
}

bool Workbench::open(std::optional<WorkbenchTab> tab) {
    if (tab && !has(*tab)) {
        return false;
    }
    const bool isNew = !m_window;
    if (isNew) {
        make();
    }
    if (tab || isNew) {
        m_window->choose(tab.value_or(rememberedTab()));
    }
    m_window->QWidget::show();
    m_window->raise();
    m_window->activateWindow();
    return true;
}

void Workbench::make() {
    m_window = std::make_unique<WorkbenchWindow>();
    m_window->add(WorkbenchTab::scenes, [this](QWidget* parent) { return scenesPage(parent); });
    m_window->add(WorkbenchTab::desks, [this](QWidget* parent) { return desksPage(parent); });
    m_window->add(WorkbenchTab::history, [this](QWidget* parent) { return historyPage(parent); });
    const auto tell = [this](const std::string& text, bool isProblem) { say(text, isProblem); };
    m_window->add(WorkbenchTab::rules, [this, tell](QWidget* parent) {
        const auto problem = [tell](const std::string& text) { tell(text, true); };
        return new RulesPage(m_looks, RulesActions::of(m_controller, problem), parent);
    });
    m_window->add(WorkbenchTab::settings, [this, tell](QWidget* parent) {
        return new SettingsPage(SettingsActions::of(m_controller, m_services.settings, m_alive, tell),
                                parent);
    });
    m_window->onSeenChanged = [this] { watch(); };
    m_window->onClosed = [this] { closed(); };
    m_window->resize(rememberedSize());
    m_offered = m_controller.deletions().newest();
    m_observer = m_controller.addObserver([this](Topics changed) { refresh(changed); });
    refresh({});
    m_aging.start();
    m_services.openChanged(true);
}

void Workbench::close() {
    if (m_window) {
        m_window->close();
    }
}

// The window is deleted later, as one of its own events may be closing it.
void Workbench::closed() {
    remember();
    m_aging.stop();
    m_live.reset();
    if (m_observer) {
        m_controller.removeObserver(*std::exchange(m_observer, std::nullopt));
    }
    m_looks.forget();
    m_installed.reset();
    m_window.release()->deleteLater();
    m_services.openChanged(false);
}

WorkbenchTab Workbench::rememberedTab() {
    const auto tab = WorkbenchTabs::named(m_controller.defaults().text(tabKey).value_or(""));
    return tab && has(*tab) ? *tab : shownTabs.front();
}

QSize Workbench::rememberedSize() {
    const QString text = qt(m_controller.defaults().text(sizeKey).value_or(""));
    const QStringList parts = text.split('x');
    QSize size = m_window->usualSize();
    if (parts.size() == 2 && parts[0].toInt() > 0 && parts[1].toInt() > 0) {
        size = QSize(parts[0].toInt(), parts[1].toInt());
    }
    const QScreen* const screen = QApplication::primaryScreen();
    return screen != nullptr ? size.boundedTo(screen->availableSize()) : size;
}

void Workbench::remember() {
    UserDefaults& defaults = m_controller.defaults();
    defaults.set(tabKey, std::string(WorkbenchTabs::name(m_window->tab())));
    if (!m_window->isMaximized() && !m_window->isFullScreen()) {
        defaults.set(sizeKey, fmt::format("{}x{}", m_window->width(), m_window->height()));
    }
}

void Workbench::refresh(Topics changed) {
    m_window->show(m_controller.published(), changed);
    offerUndo();
}

void Workbench::watch() {
    const WorkbenchPage* const page = m_window->page();
    if (page != nullptr && page->wantsLiveWindows() && !m_window->isMinimized()) {
        m_live = m_live ? m_live : m_controller.watchLiveDesk();
    } else {
        m_live.reset();
    }
}

// Regardless of who deleted it: this window, the panel, or a command.
void Workbench::offerUndo() {
    const auto& newest = m_controller.published().newestDeletion;
    const std::optional<RecentDeletions::ID> id = newest ? std::optional(newest->id) : std::nullopt;
    if (id == m_offered) {
        return;
    }
    const bool isNews = id && (!m_offered || *id > *m_offered);
    m_offered = id;
    if (!isNews) {
        // Another client put it back.
        if (m_window->notices().offersUndo()) {
            m_window->notices().dismiss();
        }
        return;
    }
    std::string what = newest->what;
    if (!what.empty()) {
        what.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(what.front())));
    }
    m_window->notices().offerUndo(qt(trf("{} was deleted.", what)), [this, id = newest->id] {
        if (const auto back = m_controller.deletions().putBack(id); !back) {
            say(back.error(), true);
        }
    });
}

void Workbench::say(const std::string& text, bool isProblem) {
    if (m_window) {
        m_window->notices().say(qt(text), isProblem ? NoticeBar::Tone::problem : NoticeBar::Tone::plain);
    }
}

WorkbenchPage* Workbench::scenesPage(QWidget* parent) {
    const auto tell = [this](const std::string& text, bool isProblem) { say(text, isProblem); };
    ScenesActions actions;
    actions.scenes = SceneActions::of(m_controller, m_alive, tell, SceneProblems::nameFieldText);
    actions.addTime = [this](const std::string& id, const std::string& time) -> ScenesActions::Problem {
        const auto schedule = SceneTriggerFormatting::scheduleOf(time);
        if (!schedule) {
            return text(TriggerProblem::invalidTime);
        }
        const auto added = m_controller.triggers().addTrigger(*schedule, {id});
        return added ? std::nullopt : ScenesActions::Problem(text(added.error()));
    };
    actions.removeTrigger = [this](const std::string& id) {
        if (const auto removed = m_controller.triggers().deleteTrigger(id); !removed) {
            say(text(removed.error()), true);
        }
    };
    actions.edit = [this](const std::string& id, std::function<void()> leave, QWidget* editorParent) {
        return sceneEditor(id, std::move(leave), editorParent);
    };
    actions.applications = [this] { return applications(); };
    actions.createEmpty = [this](const std::string& name) -> std::optional<std::string> {
        const auto outcome = m_controller.scenes().createEmptyScene(name);
        if (!outcome.isSaved()) {
            say(outcome.text(), true);
        }
        return outcome.scene ? std::optional(outcome.scene->id) : std::nullopt;
    };
    actions.keyCode = m_services.keyCode;
    actions.takenHotKeys = [this] { return m_controller.takenHotKeys(); };
    actions.wallpapers = m_services.wallpapers;
    actions.wallpapers.recents = [this] { return Settings(m_controller.defaults()).wallpaperRecents(); };
    actions.setWallpaper = [this](const std::string& id, const std::vector<std::string>& displays,
                                  const std::optional<std::string>& file) {
        const auto& scenes = m_controller.published().scenes;
        const auto scene = std::ranges::find(scenes, id, &Scene::id);
        SceneWallpaper wallpaper =
            scene != scenes.end() && scene->wallpaper ? *scene->wallpaper : SceneWallpaper{};
        for (const std::string& display : displays) {
            if (file) {
                wallpaper.perDisplay[display] = *file;
            } else {
                wallpaper.perDisplay.erase(display);
            }
        }
        if (const auto set = m_controller.scenes().setWallpaper(wallpaper, id); !set) {
            say(std::string(SceneProblems::panelText(set.error())), true);
        }
    };
    actions.context = [this] {
        return ScenesContent::Context{
            .now = m_controller.now(), .zone = m_controller.zone(), .history = m_controller.restoreLog()};
    };
    return new ScenesPage(m_looks, std::move(actions), parent);
}

WorkbenchPage* Workbench::desksPage(QWidget* parent) {
    const auto tell = [this](const std::string& text, bool isProblem) { say(text, isProblem); };
    const auto refusal = tellRefusal(m_alive, tell);
    const auto problem = [](const LayoutChange& change) {
        return change.kind == LayoutChange::Kind::done ? std::nullopt : DesksActions::Problem(change.text());
    };
    const auto tellChange = [tell, problem](const LayoutChange& change) {
        if (const auto text = problem(change)) {
            tell(*text, true);
        }
    };
    const auto layout = [this](const std::string& configID, const std::string& name) {
        const auto all = m_controller.allLayouts();
        const auto found = std::ranges::find_if(
            all, [&](const Layout& each) { return each.configID == configID && each.layoutName == name; });
        return found == all.end() ? std::nullopt : std::optional(*found);
    };
    DesksActions actions;
    actions.layouts = [this] { return m_controller.allLayouts(); };
    actions.now = [this] { return m_controller.now(); };
    actions.zone = [this] { return m_controller.zone(); };
    actions.problemWithName = [this](const std::string& configID, const std::string& name) {
        const auto found = m_controller.desks().problemWithName(configID, name);
        return found ? DesksActions::Problem(found->text()) : std::nullopt;
    };
    actions.rename = [this, problem](const std::string& configID, const std::string& name) {
        return problem(m_controller.desks().rename(configID, name));
    };
    actions.forget = [this, tellChange](const std::string& configID) {
        tellChange(m_controller.desks().forget(configID));
    };
    actions.switchLayout = [this, refusal](const std::string& name) {
        m_controller.layouts().switchLayout(name, refusal);
    };
    actions.saveLayoutAs = [this, alive = std::weak_ptr(m_alive), tell](const std::string& name) {
        m_controller.layouts().saveLayoutAs(name, [alive, tell](const SaveOutcome& outcome) {
            if (!alive.expired()) {
                tell(outcome.text(), outcome.kind != SaveOutcome::Kind::saved);
            }
        });
    };
    actions.problemWithLayoutName = [this](const std::string& name) {
        const auto found = m_controller.layouts().problemWithNewName(name);
        return found ? DesksActions::Problem(found->text()) : std::nullopt;
    };
    actions.restore = [this, refusal] { m_controller.restoreNow(RestoreSource::menu, refusal); };
    actions.applyLayout = [this, refusal, layout](const std::string& configID, const std::string& name) {
        if (const auto found = layout(configID, name)) {
            m_controller.layouts().applyLayout(*found, refusal);
        }
    };
    actions.renameLayout = [this, problem](const std::string& configID, const std::string& name,
                                           const std::string& newName) {
        return problem(m_controller.layouts().rename(configID, name, newName));
    };
    actions.removeLayout = [this, tellChange](const std::string& configID, const std::string& name) {
        tellChange(m_controller.layouts().remove(configID, name));
    };
    actions.setPinned = [this, tellChange](const std::string& configID, const std::string& name,
                                           bool isPinned) {
        tellChange(m_controller.layouts().setPinned(isPinned, configID, name));
    };
    actions.bringBack = [this, refusal](const std::string& stash) {
        m_controller.stashes().bringBack(stash, refusal);
    };
    actions.discardStash = [this, tell](const std::string& stash) {
        if (!m_controller.stashes().discard(stash)) {
            tell(vantrel::tr("The stash could not be deleted."), true);
        }
    };
    actions.preview = [this, layout](const std::string& configID, const std::string& name,
                                     const DesksActions::PreviewDone& done) {
        if (configID == m_controller.published().configID) {
            m_controller.previews().preview(done);
        } else if (const auto found = layout(configID, name)) {
            m_controller.previews().previewLayout(*found, done);
        } else {
            done(std::unexpected(LayoutChange{LayoutChange::Kind::noSuchLayout}.text()));
        }
    };
    return new DesksPage(m_looks, std::move(actions), parent);
}

WorkbenchPage* Workbench::historyPage(QWidget* parent) {
    HistoryActions actions;
    actions.context = [this] {
        HistoryContent::Context context{.now = m_controller.now(),
                                        .zone = m_controller.zone(),
                                        .log = m_controller.restoreLog(),
                                        .apps = m_controller.appReliability()};
        for (const RememberedDesk& desk : m_controller.published().desks) {
            context.desks[desk.configID] = {desk.name, desk.displays};
        }
        return context;
    };
    actions.undo = [this] {
        m_controller.undoLastRestore(
            tellRefusal(m_alive, [this](const std::string& text, bool isProblem) { say(text, isProblem); }));
    };
    actions.copy = [this](const std::string& text) {
        QApplication::clipboard()->setText(qt(text));
        say(vantrel::tr("Copied."), false);
    };
    return new HistoryPage(m_looks, std::move(actions), parent);
}

} // namespace vantrel
