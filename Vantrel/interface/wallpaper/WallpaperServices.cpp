#include "Vantrel/interface/wallpaper/WallpaperServices.h"

#include "Vantrel/interface/Text.h"

#include <QFileDialog>
#include <QStandardPaths>

#include <utility>

namespace vantrel {

void WallpaperServices::openFileDialog(QWidget& parent, std::function<void(const std::string&)> done) {
    auto* const dialog = new QFileDialog(&parent, qtr("Choose a wallpaper"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilters({qtr("Pictures") + " (*.avif *.bmp *.heic *.heif *.jpg *.jpeg *.jxl *.png *.svg "
                                              "*.tif *.tiff *.webp)"});
    dialog->setDirectory(QStandardPaths::writableLocation(QStandardPaths::PicturesLocation));
    QObject::connect(dialog, &QFileDialog::fileSelected, &parent,
                     [done = std::move(done)](const QString& file) { done(file.toStdString()); });
    dialog->open();
}

} // namespace vantrel
