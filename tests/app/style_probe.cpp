// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Prints the style and the palettes of a process: "style_probe plain" those of an application that only starts,
// "style_probe program" those of Tonalith. Further arguments are passed to the application.

#include <QApplication>
#include <QFrame>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPainter>
#include <QProxyStyle>
#include <QSet>
#include <QStyleFactory>
#include <QStyleOptionButton>
#include <QStyleOptionMenuItem>
#include <QStyleOptionSlider>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "app/program.h"
#include "paint/music_font.h"

namespace {

const QStyle* BaseStyle() {
  const QStyle* style = QApplication::style();
  while (const auto* const proxy = qobject_cast<const QProxyStyle*>(style)) style = proxy->baseStyle();
  return style;
}

void Print(const char* what, const QString& value) { std::printf("%s %s\n", what, qPrintable(value)); }

void PrintMetrics() {
  const QStyle* const style = QApplication::style();
  QStringList metrics;
  for (int metric = 0; metric <= static_cast<int>(QStyle::PM_LineEditIconMargin); ++metric) {
    metrics << QString::number(style->pixelMetric(static_cast<QStyle::PixelMetric>(metric)));
  }
  Print("metrics", metrics.join(QLatin1Char(' ')));
  QStringList hints;
  for (const auto hint : {QStyle::SH_DialogButtonLayout, QStyle::SH_DialogButtonBox_ButtonsHaveIcons,
                          QStyle::SH_ScrollBar_Transient, QStyle::SH_EtchDisabledText, QStyle::SH_Menu_MouseTracking}) {
    hints << QString::number(style->styleHint(hint));
  }
  Print("hints", hints.join(QLatin1Char(' ')));
}

/// Prints the checksum of an image painted with a fixed palette.
template <typename Paint>
void PrintPicture(const char* what, const Paint& paint) {
  QImage image(120, 40, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::white);
  {
    QPainter painter(&image);
    paint(painter);
  }
  Print(what, QString::number(qChecksum(QByteArrayView(image.constBits(), image.sizeInBytes()))));
}

template <typename Option>
Option OptionInGrey() {
  Option option;
  option.rect = QRect(0, 0, 120, 40);
  // Set every role: missing ones would come from the application.
  for (int role = 0; role < QPalette::NColorRoles; ++role) {
    const int grey = 60 + 9 * role;
    option.palette.setColor(static_cast<QPalette::ColorRole>(role), QColor(grey, grey, grey));
  }
  option.state = QStyle::State_Enabled | QStyle::State_Active | QStyle::State_Raised | QStyle::State_Horizontal;
  return option;
}

void PrintPictures() {
  const QStyle* const style = QApplication::style();
  PrintPicture("button", [&](QPainter& painter) {
    const auto option = OptionInGrey<QStyleOptionButton>();
    style->drawControl(QStyle::CE_PushButtonBevel, &option, &painter);
  });
  PrintPicture("scroll-bar", [&](QPainter& painter) {
    auto option = OptionInGrey<QStyleOptionSlider>();
    option.maximum = 10;
    option.pageStep = 5;
    option.subControls = QStyle::SC_All;
    style->drawComplexControl(QStyle::CC_ScrollBar, &option, &painter);
  });
  PrintPicture("menu-bar", [&](QPainter& painter) {
    const auto option = OptionInGrey<QStyleOptionMenuItem>();
    style->drawControl(QStyle::CE_MenuBarEmptyArea, &option, &painter);
  });
}

void PrintPalettes(const QWidget* window) {
  const auto print = [](const char* what, const QPalette& palette) {
    QStringList colours;
    for (const auto role : {QPalette::Window, QPalette::WindowText, QPalette::Base, QPalette::Text, QPalette::Button,
                            QPalette::Highlight, QPalette::HighlightedText}) {
      colours << palette.color(role).name();
    }
    Print(what, colours.join(QLatin1Char(' ')));
  };
  print("application", QApplication::palette());
  if (window == nullptr) return;
  print("window", window->palette());
  print("message-box", QMessageBox().palette());
  print("menu", QMenu().palette());
}

/// Prints the largest number of colours in a pixel line of the menu bar's border; without gaps it is 1.
void PrintMenuBorder(const QWidget& window) {
  auto* const bar = window.findChild<QMenuBar*>();
  const QImage image = bar->grab().toImage();
  qsizetype most = 0;
  const int border = qRound(2 * image.devicePixelRatio());
  for (int y = image.height() - border; y < image.height(); ++y) {
    QSet<QRgb> colours;
    for (int x = 0; x < image.width(); ++x) colours.insert(image.pixel(x, y));
    most = qMax(most, colours.size());
  }
  Print("menu-border-colours", QString::number(most));
}

/// Prints the lightest grey at the edge and in a separator of a menu, and at the edge of a list, in a dark palette.
void PrintDarkMenu() {
  QPalette dark;
  dark.setColor(QPalette::Window, QColor(38, 38, 38));
  dark.setColor(QPalette::Base, QColor(29, 29, 29));
  for (const auto role : {QPalette::WindowText, QPalette::Text}) dark.setColor(role, QColor(240, 240, 240));
  const QStyle* const style = QApplication::style();
  const auto lightest = [&](const auto& draw) {
    QImage image(40, 11, QImage::Format_RGB32);
    image.fill(dark.color(QPalette::Base));
    QPainter painter(&image);
    draw(painter);
    painter.end();
    int grey = 0;
    for (int y = 0; y < image.height(); ++y) grey = qMax(grey, qGray(image.pixel(20, y)));
    return QString::number(grey);
  };
  QStyleOptionMenuItem option;
  option.rect = QRect(0, 0, 40, 11);
  option.palette = dark;
  option.menuItemType = QStyleOptionMenuItem::Separator;
  const QFrame popUp(nullptr, Qt::Popup);
  Print("dark-menu-edge", lightest([&](QPainter& p) { style->drawPrimitive(QStyle::PE_PanelMenu, &option, &p); }));
  Print("dark-list-edge", lightest([&](QPainter& p) {
          QStyleOptionFrame frame;
          frame.rect = option.rect;
          frame.palette = dark;
          style->drawPrimitive(QStyle::PE_Frame, &frame, &p, &popUp);
        }));
  Print("dark-separator", lightest([&](QPainter& p) { style->drawControl(QStyle::CE_MenuItem, &option, &p); }));
}

void PrintAll(const QWidget* window) {
  Print("style", BaseStyle()->name());
  Print("class", QLatin1String(BaseStyle()->metaObject()->className()));
  PrintMetrics();
  PrintPictures();
  PrintPalettes(window);
  PrintDarkMenu();
  if (window != nullptr) PrintMenuBorder(*window);
  Print("music", tonalith::paint::MusicFont::Shared().Origin());
  std::fflush(stdout);
}

}  // namespace

int main(int argc, char* argv[]) {
  const std::string_view what = argc > 1 ? argv[1] : "";
  if (what == "plain") {
    const QApplication application(argc, argv);
    PrintAll(nullptr);
    return 0;
  }
  if (what != "program") return 2;
  return tonalith::app::RunProgram(argc, argv, [](QWidget& window) {
    PrintAll(&window);
    std::exit(0);
  });
}
