// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/window_help_engine.h"

#include <QDesktopServices>
#include <QGuiApplication>
#include <memory>

#include "core/deferred_failure.h"

namespace tonalith::help {
namespace {

/// Shows a busy cursor: reading a damaged file may take seconds.
class BusyCursor {
 public:
  BusyCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  ~BusyCursor() { QGuiApplication::restoreOverrideCursor(); }
  BusyCursor(const BusyCursor&) = delete;
  BusyCursor& operator=(const BusyCursor&) = delete;
};

}  // namespace

WindowHelpEngine::WindowHelpEngine(core::MsgBox& msgBox, AddressOpener opener, const sandbox::Limits& limits)
    : msgBox_(msgBox), opener_(std::move(opener)), limits_(limits) {
  if (!opener_) opener_ = [](const QUrl& url) { return QDesktopServices::openUrl(url); };
}

platform::HelpWindowHandle WindowHelpEngine::HtmlHelpA(platform::HelpWindowHandle caller, const std::string& file,
                                                       std::uint32_t command, std::uintptr_t /*data*/) {
  if (command != platform::kDisplayTopic) {
    lastError_ = help_error::kInvalidParameter;
    return platform::kNoHelpWindow;
  }
  lastError_ = help_error::kInvalidData;
  std::shared_ptr<const HelpBook> book;
  core::DeferredFailure failure;
  failure.Try([&] {
    const BusyCursor busy;
    book = std::make_shared<const HelpBook>(ReadChmFile(file, limits_));
  });
  if (book == nullptr) return platform::kNoHelpWindow;
  if (frmHelp* const open = window_.Window()) open->ShowBook(book);
  window_.Show([&] {
    auto* const made = new frmHelp(msgBox_, opener_, QWidget::find(caller));
    made->ShowBook(book);
    return made;
  });
  lastError_ = help_error::kNone;
  return Window()->winId();
}

}  // namespace tonalith::help
