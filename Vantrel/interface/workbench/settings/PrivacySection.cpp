// The section of crash reports, the log and the report for a bug.
#include "Vantrel/interface/workbench/settings/RowsSection.h"

#include <QPointer>

#include <algorithm>
#include <vector>

namespace vantrel {

namespace {

using CrashReport = SettingsActions::CrashReport;

class Privacy final : public RowsSection {
public:
    Privacy(const SettingsActions& all, QWidget* parent)
        : RowsSection(all, parent), m_toggles(addToggles()), m_summary(addRow("", "")) {
        if (all.sendCrashReports) {
            m_send = button(marked("Send"), m_summary, [this] { send(); });
            m_summary->addControl(m_send);
        }
        m_deleteAll = button(marked("Delete all"), m_summary, [this] { remove(actions().crashReports()); });
        m_summary->addControl(m_deleteAll);
        m_firstReport = column().count();
        addButtonRow(marked("The log"), marked("What Vantrel did and why. It stays on this computer."),
                     marked("Open"), all.openLog);
        addButtonRow(marked("Report a bug"),
                     marked("Writes displays, settings, the log and crash reports into one text file."),
                     marked("Export…"), all.exportReport);
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
        const auto reports = actions().crashReports();
        const auto count = static_cast<std::int64_t>(reports.size());
        m_summary->setTexts(count == 0 ? vantrel::tr("No crash report waits")
                                       : trn("{} crash report waits", "{} crash reports wait", count),
                            "");
        for (ActionButton* const each : {m_send, m_deleteAll}) {
            if (each != nullptr) {
                each->setVisible(count > 0);
                each->setEnabled(true);
            }
        }
        if (std::ranges::equal(reports, m_shown, {}, &CrashReport::file, &CrashReport::file)) {
            return;
        }
        m_shown = reports;
        for (QWidget* const former : std::exchange(m_rows, {})) {
            former->hide();
            former->deleteLater();
        }
        for (const CrashReport& report : reports) {
            addReport(report);
        }
    }

    void addReport(const CrashReport& report) {
        auto* const row = new SettingRow("warn", this);
        row->setTexts(report.time, report.file.filename().string());
        if (actions().openCrashReport) {
            add(*row, marked("Look"), trf("Look at the crash report from {}", report.time),
                [this, file = report.file] { actions().openCrashReport(file); });
        }
        add(*row, marked("Delete"), trf("Delete the crash report from {}", report.time),
            [this, report] { remove({report}); });
        column().insertWidget(m_firstReport + static_cast<int>(m_rows.size()), row);
        row->show();
        m_rows.push_back(row);
    }

    static void add(SettingRow& row, const char* text, const std::string& name, std::function<void()> act) {
        ActionButton* const made = button(text, &row, std::move(act));
        made->setAccessibleName(QString::fromStdString(name));
        row.addControl(made);
    }

    // A report's row goes with it, so what went wrong is shown in the first one.
    void remove(const std::vector<CrashReport>& reports) {
        m_summary->showProblem(actions().deleteCrashReports(reports));
        showReports();
    }

    void send() {
        m_send->setEnabled(false);
        actions().sendCrashReports([self = QPointer(this)] {
            if (self) {
                self->showReports();
                self->m_summary->showProblem(
                    self->m_shown.empty() ? std::nullopt
                                          : std::optional<std::string>(vantrel::tr(
                                                "The crash reports could not be sent. They are kept.")));
            }
        });
    }

    ToggleRows* m_toggles;
    SettingRow* m_summary;
    ActionButton* m_send = nullptr;
    ActionButton* m_deleteAll = nullptr;
    int m_firstReport = 0;
    std::vector<CrashReport> m_shown;
    std::vector<QWidget*> m_rows;
};

} // namespace

SettingsSectionView* SettingsSectionViews::privacy(const SettingsActions& actions, QWidget* parent) {
    return new Privacy(actions, parent);
}

} // namespace vantrel
