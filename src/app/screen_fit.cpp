// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/screen_fit.h"

#include <unistd.h>

#include <QGuiApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QPointer>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "app/frm_tonalith.h"
#include "app/messages.h"
#include "windows/screen_size.h"

namespace tonalith::app {
namespace {

constexpr const char* kScale = "QT_SCALE_FACTOR";
constexpr const char* kScreenScales = "QT_SCREEN_SCALE_FACTORS";
constexpr const char* kFontResolution = "QT_FONT_DPI";
constexpr int kDotsAtScaleOne = 96;
/// The environment variable of a restarted process: its process ID, so that child processes ignore the variable, and
/// the original scale setting.
constexpr const char* kRestarted = "TONALITH_RESTARTED_FOR_SCREEN";

bool IsScale(const QByteArray& text, double unit) {
  bool isNumber = false;
  const double value = text.trimmed().toDouble(&isNumber);
  return isNumber && value >= kLeastScaleSetting * unit && value <= kLargestScaleSetting * unit;
}

std::string ValueOf(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? std::string() : value;
}

/// The size of the main window's content at scale 1.
QSize ContentSize(const core::Neck& neck) {
  QMenuBar bar;
  bar.addMenu(QStringLiteral("Tools"));
  return {MainControls::kClientWidth, MainControls::ClientHeight(neck) + bar.sizeHint().height()};
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace

double ScaleThatFits(QSize window, QSize room) {
  if (window.isEmpty()) return 1;
  const double fits = std::min(static_cast<double>(room.width()) / window.width(),
                               static_cast<double>(room.height()) / window.height());
  // Round down: a scale that is slightly too large would need scroll bars.
  constexpr double kSteps = 1000;
  return std::clamp(std::floor(fits * kSteps) / kSteps, kSmallestScale, 1.0);
}

bool IsUsableScaleSetting(const std::string& name, const std::string& value) {
  const QByteArray text = QByteArray::fromStdString(value);
  if (text.isEmpty()) return true;
  if (name == kScale) return IsScale(text, 1);
  // For Qt 0 means "not set".
  if (name == kFontResolution) return text == "0" || IsScale(text, kDotsAtScaleOne);
  if (name != kScreenScales) return true;
  // "scale;scale" or "name=scale;name=scale".
  const QList<QByteArray> screens = text.split(';');
  return std::all_of(screens.cbegin(), screens.cend(), [](const QByteArray& screen) {
    return screen.isEmpty() || IsScale(screen.mid(screen.lastIndexOf('=') + 1), 1);
  });
}

void AddScrollBars(QMainWindow& window, QSize room) {
  const QSize client = window.centralWidget()->minimumSize();
  const QSize free(room.width(), room.height() - window.menuBar()->sizeHint().height());
  if (client.width() <= free.width() && client.height() <= free.height()) return;
  const QPointer<QWidget> focus(window.focusWidget());
  auto* const area = new QScrollArea(&window);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidget(window.takeCentralWidget());
  const int bar = area->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  const QSize withBars(client.width() + (client.height() > free.height() ? bar : 0),
                       client.height() + (client.width() > free.width() ? bar : 0));
  area->setFixedSize(withBars.boundedTo(free));
  window.setCentralWidget(area);
  if (!focus.isNull()) focus->setFocus(Qt::OtherFocusReason);
}

ScreenFit::ScreenFit(int argc, char** argv) : arguments_(argv, argv + argc) {
  for (const char* const name : {"DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN"}) {
    if (std::string value = ValueOf(name); !value.empty()) startUp_.emplace_back(name, std::move(value));
  }
  const std::string mark = std::to_string(::getpid()) + ':';
  const std::string restarted = ValueOf(kRestarted);
  isRestarted_ = restarted.starts_with(mark);
  if (isRestarted_) firstScale_ = restarted.substr(mark.size());
  ::unsetenv(kRestarted);
  for (const char* const name : {kScale, kScreenScales, kFontResolution}) {
    std::string value = ValueOf(name);
    if (IsUsableScaleSetting(name, value)) continue;
    ::unsetenv(name);
    unusable_.emplace_back(name, std::move(value));
  }
}

void ScreenFit::RestartIfTooLarge(const core::Neck& neck) const {
  if (isRestarted_) {
    // Programs that Tonalith starts must not inherit the smaller scale.
    firstScale_.empty() ? ::unsetenv(kScale) : ::setenv(kScale, firstScale_.c_str(), 1);
    return;
  }
  const QScreen* const screen = QGuiApplication::primaryScreen();
  const std::optional<QSize> room = windows::AvailableSize(screen);
  // Measuring the menu bar is slow, and most screens are large enough for any menu bar.
  constexpr int kHighMenuBar = 60;
  const QSize most(MainControls::kClientWidth, MainControls::ClientHeight(neck) + kHighMenuBar);
  if (!room || most.boundedTo(*room) == most) return;
  const double scale = ScaleThatFits(ContentSize(neck), *room);
  if (scale >= 1) return;
  const std::string setting = ValueOf(kScale);
  const double current = setting.empty() ? 1 : QByteArray::fromStdString(setting).trimmed().toDouble();
  std::vector<std::string> environment;
  for (char** entry = environ; *entry != nullptr; ++entry) {
    const std::string text(*entry);
    if (!text.starts_with(std::string(kScale) + '=')) environment.push_back(text);
  }
  environment.push_back(kScale + ('=' + QByteArray::number(current * scale, 'g', 8).toStdString()));
  environment.push_back(kRestarted + ('=' + std::to_string(::getpid()) + ':' + setting));
  for (const auto& [name, value] : startUp_) environment.emplace_back(name).append(1, '=').append(value);
  std::vector<std::string> arguments = arguments_;
  ::execve("/proc/self/exe", Pointers(arguments).data(), Pointers(environment).data());
}

void ScreenFit::Report(core::MsgBox& msgBox) const {
  for (const auto& [name, value] : unusable_) {
    constexpr qsizetype kShownCharacters = 80;
    const QString shown = QString::fromStdString(value).left(kShownCharacters);
    msgBox.Show({MessageId::kUnusableScale, name, shown.toStdString()}, core::MsgBoxStyle::kExclamation);
  }
}

}  // namespace tonalith::app
