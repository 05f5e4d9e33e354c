// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A running install command. It processes events between the rows of a pack, so the window can be moved, painted and
// closed; controls that use the library are disabled from construction until End. After half a second on one pack a
// label shows the pack and the number of its rows so far, at the end the number of added scales. The widgets may be
// destroyed before it.

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
  /// The windows whose focus End restores, the controls and menu entries to disable, and the label for progress.
  struct Place {
    std::vector<QWidget*> windows;
    std::vector<QWidget*> controls;
    std::vector<QAction*> entries;
    QLabel* label = nullptr;
  };

  /// `onPackDone` is called after each pack.
  PackInstall(const Place& place, std::function<void()> onPackDone);

  /// Imports every pack. Throws core::Failure if they cannot be listed.
  void Run(const std::string& appFolder, core::MsgBox& msgBox);
  /// Cancels Run: the current pack is not imported, and no message is shown.
  void Stop() { isStopping_ = true; }
  [[nodiscard]] bool IsStopped() const { return isStopping_; }
  /// Enables everything again and shows the number of added scales.
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
  /// `text` has the placeholders %1 for the pack's name and %2 for the number of rows.
  void Show(const QString& text, const std::string& path, std::int64_t rows);
  /// Throws data::ImportStopped after Stop.
  void ProcessEvents();
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
