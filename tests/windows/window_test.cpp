// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "windows/window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCloseEvent>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <functional>
#include <utility>

#include "paint/theme.h"

namespace tonalith::windows {
namespace {

void SetSystem(QRgb background) { QApplication::setPalette(QPalette(QColor(background))); }

void Notify(QWidget& window, QEvent::Type type) {
  QEvent change(type);
  QCoreApplication::sendEvent(&window, &change);
}

constexpr QRgb kLight = 0xFFE8E8E8;
constexpr QRgb kDark = 0xFF303030;

/// What a test does in a window, and a log of the calls. It outlives the window.
struct Script {
  std::function<void(QWidget&)> whileConstructed = [](QWidget&) {};
  std::function<bool()> mayClose = [] { return true; };
  std::function<void()> whileUnloaded = [] {};
  bool hasOwnEscape = false;
  std::string log;

  std::string TakeLog() { return std::exchange(log, {}); }
};

template <class Base>
class TestWindow : public Window<Base> {
 public:
  explicit TestWindow(Script& script, QWidget* owner = nullptr)
      : Window<Base>(QStringLiteral("frmTest"), owner), script_(script) {
    box_ = new QLineEdit(this);
    script_.whileConstructed(*this);
    script_.log += "construction ";
    this->FinishConstruction();
  }
  [[nodiscard]] QLineEdit& Box() const { return *box_; }

 protected:
  void ApplyTheme() override {
    const QColor background = this->palette().color(QPalette::Window);
    EXPECT_EQ(background, paint::WarmPalette(QApplication::palette()).color(QPalette::Window));
    script_.log += background.lightness() < 128 ? "dark " : "light ";
  }
  void Escape() override {
    script_.log += "escape ";
    if (!script_.hasOwnEscape) Window<Base>::Escape();
  }
  bool Form_QueryUnload() override {
    script_.log += "query ";
    return script_.mayClose();
  }
  void Form_Unload() override {
    script_.log += "unload ";
    script_.whileUnloaded();
  }

 private:
  Script& script_;
  QLineEdit* box_ = nullptr;
};

template <class Base>
class WindowTest : public testing::Test {
 protected:
  WindowTest() { SetSystem(kLight); }
  ~WindowTest() override {
    delete window_.data();
    QApplication::setPalette(QPalette());
  }

  TestWindow<Base>& Make() {
    window_ = new TestWindow<Base>(script_);
    return *window_;
  }
  TestWindow<Base>& Open() {
    Make().show();
    window_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_.data()));
    script_.TakeLog();
    return *window_;
  }

  Script script_;
  QPointer<TestWindow<Base>> window_;
};

using Bases = testing::Types<QMainWindow, QDialog, QWidget>;
TYPED_TEST_SUITE(WindowTest, Bases);

TYPED_TEST(WindowTest, HasItsNameAndIsAWindow) {
  EXPECT_EQ(this->Make().objectName(), QStringLiteral("frmTest"));
  EXPECT_TRUE(this->window_->isWindow());
}

TYPED_TEST(WindowTest, ControlsAreMadeWithThePaletteOfTonalith) {
  const QColor warm = paint::WarmPalette(QApplication::palette()).color(QPalette::Window);
  ASSERT_NE(warm, QApplication::palette().color(QPalette::Window));
  this->script_.whileConstructed = [&](QWidget& window) {
    EXPECT_EQ(window.findChild<QLineEdit*>()->palette().color(QPalette::Window), warm);
  };
  this->Make();
}

TYPED_TEST(WindowTest, AppliesTheThemeOnceWhenItIsComplete) {
  this->Make();
  EXPECT_EQ(this->script_.TakeLog(), "construction light ");
}

TYPED_TEST(WindowTest, PaletteChangeDuringConstructionIsAppliedAtItsEnd) {
  this->script_.whileConstructed = [](QWidget& window) {
    SetSystem(kDark);
    Notify(window, QEvent::ApplicationPaletteChange);
  };
  this->Make();
  EXPECT_EQ(this->script_.TakeLog(), "construction dark ");
  EXPECT_TRUE(paint::IsDark(this->window_->palette()));
}

