// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Behaviour of the main window from docs/behaviour.md that no other test asserts: captions, the order of events, and
// oddities kept on purpose.

#include <gtest/gtest.h>

#include <QApplication>
#include <QFocusEvent>
#include <QLineEdit>
#include <QTest>
#include <filesystem>

#include "app/main_window_fixture.h"

namespace tonalith::app {
namespace {

using KeptBehaviour = MainWindowTest;

/// Logs the labels of the window each time a note image is shown or hidden.
class NoteLog : public QObject {
 public:
  NoteLog(const MainControls& controls, views::NoteImage& image) : c_(controls), image_(image) {
    image.installEventFilter(this);
  }
  [[nodiscard]] const std::string& Lines() const { return lines_; }

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Hide) Add("hide");
    if (event->type() == QEvent::Show) Add("show");
    return false;
  }

 private:
  void Add(const std::string& what) {
    lines_ += what + (image_.NameDrawn() ? " named" : " unnamed") + ", steps '" +
              c_.lblTranspose->text().toStdString() + "', notes '" + c_.lblScaleNotes->text().toStdString() + "'\n";
  }

  const MainControls& c_;
  views::NoteImage& image_;
  std::string lines_;
};

TEST_F(KeptBehaviour, MainWindowHasItsCaptions) {
  MakeDatabase({{"Major", "2212221"}});
  Start();
  EXPECT_EQ(Window().objectName().toStdString(), "frmTonalith");
  EXPECT_EQ(Window().windowTitle().toStdString(), "Tonalith");
  const std::vector<std::pair<const QAbstractButton*, const char*>> buttons = {{C().cmdEdit, "Editor"},
                                                                               {C().cmdUpdate, "Update"},
                                                                               {C().cmdListen, "Listen"},
                                                                               {C().cmdPrint, "Print"},
                                                                               {C().cmdInstall, "Install..."}};
  for (const auto& [button, caption] : buttons) EXPECT_EQ(button->text().toStdString(), caption);
  EXPECT_EQ(C().Data1->accessibleName().toStdString(), "Select Scales");
  EXPECT_EQ(Text(C().lblStatus), "Stopped");
}

TEST_F(KeptBehaviour, SettingsHaveTheirInitialValues) {
  MakeDatabase({{"Major", "2212221"}});
  Start();
  EXPECT_TRUE(Window().NamesAreShown());
  EXPECT_TRUE(Window().Playback().SoundEnded);
  EXPECT_EQ(Window().Playback().CurrentPlayNote, "");
}

TEST_F(KeptBehaviour, RefreshWritesStepsThenStaffThenNotesThenNames) {
  MakeDatabase({{"Major", "2212221"}, {"Fifth", "75"}});
  Start();
  const NoteLog log(C(), C().fretboard->Image(8));
  Press("Next record");
  EXPECT_EQ(log.Lines(),
            "hide named, steps 'Scale Steps: ', notes ' C G'\n"
            "show unnamed, steps 'Scale Steps: ', notes ' C G'\n");
  EXPECT_EQ(Text(C().lblTranspose), "Scale Steps:   T3.5  T2.5");
  EXPECT_TRUE(C().fretboard->Image(8).NameDrawn());
}

TEST_F(KeptBehaviour, BoundControlsChangeInOrderAndBeforeTheRefresh) {
  MakeDatabase({{"Major", "2212221", "Bright."}, {"Fifth", "75", "Open."}});
  Start();
  std::string lines;
  const auto log = [&](const char* what) {
    lines += std::string(what) + ": " + Text(C().Label1) + "|" + Text(C().lblScaleDescription) + "|" +
             C().txtScaleID->text().toStdString() + "|" + C().txtInterval->text().toStdString() + "|" +
             Text(C().lblScaleNotes) + "\n";
  };
  QObject::connect(C().txtScaleID, &QLineEdit::textChanged, [&] { log("id"); });
  QObject::connect(C().txtInterval, &QLineEdit::textChanged, [&] { log("pattern"); });
  Press("Next record");
  EXPECT_EQ(lines,
            "id: Fifth|Open.|2|2212221| C D E F G A B\n"
            "pattern: Fifth|Open.|2|75| C D E F G A B\n");
  EXPECT_EQ(Text(C().lblScaleNotes), " C G");
}

TEST_F(KeptBehaviour, RecordsOfOneNameShareTheStaffOfTheFirst) {
  MakeDatabase({{"Twin", "2212221"}, {"Twin", "345"}});
  Start();
  Press("Next record");
  EXPECT_EQ(Text(C().lblTranspose), "Scale Steps:   T1.5  T2  T2.5");
  EXPECT_EQ(StringNotes(1), "G C D# G") << "the neck shows the second record";
  EXPECT_EQ(Text(C().lblScaleNotes), " C D E F G A B") << "the staff shows the first";
}

TEST_F(KeptBehaviour, RecordWithoutANameHasTheStaffOfTheMajorScale) {
  MakeDatabase({{"", "75"}, {"Major", "2212221"}});
  Start();
  EXPECT_EQ(StringNotes(1), "G C G");
  EXPECT_EQ(Text(C().lblScaleNotes), " C D E F G A B");
}

TEST_F(KeptBehaviour, StoredStartNoteChangesNoView) {
  MakeDatabase({{"Fifth", "75"}});
  Execute("UPDATE Scales SET StartNote = 'F#'");
  Start();
  EXPECT_EQ(C().cmbTranspose->currentText().toStdString(), "C");
  EXPECT_EQ(Text(C().lblScaleNotes), " C G");
}

TEST_F(KeptBehaviour, ResizeFormControlsChangesNothing) {
  MakeDatabase({{"Major", "2212221"}});
  Start();
  const auto geometries = [this] {
    std::vector<QRect> rects = {Window().geometry()};
    for (const QWidget* const widget : Window().findChildren<QWidget*>()) rects.push_back(widget->geometry());
    return rects;
  };
  const std::vector<QRect> before = geometries();
  Window().ResizeFormControls();
  EXPECT_EQ(geometries(), before);
}

TEST_F(KeptBehaviour, GainingTheFocusReadsTheLibraryAgain) {
  MakeDatabase({{"Major", "2212221"}});
  Start();
  sounds_->Notifier = nullptr;
  Execute("UPDATE Scales SET ScaleIntervals = '75'");
  QFocusEvent gain(QEvent::FocusIn, Qt::OtherFocusReason);
  QApplication::sendEvent(&Window(), &gain);
  EXPECT_EQ(Text(C().lblScaleNotes), " C G");
  EXPECT_EQ(sounds_->Notifier, &Window().Playback()) << "the window is the notifier again";
}

TEST_F(KeptBehaviour, DataControlIsBoundByExpandedStringThenByFileName) {
  MakeDatabase({{"Major", "2212221"}});
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(temp_.Path());
  Start();
  EXPECT_EQ(C().Data1->ConnectionString(), database_->ScaleConnection()->ConnectionString());
  EXPECT_NE(C().Data1->ConnectionString(), data::FullConnectionString(database_->DatabasePath()));
  Window().cmdInstall_Click();
  EXPECT_EQ(C().Data1->ConnectionString(), "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=TonalithDB97.mdb");
  EXPECT_EQ(Text(C().Label1), "Major");
  std::filesystem::current_path(before);
}

}  // namespace
}  // namespace tonalith::app
