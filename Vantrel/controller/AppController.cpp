#include "Vantrel/controller/AppController.h"

#include "VantrelCore/text/Translation.h"
#include "VantrelCore/windows/AXPermission.h"

#include <fmt/format.h>
#include <utility>

namespace vantrel {

namespace {

// In seconds.
constexpr double snapshotInterval = 15;
constexpr double permissionPollInterval = 1.5;

const char* sourceName(RestoreSource source) {
    switch (source) {
    case RestoreSource::menu:
        return "menu";
    case RestoreSource::hotKey:
        return "hotkey";
    case RestoreSource::shortcut:
        return "shortcut";
    case RestoreSource::command:
        return "command";
    }
    return "";
}

} // namespace

std::expected<std::unique_ptr<AppController>, std::error_code>
AppController::create(const ControllerPorts& ports, const StoreFiles& files, AppLog& log, Options options) {
    auto writer = std::make_unique<BackgroundWriter>(ports.background, ports.mainQueue,
                                                     [&log](const std::string& line) { log.write(line); });
    const StoreFiles storeFiles(files.files(), files.incidents(), writer.get());
    if (options.stateDirectory.empty()) {
        options.stateDirectory = options.supportDirectory;
    }
    auto stores =
        ControllerStores::open(options.supportDirectory, options.stateDirectory, storeFiles, ports.clock);
    if (!stores) {
        return std::unexpected(stores.error());
    }
    stores->readAll();
    return std::unique_ptr<AppController>(
        new AppController(ports, std::move(writer), storeFiles, log, std::move(*stores), std::move(options)));
}

AppController::AppController(const ControllerPorts& ports, std::unique_ptr<BackgroundWriter> writer,
                             const StoreFiles& files, AppLog& log, ControllerStores stores, Options options)
    : m_writer(std::move(writer)), m_stores(std::move(stores)),
      m_context(ports, log, m_stores.layouts, m_stores.scenes),
      m_sessionNotes(m_context, m_stores.sessionNotes),
      m_files(m_context, m_stores, files, {options.supportDirectory, options.stateDirectory}),
      m_history(m_context, m_stores), m_learning(m_context), m_liveDesk(m_context),
      m_runner(m_context, m_history), m_pinned(m_context, m_runner), m_undo(m_context, m_runner),
      m_layouts(m_context, m_learning, m_runner), m_desks(m_context, m_stores),
      m_stashes(m_context, m_runner, m_stores.stashes), m_sameDesk(m_context, m_stores),
      m_displaySwap(m_context, m_runner), m_previews(m_context), m_automaticRestore(m_context, m_runner),
      m_displayChange(m_context, m_learning, m_automaticRestore), m_sleepWake(m_context, m_runner),
      m_strayReturn(m_context), m_launchPlacement(m_context), m_scenes(m_context),
      m_settlement(m_context, m_scenes, m_history), m_sceneApply(m_context, m_runner, m_scenes, m_settlement),
      m_triggers(m_context, m_stores.triggers), m_suggestions(m_context), m_rules(m_context, m_stores),
      m_nudge(m_context), m_wallpaper(m_context), m_hotKeys(m_context, m_scenes, hotKeyActions()) {
    m_files.onPutBack = [this] { showStored(); };
    m_context.deletions.onChanged = [this] {
        m_context.publisher.publish<DeletionsTopic>(
            [this](auto& topic) { topic.newestDeletion = m_context.deletions.newestInfo(); });
    };
    m_context.onNoted = [this] { m_sessionNotes.keep(); };
    m_context.onScenesChanged = [this] { m_hotKeys.syncSceneHotKeys(); };
    m_context.onDeskArranged = [this] { m_learning.snapshotIfChanged(); };
    m_context.onLayoutsChanged = [this, showDesks = std::move(m_context.onLayoutsChanged)] {
        showDesks();
        m_pinned.layoutsChanged();
    };
    m_runner.onFinished = [this](const RestoreRequest& request, const RestoreCallbacks& callbacks,
                                 const RestorePass::Result& result) {
        m_undo.remember(request, callbacks, result);
        m_automaticRestore.restored(request);
        if (!result.isAbandoned) {
            m_pinned.restored(request);
        }
    };
    m_displayChange.onArrival = [this](const std::string& configID,
                                       const std::vector<DisplayInfo>& displays) {
        m_sameDesk.arrive(configID, displays);
    };
    m_desks.onStoredChanged = [this] { showStored(); };
    m_desks.onPresentDeskPutBack = [this] { m_layouts.restoreActiveLayout(); };
    m_sameDesk.onMoved = [this] { showStored(); };
    m_sameDesk.onDeskMoved = [this](const std::string& from, const std::string& to,
                                    const std::vector<DisplayInfo>& displays) {
        m_undo.moveDesk(from, to, displays);
    };
    m_automaticRestore.onUnableToMove = [this] { watchForPermission(); };
    m_context.onPermissionLost = [this] { watchForPermission(); };
    m_sleepWake.onReturn = [this] { m_automaticRestore.makeUp(); };
    m_displayChange.onSettled = [this] {
        m_pinned.layoutsChanged();
        m_pinned.endPauseForUser();
        m_suggestions.refresh();
    };
    m_layouts.onRenamed = [this](const std::string& configID, const std::string& name,
                                 const std::string& newName) {
        m_launchPlacement.layoutRenamed(configID, name, newName);
    };
    m_layouts.onPinned = [this](const std::string& configID, const std::string& name) {
        if (configID == published().configID && name == published().activeLayoutName) {
            m_pinned.endPauseForUser();
        }
    };
    m_triggers.onFire = [this](const Scene& scene, const std::string& reason) { applyScene(scene, reason); };
    m_launchPlacement.isAwaitedBySettlement = [this](const std::string& bundleID) {
        return m_settlement.isAwaiting(bundleID);
    };
    m_learning.onLearnedDesk = [this](const Layout& learned) {
        m_suggestions.recordPatternObservationIfNeeded(learned);
    };
    m_learning.onPinnedDesk = [this](const Layout& current) { m_pinned.observe(current); };
    m_learning.onFreshDesk = [this](const Layout& fresh) {
        // While a settlement is pending, some windows are still on their way.
        if (!m_settlement.isPending()) {
            m_nudge.checkSceneDrift(fresh);
        }
    };
    m_sceneApply.onApplied = [this](const Scene& scene) {
        m_nudge.clear();
        m_wallpaper.apply(scene);
    };
    m_sceneApply.onUndone = [this] {
        m_nudge.clear();
        const Scene* const former = published().lastAppliedScene();
        m_wallpaper.apply(former != nullptr ? *former : Scene{});
    };
    m_sceneApply.onHidden = [this](const std::vector<std::string>& bundleIDs) {
        m_undo.noteHidden(bundleIDs);
    };
    m_context.ownBundleID = std::move(options.ownBundleID);
    m_setLaunchAtLogin = std::move(options.setLaunchAtLogin);
    m_settingsWithoutEffect = std::move(options.settingsWithoutEffect);
    m_context.publisher.publish<StatusTopic>([&](auto& status) {
        status.version = std::move(options.version);
        status.entitlement = m_context.ports.license.entitlement();
    });
    m_context.ports.license.setChangeHandler([this] { licenseChanged(); });
    showSettings();
}

HotKeyFlow::Actions AppController::hotKeyActions() {
    return {.restore = [this] { restoreNow(RestoreSource::hotKey); },
            .save = [this] { saveLayoutNow(); },
            .stash = [this] { m_stashes.stashOrBringBack({}); },
            .undo = [this] { undoLastRestore(); },
            .showQuickSwitcher =
                [this] {
                    if (m_showQuickSwitcher) {
                        m_showQuickSwitcher();
                    }
                },
            .applyScene =
                [this](const std::string& id) {
                    if (const auto scene = m_stores.scenes.scene(id)) {
                        applyScene(*scene);
                    }
                }};
}

AppController::~AppController() {
    m_context.ports.license.setChangeHandler({});
    m_context.ports.systemEvents.setHandlers({});
    m_context.ports.workspace.setLaunchHandler({});
    m_context.ports.defaults.setChangeHandler({});
    m_context.moves.abandon();
    // While everything that hears of the end of a write still exists.
    finishWriting();
}

void AppController::watchForPermission() {
    if (m_permissionTimer || AXPermission::isGranted(m_context.ports.desk)) {
        return;
    }
    m_permissionTimer = m_context.ports.mainQueue.every(permissionPollInterval, [this] {
        if (AXPermission::isGranted(m_context.ports.desk)) {
            // Destroys this function.
            const auto ended = std::move(m_permissionTimer);
            refreshStatus();
            m_automaticRestore.makeUp();
        }
    });
}

void AppController::startEngine() {
    m_displayChange.start();
    m_context.ports.defaults.setChangeHandler([this] { userDefaultsChanged(); });
    m_context.ports.systemEvents.setHandlers({.willSleep = [this] { m_sleepWake.willSleep(); },
                                              .didWake = [this] { m_sleepWake.handleWake(); },
                                              .sessionLocked = [this] { m_sleepWake.sessionLocked(); },
                                              .sessionUnlocked = [this] { m_sleepWake.sessionUnlocked(); },
                                              .spaceChanged = [this] { m_strayReturn.spaceChanged(); }});
    m_context.ports.workspace.setLaunchHandler(
        [this](const RunningApp& app) { m_launchPlacement.handleAppLaunched(app); });
    m_learning.snapshotIfChanged();
    refreshStatus();
    m_snapshotTimer = m_context.ports.mainQueue.every(snapshotInterval, [this] { tick(); });
    m_triggers.start();
    applyLaunchAtLogin();
}

void AppController::applyLaunchAtLogin() {
    const bool launches = m_context.settings.launchAtLogin();
    if (std::exchange(m_launchAtLogin, launches) == launches || !m_setLaunchAtLogin) {
        return;
    }
    if (const auto told = m_setLaunchAtLogin(launches); !told.empty()) {
        m_context.log(told);
    }
}

void AppController::showStored() {
    m_context.showStoredLayouts();
    m_context.showStoredScenes();
    m_stashes.showStored();
    m_triggers.showStored();
    m_rules.showStored();
    m_history.showStored();
    refreshStatus();
}

void AppController::tick() {
    m_files.retry();
    m_stashes.dropExpired();
    m_automaticRestore.makeUp();
    m_learning.snapshotIfChanged();
    // The permission may have been revoked while running.
    refreshStatus();
    watchForPermission();
}

void AppController::userDefaultsChanged() {
    m_displayChange.applySettleDelay();
    showSettings();
    m_hotKeys.settingsChanged();
    applyLaunchAtLogin();
    m_suggestions.refresh();
    m_nudge.settingsChanged();
    refreshStatus();
}

void AppController::licenseChanged() {
    m_context.publisher.publish<StatusTopic>(
        [&](auto& status) { status.entitlement = m_context.ports.license.entitlement(); });
    if (m_context.entitledToRun()) {
        m_learning.snapshotIfChanged();
    }
}

void AppController::setLatestAvailable(std::optional<std::string> version) {
    m_context.publisher.publish<StatusTopic>(
        [&](auto& status) { status.latestAvailable = std::move(version); });
}

void AppController::showSettings() {
    const bool isEnabled = m_context.settings.enabled();
    const auto file = defaults().file();
    auto mistakes = file ? SettingMistakes::in(*file) : std::vector<SettingMistake>();
    for (std::size_t index = 0; index < mistakes.size(); ++index) {
        const auto isSame = [&](const SettingMistake& known) {
            return known.sentence == mistakes[index].sentence;
        };
        if (std::ranges::none_of(published().settingMistakes, isSame)) {
            m_context.log("settings: " + inEnglish([&] { return SettingMistakes::in(*file)[index].text(); }));
        }
    }
    m_context.publisher.publish<SettingsTopic>([&](auto& settings) {
        if (std::exchange(m_storedEnabled, isEnabled) != isEnabled) {
            settings.enabled = isEnabled;
        }
        settings.hideOthersOnSceneSwitch = m_context.settings.hideOthersOnSceneSwitch();
        settings.preferences = m_context.settings.preferences();
        std::erase_if(settings.preferences,
                      [this](const auto& each) { return m_settingsWithoutEffect.contains(each.first); });
        settings.settingMistakes = std::move(mistakes);
    });
}

void AppController::setEnabled(bool isEnabled) {
    if (!m_context.settings.setEnabled(isEnabled)) {
        m_context.log("settings: enabled could not be written; the change lasts until the program quits");
    }
    m_storedEnabled = m_context.settings.enabled();
    m_context.publisher.publish<SettingsTopic>([&](auto& settings) { settings.enabled = isEnabled; });
    refreshStatus();
    m_learning.snapshotIfChanged();
}

void AppController::setHideOthersOnSceneSwitch(bool hides) {
    if (!m_context.settings.setHideOthersOnSceneSwitch(hides)) {
        m_context.log("settings: hideOthersOnSceneSwitch could not be written");
    }
    showSettings();
}

bool AppController::showWorkbench(std::optional<WorkbenchTab> tab) {
    if (tab) {
        m_context.publisher.publish<WorkbenchTopic>([&](auto& workbench) {
            workbench.workbenchTab = *tab;
            workbench.pendingQuickSwitcherArm = false;
        });
    }
    return m_showWorkbench && m_showWorkbench(tab);
}

void AppController::armQuickSwitcherRecorder() {
    m_context.publisher.publish<WorkbenchTopic>([](auto& workbench) {
        workbench.workbenchTab = WorkbenchTab::settings;
        workbench.pendingQuickSwitcherArm = true;
    });
    if (m_showWorkbench) {
        m_showWorkbench(WorkbenchTab::settings);
    }
}

AppController::HotKeyResult AppController::setHotkey(const HotKeySurface& surface,
                                                     std::optional<HotKeyCombo> combo) {
    const auto result = m_hotKeys.setHotkey(surface, combo);
    if (result && surface.kind == HotKeySurface::Kind::quickSwitcher) {
        m_context.publisher.publish<WorkbenchTopic>(
            [](auto& workbench) { workbench.pendingQuickSwitcherArm = false; });
    }
    return result;
}

AppController::HotKeyResult AppController::setOptionalHotkey(HotKeySurface::Kind kind,
                                                             std::optional<std::int64_t> keyCode,
                                                             std::optional<std::int64_t> modifiers) {
    return setHotkey({kind, {}},
                     keyCode && modifiers ? std::optional(HotKeyCombo{*keyCode, *modifiers}) : std::nullopt);
}

bool AppController::restoreNow(RestoreSource source, RestoreOutcome::Done done) {
    const bool hasPermission = AXPermission::isGranted(m_context.ports.desk);
    m_context.log(
        fmt::format("restoreNow tapped: enabled={} permission={}", published().enabled, hasPermission));
    refreshStatus();
    if (const auto hindrance = m_context.hindranceToMoving()) {
        if (hindrance == RestoreOutcome::Kind::displaysChanging) {
            m_context.log("restoreNow: the displays are changing");
        }
        return m_context.refuse(*hindrance, done);
    }
    const auto layout = m_context.layoutToRestore();
    if (!layout || layout->windows.empty()) {
        m_context.log("restoreNow: NO stored layout for current config");
        return m_context.refuse(RestoreOutcome::Kind::nothingStored, done);
    }
    m_context.log(fmt::format("restoreNow: restoring {} windows (saved {})", layout->windows.size(),
                              iso8601Text(layout->savedAt)));
    m_runner.perform({.layout = *layout,
                      .displays = published().displays,
                      .reason = fmt::format("restore now ({})", sourceName(source)),
                      .announcement = Announcement::announce,
                      .raising = RestoreEngine::Raising::raise},
                     {.done = std::move(done)});
    return true;
}

DeskJoining AppController::joinDesks(const std::string& first, const std::string& second) {
    const DeskJoining joining = m_sameDesk.join(first, second);
    if (joining.kind == DeskJoining::Kind::done && joining.isCurrent) {
        restoreNow(RestoreSource::command);
    }
    return joining;
}

bool AppController::reapplyDriftScene(RestoreOutcome::Done done) {
    const auto nudge = published().driftNudge;
    const auto scene = nudge ? m_context.sceneStore.scene(nudge->sceneID) : std::nullopt;
    return scene ? applyScene(*scene, std::nullopt, std::move(done))
                 : m_context.refuse(RestoreOutcome::Kind::nothingStored, done);
}

bool AppController::setPinned(bool isPinned) {
    const auto change = m_layouts.setPinned(isPinned, published().configID, published().activeLayoutName);
    return change.kind == LayoutChange::Kind::done;
}

void AppController::saveLayoutNow(std::function<void(const SaveOutcome&)> done) {
    m_learning.saveLayoutNow(std::move(done));
}

Publisher::ObserverID AppController::addObserver(Publisher::Observer observer) {
    return m_context.publisher.add(std::move(observer));
}

bool AppController::showPanel() {
    if (m_showPanel) {
        m_showPanel();
    }
    return static_cast<bool>(m_showPanel);
}

void AppController::setHUDHandler(std::function<void(const HUDEvent&)> handler) {
    m_context.onHUDEvent = std::move(handler);
}

} // namespace vantrel
