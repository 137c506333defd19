// The sections of the settings that need no class of their own elsewhere.
#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/workbench/settings/RowsSection.h"

#include <QLineEdit>
#include <QPointer>
#include <QSlider>

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace vantrel {

namespace {

// The slider's steps per second, and its longest delay. Longer ones can be set in the file.
constexpr int delaySteps = 10;
constexpr int longestDelay = 10;

class General final : public RowsSection {
public:
    General(const SettingsActions& all, QWidget* parent) : RowsSection(all, parent), m_toggles(addToggles()) {
        addButtonRow(marked("The introduction"), marked("What Vantrel does and what it needs."),
                     marked("Show again"), all.showIntroduction);
        addButtonRow(marked("The settings file"), marked("Changes in it take effect at once."),
                     marked("Open"), all.openSettingsFile);
        column().addStretch(1);
    }

    void show(const SettingsContent& content) override { m_toggles->show(content.general); }

private:
    ToggleRows* m_toggles;
};

class Restoring final : public RowsSection {
public:
    Restoring(const SettingsActions& all, QWidget* parent)
        : RowsSection(all, parent), m_toggles(addToggles()) {
        m_row = addRow(vantrel::tr("Wait until the displays are still"), "");
        m_slider = new QSlider(Qt::Horizontal, m_row);
        m_slider->setAccessibleName(qtr("Wait until the displays are still"));
        m_slider->setRange(0, longestDelay * delaySteps);
        m_slider->setPageStep(delaySteps);
        m_slider->setFixedWidth(Metrics::points(*this, 200));
        m_slider->setMinimumHeight(Metrics::points(*this, 26));
        connect(m_slider, &QSlider::valueChanged, this, [this](int steps) {
            if (!m_isShowing) {
                m_row->showProblem(actions().setSettleDelay(static_cast<double>(steps) / delaySteps));
            }
        });
        m_row->addControl(m_slider);
        column().addStretch(1);
    }

    void show(const SettingsContent& content) override {
        m_toggles->show(content.restoring);
        m_row->setTexts(vantrel::tr("Wait until the displays are still"), content.settleDelayText);
        m_isShowing = true;
        m_slider->setValue(static_cast<int>(std::lround(content.settleDelay * delaySteps)));
        m_isShowing = false;
    }

private:
    ToggleRows* m_toggles;
    SettingRow* m_row = nullptr;
    QSlider* m_slider = nullptr;
    bool m_isShowing = false;
};

class Displays final : public RowsSection {
public:
    using RowsSection::RowsSection;

    void show(const SettingsContent& content) override {
        if (m_shown == content.displays && m_sameDesk == content.sameDesk &&
            m_missionControl == content.missionControl && m_isBuilt) {
            return;
        }
        m_isBuilt = true;
        m_shown = content.displays;
        m_sameDesk = content.sameDesk;
        m_missionControl = content.missionControl;
        for (QWidget* const former : std::exchange(m_rows, {})) {
            former->hide();
            former->deleteLater();
        }
        const auto add = [&](std::string symbol, const std::string& title, const std::string& detail) {
            auto* const row = new SettingRow(std::move(symbol), this);
            row->setTexts(title, detail);
            column().insertWidget(static_cast<int>(m_rows.size()), row);
            row->show();
            m_rows.push_back(row);
            return row;
        };
        for (const auto& display : content.displays) {
            add(display.isBuiltin ? "laptop" : "monitor", display.name,
                display.note.empty() ? display.detail : display.detail + "\n" + display.note);
        }
        if (content.displays.empty()) {
            add("monitor", vantrel::tr("No display is connected"), "");
        }
        if (content.canSwapDisplays) {
            SettingRow* const row = add("move", vantrel::tr("Two displays of one kind"),
                                        vantrel::tr("If their windows are on the wrong one."));
            row->addControl(button(marked("Exchange windows"), row, actions().swapDisplays));
        }
        if (!content.sameDesk.empty()) {
            SettingRow* const row =
                add("info", trf("Is this desk \"{}\"?", content.sameDesk),
                    vantrel::tr("It has the same displays on other connectors. Joined, they are one desk."));
            row->addControl(button(marked("Join"), row, actions().joinDesks));
        }
        addMissionControl(add);
        if (column().count() == static_cast<int>(m_rows.size())) {
            column().addStretch(1);
        }
    }

private:
    using MissionControl = SettingsContent::MissionControl;

    template <typename Add>
    void addMissionControl(const Add& add) {
        if (m_missionControl == MissionControl::losing) {
            SettingRow* const row = add("warn", vantrel::tr("Mission Control moves windows"),
                                        vantrel::tr("Two of its settings let windows leave their places."));
            row->addControl(button(marked("Keep Spaces in place"), row, actions().fixMissionControl));
        } else if (m_missionControl != MissionControl::absent) {
            add("check", vantrel::tr("Mission Control leaves windows in their places"),
                m_missionControl == MissionControl::fixed
                    ? vantrel::tr("Vantrel changed its settings for that.")
                    : "");
        }
    }

    std::vector<SettingsContent::Display> m_shown;
    MissionControl m_missionControl = MissionControl::absent;
    std::string m_sameDesk;
    std::vector<QWidget*> m_rows;
    bool m_isBuilt = false;
};

class LicenseSection final : public RowsSection {
public:
    LicenseSection(const SettingsActions& all, QWidget* parent) : RowsSection(all, parent) {
        m_state = addRow("", "");
        m_return = button(marked("Return the license"), m_state, [this] {
            m_return->setEnabled(false);
            actions().deactivate(ended());
        });
        m_state->addControl(m_return);
        m_key = new QLineEdit(this);
        m_key->setPlaceholderText(qtr("License key"));
        m_key->setAccessibleName(qtr("License key"));
        m_key->setMinimumHeight(Metrics::points(*this, 30));
        m_key->setMinimumWidth(Metrics::points(*this, 220));
        m_activation = addRow(vantrel::tr("Enter a key"), "");
        m_activation->addControl(m_key);
        m_activate = button(marked("Activate"), m_activation, [this] { activate(); });
        m_activation->addControl(m_activate);
        connect(m_key, &QLineEdit::returnPressed, this, [this] { activate(); });
        if (all.purchase) {
            m_purchase = addRow(vantrel::tr("Buy a license"), vantrel::tr("Opens the vendor's page."));
            m_purchase->addControl(button(marked("Buy…"), m_purchase, all.purchase));
        }
        column().addStretch(1);
    }

    void show(const SettingsContent& content) override {
        m_state->setTexts(
            content.license.empty() ? vantrel::tr("This build needs no license.") : content.license, "");
        m_return->setVisible(content.isLicensed);
        m_return->setEnabled(true);
        m_activation->setVisible(content.canActivate);
        if (m_purchase != nullptr) {
            m_purchase->setVisible(content.canActivate);
        }
    }

private:
    void activate() {
        if (!m_key->text().trimmed().isEmpty()) {
            m_activate->setEnabled(false);
            actions().activate(m_key->text().trimmed().toStdString(), ended());
        }
    }

    // The published state shows the result; this shows only failures.
    [[nodiscard]] SettingsActions::Done ended() {
        return [self = QPointer(this)](const SettingsActions::Problem& problem) {
            if (self) {
                self->m_activate->setEnabled(true);
                self->m_return->setEnabled(true);
                (self->m_activation->isHidden() ? self->m_state : self->m_activation)->showProblem(problem);
            }
        };
    }

    SettingRow* m_state = nullptr;
    ActionButton* m_return = nullptr;
    SettingRow* m_activation = nullptr;
    QLineEdit* m_key = nullptr;
    ActionButton* m_activate = nullptr;
    SettingRow* m_purchase = nullptr;
};

} // namespace

SettingsSectionView* SettingsSectionViews::general(const SettingsActions& actions, QWidget* parent) {
    return new General(actions, parent);
}

SettingsSectionView* SettingsSectionViews::restoring(const SettingsActions& actions, QWidget* parent) {
    return new Restoring(actions, parent);
}

SettingsSectionView* SettingsSectionViews::displays(const SettingsActions& actions, QWidget* parent) {
    return new Displays(actions, parent);
}

SettingsSectionView* SettingsSectionViews::license(const SettingsActions& actions, QWidget* parent) {
    return new LicenseSection(actions, parent);
}

} // namespace vantrel
