// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/page_pictures.h"

#include <QUrl>

#include "help/picture_reader.h"

namespace tonalith::help {
namespace {

constexpr double kMostPicturePixels = 64e6;

}  // namespace

void PagePictures::Load(const HelpBook& book, const std::string& path, const HelpPage& page, const View& view) {
  ++serial_;
  pictures_.clear();
  double room = kMostPicturePixels;
  for (const HelpPicture& picture : page.pictures) {
    const std::string* const bytes = room > 0 ? book.Attached(path, picture.source) : nullptr;
    Shown shown;
    shown.description = picture.description;
    if (bytes != nullptr) shown.image = ReadPicture(*bytes);
    if (!shown.image.isNull()) {
      room -= 1.0 * shown.image.width() * shown.image.height();
      shown.size = ShownSize(picture, shown.image.size(), view.zoom, view.column);
      room -= 1.0 * shown.size.width() * shown.size.height() * view.ratio * view.ratio;
      shown.image = room > 0 ? SharpAt(shown.image, shown.size, view.ratio) : QImage();
    }
    pictures_.push_back(std::move(shown));
  }
}

QString PagePictures::InsertInto(QString html) const {
  for (std::size_t i = 0; i < pictures_.size(); ++i) {
    const Shown& shown = pictures_[i];
    const QString before = QStringLiteral("<img src=\"picture:%1\">").arg(i);
    const QString after =
        shown.image.isNull()
            ? QStringLiteral("<i>[%1]</i>").arg(QString::fromStdString(EscapedForHtml(shown.description)))
            : QStringLiteral("<img src=\"picture:%1/%2\" width=\"%3\" height=\"%4\">")
                  .arg(serial_)
                  .arg(i)
                  .arg(shown.size.width())
                  .arg(shown.size.height());
    html.replace(before, after);
  }
  return html;
}

const QImage* PagePictures::Find(const QUrl& name) const {
  if (name.scheme() != QLatin1String("picture")) return nullptr;
  const std::size_t number = name.path().section(QLatin1Char('/'), 1).toULongLong();
  return number < pictures_.size() ? &pictures_[number].image : nullptr;
}

}  // namespace tonalith::help
