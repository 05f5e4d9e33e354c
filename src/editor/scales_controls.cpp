// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/scales_controls.h"

#include <QGridLayout>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

#include "core/field_limits.h"
#include "editor/frm_scales.h"
#include "editor/text_boxes.h"
#include "paint/theme.h"
#include "windows/field_panel.h"
#include "windows/plain_label.h"

namespace tonalith::editor {
namespace {

using controls::DataControl;
using controls::FieldBinding;
using windows::FieldPanel;
using windows::MakePlainLabel;
using windows::PanelButton;

struct FieldDesign {
  const char* field;
  const char* caption;
  FieldBinding::Kind kind;
  std::size_t longest;
};

constexpr auto kText = FieldBinding::Kind::kText;
constexpr auto kNumber = FieldBinding::Kind::kNumber;
/// A whole number of 64 bits with its sign.
constexpr std::size_t kLongestNumber = 20;
constexpr std::array<FieldDesign, kFieldCount> kFields = {{
    {"ScaleID", QT_TRANSLATE_NOOP("tonalith::editor::frmScales", "Scale ID:"), kNumber, kLongestNumber},
    {"ScaleName", QT_TRANSLATE_NOOP("tonalith::editor::frmScales", "Scale Name:"), kText, core::kLongestName},
    {"ScaleDescription", QT_TRANSLATE_NOOP("tonalith::editor::frmScales", "Scale Description:"), kText,
     core::kLongestDescription},
    {"ScaleTypeID", QT_TRANSLATE_NOOP("tonalith::editor::frmScales", "Scale Type ID:"), kNumber, kLongestNumber},
    {"ScaleIntervals", QT_TRANSLATE_NOOP("tonalith::editor::frmScales", "Scale Intervals:"), kText,
     core::kLongestPattern},
    {"StartNote", QT_TRANSLATE_NOOP("tonalith::editor::frmScales", "Start Note:"), kText, core::kLongestStartNote},
    {"Chord", QT_TRANSLATE_NOOP("tonalith::editor::frmScales", "Chord:"), kNumber, kLongestNumber},
    {"Sort", QT_TRANSLATE_NOOP("tonalith::editor::frmScales", "Sort Order Number:"), kNumber, kLongestNumber},
}};

/// The accessible name of a control: its label without the colon.
QString AccessibleName(const QString& caption) { return caption.chopped(caption.endsWith(QLatin1Char(':')) ? 1 : 0); }

LineBox* MakeLine(const QString& name, const QString& caption, QWidget* form) {
  auto* const line = new LineBox(name, form);
  line->setAccessibleName(AccessibleName(caption));
  return line;
}

TextBox* MakeMultiLine(const QString& name, const QString& caption, int longest, QWidget* form) {
  // As many as the longest description that ships needs.
  constexpr int kLines = 4;
  auto* const text = new TextBox(name, kLines, longest, form);
  text->setAccessibleName(AccessibleName(caption));
  return text;
}

void MakeField(ScalesControls& c, int index, QWidget* form, core::MsgBox& msgBox) {
  const FieldDesign& design = kFields.at(static_cast<std::size_t>(index));
  const QString caption = frmScales::tr(design.caption);
  const QString name = QStringLiteral("txtFields(%1)").arg(index);
  TextField& field = c.txtFields.at(static_cast<std::size_t>(index));
  const auto longest = static_cast<int>(design.longest);
  if (index == field::kDescription) {
    auto* const box = MakeMultiLine(name, caption, longest, form);
    field = {box, new FieldBinding(*c.datPrimaryRS, design.field, design.kind, msgBox, box), longest};
  } else {
    auto* const box = MakeLine(name, caption, form);
    box->setMaxLength(longest);
    field = {box, new FieldBinding(*c.datPrimaryRS, design.field, design.kind, msgBox, box), longest};
  }
  field.binding->SetLongestShown(longest);
}

void MakeChordBox(ScalesControls& c, QWidget* form) {
  c.chkFields = new QCheckBox(form);
  c.chkFields->setObjectName(QStringLiteral("chkFields(6)"));
  c.chkFields->setAccessibleName(AccessibleName(frmScales::tr(kFields[field::kChord].caption)));
  c.datPrimaryRS->Bind("Chord", [box = c.chkFields](const core::Value& value) {
    const std::string text = value.TextOr("0");
    box->setChecked(text != "0" && !text.empty());
  });
  QObject::connect(c.chkFields, &QCheckBox::clicked, c.datPrimaryRS, [data = c.datPrimaryRS](bool checked) {
    if (data->HasRecord()) data->SetFieldValue("Chord", core::Value::YesNo(checked));
  });
}

// Kept: see docs/behaviour.md, No text box has the index 6
void MakeFields(ScalesControls& c, QWidget* form, core::MsgBox& msgBox) {
  for (int i = 0; i < kFieldCount; ++i) {
    const auto at = static_cast<std::size_t>(i);
    c.lblLabels.at(at) =
        MakePlainLabel(QStringLiteral("lblLabels(%1)").arg(i), frmScales::tr(kFields.at(at).caption), form);
    if (i == field::kChord) {
      MakeChordBox(c, form);
    } else {
      MakeField(c, i, form, msgBox);
      c.lblLabels.at(at)->setBuddy(c.txtFields.at(at).box);
    }
  }
  c.lblLabels[field::kChord]->setBuddy(c.chkFields);
  c.lblLabels[field::kChord]->hide();
  static_cast<QLineEdit*>(c.txtFields[field::kScaleId].box)->setPlaceholderText(frmScales::tr("new"));
}

// Kept: see docs/behaviour.md, No text box has the index 6
void MakeUnboundControls(ScalesControls& c, QWidget* form) {
  const QString type = frmScales::tr("Scale Type:");
  c.txtScaleType = MakeLine(QStringLiteral("txtScaleType"), type, form);
  c.txtScaleType->setReadOnly(true);
  c.datPrimaryRS->Bind("ScaleTypeName", [box = c.txtScaleType](const core::Value& value) {
    box->setText(QString::fromStdString(value.TextOr({})).left(core::kLongestTypeName));
  });
  c.Combo1 = new TypeBox(QStringLiteral("Combo1"), form);
  c.Combo1->setAccessibleName(AccessibleName(type));
  c.txtIntervals = MakeLine(QStringLiteral("txtIntervals"), frmScales::tr(kFields[field::kIntervals].caption), form);
  c.txtIntervals->setValidator(
      new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), c.txtIntervals));
  c.txtIntervals->setMaxLength(static_cast<int>(core::kMostPatternDigits));
  c.lblLabels[field::kIntervals]->setBuddy(c.txtIntervals);
  c.txtScaleIntervalTones = MakeLine(QStringLiteral("txtScaleIntervalTones"), frmScales::tr("Scale Steps:"), form);
  c.txtScaleIntervalTones->setReadOnly(true);
  c.txtNotesToUse = MakeLine(QStringLiteral("txtNotesToUse"), frmScales::tr("Notes To Use:"), form);
  c.txtNotesToUse->hide();
  // A long notice uses a smaller font; it never makes the form wider.
  c.lblNotice = new windows::FittingLabel(QStringLiteral("lblNotice"), {13, 9}, QFont::Normal, form);
  c.lblNotice->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  c.lblNotice->setFixedHeight(20);
}

