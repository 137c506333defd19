#include "tests/VantrelCore/model/ArbitraryRecords.h"

#include <map>

namespace vantrel::arbitrary {

rc::Gen<std::string> text() {
    const auto piece = rc::gen::element<std::string>("a", "Z", "0", " ", "\"", "\\", "/", "\n", "\t", "\x01",
                                                     "é", "ß", "Ω", "語", "👩‍👧", "·", "");
    return rc::gen::map(rc::gen::container<std::vector<std::string>>(piece), [](const auto& pieces) {
        std::string joined;
        for (const auto& part : pieces) {
            joined += part;
        }
        return joined;
    });
}

rc::Gen<Date> date() {
    constexpr std::chrono::sys_days first{std::chrono::year{1} / 1 / 1};
    constexpr std::chrono::sys_days pastLast{std::chrono::year{9999} / 12 / 31};
    return rc::gen::map(
        rc::gen::inRange<std::int64_t>(std::chrono::sys_seconds{first}.time_since_epoch().count(),
                                       std::chrono::sys_seconds{pastLast}.time_since_epoch().count()),
        [](std::int64_t seconds) { return Date{std::chrono::seconds{seconds}}; });
}

} // namespace vantrel::arbitrary

namespace rc {

using namespace vantrel;
using vantrel::arbitrary::date;
using vantrel::arbitrary::text;

namespace {

Gen<Rect> rect() {
    return gen::build<Rect>(
        gen::set(&Rect::origin, gen::build<Point>(gen::set(&Point::x), gen::set(&Point::y))),
        gen::set(&Rect::size, gen::build<Size>(gen::set(&Size::width), gen::set(&Size::height))));
}

template <typename T>
Gen<std::optional<T>> maybe(Gen<T> present) {
    return gen::oneOf(gen::just(std::optional<T>{}), gen::map(std::move(present), [](T value) {
                          return std::optional<T>{std::move(value)};
                      }));
}

template <typename T>
Gen<std::optional<T>> maybe() {
    return maybe(gen::arbitrary<T>());
}

template <typename T>
Gen<std::vector<T>> few() {
    return gen::mapcat(gen::inRange<std::size_t>(0, 5), [](std::size_t count) {
        return gen::container<std::vector<T>>(count, gen::arbitrary<T>());
    });
}

Gen<std::map<std::string, std::string>> textMap() {
    return gen::container<std::map<std::string, std::string>>(text(), text());
}

} // namespace

Gen<WindowRecord> Arbitrary<WindowRecord>::arbitrary() {
    return gen::build<WindowRecord>(
        gen::set(&WindowRecord::bundleID, text()), gen::set(&WindowRecord::appName, text()),
        gen::set(&WindowRecord::title, text()), gen::set(&WindowRecord::frame, rect()),
        gen::set(&WindowRecord::displayUUID, text()), gen::set(&WindowRecord::zOrder),
        gen::set(&WindowRecord::isGhost, maybe<bool>()));
}

Gen<DisplayInfo> Arbitrary<DisplayInfo>::arbitrary() {
    return gen::build<DisplayInfo>(gen::set(&DisplayInfo::uuid, text()), gen::set(&DisplayInfo::name, text()),
                                   gen::set(&DisplayInfo::frame, rect()), gen::set(&DisplayInfo::isBuiltin),
                                   gen::set(&DisplayInfo::edidUUID, maybe(text())),
                                   gen::set(&DisplayInfo::visibleFrame, maybe(rect())));
}

Gen<Layout> Arbitrary<Layout>::arbitrary() {
    return gen::build<Layout>(gen::set(&Layout::configID, text()), gen::set(&Layout::name, text()),
                              gen::set(&Layout::layoutName, text()),
                              gen::set(&Layout::displays, few<DisplayInfo>()),
                              gen::set(&Layout::windows, few<WindowRecord>()),
                              gen::set(&Layout::savedAt, date()), gen::set(&Layout::pinned, maybe<bool>()));
}

Gen<AppRule> Arbitrary<AppRule>::arbitrary() {
    const auto action =
        gen::oneOf(gen::just(AppRule::Action(AppRule::Ignore{})),
                   gen::map(gen::pair(text(), text()), [](const auto& display) {
                       return AppRule::Action(AppRule::ForceDisplay{display.first, display.second});
                   }));
    return gen::build<AppRule>(gen::set(&AppRule::bundleID, text()), gen::set(&AppRule::appName, text()),
                               gen::set(&AppRule::action, action),
                               gen::set(&AppRule::restoreLast, maybe<bool>()));
}

Gen<Scene> Arbitrary<Scene>::arbitrary() {
    const auto wallpaper = gen::map(
        textMap(), [](std::map<std::string, std::string> paths) { return SceneWallpaper{std::move(paths)}; });
    return gen::build<Scene>(
        gen::set(&Scene::id, text()), gen::set(&Scene::name, text()), gen::set(&Scene::createdAt, date()),
        gen::set(&Scene::configID, text()), gen::set(&Scene::layout),
        gen::set(&Scene::hotkeyKeyCode, maybe<std::int64_t>()),
        gen::set(&Scene::hotkeyModifiers, maybe<std::int64_t>()), gen::set(&Scene::pinned, maybe<bool>()),
        gen::set(&Scene::opensMissingApps, maybe<bool>()), gen::set(&Scene::wallpaper, maybe(wallpaper)));
}

Gen<Stash> Arbitrary<Stash>::arbitrary() {
    return gen::build<Stash>(gen::set(&Stash::id, text()), gen::set(&Stash::createdAt, date()),
                             gen::set(&Stash::configID, text()), gen::set(&Stash::layout),
                             gen::set(&Stash::windowCount), gen::set(&Stash::deskName, text()),
                             gen::set(&Stash::appliedSceneName, maybe(text())),
                             gen::set(&Stash::appliedSceneWindowCount, maybe<std::int64_t>()));
}

Gen<RestoreLog::Item> Arbitrary<RestoreLog::Item>::arbitrary() {
    using Item = RestoreLog::Item;
    using Outcome = RestoreLog::Outcome;
    return gen::build<Item>(gen::set(&Item::appName, text()), gen::set(&Item::bundleID, text()),
                            gen::set(&Item::title, text()),
                            gen::set(&Item::outcome, gen::element(Outcome::restored, Outcome::retried,
                                                                  Outcome::failed, Outcome::skipped)),
                            gen::set(&Item::reason, maybe(text())));
}

Gen<RestoreLog::Entry> Arbitrary<RestoreLog::Entry>::arbitrary() {
    using Entry = RestoreLog::Entry;
    return gen::build<Entry>(gen::set(&Entry::date, date()), gen::set(&Entry::reason, text()),
                             gen::set(&Entry::sceneName, maybe(text())), gen::set(&Entry::configID, text()),
                             gen::set(&Entry::elapsed), gen::set(&Entry::items, few<RestoreLog::Item>()));
}

Gen<RestoreLog> Arbitrary<RestoreLog>::arbitrary() {
    return gen::build<RestoreLog>(gen::set(&RestoreLog::entries, few<RestoreLog::Entry>()));
}

Gen<RestoreReceipts> Arbitrary<RestoreReceipts>::arbitrary() {
    const auto entry = gen::build<RestoreReceiptEntry>(gen::set(&RestoreReceiptEntry::date, date()),
                                                       gen::set(&RestoreReceiptEntry::windowsRestored));
    return gen::build<RestoreReceipts>(
        gen::set(&RestoreReceipts::entries, gen::container<std::vector<RestoreReceiptEntry>>(entry)));
}

Gen<UsageStats> Arbitrary<UsageStats>::arbitrary() {
    return gen::build<UsageStats>(
        gen::set(&UsageStats::restores), gen::set(&UsageStats::windowsVantrel),
        gen::set(&UsageStats::sceneSwitches), gen::set(&UsageStats::stashUses),
        gen::set(&UsageStats::undoUses),
        gen::set(&UsageStats::deskIDs, gen::container<std::set<std::string>>(text())),
        gen::set(&UsageStats::firstRecordedAt, maybe(date())));
}

Gen<SceneTrigger> Arbitrary<SceneTrigger>::arbitrary() {
    using Kind = SceneTrigger::Kind;
    const auto kind = gen::oneOf(
        gen::map(gen::pair(gen::arbitrary<std::int64_t>(), gen::arbitrary<std::int64_t>()),
                 [](const auto& time) { return Kind{SceneTrigger::Schedule{time.first, time.second}}; }),
        gen::map(text(), [](std::string name) { return Kind{SceneTrigger::FocusMode{std::move(name)}}; }),
        gen::just(Kind{SceneTrigger::CalendarVideoEvent{}}));
    return gen::build<SceneTrigger>(
        gen::set(&SceneTrigger::id, text()), gen::set(&SceneTrigger::kind, kind),
        gen::set(&SceneTrigger::sceneID, text()), gen::set(&SceneTrigger::enabled),
        gen::set(&SceneTrigger::createdAt, date()), gen::set(&SceneTrigger::lastFiredAt, maybe(date())));
}

Gen<WallpaperMemory> Arbitrary<WallpaperMemory>::arbitrary() {
    return gen::build<WallpaperMemory>(gen::set(&WallpaperMemory::baseline, textMap()),
                                       gen::set(&WallpaperMemory::lastSet, textMap()));
}

Gen<DailyLayoutObservation> Arbitrary<DailyLayoutObservation>::arbitrary() {
    return gen::build<DailyLayoutObservation>(
        gen::set(&DailyLayoutObservation::configID, text()), gen::set(&DailyLayoutObservation::day, text()),
        gen::set(&DailyLayoutObservation::signature, gen::container<std::vector<std::string>>(text())));
}

} // namespace rc
