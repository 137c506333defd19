// A name that is edited where it stands: it looks like a label until somebody edits it, and is elided when
// there is no room. Escape takes back what was typed.
#pragma once

#include "Vantrel/interface/controls/Label.h"

#include <QLineEdit>

#include <functional>
#include <optional>
#include <string>

namespace vantrel {

class NameField final : public QLineEdit {
public:
    using Problem = std::optional<std::string>;

    // `factor` is the size of the font, relative to the interface's.
    NameField(const QString& accessibleName, double factor, QWidget* parent = nullptr);

    // Text being typed is kept when the stored name changes.
    void setName(const QString& name);
    [[nodiscard]] const QString& name() const { return m_name; }
    void setEditable(bool isEditable);
    void startEditing();

    // The label that shows the problem with a name.
    [[nodiscard]] Label& problemLabel() { return *m_problem; }
    // Returns the problem with a name as it is typed.
    std::function<Problem(const std::string& name)> problemWith = [](const auto&) { return std::nullopt; };
    // Stores the name; returns the sentence that says why that is not possible.
    std::function<Problem(const std::string& name)> rename = [](const auto&) { return std::nullopt; };

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void dress();
    void finish();
    void showName();
    void showProblem(const Problem& problem);

    double m_factor;
    QString m_name;
    Label* m_problem;
    bool m_isDressing = false;
};

} // namespace vantrel
