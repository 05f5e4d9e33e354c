// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Key strokes in the scale editor with 100,000 scales: from the key event to the end of the painting that it causes, as
// the 95th percentile.

#include <QApplication>
#include <QKeyEvent>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "editor/frm_scales.h"
#include "isolated_window/isolated_window.h"
#include "measuring.h"
#include "painting.h"

namespace {

using namespace tonalith;
namespace field = editor::field;

constexpr double kBound = 16;

/// The main window with the large library, and its editor.
struct BenchWindows : isolated_window::IsolatedWindow {
  using IsolatedWindow::IsolatedWindow;

  editor::frmScales& OpenEditor() {
    window->cmdEdit_Click();
    bench::Settle();
    return *window->findChild<editor::frmScales*>();
  }
};

void PressKey(QWidget* target, Qt::Key key, const QString& text, Qt::KeyboardModifiers modifiers) {
  QKeyEvent override(QEvent::ShortcutOverride, key, modifiers, text);
  override.ignore();
  QCoreApplication::sendEvent(target, &override);
  QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
  QCoreApplication::sendEvent(target, &press);
  QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
  QCoreApplication::sendEvent(target, &release);
  bench::Settle();
}

using Stroke = std::function<void()>;

Stroke Key(QWidget* target, Qt::Key key, const QString& text = {}, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  return [=] { PressKey(target, key, text, modifiers); };
}

/// The delay after a key stroke; without a bound if it depends on the disk.
void ReportStrokes(const std::string& title, const std::vector<bench::Spent>& times, double painted, double bound) {
  if (bound > 0) {
    bench::ReportTimes(title, times, 0.95, bound);
  } else {
    std::printf("  %s, which waits for the disk: median %s, 95th percentile %s\n", title.c_str(),
                bench::TimeText(bench::Quantile(times, 0.5).wall).c_str(),
                bench::TimeText(bench::Quantile(times, 0.95).wall).c_str());
  }
  std::printf("  %.1f widgets painted each time\n", painted / static_cast<double>(times.size()));
}

/// Measures `stroke` a number of times; `between` runs after each and is not measured.
void Run(const std::string& title, int times, const Stroke& stroke, const Stroke& between = {}, double bound = kBound) {
  std::vector<bench::Spent> spent;
  double painted = 0;
  for (int i = 0; i < bench::Runs(times); ++i) {
    const bench::PaintCounter paints;
    spent.push_back(bench::Measure(stroke));
    painted += paints.Count();
    if (between) between();
    bench::Settle();
  }
  ReportStrokes(title, spent, painted, bound);
}

void FirstStrokes(BenchWindows& program) {
  std::vector<bench::Spent> first;
  double painted = 0;
  for (int i = 0; i < bench::Runs(10); ++i) {
    editor::frmScales& form = program.OpenEditor();
    form.cmdModify_Click();
    bench::Settle();
    QWidget* const name = form.Controls().txtFields[field::kName].box;
    name->setFocus();
    const bench::PaintCounter paints;
    first.push_back(bench::Measure(Key(name, Qt::Key_A, QStringLiteral("a"))));
    painted += paints.Count();
    form.Controls().datPrimaryRS->CancelUpdate();
    form.close();
    bench::Settle();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  ReportStrokes("editor: the first key after opening", first, painted, kBound);
}

void Typing(editor::frmScales& form) {
  const editor::ScalesControls& c = form.Controls();
  const auto focused = [](QWidget* box) {
    box->setFocus();
    return box;
  };
  QWidget* const name = focused(c.txtFields[field::kName].box);
  Run("editor: a letter in the name", 100, Key(name, Qt::Key_A, QStringLiteral("a")));
  Run("editor: Ctrl+Z", 50, Key(name, Qt::Key_Z, {}, Qt::ControlModifier));
  QWidget* const description = focused(c.txtFields[field::kDescription].box);
  Run("editor: a letter in the description", 100, Key(description, Qt::Key_A, QStringLiteral("a")));
  QWidget* const sort = focused(c.txtFields[field::kSort].box);
  Run("editor: a digit in the sort number", 9, Key(sort, Qt::Key_1, QStringLiteral("1")));
  QWidget* const pattern = focused(c.txtIntervals);
  Run("editor: a digit in the pattern", 30, Key(pattern, Qt::Key_1, QStringLiteral("1")));
  QWidget* const note = focused(c.Note(3));
  Run("editor: a note button by the space bar", 100, Key(note, Qt::Key_Space, QStringLiteral(" ")));
  c.datPrimaryRS->CancelUpdate();
}

void Walking(editor::frmScales& form) {
  const editor::ScalesControls& c = form.Controls();
  QWidget* const name = c.txtFields[field::kName].box;
  Run("editor: the next record", 100, [&] {
    c.datPrimaryRS->MoveNext();
    bench::Settle();
  });
  Run("editor: the last, then the first record", 50, [&] {
    c.datPrimaryRS->MoveLast();
    c.datPrimaryRS->MoveFirst();
    bench::Settle();
  });
  Run(
      "editor: the next record, saving what was typed", 50,
      [&] {
        c.datPrimaryRS->MoveNext();
        bench::Settle();
      },
      Key(name, Qt::Key_A, QStringLiteral("a")), 0);
  c.datPrimaryRS->CancelUpdate();
  Run("editor: Add by the space bar", 30, Key(c.cmdAdd, Qt::Key_Space, QStringLiteral(" ")),
      [&] { c.datPrimaryRS->CancelUpdate(); });
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  const bench::Folder folder;
  bench::MakeLibrary(folder.Path() / "TonalithDB97.mdb", bench::Scales(), "Scale number ");
  std::filesystem::current_path(folder.Path());
  BenchWindows program(folder.Path().string());
  bench::Settle();
  FirstStrokes(program);
  editor::frmScales& form = program.OpenEditor();
  form.cmdModify_Click();
  bench::Settle();
  Typing(form);
  Walking(form);
  form.close();
  for (const auto& message : program.box.Messages()) std::printf("The program said: %s\n", message.text.c_str());
  return program.box.Messages().empty() ? 0 : 1;
}
