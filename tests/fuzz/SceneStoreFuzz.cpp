#include "VantrelCore/stores/SceneStore.h"
#include "tests/fuzz/StoreFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vantrel;
    fuzz::feed<SceneStore::StoreFile>("scenes.json", data, size, [](const auto& folder, auto& files) {
        auto store = SceneStore::open(folder, files).value();
        for (const auto& scene : store.allScenes()) {
            std::ignore = store.sceneNamed(scene.name);
            std::ignore = scene.effectiveOpensMissingApps();
            fuzz::require(store.rename(scene.id, "a").has_value() || store.scene(scene.id).has_value(),
                          "a scene that cannot be renamed stays");
            fuzz::require(store.setLastAppliedScene(scene.id, scene.configID), "any scene can be applied");
        }
        Scene another;
        another.name = "another";
        const auto before = store.allScenes().size();
        fuzz::require(store.add(another).has_value() == (before < SceneStore::maxScenes), "the cap holds");
    });
    return 0;
}
