// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/help_style.h"

#include <QStringList>

#include "paint/colours.h"
#include "paint/theme.h"

namespace tonalith::help {
namespace {

/// The page's background with a tint of the box's colour.
QColor BoxBackground(const QPalette& palette, const QColor& colour) {
  return paint::Mix(palette.color(QPalette::Base), colour, paint::IsDark(palette) ? 0.22F : 0.10F);
}

class Sheet {
 public:
  explicit Sheet(double pixels) : pixels_(pixels) {}

  void Rule(const char* selector, const QString& declarations) {
    text_ += QLatin1String(selector) + QLatin1Char('{') + declarations + QLatin1String("}\n");
  }
  /// A multiple of the font size, in pixels.
  [[nodiscard]] QString Size(double heights) const {
    return QString::number(qRound(pixels_ * heights)) + QLatin1String("px");
  }
  [[nodiscard]] const QString& Text() const { return text_; }

 private:
  double pixels_;
  QString text_;
};

QString Margins(const Sheet& sheet, double above, double below) {
  return QStringLiteral("margin-top:%1;margin-bottom:%2;").arg(sheet.Size(above), sheet.Size(below));
}

void AddText(Sheet& sheet, const QPalette& palette) {
  const QString textColour = palette.color(QPalette::Text).name();
  const QString second = paint::SecondaryText(palette).name();
  sheet.Rule("body", QStringLiteral("color:%1;font-size:%2;").arg(textColour, sheet.Size(1)));
  sheet.Rule("p,ul,ol", Margins(sheet, 0, 0.75) + QStringLiteral("line-height:140%;"));
  sheet.Rule("li,dd", Margins(sheet, 0, 0.3) + QStringLiteral("line-height:135%;"));
  sheet.Rule("dt", Margins(sheet, 0.6, 0.1) + QStringLiteral("font-weight:600;line-height:140%;"));
  sheet.Rule("dd", QStringLiteral("margin-left:%1;").arg(sheet.Size(1.4)));
  const auto heading = [&](const char* tag, double size, double above, double below) {
    sheet.Rule(tag,
               Margins(sheet, above, below) + QStringLiteral("font-weight:600;line-height:120%;font-size:%1;color:%2;")
                                                  .arg(sheet.Size(size), textColour));
  };
  heading("h1", 1.85, 0.2, 0.7);
  heading("h2", 1.35, 1.5, 0.5);
  heading("h3", 1.1, 1.2, 0.35);
  heading("h4,h5,h6", 1.0, 1.0, 0.3);
  sheet.Rule("a", QStringLiteral("color:%1;text-decoration:underline;").arg(paint::SiennaText(palette).name()));
  sheet.Rule(".figcaption,.tablecaption,.footer,.small",
             QStringLiteral("color:%1;font-size:%2;").arg(second, sheet.Size(0.88)));
}

void AddCode(Sheet& sheet, const QPalette& palette) {
  const QString background = Tint(palette, 0.08F).name();
  sheet.Rule(
      "code,kbd,samp,tt",
      QStringLiteral("font-family:monospace;font-size:%1;background-color:%2;").arg(sheet.Size(0.92), background));
  sheet.Rule("pre", Margins(sheet, 0, 0) +
                        QStringLiteral("font-family:monospace;font-size:%1;line-height:130%;").arg(sheet.Size(0.92)));
}

/// Border lines at the given sides only: "top", "left" and so on.
QString Lines(const QStringList& sides, const QString& width, const QColor& colour) {
  QString declarations;
  for (const char* const name : {"top", "right", "bottom", "left"}) {
    const QLatin1String side(name);
    declarations += sides.contains(side)
                        ? QStringLiteral("border-%1-style:solid;border-%1-width:%2;border-%1-color:%3;")
                              .arg(side, width, colour.name())
                        : QStringLiteral("border-%1-style:none;border-%1-width:0px;").arg(side);
  }
  return declarations;
}

void AddTables(Sheet& sheet, const QPalette& palette) {
  const QString cell = QStringLiteral("padding:%1;vertical-align:top;").arg(sheet.Size(0.4)) +
                       Lines({QStringLiteral("bottom")}, QStringLiteral("1px"), Tint(palette, 0.18F));
  sheet.Rule("table", Margins(sheet, 0.4, 1.1) + QStringLiteral("border-collapse:collapse;border-style:none;"));
  sheet.Rule("td", cell);
  sheet.Rule(
      "th",
      cell + QStringLiteral("text-align:left;font-weight:600;background-color:%1;").arg(Tint(palette, 0.06F).name()));
}

void AddBoxes(Sheet& sheet, const QPalette& palette) {
  const auto box = [&](const char* selector, QRgb colour) {
    const QColor edge(colour);
    sheet.Rule(
        selector,
        QStringLiteral("padding:%1;background-color:%2;").arg(sheet.Size(0.75), BoxBackground(palette, edge).name()) +
            Lines({QStringLiteral("left")}, QStringLiteral("4px"), edge));
  };
  box("td.note", paint::kNote);
  box("td.tip", 0xFF4C8C4A);
  box("td.warning", paint::kAccent);
  box("td.message", paint::kAmber);
  box("td.example", 0xFF8C7A5B);
  sheet.Rule("td.code",
             QStringLiteral("padding:%1;background-color:%2;").arg(sheet.Size(0.6), Tint(palette, 0.06F).name()) +
                 Lines({}, {}, {}));
}

}  // namespace

QColor Tint(const QPalette& palette, float share) {
  return paint::Mix(palette.color(QPalette::Base), palette.color(QPalette::Text), share);
}

QString PageStyle(const QPalette& palette, double pixels) {
  Sheet sheet(pixels);
  AddText(sheet, palette);
  AddCode(sheet, palette);
  AddTables(sheet, palette);
  AddBoxes(sheet, palette);
  return sheet.Text();
}

QColor HitBackground(const QPalette& palette) {
  return paint::IsDark(palette) ? QColor(0x6b, 0x47, 0x00) : QColor(0xff, 0xe3, 0x8a);
}

int ColumnWidth(double pixels) { return qRound(pixels * 46); }

}  // namespace tonalith::help
