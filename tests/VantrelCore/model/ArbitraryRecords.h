// Random records for property tests: texts with many-byte and awkward characters, dates in whole seconds (as
// files keep them), optionals absent and present.
#pragma once

#include "VantrelCore/model/AppRule.h"
#include "VantrelCore/model/DailyLayoutObservation.h"
#include "VantrelCore/model/RestoreLog.h"
#include "VantrelCore/model/RestoreReceipts.h"
#include "VantrelCore/model/Scene.h"
#include "VantrelCore/model/SceneTrigger.h"
#include "VantrelCore/model/Stash.h"
#include "VantrelCore/model/UsageStats.h"
#include "VantrelCore/model/WallpaperMemory.h"

#include <rapidcheck.h>

namespace vantrel::arbitrary {

[[nodiscard]] rc::Gen<std::string> text();
[[nodiscard]] rc::Gen<Date> date();

} // namespace vantrel::arbitrary

namespace rc {

template <>
struct Arbitrary<vantrel::WindowRecord> {
    static Gen<vantrel::WindowRecord> arbitrary();
};

template <>
struct Arbitrary<vantrel::DisplayInfo> {
    static Gen<vantrel::DisplayInfo> arbitrary();
};

template <>
struct Arbitrary<vantrel::Layout> {
    static Gen<vantrel::Layout> arbitrary();
};

template <>
struct Arbitrary<vantrel::AppRule> {
    static Gen<vantrel::AppRule> arbitrary();
};

template <>
struct Arbitrary<vantrel::Scene> {
    static Gen<vantrel::Scene> arbitrary();
};

template <>
struct Arbitrary<vantrel::Stash> {
    static Gen<vantrel::Stash> arbitrary();
};

template <>
struct Arbitrary<vantrel::RestoreLog::Item> {
    static Gen<vantrel::RestoreLog::Item> arbitrary();
};

template <>
struct Arbitrary<vantrel::RestoreLog::Entry> {
    static Gen<vantrel::RestoreLog::Entry> arbitrary();
};

template <>
struct Arbitrary<vantrel::RestoreLog> {
    static Gen<vantrel::RestoreLog> arbitrary();
};

template <>
struct Arbitrary<vantrel::RestoreReceipts> {
    static Gen<vantrel::RestoreReceipts> arbitrary();
};

template <>
struct Arbitrary<vantrel::UsageStats> {
    static Gen<vantrel::UsageStats> arbitrary();
};

template <>
struct Arbitrary<vantrel::SceneTrigger> {
    static Gen<vantrel::SceneTrigger> arbitrary();
};

template <>
struct Arbitrary<vantrel::WallpaperMemory> {
    static Gen<vantrel::WallpaperMemory> arbitrary();
};

template <>
struct Arbitrary<vantrel::DailyLayoutObservation> {
    static Gen<vantrel::DailyLayoutObservation> arbitrary();
};

} // namespace rc