PanelButton* MakeButton(const char* name, const QString& caption, PanelButton::Kind kind, QWidget* parent) {
  auto* const button = new PanelButton(QLatin1String(name), caption, kind, parent);
  // Enter presses the button that has the focus.
  button->setAutoDefault(true);
  return button;
}

void MakeButtons(ScalesControls& c, QWidget* form) {
  constexpr auto kOrdinary = PanelButton::Kind::kOrdinary;
  c.cmdModify = MakeButton("cmdModify", frmScales::tr("Modify"), kOrdinary, form);
  c.cmdApply = MakeButton("cmdApply", frmScales::tr("Apply"), PanelButton::Kind::kMainAction, form);
  c.picButtons = new QWidget(form);
  c.picButtons->setObjectName(QStringLiteral("picButtons"));
  auto* const row = new QHBoxLayout(c.picButtons);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(10);
  const auto add = [&](const char* name, const QString& caption) {
    auto* const button = MakeButton(name, caption, kOrdinary, c.picButtons);
    row->addWidget(button, 1);
    return button;
  };
  c.cmdAdd = add("cmdAdd", frmScales::tr("&Add"));
  c.cmdUpdate = add("cmdUpdate", frmScales::tr("&Update"));
  c.cmdDelete = add("cmdDelete", frmScales::tr("&Delete"));
  c.cmdRefresh = add("cmdRefresh", frmScales::tr("&Refresh"));
  c.cmdClose = add("cmdClose", frmScales::tr("&Close"));
  QSizePolicy keepsItsPlace = c.picButtons->sizePolicy();
  keepsItsPlace.setRetainSizeWhenHidden(true);
  c.picButtons->setSizePolicy(keepsItsPlace);
}

