// The sections of the settings that need no class of their own elsewhere.
#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/controls/ActionButton.h"
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/workbench/settings/SettingsSectionView.h"
#include "Vantrel/interface/workbench/settings/ToggleRows.h"

#include <QLineEdit>
#include <QPointer>
#include <QSlider>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace vantrel {

namespace {

// The slider's steps per second, and its longest delay. Longer ones can be set in the file.
constexpr int delaySteps = 10;
constexpr int longestDelay = 10;

ActionButton* button(const char* text, QWidget* parent, std::function<void()> act) {
    auto* const button = new ActionButton("", ActionButton::Form::plain, parent);
    button->setTexts(qtr(text), "");
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    QObject::connect(button, &QPushButton::clicked, parent, std::move(act));
    return button;
}

// A section made of rows, one below the other.
class Section : public SettingsSectionView {
public:
    Section(const SettingsActions& actions, QWidget* parent)
        : SettingsSectionView(parent), m_actions(actions), m_column(new QVBoxLayout(this)) {
        m_column->setContentsMargins(0, 0, 0, 0);
        m_column->setSpacing(0);
    }

protected:
    [[nodiscard]] const SettingsActions& actions() const { return m_actions; }
    [[nodiscard]] QVBoxLayout& column() { return *m_column; }

    ToggleRows* addToggles() {
        auto* const toggles = new ToggleRows(m_actions, this);
        m_column->addWidget(toggles);
        return toggles;
    }

    SettingRow* addRow(const std::string& title, const std::string& detail) {
        auto* const row = new SettingRow("", this);
        row->setTexts(title, detail);
        m_column->addWidget(row);
        return row;
    }

    // Nothing without an action.
    void addButtonRow(const char* title, const char* detail, const char* text,
                      const std::function<void()>& act) {
        if (act) {
            SettingRow* const row = addRow(vantrel::tr(title), *detail == '\0' ? "" : vantrel::tr(detail));
            row->addControl(button(text, row, act));
        }
    }

private:
    const SettingsActions& m_actions;
    QVBoxLayout* m_column;
};

class General final : public Section {
public:
    General(const SettingsActions& all, QWidget* parent) : Section(all, parent), m_toggles(addToggles()) {
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

class Restoring final : public Section {
public:
    Restoring(const SettingsActions& all, QWidget* parent) : Section(all, parent), m_toggles(addToggles()) {
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

class Displays final : public Section {
public:
    using Section::Section;

    void show(const SettingsContent& content) override {
        if (m_shown == content.displays && m_sameDesk == content.sameDesk && m_isBuilt) {
            return;
        }
        m_isBuilt = true;
        m_shown = content.displays;
        m_sameDesk = content.sameDesk;
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
        if (column().count() == static_cast<int>(m_rows.size())) {
            column().addStretch(1);
        }
    }

private:
    std::vector<SettingsContent::Display> m_shown;
    std::string m_sameDesk;
    std::vector<QWidget*> m_rows;
    bool m_isBuilt = false;
};

class Privacy final : public Section {
public:
    Privacy(const SettingsActions& all, QWidget* parent) : Section(all, parent), m_toggles(addToggles()) {
        m_reports = addRow("", "");
        if (all.openCrashReports) {
            m_look = button(marked("Look"), m_reports, all.openCrashReports);
            m_reports->addControl(m_look);
        }
        if (all.sendCrashReports) {
            m_send = button(marked("Send"), m_reports, [this] { send(); });
            m_reports->addControl(m_send);
        }
        addButtonRow(marked("The log"), marked("What Vantrel did and why. It stays on this computer."),
                     marked("Open"), all.openLog);
        addButtonRow(marked("The folder with everything that is remembered"), "", marked("Open"),
                     all.openFolder);
        column().addStretch(1);
    }

    void show(const SettingsContent& content) override {
        m_toggles->show(content.privacy);
        showReports();
    }

private:
    void showReports() {
        const auto count = static_cast<std::int64_t>(actions().crashReports());
        m_reports->setTexts(count == 0 ? vantrel::tr("No crash report waits")
                                       : trn("{} crash report waits", "{} crash reports wait", count),
                            "");
        for (ActionButton* const each : {m_look, m_send}) {
            if (each != nullptr) {
                each->setEnabled(count > 0);
            }
        }
    }

    void send() {
        m_send->setEnabled(false);
        actions().sendCrashReports([self = QPointer(this)] {
            if (self) {
                self->showReports();
                self->m_reports->showProblem(
                    self->actions().crashReports() == 0
                        ? std::nullopt
                        : std::optional<std::string>(
                              vantrel::tr("The crash reports could not be sent. They are kept.")));
            }
        });
    }

    ToggleRows* m_toggles;
    SettingRow* m_reports = nullptr;
    ActionButton* m_look = nullptr;
    ActionButton* m_send = nullptr;
};

class LicenseSection final : public Section {
public:
    LicenseSection(const SettingsActions& all, QWidget* parent) : Section(all, parent) {
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

class About final : public Section {
public:
    About(const SettingsActions& all, QWidget* parent) : Section(all, parent) {
        m_version = addRow("", "");
        if (all.checkForUpdates) {
            m_version->addControl(button(marked("Check for updates"), m_version, all.checkForUpdates));
        }
        addRow(vantrel::tr("Libraries"),
               "Qt, XCB, ICU, GLib, libical, libsodium, {fmt}, nlohmann/json, CLI11");
        column().addStretch(1);
    }

    void show(const SettingsContent& content) override {
        m_version->setTexts(trf("Vantrel {}", content.version), content.update);
    }

private:
    SettingRow* m_version = nullptr;
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

SettingsSectionView* SettingsSectionViews::privacy(const SettingsActions& actions, QWidget* parent) {
    return new Privacy(actions, parent);
}

SettingsSectionView* SettingsSectionViews::license(const SettingsActions& actions, QWidget* parent) {
    return new LicenseSection(actions, parent);
}

SettingsSectionView* SettingsSectionViews::about(const SettingsActions& actions, QWidget* parent) {
    return new About(actions, parent);
}

} // namespace vantrel
