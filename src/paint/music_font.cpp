// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "paint/music_font.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontInfo>
#include <QRawFont>
#include <QStandardPaths>
#include <QTransform>
#include <algorithm>

#include "paint/font_outlines.h"
#include "paint/music_shapes.h"

namespace tonalith::paint {
namespace {

constexpr double kDesignEm = 32;  // 24 points at 96 dots per inch.

// The text cell and positions of a substitute font, in pixels at kDesignEm. See music_font.h for the derivation.
constexpr double kCellHeight = 200;
constexpr double kBaseline = 50;
constexpr double kStepLine = kBaseline + 0.5;
constexpr double kHeadMiddle = 6.5;

// Sizes for a staff whose lines are 10 pixels apart. Columns are at least 18 pixels apart; a notehead 11 pixels wide
// leaves 5 pixels for the sharp before the next notehead and one pixel on each side of it.
constexpr double kHeadHeight = 8.67;
constexpr double kHeadWidth = 11;
constexpr double kHeadLeft = kHeadMiddle - kHeadWidth / 2;
constexpr double kSharpMiddle = kHeadLeft - 1 - 2.5;
constexpr double kClefHeight = 67;
constexpr double kClefWidth = 22.5;
constexpr double kClefLeft = 1;

// The share of the clef height below its G line. In Euterpe the origin is the bottom line of the staff and lines are a
// quarter of the em apart, so the G line is at 512 units of a clef that extends from -749 to 2169. For other fonts, the
// proportions of a usual treble clef.
constexpr double kEuterpeBelowLine = (749.0 + 512.0) / (749.0 + 2169.0);
constexpr double kUsualBelowLine = 0.39;

/// The sources of a glyph: its code in the music font, its character in other fonts, and the built-in outline. The
/// sharp always has the built-in outline: condensed to five pixels, that of a font is illegible at scale 1.
struct GlyphSource {
  char code;
  char32_t character;
  QPainterPath (*painted)();
};
constexpr std::array kGlyphSources = {GlyphSource{kTrebleClef, 0x1D11E, shapes::TrebleClef},
                                      GlyphSource{kWholeNote, 0x1D15D, shapes::WholeNote},
                                      GlyphSource{kSharp, 0x266F, shapes::Sharp}};

/// A size at which the rounding of the font engine is negligible.
constexpr double kOutlineEm = 1024;

QPainterPath GlyphOf(const QRawFont& font, char32_t character) {
  if (!font.supportsCharacter(character)) return {};
  const QList<quint32> glyphs = font.glyphIndexesForString(QString::fromUcs4(&character, 1));
  return glyphs.isEmpty() ? QPainterPath() : font.pathForGlyph(glyphs.first());
}

QRawFont RawOf(const QString& family) {
  QFont font;
  font.setFamilies({family});
  font.setStyleStrategy(QFont::NoFontMerging);
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setPixelSize(static_cast<int>(kOutlineEm));
  // If no font is installed, Qt draws boxes, and a raw font of boxes has no family name.
  if (QFontInfo(font).family().isEmpty()) return {};
  return QRawFont::fromFont(font);
}

/// `path` with its box scaled by `factorX` and `factorY` and centred at (x, y).
QPainterPath CentredOn(const QPainterPath& path, double factorX, double factorY, double x, double y) {
  const QPointF middle = path.boundingRect().center();
  QTransform transform;
  transform.translate(x, y);
  transform.scale(factorX, factorY);
  transform.translate(-middle.x(), -middle.y());
  return transform.map(path);
}

/// The clef with its G line on the step line.
QPainterPath PlacedClef(const QPainterPath& clef, double belowLine) {
  const QRectF box = clef.boundingRect();
  const double factor = std::min(kClefHeight / box.height(), kClefWidth / box.width());
  QTransform transform;
  transform.translate(kClefLeft, kStepLine);
  transform.scale(factor, factor);
  transform.translate(-box.left(), -(box.bottom() - belowLine * box.height()));
  return transform.map(clef);
}

double BelowLineOf(const QString& family) {
  const bool euterpe = family.compare(QLatin1String("Euterpe"), Qt::CaseInsensitive) == 0;
  return euterpe ? kEuterpeBelowLine : kUsualBelowLine;
}

QString EuterpeFile() {
  QStringList files{QCoreApplication::applicationDirPath() + QStringLiteral("/fonts/Euterpe.ttf")};
  for (const QString& folder : QStandardPaths::standardLocations(QStandardPaths::FontsLocation)) {
    files << folder + QStringLiteral("/truetype/euterpe/Euterpe.ttf") << folder + QStringLiteral("/Euterpe.ttf");
  }
  const auto found =
      std::find_if(files.cbegin(), files.cend(), [](const QString& file) { return QFile::exists(file); });
  return found == files.cend() ? QString() : *found;
}

MusicFont FindMusicFont() {
  const QString maestro = QString::fromLatin1(kMusicFontName.data(), static_cast<qsizetype>(kMusicFontName.size()));
  if (FontIsInstalled(std::string(kMusicFontName))) {
    if (auto font = MusicFont::FromOwnCodes(maestro)) return *std::move(font);
  }
  if (auto font = MusicFont::FromFile(EuterpeFile())) return *std::move(font);
  if (FontIsInstalled("Euterpe")) {
    if (auto font = MusicFont::FromFamily(QStringLiteral("Euterpe"))) return *std::move(font);
  }
  if (auto font = MusicFont::FromAnyFamily()) return *std::move(font);
  return MusicFont::Painted();
}

}  // namespace

const MusicFont& MusicFont::Shared() {
  static const MusicFont font = FindMusicFont();
  return font;
}

MusicFont MusicFont::Placed(QString origin, const Outlines& outlines, double belowLine) {
  const auto& [clef, head, sharp] = outlines;
  MusicFont font;
  font.origin_ = std::move(origin);
  font.cell_ = {kCellHeight, kBaseline};
  const QRectF headBox = head.boundingRect();
  const QPainterPath placedHead =
      CentredOn(head, kHeadWidth / headBox.width(), kHeadHeight / headBox.height(), kHeadMiddle, kStepLine);
  const double headEnd = kHeadLeft + kHeadWidth;
  const QPainterPath placedClef = PlacedClef(clef, belowLine);
  // The sharp is printed after the notehead, without an advance: its outline is shifted to the left of the notehead.
  font.glyphs_ = {Glyph{placedClef, placedClef.boundingRect().right() + kClefLeft}, Glyph{placedHead, headEnd},
                  Glyph{sharp.translated(kSharpMiddle - headEnd, kStepLine), 0}};
  return font;
}

std::optional<MusicFont> MusicFont::FromGlyphs(QString origin, const QString& family,
                                               const OutlineOfCharacter& outlineOf) {
  Outlines outlines;
  for (std::size_t i = 0; i < outlines.size(); ++i) {
    const GlyphSource& source = kGlyphSources.at(i);
    outlines.at(i) = source.code == kSharp ? source.painted() : outlineOf(source.character);
    if (outlines.at(i).isEmpty()) return std::nullopt;
  }
  return Placed(std::move(origin), outlines, BelowLineOf(family));
}

std::optional<MusicFont> MusicFont::FromFile(const QString& fileName) {
  // Fonts are loaded completely: refuses folders, pipes and endless files.
  constexpr qint64 kLargestFont = qint64{64} << 20;
  const QFileInfo file(fileName);
  if (!file.isFile() || file.size() > kLargestFont) return std::nullopt;
  const FontOutlines outlines(fileName);
  return FromGlyphs(fileName, outlines.Family(),
                    [&outlines](char32_t character) { return outlines.Of(character, kOutlineEm); });
}

std::optional<MusicFont> MusicFont::FromFamily(const QString& family) {
  const QRawFont raw = RawOf(family);
  if (!raw.isValid()) return std::nullopt;
  if (raw.familyName().compare(family, Qt::CaseInsensitive) != 0) return std::nullopt;
  return FromGlyphs(family, raw.familyName(), [&raw](char32_t character) { return GlyphOf(raw, character); });
}

std::optional<MusicFont> MusicFont::FromAnyFamily() {
  for (const QString& family : QFontDatabase::families()) {
    if (auto font = FromFamily(family)) return font;
  }
  return std::nullopt;
}

std::optional<MusicFont> MusicFont::FromOwnCodes(const QString& family) {
  const QRawFont raw = RawOf(family);
  if (!raw.isValid()) return std::nullopt;
  constexpr char32_t kSymbolPage = 0xF000;  // Private-use codes of symbol fonts.
  const double factor = kDesignEm / kOutlineEm;
  const double ascent = raw.ascent() * factor;
  MusicFont result;
  result.origin_ = family;
  result.cell_ = {(raw.ascent() + raw.descent()) * factor, ascent};
  const QTransform transform = QTransform::fromTranslate(0, ascent).scale(factor, factor);
  for (std::size_t i = 0; i < kGlyphCount; ++i) {
    auto character = static_cast<char32_t>(static_cast<unsigned char>(kGlyphSources[i].code));
    if (raw.supportsCharacter(kSymbolPage + character)) character += kSymbolPage;
    const QPainterPath outline = GlyphOf(raw, character);
    if (outline.isEmpty()) return std::nullopt;
    const QList<quint32> glyphs = raw.glyphIndexesForString(QString::fromUcs4(&character, 1));
    result.glyphs_[i] = {transform.map(outline), raw.advancesForGlyphIndexes(glyphs).first().x() * factor};
  }
  return result;
}

MusicFont MusicFont::Painted() {
  Outlines outlines;
  std::transform(kGlyphSources.begin(), kGlyphSources.end(), outlines.begin(),
                 [](const GlyphSource& source) { return source.painted(); });
  const QRectF clef = outlines.front().boundingRect();
  return Placed(QStringLiteral("painted"), outlines, clef.bottom() / clef.height());
}

const MusicFont::Glyph* MusicFont::Find(char code) const {
  const auto* const source = std::find_if(kGlyphSources.begin(), kGlyphSources.end(),
                                          [code](const GlyphSource& known) { return known.code == code; });
  return source == kGlyphSources.end() ? nullptr : &glyphs_[static_cast<std::size_t>(source - kGlyphSources.begin())];
}

TextCell MusicFont::Cell(double emPixels) const {
  const double factor = emPixels / kDesignEm;
  return {cell_.height * factor, cell_.baseline * factor};
}

double MusicFont::Width(std::string_view codes, double emPixels) const {
  double width = 0;
  for (const char code : codes) {
    if (const Glyph* glyph = Find(code)) width += glyph->advance;
  }
  return width * emPixels / kDesignEm;
}

QPainterPath MusicFont::Outline(std::string_view codes, double emPixels) const {
  QPainterPath ink;
  double pen = 0;
  for (const char code : codes) {
    const Glyph* glyph = Find(code);
    if (glyph == nullptr) continue;
    ink.addPath(glyph->outline.translated(pen, 0));
    pen += glyph->advance;
  }
  const double factor = emPixels / kDesignEm;
  QPainterPath scaled = QTransform::fromScale(factor, factor).map(ink);
  scaled.setFillRule(Qt::WindingFill);
  return scaled;
}

}  // namespace tonalith::paint
