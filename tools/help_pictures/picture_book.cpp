// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help_pictures/picture_book.h"

#include <QApplication>
#include <QLineEdit>
#include <QPixmap>
#include <QTimer>
#include <fstream>
#include <initializer_list>
#include <sstream>
#include <stdexcept>

#include "editor/frm_scales.h"
#include "print/frm_print.h"
#include "search/data_control_scales.h"
#include "search/frm_search.h"

namespace tonalith::help_pictures {
namespace {

namespace fs = std::filesystem;

constexpr int kMargin = 10;

/// A screenshot of a complete widget.
QImage PictureOf(QWidget& widget) {
  // Pending events finish the layout.
  QApplication::processEvents();
  return widget.grab().toImage();
}

/// A screenshot of the part of a window that contains these widgets, with a margin.
QImage PartOf(QWidget& window, std::initializer_list<const QWidget*> parts, int margin = kMargin) {
  QApplication::processEvents();
  QRect place;
  for (const QWidget* const part : parts) place |= QRect(part->mapTo(&window, QPoint(0, 0)), part->size());
  return window.grab(place.adjusted(-margin, -margin, margin, margin).intersected(window.rect())).toImage();
}

/// An editor host that ignores all calls.
class NullEditorHost : public editor::ScaleEditorHost {
  void EditUpdates() override {}
  void BringToFront() override {}
};

}  // namespace

PictureBook::PictureBook(const fs::path& database) {
  const fs::path folder(folder_.path().toStdString());
  fs::copy_file(database, folder / data::kDatabaseFileName);
  program_ = std::make_unique<isolated_window::IsolatedWindow>(folder.string());
}

PictureBook::~PictureBook() = default;

void PictureBook::Write(const fs::path& table, const fs::path& folder) {
  fs::create_directories(folder);
  std::ifstream lines(table);
  if (!lines) throw std::runtime_error("cannot read " + table.string());
  std::string line;
  while (std::getline(lines, line)) {
    if (line.empty() || line.front() == '#') continue;
    std::istringstream fields(line);
    std::string name;
    int width = 0;
    if (!(fields >> name >> width)) throw std::runtime_error("no name and width: " + line);
    const std::string file = (folder / (name + ".png")).string();
    QImage picture = Picture(name);
    picture.setDevicePixelRatio(1);
    picture = picture.scaledToWidth(2 * width, Qt::SmoothTransformation).convertToFormat(QImage::Format_RGB888);
    if (!picture.save(QString::fromStdString(file), "PNG")) throw std::runtime_error("cannot write " + file);
  }
  if (!program_->box.Messages().empty())
    throw std::runtime_error("a window says: " + program_->box.Messages().front().text);
}

QImage PictureBook::Picture(const std::string& name) {
  const app::MainControls& c = program_->window->Controls();
  if (name == "main-window") return PictureOf(*program_->window);
  if (name == "neck") return PartOf(*program_->window, {c.fretboard}, 0);
  if (name == "staff") return PartOf(*program_->window, {c.staff}, 0);
  if (name == "steps")
    return PartOf(*program_->window, {c.Label1, c.lblScaleDescription, c.cmbTranspose, c.lblScaleNotes}, 0);
  if (name == "arrows") return PartOf(*program_->window, {c.Data1});
  if (name == "key-box") return PartOf(*program_->window, {c.cmbTranspose});
  if (name == "editor") return Editor(EditorPart::kAll);
  if (name == "editor-buttons") return Editor(EditorPart::kNoteButtons);
  if (name == "search") return Search();
  if (name == "print-preview") return PrintPreview();
  throw std::runtime_error("there is no picture " + name);
}

QImage PictureBook::Editor(EditorPart part) {
  NullEditorHost host;
  windows::OpenOnce<editor::frmScales> editor;
  editor::ShowScaleEditor(editor, {program_->database, program_->box, host, std::nullopt}, nullptr);
  editor::frmScales& form = *editor.Window();
  return part == EditorPart::kAll ? PictureOf(form) : PartOf(form, {form.Controls().keyboard});
}

QImage PictureBook::Search() {
  search::frmSearch form(std::make_unique<search::DataControlScales>(*program_->window->Controls().Data1),
                         program_->box, nullptr);
  form.findChild<QLineEdit*>(QStringLiteral("txtSearch"))->setText(QStringLiteral("*minor*"));
  form.show();
  return PictureOf(form);
}

QImage PictureBook::PrintPreview() {
  app::frmTonalith& window = *program_->window;
  QImage picture;
  // The preview is modal: capture and close it from its event loop, as soon as it is visible.
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, [&] {
    auto* const preview = window.findChild<print::frmPrint*>();
    if (preview == nullptr || !preview->isVisible()) return;
    look.stop();
    picture = PictureOf(*preview);
    preview->cmdCancel_Click();
  });
  look.start(1);
  window.cmdPrint_Click();
  if (picture.isNull()) throw std::runtime_error("the print preview was not shown");
  return picture;
}

}  // namespace tonalith::help_pictures
