// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "stress/main_window_rules.h"

#include <QLineEdit>

#include "app/frm_tonalith.h"
#include "paint/music_font.h"
#include "stress/finding.h"
#include "stress/music.h"

namespace tonalith::stress {
namespace {

using app::MainControls;

void RequireText(const std::string& control, const QString& shown, const std::string& wanted) {
  Require(shown == QString::fromStdString(wanted), control + " shows something else",
          "'" + shown.toStdString() + "' instead of '" + wanted + "'");
}

void CheckCommands(const app::frmTonalith& form, bool hasRecord) {
  const MainControls& c = form.Controls();
  const app::MainMenu& m = form.Menu();
  Require(c.cmdListen->isEnabled() == hasRecord && c.cmdPrint->isEnabled() == hasRecord,
          "Listen and Print are there exactly with a record", hasRecord ? "off" : "on");
  Require(m.Entry("mListen")->isEnabled() == hasRecord && m.Entry("mPrint")->isEnabled() == hasRecord,
          "the menu's Listen and Print are there exactly with a record", hasRecord ? "off" : "on");
  Require(c.cmdInstall->isEnabled() == m.Entry("mInstall")->isEnabled(), "Install and its menu entry go together", "");
  for (const QWidget* const control : std::initializer_list<QWidget*>{c.cmdUpdate, c.cmdPrint, c.cmdEdit, c.cmdListen,
                                                                      c.cmdInstall, c.lblStatus, c.Data1}) {
    Require(!control->isHidden() && control->isEnabledTo(control->parentWidget()) == control->isEnabled(),
            "a control of the main window is away", control->objectName().toStdString());
  }
  Require(c.printPic->isHidden(), "the print picture is seen", "");
  for (const QWidget* const control : {static_cast<QWidget*>(c.cmdEdit), static_cast<QWidget*>(c.cmdUpdate)}) {
    Require(control->isEnabled(), "Editor and Update are always there", control->objectName().toStdString());
  }
}

/// One character per image: '.' for hidden, 'K' for the key note, 'o' for another note.
std::string NeckOf(const views::FretboardView& neck) {
  std::string shown;
  for (int i = 0; i < 96; ++i) {
    const views::NoteImage& image = neck.Image(i);
    shown += image.isHidden() ? '.' : image.Picture() == views::NotePicture::kKeyNote ? 'K' : 'o';
  }
  return shown;
}

void CheckNeck(const app::frmTonalith& form, const Cell& pattern, const Key& key) {
  const views::FretboardView& neck = *form.Controls().fretboard;
  const std::string wanted = HighlightedNeck(pattern, key);
  const std::string shown = NeckOf(neck);
  Require(shown == wanted, "the neck shows other notes", shown + " instead of " + wanted);
  for (int i = 0; i < 96; ++i) {
    if (shown[static_cast<std::size_t>(i)] == '.') continue;
    Require(neck.Image(i).NameDrawn() == form.NamesAreShown(), "the names on the neck are as they were chosen",
            "img" + std::to_string(i));
  }
}

int Printed(const paint::RecordingSurface& drawing, char glyph) {
  int count = 0;
  for (const paint::DrawCommand& command : drawing.Commands()) {
    const auto* const print = std::get_if<paint::PrintCommand>(&command);
    if (print != nullptr && print->text.find(glyph) != std::string::npos) ++count;
  }
  return count;
}

void CheckStaff(const MainControls& c, const Cell& pattern, const Key& key) {
  const auto names = StaffNames(pattern, key);
  std::string label;
  int sharps = 0;
  for (const std::string& name : names.value_or(std::vector<std::string>())) {
    label += " " + name;
    if (name.size() > 1) ++sharps;
  }
  RequireText("the list of notes", c.lblScaleNotes->text(), names ? label : "Scale Notes");
  const paint::RecordingSurface& drawing = c.staff->Drawing();
  const int notes = Printed(drawing, paint::kWholeNote);
  const int wanted = names ? static_cast<int>(names->size()) : 0;
  Require(notes == wanted, "the staff has another number of notes",
          std::to_string(notes) + " instead of " + std::to_string(wanted));
  Require(Printed(drawing, paint::kSharp) == sharps, "the staff has another number of sharps",
          std::to_string(Printed(drawing, paint::kSharp)) + " instead of " + std::to_string(sharps));
}

void CheckEmpty(const MainControls& c) {
  RequireText("the name without a record", c.Label1->text(), "");
  RequireText("the number without a record", c.txtScaleID->text(), "");
  Require(NeckOf(*c.fretboard) == std::string(96, '.'), "the neck is lit without a record", NeckOf(*c.fretboard));
  RequireText("the step line without a record", c.lblTranspose->text(), "Scale Steps: ");
}

}  // namespace

void CheckMainWindow(const app::frmTonalith& form, const Library& library) {
  const MainControls& c = form.Controls();
  const bool hasRecord = c.Data1->HasRecord();
  if (!form.Controls().cmdInstall->isEnabled()) return;
  CheckCommands(form, hasRecord);
  if (!hasRecord) return CheckEmpty(c);
  const auto found = library.scales.find(c.txtScaleID->text().toLongLong());
  Require(found != library.scales.end(), "the window shows a record that is not in the library",
          c.txtScaleID->text().toStdString() + " '" + c.Label1->text().toStdString() + "'");
  const Scale& scale = found->second;
  const auto textOf = [](const Cell& cell) { return cell.value_or(std::string()); };
  RequireText("the name", c.Label1->text(), textOf(scale[column::kName]));
  RequireText("the description", c.lblScaleDescription->text(), textOf(scale[column::kDescription]));
  RequireText("the pattern", c.txtInterval->text(), textOf(scale[column::kIntervals]));
  const auto type = library.types.find(std::stoll(scale[column::kTypeId].value_or("0")));
  Require(type != library.types.end(), "the record has no type", c.Label1->text().toStdString());
  RequireText("the type", c.lblScaleType->text(), textOf(type->second));
  const Key key = KeyOf(c.cmbTranspose->currentText().toStdString());
  RequireText("the step line", c.lblTranspose->text(), "Scale Steps: " + Steps(textOf(scale[column::kIntervals])));
  CheckNeck(form, scale[column::kIntervals], key);
  // Without a name the staff shows the major scale.
  if (!textOf(scale[column::kName]).empty()) CheckStaff(c, scale[column::kIntervals], key);
}

}  // namespace tonalith::stress
