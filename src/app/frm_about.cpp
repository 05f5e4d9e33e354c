// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/frm_about.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QTextEdit>
#include <QVBoxLayout>

#include "app/program_icon.h"
#include "app/third_party_licences.h"
#include "paint/theme.h"
#include "windows/field_panel.h"
#include "windows/plain_label.h"

namespace tonalith::app {
namespace {

using windows::FieldPanel;
using windows::MakePlainLabel;
using windows::PanelButton;
using windows::SetTextColour;

constexpr int kIconSide = 64;
constexpr int kTextWidth = 580;
constexpr int kNoticeLines = 14;

class IconPicture : public QWidget {
 public:
  explicit IconPicture(QWidget* parent) : QWidget(parent) { setFixedSize(kIconSide, kIconSide); }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    PaintProgramIcon(painter, kIconSide);
  }
};

}  // namespace

frmAbout::frmAbout(const std::string& appFolder, QWidget* owner) : Window(QStringLiteral("frmAbout"), owner) {
  setWindowTitle(tr("About Tonalith"));
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowModality(Qt::WindowModal);
  MakeControls(QString::fromStdString(appFolder));
  LayOut();
  FinishConstruction();
  connect(cmdClose_, &QAbstractButton::clicked, this, &frmAbout::cmdClose_Click);
}

void frmAbout::MakeControls(const QString& appFolder) {
  picIcon_ = new IconPicture(this);
  picIcon_->setObjectName(QStringLiteral("picIcon"));
  lblName_ = MakePlainLabel(QStringLiteral("lblName"), QStringLiteral("Tonalith"), this);
  lblVersion_ =
      MakePlainLabel(QStringLiteral("lblVersion"), tr("Version %1").arg(QStringLiteral(TONALITH_VERSION)), this);
  lblVersion_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  lblPurpose_ = MakePlainLabel(QStringLiteral("lblPurpose"),
                               tr("Shows scales and chords on the guitar neck and on the staff, in any key."), this);
  lblLicence_ = MakePlainLabel(QStringLiteral("lblLicence"),
                               tr("The program is free software under the MIT licence. What comes with it (scales, "
                                  "sounds, pictures, help) is in the public domain, under CC0 1.0."),
                               this);
  for (QLabel* const label : {lblPurpose_, lblLicence_}) label->setWordWrap(true);
  txtFolder_ = new QLineEdit(appFolder, this);
  txtFolder_->setObjectName(QStringLiteral("txtFolder"));
  txtFolder_->setFrame(false);
  txtFolder_->setReadOnly(true);
  txtFolder_->setCursorPosition(0);
  txtFolder_->setAccessibleName(tr("Folder of your scales, packs and sounds"));
  lblFolder_ = MakePlainLabel(QStringLiteral("lblFolder"), tr("&Folder of your scales, packs and sounds:"), this);
  lblFolder_->setBuddy(txtFolder_);
  txtNotices_ = new QTextEdit(this);
  txtNotices_->setObjectName(QStringLiteral("txtNotices"));
  txtNotices_->setFrameShape(QFrame::NoFrame);
  txtNotices_->setTabChangesFocus(true);
  txtNotices_->setReadOnly(true);
  txtNotices_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  txtNotices_->setAccessibleName(tr("Third-party notices"));
  lblNotices_ = MakePlainLabel(QStringLiteral("lblNotices"), tr("Third-party &notices:"), this);
  lblNotices_->setBuddy(txtNotices_);
  cmdClose_ = new PanelButton(QStringLiteral("cmdClose"), tr("&Close"), PanelButton::Kind::kOrdinary, this);
  cmdClose_->setDefault(true);
}

void frmAbout::LayOut() {
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(28, 24, 28, 22);
  rows->setSpacing(8);
  auto* const head = new QHBoxLayout;
  head->setSpacing(18);
  head->addWidget(picIcon_, 0, Qt::AlignTop);
  auto* const texts = new QVBoxLayout;
  texts->setSpacing(4);
  for (QLabel* const label : {lblName_, lblVersion_, lblPurpose_}) texts->addWidget(label);
  head->addLayout(texts, 1);
  rows->addLayout(head);
  rows->addSpacing(8);
  rows->addWidget(lblLicence_);
  rows->addSpacing(8);
  rows->addWidget(lblFolder_);
  rows->addWidget(new FieldPanel(txtFolder_, this));
  rows->addSpacing(8);
  rows->addWidget(lblNotices_);
  rows->addWidget(new FieldPanel(txtNotices_, this), 1);
  rows->addSpacing(8);
  rows->addWidget(cmdClose_, 0, Qt::AlignRight);
  QWidget::setTabOrder(txtFolder_, txtNotices_);
  QWidget::setTabOrder(txtNotices_, cmdClose_);
  cmdClose_->setFocus();
}

void frmAbout::ApplyTheme() {
  for (QLabel* const label : {lblVersion_, lblLicence_}) SetTextColour(*label, paint::SecondaryText(palette()));
  QFont large = font();
  large.setPointSizeF(large.pointSizeF() * 1.8);
  large.setBold(true);
  lblName_->setFont(large);
  // The panel around a box paints its background.
  QPalette boxes = palette();
  boxes.setColor(QPalette::Base, Qt::transparent);
  txtFolder_->setPalette(boxes);
  txtNotices_->setPalette(boxes);
  // setMarkdown derives the sizes of headings and quotations from the current font.
  txtNotices_->document()->setDefaultFont(txtNotices_->font());
  txtNotices_->setMarkdown(NoticesText());
  txtNotices_->setMinimumSize(kTextWidth, fontMetrics().lineSpacing() * kNoticeLines);
}

void frmAbout::cmdClose_Click() { close(); }

}  // namespace tonalith::app