TYPED_TEST(WindowTest, FollowsTheSystemsPaletteThereAndBack) {
  auto& window = this->Make();
  this->script_.TakeLog();
  SetSystem(kDark);
  Notify(window, QEvent::ApplicationPaletteChange);
  EXPECT_TRUE(paint::IsDark(window.Box().palette()));
  SetSystem(kLight);
  Notify(window, QEvent::ApplicationPaletteChange);
  EXPECT_FALSE(paint::IsDark(window.Box().palette()));
  EXPECT_EQ(this->script_.TakeLog(), "dark light ");
}

TYPED_TEST(WindowTest, AppliesTheThemeAgainForAnotherThemeOrFont) {
  auto& window = this->Make();
  this->script_.TakeLog();
  Notify(window, QEvent::ThemeChange);
  Notify(window, QEvent::FontChange);
  EXPECT_EQ(this->script_.TakeLog(), "light light ");
  Notify(window, QEvent::StyleChange);
  EXPECT_EQ(this->script_.TakeLog(), "");
}

TYPED_TEST(WindowTest, IgnoresClosingAndEscapeDuringConstruction) {
  this->script_.whileConstructed = [](QWidget& window) {
    EXPECT_FALSE(window.close());
    QTest::keyClick(&window, Qt::Key_Escape);
  };
  this->Make();
  EXPECT_EQ(this->script_.TakeLog(), "construction light ");
}

TYPED_TEST(WindowTest, EscapeInAControlClosesAllButAMainWindow) {
  QTest::keyClick(&this->Open().Box(), Qt::Key_Escape);
  constexpr bool kIsMainWindow = std::is_same_v<TypeParam, QMainWindow>;
  EXPECT_EQ(this->window_->isVisible(), kIsMainWindow);
  EXPECT_EQ(this->script_.TakeLog().substr(0, 7), kIsMainWindow ? "" : "escape ");
}

TYPED_TEST(WindowTest, AWindowMayHaveItsOwnEscape) {
  this->script_.hasOwnEscape = true;
  QTest::keyClick(&this->Open().Box(), Qt::Key_Escape);
  EXPECT_TRUE(this->window_->isVisible());
  QTest::keyClick(&this->window_->Box(), Qt::Key_A);
  EXPECT_EQ(this->window_->Box().text(), QStringLiteral("a")) << "other keys reach their control";
}

TYPED_TEST(WindowTest, ClosingAsksThenUnloadsOnce) {
  auto& window = this->Open();
  EXPECT_TRUE(window.IsOpen());
  EXPECT_TRUE(window.close());
  EXPECT_TRUE(window.close());
  EXPECT_EQ(this->script_.TakeLog(), "query unload ");
  EXPECT_FALSE(window.IsOpen());
  EXPECT_TRUE(window.IsUnloaded());
}

TYPED_TEST(WindowTest, ARefusedCloseLeavesItOpen) {
  this->script_.mayClose = [] { return false; };
  auto& window = this->Open();
  EXPECT_FALSE(window.close());
  EXPECT_EQ(this->script_.TakeLog(), "query ");
  EXPECT_TRUE(window.IsOpen());
}

TYPED_TEST(WindowTest, IsNotOpenWhileItUnloads) {
  bool wasOpen = true;
  this->script_.whileUnloaded = [&] {
    wasOpen = this->window_->IsOpen();
    EXPECT_TRUE(this->window_->isVisible());
    this->window_->close();
  };
  this->Open().close();
  EXPECT_FALSE(wasOpen);
  EXPECT_EQ(this->script_.TakeLog(), "query unload ") << "also if it is closed again meanwhile";
}

TYPED_TEST(WindowTest, CanBeOpenedAgainIfItIsNotDeleted) {
  auto& window = this->Open();
  window.close();
  window.show();
  EXPECT_TRUE(window.IsOpen());
  window.close();
  EXPECT_EQ(this->script_.TakeLog(), "query unload query unload ");
}

TYPED_TEST(WindowTest, MayBeDestroyedWhileItCloses) {
  for (const bool isAsked : {true, false}) {
    const auto destroy = [this] { delete this->window_.data(); };
    this->script_ = {};
    if (isAsked) {
      this->script_.mayClose = [destroy] { return destroy(), true; };
    } else {
      this->script_.whileUnloaded = destroy;
    }
    QCloseEvent close;
    QCoreApplication::sendEvent(&this->Open(), &close);
    EXPECT_TRUE(this->window_.isNull());
    EXPECT_EQ(this->script_.TakeLog(), isAsked ? "query " : "query unload ");
  }
}

}  // namespace
}  // namespace tonalith::windows
