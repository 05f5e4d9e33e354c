// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Every text of every window in a simulated language whose texts are more than 40 % longer.

#include <gmock/gmock.h>

#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QLibraryInfo>
#include <QMenuBar>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTabBar>
#include <QTextDocument>
#include <QTimer>
#include <QTranslator>
#include <QXmlStreamReader>
#include <set>

#include "app/damaged_scale.h"
#include "app/frm_about.h"
#include "app/main_window_fixture.h"
#include "editor/frm_scales.h"
#include "help/frm_help.h"
#include "help_text/displayed_text.h"
#include "help_text/help_folder.h"
#include "help_text/program_messages.h"
#include "print/frm_print.h"
#include "search/frm_search.h"
#include "windows/fitting_label.h"
#include "windows/panel_button.h"

namespace tonalith::app {
namespace {

using testing::IsEmpty;
using testing::IsSubsetOf;
using Texts = std::vector<std::string>;
using SourceTexts = std::set<std::pair<std::string, std::string>>;

/// A character that no English text contains; it identifies a translated text.
const QChar kTranslated(0x00F8);

/// Appends more than 40 % of the text's length, with blanks after every ten characters, where the text can be wrapped.
QString Longer(const QString& text) {
  QString tail(static_cast<qsizetype>((static_cast<double>(text.size()) * 0.4) + 1), kTranslated);
  for (qsizetype at = 9; at < tail.size(); at += 10) tail[at] = QLatin1Char(' ');
  // A line break at the end must remain at the end.
  return text.endsWith(QLatin1Char('\n')) ? text.chopped(1) + tail + QLatin1Char('\n') : text + tail;
}

/// Translates all texts of the program itself and records them.
class LongLanguage : public QTranslator {
 public:
  [[nodiscard]] bool isEmpty() const override { return false; }
  [[nodiscard]] QString translate(const char* context, const char* source, const char* /*comment*/,
                                  int /*n*/) const override {
    if (!QByteArray(context).startsWith("tonalith::")) return {};
    requested_.emplace(context, source);
    return Longer(QString::fromUtf8(source));
  }
  [[nodiscard]] const SourceTexts& Requested() const { return requested_; }

 private:
  mutable SourceTexts requested_;
};

bool IsText(const QString& text) {
  static const QRegularExpression words(QStringLiteral("[a-z]{2}"));
  return words.match(text).hasMatch() && text != QLatin1String("Tonalith");
}

QStringList OwnTexts(const QWidget& widget) {
  QStringList texts{widget.toolTip(), widget.accessibleName(), widget.accessibleDescription()};
  if (widget.isWindow()) texts << widget.windowTitle();
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) texts << label->text();
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) texts << button->text();
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) texts << line->placeholderText();
  if (const auto* tabs = qobject_cast<const QTabBar*>(&widget)) {
    for (int i = 0; i < tabs->count(); ++i) texts << tabs->tabText(i);
  }
  if (const auto* box = qobject_cast<const QComboBox*>(&widget)) {
    for (int i = 0; i < box->count(); ++i) texts << box->itemText(i);
  }
  for (const QAction* const action : widget.actions()) texts << action->text();
  return texts;
}

/// The window and its widgets, without the widgets of windows that it owns.
std::vector<QWidget*> WidgetsOf(QWidget& window) {
  std::vector<QWidget*> widgets{&window};
  for (auto* const widget : window.findChildren<QWidget*>()) {
    // Qt's internal widgets, such as the scroll buttons of tabs.
    const bool isQts = widget->objectName().startsWith(QLatin1String("qt_")) ||
                       qobject_cast<const QTabBar*>(widget->parentWidget()) != nullptr;
    if (widget->window() == &window && !isQts) widgets.push_back(widget);
  }
  return widgets;
}

Texts Untranslated(QWidget& window) {
  Texts found;
  for (const QWidget* const widget : WidgetsOf(window)) {
    for (const QString& text : OwnTexts(*widget)) {
      if (IsText(text) && !text.contains(kTranslated)) {
        found.push_back((widget->objectName() + QLatin1String(": ") + text).toStdString());
      }
    }
  }
  return found;
}

int WidthOf(const QString& caption, QFont font, QFont::Weight weight) {
  font.setWeight(weight);
  return QFontMetrics(font).size(Qt::TextShowMnemonic, caption).width();
}

