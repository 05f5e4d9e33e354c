// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The main window with a separate MainWindowPrinting, a scripted printer, and printing to a real PDF file.

#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>

#include "app/main_window_fixture.h"
#include "app/main_window_printing.h"
#include "app/page_composer.h"
#include "core/failure.h"
#include "platform/qt/qt_print_service.h"
#include "support/scripted_printer.h"

namespace tonalith::app {

inline constexpr platform::Paper kLandscape{platform::PaperSize::kA4, platform::PaperOrientation::kLandscape};

class Printing : public MainWindowTest {
 protected:
  ~Printing() override {
    windowPrinting_.reset();
    QApplication::setPalette(QPalette());
  }

  /// Starts the window with one scale and creates windowPrinting_.
  void StartOn(const TestScale& scale, int key = 0) {
    MakeDatabase({scale});
    Start();
    MakeWindowPrinting(key);
  }
  void MakeWindowPrinting(int key = 0) {
    C().cmbTranspose->Choose(key);
    C().cmdPrint->setEnabled(true);
    const auto staff = [this] {
      ++staffs_;
      if (isStaffFailing_) throw core::Failure::Overflow();
    };
    windowPrinting_ =
        std::make_unique<MainWindowPrinting>(C(), Window(), MainWindowPrinting::Tools{service_, box_, staff});
  }
  void Print() {
    tests::ScriptedPrinter printer(script_, 16000, 11000);
    windowPrinting_->PrintView(printer);
  }
  std::string PrintPdf(platform::Paper paper = kLandscape) {
    const std::string file = Path("page.pdf");
    const auto printer = platform::MakePdfPrinter(file, {PageTitle(C()), paper});
    windowPrinting_->PrintView(*printer);
    EXPECT_TRUE(printer->IsEnded()) << box_.Texts();
    return file;
  }
  /// Runs the Print command, and calls `act` when the print helper is visible.
  template <class Act>
  void ClickPrintAnd(Act act) {
    QTimer wait;
    QObject::connect(&wait, &QTimer::timeout, [&] {
      if (Helper() == nullptr || !Helper()->isVisible()) return;
      wait.stop();
      act(*Helper());
    });
    wait.start(1);
    windowPrinting_->cmdPrint_Click();
    EXPECT_FALSE(wait.isActive()) << "the helper was never shown";
  }
  static std::vector<print::frmPrint*> Helpers() {
    std::vector<print::frmPrint*> found;
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
      if (auto* const form = qobject_cast<print::frmPrint*>(widget)) found.push_back(form);
    }
    return found;
  }
  static print::frmPrint* Helper() { return Helpers().empty() ? nullptr : Helpers().front(); }

  std::vector<QWidget*> NotOnPaper() {
    return {C().cmdUpdate, C().cmdPrint, C().cmdEdit, C().cmdListen, C().lblStatus};
  }
  void ExpectWindowAsBefore(const std::string& when) {
    for (const QWidget* const control : NotOnPaper()) EXPECT_FALSE(control->isHidden()) << when;
    EXPECT_FALSE(C().Data1->isHidden()) << when;
    EXPECT_FALSE(C().cmbTranspose->isHidden()) << when;
    EXPECT_TRUE(C().printPic->isHidden()) << when;
    EXPECT_TRUE(Window().updatesEnabled()) << when;
    EXPECT_TRUE(Window().findChildren<QWidget*>(QStringLiteral("picTemp")).isEmpty()) << when;
  }
  std::string Page() { return C().printPic->Surface().AsText(); }

  tests::PrintScript script_;
  tests::ScriptedPrintService service_{script_};
  std::unique_ptr<MainWindowPrinting> windowPrinting_;
  int staffs_ = 0;
  bool isStaffFailing_ = false;
};

}  // namespace tonalith::app
