// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Key strokes in the scale editor over the whole program's window on 100,000 scales: from the key event to the end of
// the painting that it causes, as the 95th percentile of many.

#include <QApplication>
#include <QKeyEvent>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "editor/frm_scales.h"
#include "measuring.h"
#include "unplugged/unplugged_window.h"

namespace {

using namespace tonalith;
namespace field = editor::field;

constexpr int kScales = 100'000;
constexpr double kBound = 16;

/// Counts what is painted, so that a stroke which shows nothing is seen.
class PaintCounter : public QObject {
 public:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count;
    return false;
  }
  int count = 0;
};
PaintCounter paints;

/// The main window on the large library, and its editor.
struct Desk : unplugged::UnpluggedWindow {
  using UnpluggedWindow::UnpluggedWindow;

  editor::frmScales& OpenEditor() {
    window->cmdEdit_Click();
    Settle();
    return *window->findChild<editor::frmScales*>();
  }
  /// Handles all that is waiting and paints at once what would be painted with the screen's next frame.
  static void Settle() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    for (QWidget* const shown : QApplication::topLevelWidgets()) {
      QEvent update(QEvent::UpdateRequest);
      if (shown->isVisible()) QCoreApplication::sendEvent(shown, &update);
    }
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
  Desk::Settle();
}

using Stroke = std::function<void()>;

Stroke Key(QWidget* target, Qt::Key key, const QString& text = {}, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  return [=] { PressKey(target, key, text, modifiers); };
}

bool isWithinBound = true;

void Print(const char* title, const std::vector<bench::Spent>& times, double bound, int painted) {
  const bench::Spent median = bench::Quantile(times, 0.5);
  const bench::Spent late = bench::Quantile(times, 0.95);
  const bench::Spent longest = bench::Quantile(times, 1);
  const auto strokes = static_cast<int>(times.size());
  std::printf("%-36s %8.2f %8.2f %8.2f %8.2f %8.2f %8d %8.1f", title, median.wall, late.wall, longest.wall, median.cpu,
              late.cpu, strokes, static_cast<double>(painted) / strokes);
  std::printf(bound > 0 ? "   bound %.0f\n" : "   waits for the disk\n", bound);
  isWithinBound = isWithinBound && (bound == 0 || late.cpu < bound);
}

/// `stroke` a number of times, and `between` after each, which is not measured.
void Run(const char* title, int times, const Stroke& stroke, const Stroke& between = {}, double bound = kBound) {
  std::vector<bench::Spent> spent;
  int painted = 0;
  for (int i = 0; i < times; ++i) {
    const int before = paints.count;
    spent.push_back(bench::Measure(stroke));
    painted += paints.count - before;
    if (between) between();
    Desk::Settle();
  }
  Print(title, spent, bound, painted);
}

void FirstStrokes(Desk& desk) {
  std::vector<bench::Spent> first;
  int painted = 0;
  for (int i = 0; i < 10; ++i) {
    editor::frmScales& form = desk.OpenEditor();
    form.cmdModify_Click();
    Desk::Settle();
    QWidget* const name = form.Controls().txtFields[field::kName].box;
    name->setFocus();
    const int before = paints.count;
    first.push_back(bench::Measure(Key(name, Qt::Key_A, QStringLiteral("a"))));
    painted += paints.count - before;
    form.Controls().datPrimaryRS->CancelUpdate();
    form.close();
    Desk::Settle();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  Print("first key after opening and Modify", first, kBound, painted);
}

void Typing(editor::frmScales& form) {
  const editor::ScalesControls& c = form.Controls();
  const auto focused = [](QWidget* box) {
    box->setFocus();
    return box;
  };
  QWidget* const name = focused(c.txtFields[field::kName].box);
  Run("a letter in the name", 100, Key(name, Qt::Key_A, QStringLiteral("a")));
  Run("Ctrl+Z", 50, Key(name, Qt::Key_Z, {}, Qt::ControlModifier));
  QWidget* const description = focused(c.txtFields[field::kDescription].box);
  Run("a letter in the description", 100, Key(description, Qt::Key_A, QStringLiteral("a")));
  QWidget* const sort = focused(c.txtFields[field::kSort].box);
  Run("a digit in the sort number", 9, Key(sort, Qt::Key_1, QStringLiteral("1")));
  QWidget* const pattern = focused(c.txtIntervals);
  Run("a digit in the pattern", 30, Key(pattern, Qt::Key_1, QStringLiteral("1")));
  QWidget* const note = focused(c.Note(3));
  Run("a note button by the space bar", 100, Key(note, Qt::Key_Space, QStringLiteral(" ")));
  c.datPrimaryRS->CancelUpdate();
}

void Walking(editor::frmScales& form) {
  const editor::ScalesControls& c = form.Controls();
  QWidget* const name = c.txtFields[field::kName].box;
  Run("Next record", 100, [&] {
    c.datPrimaryRS->MoveNext();
    Desk::Settle();
  });
  Run("Last, then first record", 50, [&] {
    c.datPrimaryRS->MoveLast();
    c.datPrimaryRS->MoveFirst();
    Desk::Settle();
  });
  Run(
      "Next record, saving what was typed", 50,
      [&] {
        c.datPrimaryRS->MoveNext();
        Desk::Settle();
      },
      Key(name, Qt::Key_A, QStringLiteral("a")), 0);
  c.datPrimaryRS->CancelUpdate();
  Run("Add by the space bar", 30, Key(c.cmdAdd, Qt::Key_Space, QStringLiteral(" ")),
      [&] { c.datPrimaryRS->CancelUpdate(); });
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  const bench::Folder folder;
  bench::MakeLibrary(folder.Path() / "TonalithDB97.mdb", kScales, "Scale number ");
  std::filesystem::current_path(folder.Path());
  Desk desk(folder.Path().string());
  Desk::Settle();
  QApplication::instance()->installEventFilter(&paints);
  std::printf("%-36s %26s %17s\n", "milliseconds on 100,000 scales", "wall", "processor");
  std::printf("%-36s %8s %8s %8s %8s %8s %8s %8s\n", "a key stroke", "median", "95 %", "longest", "median", "95 %",
              "strokes", "paintings");
  FirstStrokes(desk);
  editor::frmScales& form = desk.OpenEditor();
  form.cmdModify_Click();
  Desk::Settle();
  Typing(form);
  Walking(form);
  form.close();
  for (const auto& message : desk.box.Messages()) std::printf("The program said: %s\n", message.text.c_str());
  return isWithinBound && desk.box.Messages().empty() ? 0 : 1;
}