bool IsClipped(const QWidget& widget) {
  if (const auto* label = qobject_cast<const windows::FittingLabel*>(&widget)) return label->IsElided();
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
    return label->wordWrap() ? label->heightForWidth(label->width()) > label->height()
                             : label->sizeHint().width() > label->width();
  }
  if (const auto* button = qobject_cast<const windows::PanelButton*>(&widget)) {
    return WidthOf(button->text(), button->FittedFont(), button->FittedFont().weight()) > button->width() - 8;
  }
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) {
    return WidthOf(line->placeholderText(), line->font(), QFont::Normal) > line->width();
  }
  if (const auto* tabs = qobject_cast<const QTabBar*>(&widget)) {
    for (int i = 0; i < tabs->count(); ++i) {
      if (WidthOf(tabs->tabText(i), tabs->font(), QFont::Normal) > tabs->tabRect(i).width()) return true;
      if (tabs->tabRect(i).right() > tabs->width()) return true;
    }
  }
  if (const auto* box = qobject_cast<const QComboBox*>(&widget); box != nullptr && !box->isEditable()) {
    return box->sizeHint().width() > box->width();
  }
  return false;
}

Texts Clipped(QWidget& window) {
  Texts found;
  for (const QWidget* const widget : WidgetsOf(window)) {
    if (widget->isVisible() && IsClipped(*widget)) {
      found.push_back(widget->objectName().toStdString() + " " + std::to_string(widget->width()) +
                      " wide: " + OwnTexts(*widget).join(QLatin1Char('|')).toStdString());
    }
  }
  return found;
}

class WindowTexts : public MainWindowTest {
 protected:
  /// Data are not translated, so the test data contain the character themselves.
  void StartTranslated() {
    QCoreApplication::installTranslator(&language_);
    MakeDatabase({{"Maj\u00F8r", "2212221", "A scale f\u00F8r tests"}});
    Execute("UPDATE ScaleTypes SET ScaleTypeName = 'Test scales \u00F8'");
    Start();
  }
  static void ExpectAllOf(QWidget& window) {
    EXPECT_TRUE(window.isVisible());
    EXPECT_THAT(Untranslated(window), IsEmpty());
    EXPECT_THAT(Clipped(window), IsEmpty());
  }
  /// Calls `open`, which shows a modal Form, and checks the form while it is visible.
  template <class Form, class Open>
  void ExpectAllOfModal(Open open) {
    QTimer wait;
    QObject::connect(&wait, &QTimer::timeout, [&] {
      auto* const form = Window().findChild<Form*>();
      if (form == nullptr || !form->isVisible()) return;
      wait.stop();
      ExpectAllOf(*form);
      form->close();
    });
    wait.start(1);
    open();
    EXPECT_FALSE(wait.isActive()) << "the window was never shown";
  }
  void OpenHelp() {
    auto* const help = new help::frmHelp(
        box_, [](const QUrl&) { return false; }, &Window());
    help->ShowBook(std::make_shared<const help::HelpBook>(
        help::ChmObjects{{"/index.html", "<html><title>\u00F8</title><body>\u00F8</body></html>"}}));
    help->show();
    for (int tab = 0; tab < 3; ++tab) {
      help->findChild<QTabWidget*>()->setCurrentIndex(tab);
      ExpectAllOf(*help);
    }
  }
  void OpenAll() {
    ExpectAllOf(Window());
    Window().cmdEdit_Click();
    ExpectAllOf(*Window().findChild<editor::frmScales*>());
    ExpectAllOfModal<search::frmSearch>([&] { Window().mSearch_Click(); });
    ExpectAllOfModal<print::frmPrint>([&] { Window().cmdPrint_Click(); });
    Window().mAbout_Click();
    ExpectAllOf(*Window().findChild<frmAbout*>());
    OpenHelp();
  }

  LongLanguage language_;
};

TEST_F(WindowTexts, OfEveryWindowAreTranslatedAndNotClipped) {
  StartTranslated();
  OpenAll();
}

TEST_F(WindowTexts, DoNotChangeShortcutsAndNames) {
  StartTranslated();
  EXPECT_EQ(Window().Menu().Entry("mEditor")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_E));
  EXPECT_EQ(Window().Menu().Entry("mUpdate")->shortcut(), QKeySequence(Qt::Key_F5));
  EXPECT_TRUE(Window().Menu().Entry("mEditor")->text().startsWith(QLatin1String("&Editor")))
      << "the mnemonic is the translator's";
  EXPECT_EQ(Window().focusWidget()->objectName().toStdString(), "Next record");
  for (const char* const name : {"cmdListen", "fretboardView", "img0", "Data1"}) {
    EXPECT_NE(Window().findChild<QWidget*>(QLatin1String(name)), nullptr) << name;
  }
}

TEST_F(WindowTexts, OfThePlaybackAreTranslated) {
  StartTranslated();
  MainWindowPlayback playback(C(), Window().objectName().toStdString());
  using audio::PlaybackState;
  for (const auto& [state, caption] :
       {std::pair(PlaybackState::kLoaded, "Loaded"), std::pair(PlaybackState::kStopped, "Stopped"),
        std::pair(PlaybackState::kStandby, "Standby")}) {
    playback.ShowStatus({state, {}});
    EXPECT_EQ(C().lblStatus->text(), Longer(QLatin1String(caption)));
  }
  playback.ShowStatus({PlaybackState::kPlaying, "C#"});
  EXPECT_EQ(C().lblStatus->text(), Longer(QStringLiteral("Playing: %1")).arg(QLatin1String("C#")));
}

