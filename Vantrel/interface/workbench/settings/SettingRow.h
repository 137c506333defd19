// A row of the settings: what it is about, its control at the end, and below it what is wrong.
#pragma once

#include "Vantrel/interface/controls/Label.h"

#include <QWidget>

#include <functional>
#include <optional>
#include <string>

class QHBoxLayout;

namespace vantrel {

class SettingRow final : public QWidget {
public:
    // `symbol` is empty for none.
    explicit SettingRow(std::string symbol, QWidget* parent = nullptr);

    void setTexts(const std::string& title, const std::string& detail);
    void setWarning(bool isWarning);
    // In the order in which they are added.
    void addControl(QWidget* control);
    void showProblem(const std::optional<std::string>& problem);
    [[nodiscard]] QString problem() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::string m_symbol;
    Label* m_title = nullptr;
    Label* m_detail = nullptr;
    Label* m_warning = nullptr;
    Label* m_problem = nullptr;
    QHBoxLayout* m_controls = nullptr;
    bool m_isWarning = false;
};

} // namespace vantrel