QGridLayout* MakeGrid() {
  auto* const grid = new QGridLayout;
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(8);
  grid->setColumnStretch(1, 1);
  return grid;
}

QHBoxLayout* MakeTopRow(const ScalesControls& c) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(10);
  c.datPrimaryRS->setFixedHeight(36);
  row->addWidget(c.datPrimaryRS, 1);
  row->addSpacing(10);
  row->addWidget(c.cmdModify);
  row->addWidget(c.cmdApply);
  return row;
}

QGridLayout* LayOutName(const ScalesControls& c, QWidget* form, int narrow) {
  auto* const grid = MakeGrid();
  const auto panel = [form](QWidget* box) { return new FieldPanel(box, form); };
  auto* const lblScaleType = MakePlainLabel(QStringLiteral("lblScaleType"), frmScales::tr("Scale Type:"), form);
  lblScaleType->setBuddy(c.Combo1);
  for (const int index : {field::kScaleId, field::kScaleTypeId}) {
    c.txtFields.at(static_cast<std::size_t>(index)).box->setFixedWidth(narrow);
  }
  grid->addWidget(c.lblLabels[field::kName], 0, 0);
  grid->addWidget(panel(c.txtFields[field::kName].box), 0, 1);
  grid->addWidget(c.lblLabels[field::kScaleId], 0, 2);
  grid->addWidget(panel(c.txtFields[field::kScaleId].box), 0, 3);
  grid->addWidget(lblScaleType, 1, 0);
  grid->addWidget(panel(c.txtScaleType), 1, 1);
  grid->addWidget(c.Combo1, 1, 1);
  c.Combo1->setFixedHeight(c.txtScaleType->sizeHint().height() + 10);
  grid->addWidget(c.lblLabels[field::kScaleTypeId], 1, 2);
  grid->addWidget(panel(c.txtFields[field::kScaleTypeId].box), 1, 3);
  return grid;
}

QGridLayout* LayOutPattern(const ScalesControls& c, QWidget* form) {
  auto* const grid = MakeGrid();
  grid->setColumnStretch(1, 0);
  grid->setColumnStretch(3, 1);
  c.txtIntervals->setFixedWidth(form->fontMetrics().horizontalAdvance(QStringLiteral("00000000000000")));
  auto* const lblSteps = MakePlainLabel(QStringLiteral("lblSteps"), frmScales::tr("Scale Steps:"), form);
  lblSteps->setBuddy(c.txtScaleIntervalTones);
  grid->addWidget(c.lblLabels[field::kIntervals], 0, 0);
  grid->addWidget(new FieldPanel(c.txtIntervals, form), 0, 1);
  grid->addWidget(lblSteps, 0, 2);
  grid->addWidget(new FieldPanel(c.txtScaleIntervalTones, form), 0, 3);
  grid->addWidget(c.lblNotice, 1, 0, 1, 4);
  return grid;
}

QGridLayout* LayOutDetails(const ScalesControls& c, QWidget* form, int narrow) {
  auto* const grid = MakeGrid();
  grid->addWidget(c.lblLabels[field::kDescription], 0, 0, Qt::AlignTop);
  grid->addWidget(new FieldPanel(c.txtFields[field::kDescription].box, form), 0, 1, 1, 4);
  grid->addWidget(c.lblLabels[field::kStartNote], 1, 0);
  c.txtFields[field::kStartNote].box->setFixedWidth(narrow);
  grid->addWidget(new FieldPanel(c.txtFields[field::kStartNote].box, form), 1, 1, Qt::AlignLeft);
  grid->addWidget(c.lblLabels[field::kSort], 1, 3);
  c.txtFields[field::kSort].box->setFixedWidth(narrow);
  grid->addWidget(new FieldPanel(c.txtFields[field::kSort].box, form), 1, 4);
  return grid;
}

/// Makes the labels of the three grids equally wide, so that their boxes are aligned.
void AlignFirstColumn(const ScalesControls& c) {
  constexpr std::array kFirst = {field::kName, field::kIntervals, field::kDescription, field::kStartNote};
  int widest = 0;
  const auto label = [&c](int index) { return c.lblLabels.at(static_cast<std::size_t>(index)); };
  for (const int index : kFirst) widest = qMax(widest, label(index)->sizeHint().width());
  for (const int index : kFirst) label(index)->setMinimumWidth(widest);
}