TEST_F(WindowTexts, UntranslatedOnesAreFound) {
  MakeDatabase({{"Major", "2212221"}});
  Start();
  EXPECT_THAT(Untranslated(Window()), testing::Contains("cmdEdit: Editor"));
}

TEST_F(WindowTexts, ClippedOnesAreFound) {
  MakeDatabase({{"Major", "2212221"}});
  Start();
  C().cmdEdit->setText(QString(60, QLatin1Char('W')));
  EXPECT_THAT(Clipped(Window()), testing::SizeIs(1));
}

/// The quotations of the help, with their topics, that no window shows.
Texts NotShown(const std::map<std::string, std::string>& quoted, const SourceTexts& requested) {
  std::set<std::string> shown;
  for (const auto& [context, text] : requested) {
    shown.insert(help_text::AsDisplayed(text));
    for (const std::string& piece : help_text::PiecesOf(text)) shown.insert(piece);
  }
  Texts missing;
  for (const auto& [text, topic] : quoted) {
    if (shown.count(text) == 0) missing.push_back(help_text::FaultOf(topic, {text}));
  }
  return missing;
}

TEST_F(WindowTexts, QuotedInTheHelpAreShown) {
  StartTranslated();
  OpenAll();
  Window().ShowSoundDevice(false);
  ShowDamageInSteps(C());
  const help_text::HelpFolder& help = help_text::HelpFolder::Shipped();
  EXPECT_THAT(NotShown(help.Quoted("caption"), language_.Requested()), IsEmpty());
  EXPECT_THAT(NotShown(help.Quoted("tooltip"), language_.Requested()), IsEmpty());
}

TEST_F(WindowTexts, QuotedInTheHelpAndNotShownAreFound) {
  const SourceTexts requested{{"tonalith::a", "&Tools"}, {"tonalith::a", "Pattern of %1 steps"}};
  EXPECT_THAT(NotShown({{"Tools", "a.html"}, {"steps", "a.html"}, {"Tool", "b.html"}}, requested),
              testing::ElementsAre("b.html: Tool"));
}

/// Contexts and texts of a template.
SourceTexts ReadTemplate(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  QXmlStreamReader reader(&file);
  SourceTexts texts;
  std::string context;
  while (!reader.atEnd()) {
    if (!reader.readNextStartElement()) continue;
    if (reader.name() == QLatin1String("name")) context = reader.readElementText().toStdString();
    if (reader.name() == QLatin1String("source")) texts.emplace(context, reader.readElementText().toStdString());
  }
  return texts;
}

TEST_F(WindowTexts, AreAllInTheTranslationTemplate) {
  const QString lupdate =
      QStandardPaths::findExecutable(QStringLiteral("lupdate"), {QLibraryInfo::path(QLibraryInfo::BinariesPath)});
  if (lupdate.isEmpty()) GTEST_SKIP() << "lupdate, of qt6-l10n-tools, is not installed";
  const QString path = QString::fromStdString(Path("tonalith.ts"));
  const QString source = QStringLiteral(TONALITH_SOURCE_DIR "/src");
  QProcess process;
  process.setProcessChannelMode(QProcess::MergedChannels);
  process.start(lupdate, {QStringLiteral("-silent"), QStringLiteral("-tr-function-alias"),
                          QStringLiteral("QT_TRANSLATE_NOOP+=TONALITH_MESSAGE"), source, QStringLiteral("-I"), source,
                          QStringLiteral("-ts"), path});
  ASSERT_TRUE(process.waitForFinished());
  ASSERT_EQ(process.exitCode(), 0);
  EXPECT_EQ(process.readAll().toStdString(), "") << "lupdate finds no context for a text";
  const SourceTexts offered = ReadTemplate(path);
  EXPECT_THAT(offered, testing::SizeIs(testing::Gt(150U)));
  for (const auto& [context, text] : offered) EXPECT_EQ(context.rfind("tonalith::", 0), 0U) << context << ": " << text;
  SourceTexts messages;
  for (const help_text::RoomCatalogue& catalogue : help_text::ProgramCatalogues()) {
    for (const core::MessageText& text : catalogue.texts) messages.emplace(text.context, text.english);
  }
  EXPECT_THAT(messages, IsSubsetOf(offered));
  StartTranslated();
  OpenAll();
  EXPECT_THAT(language_.Requested(), testing::SizeIs(testing::Gt(100U)));
  EXPECT_THAT(language_.Requested(), IsSubsetOf(offered));
}

}  // namespace
}  // namespace tonalith::app
