// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "print/frm_print.h"

#include <QAccessible>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>

#include "core/deferred_failure.h"
#include "paint/theme.h"
#include "print/messages.h"
#include "print/print_picture_to_size.h"
#include "windows/plain_label.h"
#include "windows/screen_size.h"
#include "windows/translated.h"

namespace tonalith::print {
namespace {

using platform::Paper;
using platform::PaperOrientation;
using platform::PaperSize;
using windows::PanelButton;

/// The sum of the margins above and below a caption.
constexpr int kButtonMargins = 14;

QComboBox* MakeChoice(const char* name, const QString& accessibleName, const QStringList& entries, QWidget* parent) {
  auto* const box = new QComboBox(parent);
  box->setObjectName(QLatin1String(name));
  box->setAccessibleName(accessibleName);
  box->addItems(entries);
  return box;
}

}  // namespace

frmPrint::frmPrint(PrintOrder order, const PictureBox& page, QWidget* parent)
    : Window(QStringLiteral("frmPrint"), parent), order_(std::move(order)) {
  setWindowTitle(tr("Print"));
  MakeControls();
  picPage_ = new PictureBox(QStringLiteral("picPage"), this);
  picPage_->hide();
  picPage_->resize(page.size());
  BitBlt(picPage_->Surface(), 0, 0, page.Surface());
  LayOut();
  FinishConstruction();
  core::DeferredFailure failure;
  failure.Try([this] { cmbPaper_->setCurrentIndex(order_.printing.UsualPaperSize() == PaperSize::kLetter ? 1 : 0); });
  failure.Clear();  // A4 is the default.
  UpdatePreview();
  for (QComboBox* const choice : {cmbPaper_, cmbOrientation_}) {
    connect(choice, &QComboBox::currentIndexChanged, this, [this] {
      UpdatePreview();
      ShowPreviewMessages();
    });
  }
  connect(cmdPrint_, &QAbstractButton::clicked, this, &frmPrint::cmdPrint_Click);
  connect(cmdPdf_, &QAbstractButton::clicked, this, &frmPrint::cmdPdf_Click);
  connect(cmdCancel_, &QAbstractButton::clicked, this, &frmPrint::cmdCancel_Click);
}

frmPrint::~frmPrint() = default;

void frmPrint::MakeControls() {
  picture1_ = new PageView(QStringLiteral("Picture1"), QStringLiteral("Shape2"), this);
  cmbPaper_ = MakeChoice("cmbPaper", tr("Paper"), {tr("A4"), tr("Letter")}, this);
  lblPaper_ = windows::MakePlainLabel(QStringLiteral("lblPaper"), tr("Pa&per"), this);
  lblPaper_->setBuddy(cmbPaper_);
  cmbOrientation_ = MakeChoice("cmbOrientation", tr("Orientation"), {tr("Landscape"), tr("Portrait")}, this);
  lblOrientation_ = windows::MakePlainLabel(QStringLiteral("lblOrientation"), tr("&Orientation"), this);
  lblOrientation_->setBuddy(cmbOrientation_);
  lblStatus_ = windows::MakePlainLabel(QStringLiteral("lblStatus"), {}, this);
  lblStatus_->setWordWrap(true);
  cmdPrint_ = new PanelButton(QStringLiteral("cmdPrint"), tr("P&rint..."), PanelButton::Kind::kMainAction, this);
  cmdPdf_ = new PanelButton(QStringLiteral("cmdPdf"), tr("&Save as PDF..."), PanelButton::Kind::kOrdinary, this);
  cmdCancel_ = new PanelButton(QStringLiteral("cmdCancel"), tr("Cancel"), PanelButton::Kind::kOrdinary, this);
  cmdPrint_->setDefault(true);
}

void frmPrint::LayOut() {
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(20, 14, 20, 18);
  rows->setSpacing(12);
  rows->addWidget(picture1_, 1);
  rows->addWidget(lblStatus_);
  auto* const bottom = new QHBoxLayout;
  bottom->setSpacing(8);
  bottom->addWidget(lblPaper_);
  bottom->addWidget(cmbPaper_);
  bottom->addSpacing(10);
  bottom->addWidget(lblOrientation_);
  bottom->addWidget(cmbOrientation_);
  bottom->addSpacing(24);
  bottom->addStretch(1);
  bottom->addWidget(cmdPrint_);
  bottom->addWidget(cmdPdf_);
  bottom->addWidget(cmdCancel_);
  rows->addLayout(bottom);
  QWidget::setTabOrder(cmbPaper_, cmbOrientation_);
  QWidget::setTabOrder(cmbOrientation_, cmdPrint_);
  QWidget::setTabOrder(cmdPrint_, cmdPdf_);
  QWidget::setTabOrder(cmdPdf_, cmdCancel_);
  cmdPrint_->setFocus();
  windows::ResizeWithinScreen(*this, {760, 620});
}

void frmPrint::ApplyTheme() {
  windows::SetTextColour(*lblStatus_, paint::SecondaryText(palette()));
  for (PanelButton* const button : {cmdPrint_, cmdPdf_, cmdCancel_}) {
    button->setMinimumHeight(button->fontMetrics().height() + kButtonMargins);
  }
}

Paper frmPrint::ChosenPaper() const {
  return {cmbPaper_->currentIndex() == 1 ? PaperSize::kLetter : PaperSize::kA4,
          cmbOrientation_->currentIndex() == 1 ? PaperOrientation::kPortrait : PaperOrientation::kLandscape};
}

QString frmPrint::PaperText() const {
  return tr("%1, %2").arg(cmbPaper_->currentText(), cmbOrientation_->currentText().toLower());
}

void frmPrint::UpdatePreview() {
  core::DeferredFailure failure;
  failure.Try([this] {
    const platform::Sheet sheet = order_.printing.SheetOf(ChosenPaper());
    PreviewPrinter preview(sheet);
    PrintPictureToSize({preview, previewMessages_}, *this, *picPage_, order_.shares.size, order_.shares.vertical,
                       order_.shares.horizontal);
    picture1_->Show(sheet, preview.Painted());
  });
  const QString title = QString::fromStdString(order_.title);
  picture1_->setAccessibleName(tr("Preview of the page: %1, %2").arg(title, PaperText()));
  ShowPaper();
  failure.ReportDescription(previewMessages_);
}

void frmPrint::ShowPreviewMessages() {
  core::DeferredMessages messages = std::exchange(previewMessages_, {});
  messages.ShowAll(order_.msgBox);
}

void frmPrint::showEvent(QShowEvent* event) {
  Window::showEvent(event);
  // Querying the printers of the system may take a while, so the page is shown first.
  if (!std::exchange(isPrinterKnown_, true)) QTimer::singleShot(0, this, &frmPrint::DetectPrinter);
}

void frmPrint::DetectPrinter() {
  core::DeferredFailure failure;
  hasPrinter_ = false;
  failure.Try([this] { hasPrinter_ = order_.printing.HasPrinter(); });
  failure.Clear();  // The print dialog reports the cause.
  ShowMainAction();
  ShowPaper();
}

void frmPrint::ShowMainAction() {
  PanelButton* const main = hasPrinter_ ? cmdPrint_ : cmdPdf_;
  PanelButton* const other = hasPrinter_ ? cmdPdf_ : cmdPrint_;
  main->SetKind(PanelButton::Kind::kMainAction);
  other->SetKind(PanelButton::Kind::kOrdinary);
  main->setDefault(true);
  if (focusWidget() == other) main->setFocus();
}

void frmPrint::ShowPaper() {
  const core::Message page(MessageId::kOnePage, PaperText().toStdString());
  ShowStatus(hasPrinter_ ? page : core::Message(MessageId::kNoPrinter, page));
}

void frmPrint::ShowStatus(const core::Message& status) {
  const QString text = windows::Translated(status);
  if (lblStatus_->text() == text) return;
  lblStatus_->setText(text);
  QAccessibleEvent alert(lblStatus_, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void frmPrint::AskAndPrint(RequestPrinter ask, AfterPrinting afterwards) {
  if (std::exchange(isAsking_, true)) return;
  const QPointer<frmPrint> self(this);
  core::MsgBox& msgBox = order_.msgBox;
  core::DeferredFailure failure;
  failure.Try([&] {
    const auto printer = (order_.printing.*ask)({order_.title, ChosenPaper()});
    if (self.isNull() || printer == nullptr) return;
    order_.print(*printer);
    if (self.isNull()) return;
    if (!printer->IsEnded()) {
      ShowStatus(MessageId::kNothingPrinted);
    } else if (afterwards == AfterPrinting::kClose) {
      accept();
    } else {
      ShowStatus({MessageId::kSavedAs, printer->Destination()});
      cmdCancel_->setText(tr("Close"));
    }
  });
  if (!self.isNull()) {
    isAsking_ = false;
    // The status may still show the previous file.
    if (failure.Pending()) ShowStatus(MessageId::kNothingPrinted);
  }
  failure.ReportDescription(msgBox);
}

void frmPrint::cmdPrint_Click() { AskAndPrint(&platform::PrintService::AskForPrinter, AfterPrinting::kClose); }

void frmPrint::cmdPdf_Click() { AskAndPrint(&platform::PrintService::AskForPdfFile, AfterPrinting::kStay); }

void frmPrint::cmdCancel_Click() { reject(); }

void frmPrint::ShowModal() {
  QTimer::singleShot(0, this, &frmPrint::ShowPreviewMessages);
  exec();
}

}  // namespace tonalith::print
