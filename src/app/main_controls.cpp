// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/main_controls.h"

#include <QLineEdit>

#include "app/frm_tonalith.h"
#include "app/messages.h"
#include "paint/theme.h"
#include "windows/translated.h"

namespace tonalith::app {
namespace {

using windows::FittingLabel;
using windows::PanelButton;

/// Sets the tooltip, also as the description for assistive technology.
void Describe(QWidget* widget, const QString& tooltip) {
  widget->setToolTip(tooltip);
  widget->setAccessibleDescription(tooltip);
}

/// The y coordinate `pixels` below the neck.
int BelowNeck(const QRect& neck, int pixels) { return neck.bottom() + 1 + pixels; }

// All sizes of bold text share one font; each further size of other text makes Qt load another font while the window
// opens.
FittingLabel* MakeLabel(const char* name, const QRect& place, FittingLabel::Sizes sizes, QFont::Weight weight,
                        QWidget* client) {
  auto* const label = new FittingLabel(QLatin1String(name), sizes, weight, client);
  label->setGeometry(place);
  return label;
}

QLineEdit* MakeHiddenText(const char* name, QWidget* client) {
  auto* const text = new QLineEdit(client);
  text->setObjectName(QLatin1String(name));
  text->setReadOnly(true);
  text->hide();
  return text;
}

PanelButton* MakeButton(const char* name, const QString& caption, const QPoint& place, PanelButton::Kind kind,
                        QWidget* client) {
  auto* const button = new PanelButton(QLatin1String(name), caption, kind, client);
  button->setGeometry(QRect(place, QSize(100, 36)));
  return button;
}

void MakeScaleLabels(MainControls& c, QWidget* client) {
  c.Label1 = MakeLabel("Label1", QRect(40, 20, 664, 42), {30, 15}, QFont::Bold, client);
  Describe(c.Label1, frmTonalith::tr("The name of the scale"));
  c.lblScaleType = MakeLabel("lblScaleType", QRect(40, 64, 664, 20), {14, 11}, QFont::Bold, client);
  Describe(c.lblScaleType, frmTonalith::tr("The type of scale"));
  c.lblScaleDescription = MakeLabel("lblScaleDescription", QRect(40, 90, 664, 50), {12, 10}, QFont::Normal, client);
  Describe(c.lblScaleDescription, frmTonalith::tr("The scale description"));
}

void MakeKeyRow(MainControls& c, QWidget* client) {
  c.cmbTranspose = new KeyBox(QStringLiteral("cmbTranspose"), client);
  c.cmbTranspose->setGeometry(40, 146, 86, 30);
  c.cmbTranspose->setEditText(frmTonalith::tr("Transpose"));
  c.cmbTranspose->setAccessibleName(frmTonalith::tr("Key"));
  const QString keyTip = frmTonalith::tr("Select Starting Note To Transpose Scale. It is the Key of the scale.");
  c.cmbTranspose->setToolTip(keyTip);
  c.cmbTranspose->SetDescription(keyTip);
  c.lblTranspose = MakeLabel("lblTranspose", QRect(146, 145, 558, 20), {14, 10}, QFont::Bold, client);
  c.lblTranspose->setText(frmTonalith::tr("Step Patterns"));
  Describe(c.lblTranspose, frmTonalith::tr("The step pattern for the scale in Tones and Semi tones"));
  c.lblScaleNotes = MakeLabel("lblScaleNotes", QRect(142, 167, 562, 20), {14, 10}, QFont::Bold, client);
  c.lblScaleNotes->setText(frmTonalith::tr("Scale Notes"));
  Describe(c.lblScaleNotes, frmTonalith::tr("The notes for the scale"));
}

void MakeBottomRow(MainControls& c, core::MsgBox& msgBox, QWidget* client) {
  c.Data1 = new controls::DataControl(QStringLiteral("Data1"), frmTonalith::tr("Select Scales"), msgBox, client);
  const QRect neck = c.fretboard->DesignRect();
  const int buttons = BelowNeck(neck, 12);
  c.Data1->setGeometry(40, buttons, 330, 36);
  constexpr auto kOrdinary = PanelButton::Kind::kOrdinary;
  c.cmdEdit = MakeButton("cmdEdit", frmTonalith::tr("Editor"), {392, buttons}, kOrdinary, client);
  c.cmdUpdate = MakeButton("cmdUpdate", frmTonalith::tr("Update"), {502, buttons}, kOrdinary, client);
  c.cmdListen =
      MakeButton("cmdListen", frmTonalith::tr("Listen"), {612, buttons}, PanelButton::Kind::kMainAction, client);
  c.cmdPrint = MakeButton("cmdPrint", frmTonalith::tr("Print"), {722, buttons}, kOrdinary, client);
  c.cmdInstall = MakeButton("cmdInstall", frmTonalith::tr("Install..."), {832, buttons}, kOrdinary, client);
  c.lblStatus = MakeLabel("lblStatus", QRect(954, BelowNeck(neck, 21), 110, 18), {14, 10}, QFont::Bold, client);
  c.lblStatus->setText(windows::Translated(MessageId::kStopped));
  c.Label3 = MakeLabel("Label3", QRect(40, BelowNeck(neck, 66), 552, 16), {12, 10}, QFont::Normal, client);
  c.lblInstall = MakeLabel("lblInstall", QRect(612, BelowNeck(neck, 66), 428, 16), {12, 10}, QFont::Normal, client);
}

/// Controls that are not visible: other windows use some of them, the others exist for their names.
/// Kept: see docs/behaviour.md, Controls without use in the main window.
void MakeAuxiliaries(MainControls& c, QWidget* client) {
  for (const char* const name : {"ImageList1", "ImageList2", "CommonDialog1", "picText", "lblBlank"}) {
    (new QObject(client))->setObjectName(QLatin1String(name));
  }
  c.txtScaleID = MakeHiddenText("txtScaleID", client);
  c.txtInterval = MakeHiddenText("txtInterval", client);
  c.printPic = new print::PictureBox(QStringLiteral("printPic"), client);
  c.printPic->hide();
}

}  // namespace

int MainControls::ClientHeight(const core::Neck& neck) { return BelowNeck(views::FretboardLayout::AreaOf(neck), 92); }

MainControls MakeMainControls(QWidget* client, const core::Neck& neck, core::MsgBox& msgBox) {
  MainControls c;
  client->setFixedSize(MainControls::kClientWidth, MainControls::ClientHeight(neck));
  MakeScaleLabels(c, client);
  MakeKeyRow(c, client);
  c.staff = new views::StaffView(client);
  c.staff->setGeometry(views::StaffView::DesignRect());
  c.fretboard = new views::FretboardView(neck, msgBox, client);
  MakeBottomRow(c, msgBox, client);
  MakeAuxiliaries(c, client);
  return c;
}

void ApplyInk(const MainControls& c, const QPalette& palette) {
  c.lblScaleType->SetTextColour(paint::SiennaText(palette));
  c.lblScaleNotes->SetTextColour(paint::SiennaText(palette));
  c.lblScaleDescription->SetTextColour(paint::SecondaryText(palette));
  c.Label3->SetTextColour(paint::SecondaryText(palette));
  c.lblInstall->SetTextColour(paint::SiennaText(palette));
}

}  // namespace tonalith::app
