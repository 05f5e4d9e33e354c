// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "paint/drawing_surface_font.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <map>

#include "paint/drawing_surface.h"
#include "paint/music_font.h"

namespace tonalith::paint {
namespace {

constexpr double kPixelsPerPoint = 96.0 / 72.0;
// The text cell of missing families: that of a screen font like Tahoma, whose ascent is one em.
constexpr double kSubstituteAscent = 1.0;
constexpr double kSubstituteHeight = 1.2;

QString ToQString(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

}  // namespace

double EmPixels(FontSize size) {
  return size.unit == FontSize::Unit::kPixels ? size.value : size.value * kPixelsPerPoint;
}

bool IsMusicFont(const SurfaceFont& font) {
  return QString::fromStdString(font.name).compare(QLatin1String(kMusicFontName.data(), kMusicFontName.size()),
                                                   Qt::CaseInsensitive) == 0;
}

bool FontIsInstalled(const std::string& fontName) {
  static std::map<std::string, bool> answers;
  const auto known = answers.find(fontName);
  if (known != answers.end()) return known->second;
  // Only lists the names: matching a font would load a substitute for every missing family.
  const bool installed = QFontDatabase::families().contains(QString::fromStdString(fontName), Qt::CaseInsensitive);
  return answers.emplace(fontName, installed).first->second;
}

void SetFontNameOrDefault(DrawingSurface& surface, const std::string& fontName) {
  surface.SetFontName(FontIsInstalled(fontName) ? fontName : "MS Sans Serif");
}

QFont ToQFont(const SurfaceFont& font) {
  QFont result;
  if (FontIsInstalled(font.name)) result.setFamilies({QString::fromStdString(font.name)});
  result.setHintingPreference(QFont::PreferNoHinting);
  result.setBold(font.bold);
  result.setPixelSize(qMax(1, qRound(EmPixels(font.size))));
  return result;
}

QFont BoldFont(QFont font, int pixels) {
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setWeight(QFont::Bold);
  font.setPixelSize(pixels);
  return font;
}

TextCell CellOf(const SurfaceFont& font) {
  const double em = EmPixels(font.size);
  if (IsMusicFont(font)) return MusicFont::Shared().Cell(em);
  if (!FontIsInstalled(font.name)) return {em * kSubstituteHeight, em * kSubstituteAscent};
  const QFontMetricsF metrics(ToQFont(font));
  return {metrics.height(), metrics.ascent()};
}

double WidthOf(const SurfaceFont& font, std::string_view text) {
  if (IsMusicFont(font)) return MusicFont::Shared().Width(text, EmPixels(font.size));
  return QFontMetricsF(ToQFont(font)).horizontalAdvance(ToQString(text));
}

}  // namespace tonalith::paint
