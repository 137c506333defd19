#include "Vantrel/commands/shell/CompletionValues.h"

#include "Vantrel/commands/DesksMessage.h"
#include "Vantrel/commands/HotKeyNames.h"
#include "VantrelCore/commands/HotKeyRecording.h"
#include "VantrelCore/displays/DisplayLabels.h"
#include "VantrelCore/model/JsonCoding.h"
#include "VantrelCore/stores/StoreInspection.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <fmt/format.h>

namespace vantrel::CompletionValues {

namespace {

using Candidates = std::vector<Completion::Candidate>;
using Typed = std::map<std::string, std::string>;

std::string valueOf(const Typed& typed, const char* name) {
    const auto found = typed.find(name);
    return found == typed.end() ? "" : found->second;
}

std::string text(const nlohmann::json& object, const char* key) {
    return JsonCoding::optional<std::string>(object, key).value_or("");
}

// The entries of the reply's array `list`, with the string of the key `word` as the word. Leaves out the
// notes that the program keeps for itself.
Candidates listed(const Sources& sources, const char* method, const char* list, const char* word,
                  const char* description) {
    Candidates candidates;
    for (const auto& each : sources.ask(method).value(list, nlohmann::json::array())) {
        if (!each.value("isNote", false)) {
            candidates.push_back({text(each, word), text(each, description)});
        }
    }
    return candidates;
}

std::vector<DeskMessage> desks(const Sources& sources) {
    return JsonCoding::optional<std::vector<DeskMessage>>(sources.ask("Desks"), "desks")
        .value_or(std::vector<DeskMessage>());
}

Candidates layouts(const std::string& deskName, const Sources& sources) {
    Candidates candidates;
    for (const DeskMessage& desk : desks(sources)) {
        if (deskName.empty() ? desk.isCurrent : desk.name == deskName || desk.configID == deskName) {
            for (const Layout& layout : desk.layouts) {
                candidates.push_back({layout.layoutName, desk.name});
            }
        }
    }
    return candidates;
}

Candidates deskNames(const Sources& sources) {
    Candidates candidates;
    for (const DeskMessage& desk : desks(sources)) {
        candidates.push_back({desk.name, desk.isCurrent ? tr("this desk") : ""});
    }
    return candidates;
}

Candidates displays(const Sources& sources) {
    Candidates candidates;
    const auto all = JsonCoding::optional<std::vector<DisplayInfo>>(sources.ask("Status"), "displays");
    for (const auto& display : DisplayLabels::labelled(all.value_or(std::vector<DisplayInfo>()))) {
        candidates.push_back({display.name, ""});
    }
    return candidates;
}

Candidates applications(const Sources& sources) {
    std::map<std::string, std::string> identityOf;
    for (const DeskMessage& desk : desks(sources)) {
        for (const Layout& layout : desk.layouts) {
            for (const WindowRecord& window : layout.windows) {
                identityOf.try_emplace(window.appName, window.bundleID);
            }
        }
    }
    Candidates candidates;
    for (const auto& [name, identity] : identityOf) {
        candidates.push_back({name, identity});
    }
    return candidates;
}

Candidates stashes(const Sources& sources) {
    constexpr std::size_t shortID = 8;
    Candidates candidates = listed(sources, "Stashes", "stashes", "id", "deskName");
    for (auto& candidate : candidates) {
        candidate.word.resize(std::min(candidate.word.size(), shortID));
    }
    return candidates;
}

Candidates triggers(const Sources& sources) {
    Candidates candidates = listed(sources, "Triggers", "triggers", "id", "title");
    for (std::size_t i = 0; i < candidates.size(); ++i) {
        candidates[i].word = std::to_string(i + 1);
    }
    return candidates;
}

Candidates settingValues(const std::string& key, const Sources& sources) {
    Candidates candidates;
    for (const auto& setting : sources.ask("Settings").value("settings", nlohmann::json::array())) {
        if (text(setting, "key") != key || setting.value("isNote", false)) {
            continue;
        }
        if (text(setting, "takes") == "true or false") {
            return {{"true", ""}, {"false", ""}};
        }
        for (const char* const which : {marked("value"), marked("default")}) {
            const auto& value = setting.at(which);
            const std::string word = value.is_string() ? value.get<std::string>() : value.dump();
            if (!value.is_null() &&
                std::ranges::find(candidates, word, &Completion::Candidate::word) == candidates.end()) {
                candidates.push_back({word, tr(which)});
            }
        }
    }
    return candidates;
}

Candidates storeCopies(const Sources& sources) {
    Candidates candidates;
    for (const auto& finding : StoreInspection::inspect(sources.files, sources.storeFolders)) {
        if (finding.isCopy() && finding.problem.empty()) {
            candidates.push_back({finding.file.filename().string(), ""});
        }
    }
    return candidates;
}

} // namespace

Candidates of(ValueKind kind, const Typed& typed, const Sources& sources) {
    switch (kind) {
    case ValueKind::text:
    case ValueKind::flag:
    case ValueKind::number:
    case ValueKind::file:
        return {};
    case ValueKind::storeCopy:
        return storeCopies(sources);
    case ValueKind::desk:
        return deskNames(sources);
    case ValueKind::display:
        return displays(sources);
    case ValueKind::layout:
        return layouts(valueOf(typed, "--desk"), sources);
    case ValueKind::scene:
        return listed(sources, "Scenes", "scenes", "name", "deskName");
    case ValueKind::stash:
        return stashes(sources);
    case ValueKind::trigger:
        return triggers(sources);
    case ValueKind::application:
        return applications(sources);
    case ValueKind::ruledApplication:
        return listed(sources, "Rules", "rules", "appName", "bundleID");
    case ValueKind::settingKey: {
        Candidates keys = listed(sources, "Settings", "settings", "key", "description");
        for (auto& key : keys) {
            key.description = tr(key.description.c_str());
        }
        return keys;
    }
    case ValueKind::settingValue:
        return settingValues(valueOf(typed, "KEY"), sources);
    case ValueKind::shortcut: {
        Candidates candidates;
        for (const auto& [command, name] : HotKeyNames::commands) {
            candidates.push_back({name, std::string(HotKeyRecording::commandLabel(command))});
        }
        std::ranges::move(of(ValueKind::scene, typed, sources), std::back_inserter(candidates));
        return candidates;
    }
    case ValueKind::workbenchTab:
    case ValueKind::yesOrNo:
    case ValueKind::shell: {
        Candidates candidates;
        for (const auto& choice : choicesOf(kind)) {
            candidates.push_back({choice, ""});
        }
        return candidates;
    }
    }
    return {};
}

} // namespace vantrel::CompletionValues
