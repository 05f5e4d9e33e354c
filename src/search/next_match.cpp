// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "search/next_match.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QPointer>
#include <QToolTip>
#include <utility>

#include "core/deferred_failure.h"
#include "windows/translated.h"

namespace tonalith::search {
namespace {

// In milliseconds. A shorter search processes no events.
constexpr qint64 kFirstEvents = 150;
constexpr qint64 kBetweenEvents = 30;

bool IsInput(QEvent::Type type) {
  switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::ContextMenu:
      return true;
    default:
      return false;
  }
}

class WindowWatcher : public QObject, public SearchWatcher {
 public:
  explicit WindowWatcher(QWidget& place) : place_(&place), window_(place.window()) { clock_.start(); }
  ~WindowWatcher() override { WindowWatcher::OnEnd(); }
  WindowWatcher(const WindowWatcher&) = delete;
  WindowWatcher& operator=(const WindowWatcher&) = delete;

  void SetMessage(const core::Message& text) override {
    if (!place_.isNull()) QToolTip::showText(place_->mapToGlobal(QPoint()), windows::Translated(text), place_);
  }

  [[nodiscard]] bool ShouldContinue() override {
    if (clock_.elapsed() >= nextEvents_) TakeEvents();
    return !place_.isNull() && !isStopped_;
  }

  void OnEnd() override {
    if (std::exchange(isBusy_, false)) QGuiApplication::restoreOverrideCursor();
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    const auto type = event->type();
    if (type == QEvent::Close && watched == window_) isStopped_ = true;
    const bool isPress = type == QEvent::KeyPress || type == QEvent::ShortcutOverride;
    if (isPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) isStopped_ = true;
    return IsInput(type);
  }

 private:
  void TakeEvents() {
    if (!std::exchange(isBusy_, true)) QGuiApplication::setOverrideCursor(Qt::BusyCursor);
    QCoreApplication::instance()->installEventFilter(this);
    QCoreApplication::processEvents();
    QCoreApplication::instance()->removeEventFilter(this);
    nextEvents_ = clock_.elapsed() + kBetweenEvents;
  }

  QPointer<QWidget> place_;
  QPointer<QWidget> window_;
  QElapsedTimer clock_;
  qint64 nextEvents_ = kFirstEvents;
  bool isBusy_ = false;
  bool isStopped_ = false;
};

}  // namespace

SearchResult FindNextMatch(ScaleSource& scales, const std::string& text, core::MsgBox& msgBox, QWidget& place) {
  core::DeferredFailure failure;
  SearchResult result;
  failure.Try([&] {
    WindowWatcher watcher(place);
    result = ScaleSearch(scales, watcher, msgBox).Search(text);
  });
  failure.ReportDescription(msgBox);
  return result;
}

}  // namespace tonalith::search
