// vantrel_pictures: paints every surface of the interface in every state, offscreen, as PNG files.
#include "Vantrel/interface/ShortcutText.h"
#include "VantrelCore/ports/SessionLanguage.h"
#include "tools/pictures/LongTexts.h"
#include "tools/pictures/Surface.h"

#include <QApplication>
#include <QDir>
#include <QFontDatabase>
#include <QLoggingCategory>
#include <QPixmap>
#include <QStyle>
#include <QStyleFactory>

#include <CLI/CLI.hpp>
#include <cstdio>

namespace {

using namespace vantrel;

QPalette palette(bool isDark) {
    const QColor window(isDark ? "#25282b" : "#f3f4f5");
    const QColor base(isDark ? "#1c1e21" : "#ffffff");
    const QColor text(isDark ? "#eceef1" : "#1f2429");
    const QColor button(isDark ? "#33373b" : "#fcfcfd");
    QPalette palette(button, window);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        QColor pale = text;
        pale.setAlphaF(0.42F);
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, pale);
    }
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Button, button);
    palette.setColor(QPalette::ToolTipBase, base);
    palette.setColor(QPalette::Highlight, QColor(isDark ? "#356bd2" : "#2a67d6"));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    QColor placeholder = text;
    placeholder.setAlphaF(0.66F);
    palette.setColor(QPalette::PlaceholderText, placeholder);
    return palette;
}

// The widget with its children, laid out, as its window would show it.
bool paint(QWidget& widget, const QString& file) {
    widget.setAttribute(Qt::WA_DontShowOnScreen);
    widget.show();
    // Some pictures arrive only after something was painted.
    static_cast<void>(widget.grab());
    // Layouts settle in a few turns.
    for (int turn = 0; turn < 4; ++turn) {
        QApplication::processEvents();
    }
    const bool isSaved = widget.grab().save(file);
    if (!isSaved) {
        std::fprintf(stderr, "vantrel_pictures: %s cannot be written.\n", qPrintable(file));
    }
    return isSaved;
}

} // namespace

int main(int argumentCount, char** arguments) {
    CLI::App app("Paints every surface of the interface in every state.", "vantrel_pictures");
    std::string folder;
    std::string styleName = "Fusion";
    std::string only;
    std::string language;
    double scale = 1;
    int fontSize = 10;
    bool hasLongTexts = false;
    bool hasSigns = false;
    app.add_option("DIR", folder, "Where the pictures go")->required();
    app.add_option("--scale", scale, "Pixels per point");
    app.add_option("--style", styleName, "The style of the controls");
    app.add_option("--font-size", fontSize, "The size of the interface's font in points")
        ->capture_default_str();
    app.add_option("--language", language, "The language of the texts, like \"de\"");
    app.add_flag("--long-texts", hasLongTexts, "Makes every text 40 % longer");
    app.add_flag("--mac-shortcuts", hasSigns, "Writes shortcuts as on a Mac");
    app.add_option("--only", only, "Only surfaces whose name contains this");
    CLI11_PARSE(app, argumentCount, arguments)

    qputenv("QT_QPA_PLATFORM", "offscreen");
    // What the offscreen platform cannot do does not matter here.
    QLoggingCategory::setFilterRules("qt.qpa.*=false\ndefault.warning=false");
    qputenv("QT_SCALE_FACTOR", QByteArray::number(scale));
    QApplication application(argumentCount, arguments);
    if (QStyle* const style = QStyleFactory::create(QString::fromStdString(styleName))) {
        QApplication::setStyle(style);
    } else {
        std::fprintf(stderr, "vantrel_pictures: there is no style %s here.\n", styleName.c_str());
        return 1;
    }
    QFont font(QFontDatabase::hasFamily("Inter") ? "Inter" : QApplication::font().family(), fontSize);
    QApplication::setFont(font);
    if (hasSigns) {
        ShortcutText::use(ShortcutText::Style::glyphs);
    }
    if (!language.empty()) {
        qputenv("LC_ALL", "C.UTF-8");
        qputenv("LANGUAGE", QByteArray::fromStdString(language));
        useSessionLanguage();
    }
    pictures::LongTexts longTexts;
    if (hasLongTexts) {
        setTranslation(&longTexts);
    }

    const QDir target(QString::fromStdString(folder));
    bool isComplete = target.mkpath(".");
    for (const auto& surface : pictures::everySurface()) {
        if (surface.name.find(only) == std::string::npos) {
            continue;
        }
        for (const bool isDark : {false, true}) {
            for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
                QApplication::setPalette(palette(isDark));
                QApplication::setLayoutDirection(direction);
                const auto widget = surface.make();
                const QString name = QString("%1-%2%3-%4x.png")
                                         .arg(QString::fromStdString(surface.name), isDark ? "dark" : "light",
                                              direction == Qt::RightToLeft ? "-rtl" : "")
                                         .arg(scale);
                isComplete = paint(*widget, target.filePath(name)) && isComplete;
            }
        }
    }
    return isComplete ? 0 : 1;
}
