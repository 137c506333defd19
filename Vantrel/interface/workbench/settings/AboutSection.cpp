// The section that says which version this is, what changed in it, and whose work it uses.
#include "Vantrel/interface/controls/Metrics.h"
#include "Vantrel/interface/workbench/settings/RowsSection.h"

#include <QPlainTextEdit>

namespace vantrel {

namespace {

class About final : public RowsSection {
public:
    About(const SettingsActions& all, QWidget* parent) : RowsSection(all, parent) {
        m_version = addRow("", "");
        if (all.checkForUpdates) {
            m_version->addControl(button(marked("Check for updates"), m_version, all.checkForUpdates));
        }
        addText(marked("What changed"), "", marked("Read"), all.whatChanged);
        addText(marked("Libraries"), "Qt, XCB, ICU, GLib, libical, libsodium, {fmt}, nlohmann/json, CLI11",
                marked("Licenses"), all.libraryLicenses);
        m_text = new QPlainTextEdit(this);
        m_text->setReadOnly(true);
        m_text->setTabChangesFocus(true);
        m_text->setMinimumHeight(Metrics::points(*this, 220));
        m_text->hide();
        column().addWidget(m_text, 1);
        column().addStretch(0);
    }

    void show(const SettingsContent& content) override {
        m_version->setTexts(trf("Vantrel {}", content.version), content.update);
    }

private:
    void addText(const char* title, const std::string& detail, const char* label,
                 const SettingsActions::InstalledText& read) {
        SettingRow* const row = addRow(vantrel::tr(title), detail);
        row->addControl(button(label, row, [this, row, title, read] { toggle(row, qtr(title), read); }));
    }

    // A second press hides it again.
    void toggle(SettingRow* row, const QString& title, const SettingsActions::InstalledText& read) {
        const bool isShown = m_shownFor == row && m_text->isVisible();
        m_shownFor = row;
        const auto text = isShown ? std::nullopt : read();
        row->showProblem(isShown || text
                             ? std::nullopt
                             : std::optional(vantrel::tr("This text was not installed with Vantrel.")));
        m_text->setVisible(text.has_value());
        if (text) {
            m_text->setPlainText(QString::fromStdString(*text));
            m_text->setAccessibleName(title);
        }
    }

    SettingRow* m_version = nullptr;
    QPlainTextEdit* m_text = nullptr;
    SettingRow* m_shownFor = nullptr;
};

} // namespace

SettingsSectionView* SettingsSectionViews::about(const SettingsActions& actions, QWidget* parent) {
    return new About(actions, parent);
}

} // namespace vantrel
