// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The install command while it runs. Events are handled between the rows of a pack, so the window can be moved, painted
// and closed; what uses the library is off from construction until End. After half a second on one pack a label says
// which pack it is and how many rows are done; at the end it says how many scales were added. Made on the stack of the
// command; the widgets may go before it. User-interface thread.

#pragma once

#include <QAction>
#include <QElapsedTimer>
#include <QLabel>
#include <QPointer>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/msg_box.h"
#include "data/data_pack_import.h"

namespace tonalith::app {

class PackInstall : private data::DataPackObserver {
 public:
  /// What is off meanwhile. Windows get the keyboard's place in them back.
  struct Place {
    std::vector<QWidget*> windows;
    std::vector<QWidget*> controls;
    std::vector<QAction*> entries;
    QLabel* label = nullptr;
  };

  /// `onPackDone` is called after each pack.
  PackInstall(const Place& place, std::function<void()> onPackDone);

  /// Imports every pack. Throws when they cannot be listed.
  void Run(const std::string& appFolder, core::MsgBox& msgBox);
  /// Makes Run return soon, without the pack that is under way and without a message.
  void Stop() { isStopping_ = true; }
  [[nodiscard]] bool IsStopped() const { return isStopping_; }
  /// Everything is on again, and the label says what was added.
  void End();

 private:
  struct Window {
    QPointer<QWidget> window;
    QPointer<QWidget> focus;
    QPointer<QWidget> focusMeanwhile;
  };

  void DataPackDone() override;
  void ReadingProgress(const std::string& path, std::int64_t rows) override;
  void ImportProgress(const std::string& path, std::int64_t rows) override;
  /// `text` has places for the pack's name and the number of rows.
  void Show(const QString& text, const std::string& path, std::int64_t rows);
  void LetWindowLive();
  void SetText(const QString& text);

  std::vector<Window> windows_;
  std::vector<QPointer<QWidget>> controls_;
  std::vector<QPointer<QAction>> entries_;
  QPointer<QLabel> label_;
  std::function<void()> onPackDone_;
  data::DataPackImport::Totals totals_;
  QElapsedTimer sincePackBegan_;
  QElapsedTimer sinceShown_;
  bool isStopping_ = false;
};

}  // namespace tonalith::app