void SetTabOrder(const ScalesControls& c) {
  std::vector<QWidget*> order;
  for (QWidget* const arrow : c.datPrimaryRS->findChildren<QWidget*>()) {
    if (arrow->focusPolicy() != Qt::NoFocus) order.push_back(arrow);
  }
  const auto box = [&c](int index) { return c.txtFields.at(static_cast<std::size_t>(index)).box; };
  order.insert(order.end(), {box(field::kName), box(field::kScaleId), c.txtScaleType, c.Combo1});
  order.push_back(box(field::kScaleTypeId));
  for (NoteButton* const note : c.keyboard->Notes()) order.push_back(note);
  order.insert(order.end(),
               {c.txtIntervals, c.txtScaleIntervalTones, box(field::kDescription), box(field::kStartNote)});
  order.insert(order.end(), {box(field::kSort), c.cmdModify, c.cmdApply});
  order.insert(order.end(), {c.cmdAdd, c.cmdUpdate, c.cmdDelete, c.cmdRefresh, c.cmdClose});
  for (std::size_t i = 1; i < order.size(); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
}

}  // namespace

ScalesControls MakeScalesControls(QWidget* form, core::MsgBox& msgBox) {
  ScalesControls c;
  c.datPrimaryRS = new DataControl(QStringLiteral("datPrimaryRS"), frmScales::tr("Scales"), msgBox, form);
  c.keyboard = new NoteKeyboard(form);
  MakeFields(c, form, msgBox);
  MakeUnboundControls(c, form);
  MakeButtons(c, form);
  const int narrow = form->fontMetrics().horizontalAdvance(QStringLiteral("00000000"));
  auto* const rows = new QVBoxLayout(form);
  rows->setContentsMargins(28, 22, 28, 22);
  rows->setSpacing(14);
  rows->addLayout(MakeTopRow(c));
  rows->addLayout(LayOutName(c, form, narrow));
  rows->addWidget(c.keyboard, 0, Qt::AlignHCenter);
  rows->addLayout(LayOutPattern(c, form));
  rows->addLayout(LayOutDetails(c, form, narrow));
  rows->addWidget(c.picButtons);
  rows->setSizeConstraint(QLayout::SetFixedSize);
  AlignFirstColumn(c);
  SetTabOrder(c);
  return c;
}

void EnableFields(const ScalesControls& c, bool isModifying) {
  const bool hasRecord = c.datPrimaryRS->HasRecord();
  const bool canType = isModifying && hasRecord;
  for (int i = 1; i < kFieldCount; ++i) {
    if (i != field::kChord) c.txtFields.at(static_cast<std::size_t>(i)).box->setEnabled(canType);
  }
  c.Combo1->setEnabled(canType);
  c.txtIntervals->setReadOnly(!canType);
  c.cmdDelete->setEnabled(hasRecord);
}

void ShowControls(const ScalesControls& c, bool isModifying) {
  c.txtFields[field::kScaleId].box->setEnabled(false);
  // Kept: see docs/behaviour.md, No text box has the index 6
  c.chkFields->hide();
  c.txtFields[field::kIntervals].box->hide();
  c.txtScaleType->setVisible(!isModifying);
  c.Combo1->setVisible(isModifying);
  c.cmdApply->setEnabled(isModifying);
  c.picButtons->setVisible(isModifying);
  c.picButtons->setEnabled(isModifying);
}

void ApplyInk(const ScalesControls& c, const QPalette& palette) {
  QPalette boxes = palette;
  // The panel around a box paints its background, which shows whether the box can be edited; the text colour is the
  // same.
  boxes.setColor(QPalette::Base, Qt::transparent);
  boxes.setColor(QPalette::Disabled, QPalette::Text, palette.color(QPalette::Active, QPalette::Text));
  boxes.setColor(QPalette::PlaceholderText, paint::SecondaryText(palette));
  for (const TextField& field : c.txtFields) {
    if (field.box != nullptr) field.box->setPalette(boxes);
  }
  for (QLineEdit* const line : {c.txtScaleType, c.txtIntervals, c.txtScaleIntervalTones}) line->setPalette(boxes);
  c.lblNotice->SetTextColour(paint::SiennaText(palette));
}

}  // namespace tonalith::editor
