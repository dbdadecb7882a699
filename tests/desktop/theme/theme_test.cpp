#include "desktop/theme/theme.h"

#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>
#include <QWheelEvent>
#include <cmath>
#include <gtest/gtest.h>

namespace tz {
namespace {

double luminance(QColor colour) {
  const auto part = [](double value) {
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
}

double contrast(QColor one, QColor other) {
  const double light = std::max(luminance(one), luminance(other));
  const double dark = std::min(luminance(one), luminance(other));
  return (light + 0.05) / (dark + 0.05);
}

class ThemeTest : public testing::TestWithParam<ThemeChoice> {
 protected:
  void SetUp() override { applyTheme(GetParam()); }
  void TearDown() override { applyTheme(ThemeChoice::light); }
};

// 4.5 is what small text needs for people who see poorly.
TEST_P(ThemeTest, TextStandsOutOnEveryGroundItLiesOn) {
  const Theme& theme = currentTheme();
  const QColor cells[] = {theme.surface, theme.header, theme.selection, rowColour(lightGreen)};
  for (const QColor& ground : cells) EXPECT_GE(contrast(theme.negative, ground), 4.5) << ground.name().toStdString();
  for (const QColor& ground : {cells[0], cells[1], cells[2], cells[3], theme.ground, theme.hover, theme.pressed}) {
    EXPECT_GE(contrast(theme.text, ground), 7) << ground.name().toStdString();
  }
  for (const QColor& ground : {theme.surface, theme.ground, theme.header}) {
    EXPECT_GE(contrast(theme.mutedText, ground), 4.5) << ground.name().toStdString();
    EXPECT_GE(contrast(theme.accent, ground), 4.5) << ground.name().toStdString();
  }
  EXPECT_GE(contrast(theme.onAccent, theme.accent), 4.5);
  EXPECT_GE(contrast(theme.warning, theme.warningGround), 7);
  EXPECT_GE(contrast(theme.warning, theme.ground), 4.5) << "the frame of a warning";
  EXPECT_GE(contrast(theme.railText, theme.rail), 7);
  EXPECT_GE(contrast(theme.onRailSelected, theme.railSelected), 4.5);
}

TEST_P(ThemeTest, TheDefaultButtonAndTheFocusAreToldApart) {
  QWidget window;
  QPushButton plain(QStringLiteral("取消"), &window);
  QPushButton accepting(QStringLiteral("确定"), &window);
  accepting.setGeometry(300, 260, 90, 30);
  plain.setGeometry(300, 200, 90, 30);
  for (QPushButton* button : {&plain, &accepting}) button->setAutoDefault(false);
  accepting.setDefault(true);
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  const Theme& theme = currentTheme();
  const auto inside = [](QPushButton& button) { return button.grab().toImage().pixelColor(8, 6); };
  const auto edge = [](QPushButton& button) { return button.grab().toImage().pixelColor(1, 15); };
  accepting.setFocus();
  EXPECT_EQ(inside(accepting), theme.accent);
  EXPECT_EQ(edge(accepting), theme.text);
  EXPECT_EQ(inside(plain), theme.surface);
  EXPECT_EQ(edge(plain), theme.surface);
  plain.setFocus();
  EXPECT_EQ(edge(accepting), theme.accent) << "what Enter does stays told when the focus is elsewhere";
  EXPECT_EQ(inside(plain), theme.surface);
  EXPECT_EQ(edge(plain), theme.accent);
  accepting.setEnabled(false);
  EXPECT_EQ(inside(accepting), theme.ground);
}

// The wheel goes past fields that have not the focus, and does not bring it.
TEST_P(ThemeTest, TheWheelChangesOnlyTheFieldInHand) {
  QWidget window;
  QComboBox combo(&window);
  combo.addItems({"1", "2", "3"});
  QDateEdit date(QDate(2006, 3, 15), &window);
  QSpinBox number(&window);
  number.setValue(50);
  QLineEdit other(&window);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  const auto turnOver = [&](QWidget& field) {
    const QPointF middle = field.rect().center();
    QWheelEvent wheel(middle, field.mapToGlobal(middle), {}, QPoint(0, -120), Qt::NoButton, {}, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&field, &wheel);
    return wheel.isAccepted();
  };
  other.setFocus();
  for (QWidget* field : std::initializer_list<QWidget*>{&combo, &date, &number}) {
    EXPECT_FALSE(turnOver(*field)) << "it goes to what the field stands in";
    EXPECT_EQ(field->focusPolicy() & Qt::WheelFocus, Qt::StrongFocus);
  }
  EXPECT_EQ(combo.currentIndex(), 0);
  EXPECT_EQ(date.date(), QDate(2006, 3, 15));
  EXPECT_EQ(number.value(), 50);
  combo.setFocus();
  turnOver(combo);
  EXPECT_EQ(combo.currentIndex(), 1);
}

TEST_P(ThemeTest, AListShowsItsFocusAlsoWhenItIsEmpty) {
  QWidget window;
  QListWidget list(&window);
  list.setGeometry(10, 10, 100, 80);
  QLineEdit other(&window);
  other.move(10, 120);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  const auto edge = [&] { return window.grab().toImage().pixelColor(60, 10); };
  list.setFocus();
  EXPECT_EQ(edge(), currentTheme().accent);
  other.setFocus();
  EXPECT_EQ(edge(), currentTheme().edge);
}

INSTANTIATE_TEST_SUITE_P(Themes, ThemeTest, testing::Values(ThemeChoice::light, ThemeChoice::dark),
                         [](const auto& test) { return test.param == ThemeChoice::dark ? "dark" : "light"; });

TEST(ThemeStyle, ThePointerFollowsTheSliderOfAScrollBar) {
  QScrollBar bar(Qt::Vertical);
  bar.resize(12, 400);
  bar.setRange(0, 24'000'000);
  bar.setPageStep(400);
  bar.show();
  QTest::mousePress(&bar, Qt::LeftButton, {}, {6, 10});
  QTest::mouseMove(&bar, {6, 399});
  QTest::mouseRelease(&bar, Qt::LeftButton, {}, {6, 399});
  EXPECT_EQ(bar.value(), bar.maximum());
  QTest::mouseClick(&bar, Qt::LeftButton, {}, {6, 20});
  EXPECT_EQ(bar.value(), bar.maximum() - 400) << "a click beside the slider turns a page";
}

}  // namespace
}  // namespace tz
