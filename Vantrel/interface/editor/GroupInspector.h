// Arranges several selected boxes at once.
#pragma once

#include "Vantrel/interface/controls/Label.h"
#include "VantrelCore/studio/GroupArrangement.h"
#include "VantrelCore/studio/SceneDraft.h"

#include <QWidget>

#include <functional>
#include <utility>
#include <vector>

class QLayout;

namespace vantrel {

class GroupInspector final : public QWidget {
public:
    using BoxID = SceneDraft::BoxID;

    explicit GroupInspector(QWidget* parent = nullptr);

    // The boxes front-most first, the order in which they are arranged. The draft outlives the inspector or
    // the next call.
    void show(const SceneDraft& draft, std::vector<BoxID> boxes);
    using QWidget::show;

    // Called with every change of the user's.
    std::function<void(const SceneDraft::Command&)> onCommand = [](const auto&) {};

private:
    using Buttons = std::vector<std::pair<QString, std::function<void()>>>;

    void addPart(const QString& title, const Buttons& buttons);
    void arrange(GroupArrangement::Form form);
    void placeAll(const std::vector<Rect>& frames);
    [[nodiscard]] std::vector<GroupArrangement::Box> boxes() const;
    [[nodiscard]] std::vector<Rect> frames() const;

    // None before the first show().
    const SceneDraft* m_draft = nullptr;
    std::vector<BoxID> m_boxes;
    Label* m_count = nullptr;
    Label* m_home = nullptr;
    Label* m_problem = nullptr;
};

} // namespace vantrel
