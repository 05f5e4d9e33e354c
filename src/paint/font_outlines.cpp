// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "paint/font_outlines.h"

#include <freetype/freetype.h>
#include <freetype/ftoutln.h>

#include <QFile>

namespace tonalith::paint {
namespace {

/// Takes an outline over from FreeType, whose y points upward.
class PathMaker {
 public:
  explicit PathMaker(double factor) : factor_(factor) {}

  [[nodiscard]] bool Take(FT_Outline& outline) {
    FT_Outline_Funcs steps{};
    steps.move_to = [](const FT_Vector* to, void* maker) {
      Self(maker).path_.closeSubpath();
      Self(maker).path_.moveTo(Self(maker).At(to));
      return 0;
    };
    steps.line_to = [](const FT_Vector* to, void* maker) {
      Self(maker).path_.lineTo(Self(maker).At(to));
      return 0;
    };
    steps.conic_to = [](const FT_Vector* control, const FT_Vector* to, void* maker) {
      Self(maker).path_.quadTo(Self(maker).At(control), Self(maker).At(to));
      return 0;
    };
    steps.cubic_to = [](const FT_Vector* first, const FT_Vector* second, const FT_Vector* to, void* maker) {
      Self(maker).path_.cubicTo(Self(maker).At(first), Self(maker).At(second), Self(maker).At(to));
      return 0;
    };
    const bool isWhole = FT_Outline_Decompose(&outline, &steps, this) == 0;
    path_.closeSubpath();
    path_.setFillRule(Qt::WindingFill);
    return isWhole;
  }

  [[nodiscard]] const QPainterPath& Path() const { return path_; }

 private:
  static PathMaker& Self(void* maker) { return *static_cast<PathMaker*>(maker); }
  [[nodiscard]] QPointF At(const FT_Vector* point) const {
    return {static_cast<double>(point->x) * factor_, -static_cast<double>(point->y) * factor_};
  }

  double factor_;
  QPainterPath path_;
};

}  // namespace

struct FontOutlines::Face {
  FT_Library library = nullptr;
  FT_Face face = nullptr;

  explicit Face(const QString& fileName) {
    if (FT_Init_FreeType(&library) != 0) return;
    if (FT_New_Face(library, QFile::encodeName(fileName).constData(), 0, &face) != 0) face = nullptr;
    if (face != nullptr && (!FT_IS_SCALABLE(face) || face->units_per_EM == 0)) {
      FT_Done_Face(face);
      face = nullptr;
    }
  }
  // Takes the face with it.
  ~Face() { FT_Done_FreeType(library); }
  Face(const Face&) = delete;
  Face& operator=(const Face&) = delete;
};

FontOutlines::FontOutlines(const QString& fileName) : face_(std::make_unique<Face>(fileName)) {}

FontOutlines::~FontOutlines() = default;

QString FontOutlines::Family() const {
  return face_->face == nullptr ? QString() : QString::fromLatin1(face_->face->family_name);
}

QPainterPath FontOutlines::Of(char32_t character, double em) const {
  FT_Face face = face_->face;
  if (face == nullptr) return {};
  const FT_UInt glyph = FT_Get_Char_Index(face, character);
  if (glyph == 0 || FT_Load_Glyph(face, glyph, FT_LOAD_NO_SCALE) != 0) return {};
  if (face->glyph->format != FT_GLYPH_FORMAT_OUTLINE) return {};
  PathMaker maker(em / face->units_per_EM);
  return maker.Take(face->glyph->outline) ? maker.Path() : QPainterPath();
}

}  // namespace tonalith::paint
