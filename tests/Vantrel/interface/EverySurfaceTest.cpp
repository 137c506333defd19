// Walks every widget of every surface in every state: as it is, with longer texts, and with small and large
// fonts.
#include "Vantrel/interface/controls/Label.h"
#include "tools/pictures/LongTexts.h"
#include "tools/pictures/Surface.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollArea>

#include <gmock/gmock.h>
#include <set>

namespace vantrel {

namespace {

using testing::IsEmpty;

struct Look {
    const char* name;
    int fontSize;
    bool hasLongTexts;
    Qt::LayoutDirection direction = Qt::LeftToRight;
};

// What somebody who cannot see or use the pointer would complain about, and what is cut off.
class Walk {
public:
    explicit Walk(QWidget& window) : m_reached{&window} {
        for (QWidget* next = window.nextInFocusChain(); next != &window; next = next->nextInFocusChain()) {
            if (next->isVisible() && (next->focusPolicy() & Qt::TabFocus) != 0) {
                m_reached.insert(next);
            }
        }
        visit(window);
        for (QWidget* const widget : window.findChildren<QWidget*>()) {
            if (widget->isVisible()) {
                visit(*widget);
            }
        }
    }

    [[nodiscard]] const std::vector<std::string>& complaints() const { return m_complaints; }

private:
    void complain(const QWidget& widget, const char* what) {
        m_complaints.push_back(std::string(widget.metaObject()->className()) + " “" +
                               widget.accessibleName().toStdString() + "” " + what);
    }

    void visit(QWidget& widget) {
        const bool isInField = qobject_cast<QLineEdit*>(widget.parentWidget()) != nullptr ||
                               qobject_cast<QAbstractSpinBox*>(widget.parentWidget()) != nullptr;
        const bool isControl = !isInField && (qobject_cast<QAbstractButton*>(&widget) != nullptr ||
                                              qobject_cast<QLineEdit*>(&widget) != nullptr ||
                                              qobject_cast<QComboBox*>(&widget) != nullptr ||
                                              (widget.focusPolicy() & Qt::TabFocus) != 0);
        if (isControl) {
            const auto* const accessible = QAccessible::queryAccessibleInterface(&widget);
            if (accessible == nullptr || accessible->role() == QAccessible::NoRole ||
                accessible->role() == QAccessible::Client) {
                complain(widget, "has no role");
            } else if (accessible->text(QAccessible::Name).isEmpty()) {
                complain(widget, "has no name");
            }
            const auto* const field = qobject_cast<QLineEdit*>(&widget);
            if (widget.isEnabled() && !m_reached.contains(&widget) &&
                (field == nullptr || !field->isReadOnly())) {
                complain(widget, "is not reached by Tab");
            }
        }
        visitSize(widget, isInField);
    }

    void visitSize(const QWidget& widget, bool isInField) {
        if (widget.isWindow() || isInField) {
            return;
        }
        const QWidget& parent = *widget.parentWidget();
        const bool scrolls = qobject_cast<QScrollArea*>(parent.parentWidget()) != nullptr;
        if (!scrolls && !parent.rect().contains(widget.geometry()) && !widget.geometry().isEmpty()) {
            complain(widget, "is cut off by what it stands in");
        }
        if (const auto* const label = qobject_cast<const QLabel*>(&widget)) {
            const QSize needed = label->wordWrap() ? QSize(0, label->heightForWidth(label->width()))
                                                   : label->minimumSizeHint();
            if (needed.width() > label->width() || needed.height() > label->height()) {
                complain(widget, "has no room for its text");
            }
        } else if (qobject_cast<const QAbstractButton*>(&widget) != nullptr &&
                   widget.minimumSizeHint().width() > widget.width()) {
            complain(widget, "has no room for its text");
        }
    }

    std::set<const QWidget*> m_reached;
    std::vector<std::string> m_complaints;
};

class EverySurface : public testing::TestWithParam<Look> {
protected:
    void SetUp() override {
        m_font = QApplication::font();
        QFont font = m_font;
        font.setPointSize(GetParam().fontSize);
        QApplication::setFont(font);
        QApplication::setLayoutDirection(GetParam().direction);
        if (GetParam().hasLongTexts) {
            setTranslation(&m_longTexts);
        }
    }
    void TearDown() override {
        setTranslation(nullptr);
        QApplication::setLayoutDirection(Qt::LeftToRight);
        QApplication::setFont(m_font);
    }

private:
    pictures::LongTexts m_longTexts;
    QFont m_font;
};

INSTANTIATE_TEST_SUITE_P(Looks, EverySurface,
                         testing::Values(Look{"Usual", 10, false}, Look{"SmallFont", 8, false},
                                         Look{"LargeFont", 16, false}, Look{"LongTexts", 10, true},
                                         Look{"LongTextsRightToLeft", 10, true, Qt::RightToLeft},
                                         Look{"LargeFontLongTexts", 16, true}),
                         [](const auto& look) { return look.param.name; });

TEST_P(EverySurface, HasANamedReachableControlForEverythingAndCutsNothingOff) {
    for (const auto& surface : pictures::everySurface()) {
        SCOPED_TRACE(surface.name);
        const auto widget = surface.make();
        widget->show();
        for (int turn = 0; turn < 4; ++turn) {
            QApplication::processEvents();
        }
        EXPECT_THAT(Walk(*widget).complaints(), IsEmpty());
    }
}

} // namespace

} // namespace vantrel
