#include "desktop/picking/useful_combox.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QStyleOptionComboBox>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include "desktop/picking/pinyin.h"
#include "desktop/support/window_script.h"

namespace tz {
namespace {

qsizetype place(const QString& text, const char* typed) { return pinyinPlace(text, typed); }

TEST(Pinyin, FindsInitialsWholeReadingsAndMixtures) {
  EXPECT_EQ(place("职工借款", "zgjk"), 0);
  EXPECT_EQ(place("职工借款", "zhigongjiekuan"), 0);
  EXPECT_EQ(place("职工借款", "zhigjkuan"), 0);
  EXPECT_EQ(place("职工借款", "jiek"), 2);
  EXPECT_EQ(place("职工借款", "zgk"), -1);
  EXPECT_EQ(place("职工借款", "zgjkx"), -1);
}

TEST(Pinyin, KnowsSecondReadingsAndBothSpellingsOfTheRoundedU) {
  for (const char* typed : {"chongqing", "zhongqing", "cq", "zq"}) EXPECT_EQ(place("重庆", typed), 0) << typed;
  for (const char* typed : {"yh", "yinhang", "yinxing"}) EXPECT_EQ(place("银行", typed), 0) << typed;
  for (const char* typed : {"lv", "lu", "l"}) EXPECT_EQ(place("吕", typed), 0) << typed;
  EXPECT_EQ(place("吕", "n"), -1);
}

TEST(Pinyin, PassesOverBracketsAndTakesLatinLettersAsTheyAre) {
  EXPECT_EQ(place("北京（华夏）A4厂", "bjhxa4c"), 0);
  EXPECT_EQ(place("", "a"), -1);
  EXPECT_TRUE(looksLikePinyin(u"zgJK2"));
  EXPECT_FALSE(looksLikePinyin(u"122101"));
  EXPECT_FALSE(looksLikePinyin(u"职工"));
}

class UsefulCombox : public ::testing::Test {
 protected:
  UsefulCombox() {
    combo.Fill({{"122101 职工借款", 2}, {"122102 备用金", 3}, {"6601 差旅费 122102 号", 4}});
    combo.SelectIndex(0);
    combo.show();
    combo.setFocus();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&combo));
    QObject::connect(&combo, &CUsefulCombox::entryChanged, [this] { ++changes; });
  }
  // Types in place of the text and presses Enter where it would arrive.
  void typeAndEnter(const QString& text) {
    combo.lineEdit()->selectAll();
    test::enterText(combo, text);
    QWidget* popup = QApplication::activePopupWidget();
    QTest::keyClick(popup == nullptr ? &combo : popup, Qt::Key_Return);
  }

  CUsefulCombox combo;
  int changes = 0;
};

TEST_F(UsefulCombox, TakesTheBestEntryFound) {
  typeAndEnter("122102");
  EXPECT_EQ(combo.CurrentDatum(), 3);
  typeAndEnter("差旅");
  EXPECT_EQ(combo.CurrentDatum(), 4);
  typeAndEnter("zgjk");
  EXPECT_EQ(combo.CurrentText(), "122101 职工借款");
  EXPECT_EQ(changes, 3);
}

TEST_F(UsefulCombox, ChoosingTheSameEntryAgainDoesNothing) {
  typeAndEnter("zg");
  EXPECT_EQ(changes, 0);
  combo.SelectDatum(3);
  EXPECT_EQ(changes, 0);
  QTest::keyClick(&combo, Qt::Key_Down);
  EXPECT_EQ(combo.CurrentDatum(), 4);
  EXPECT_EQ(changes, 1);
}

TEST_F(UsefulCombox, WhatFindsNothingIsNeverTakenNorReplacedWithoutAWord) {
  QStringList missed;
  QStringList givenUp;
  QObject::connect(&combo, &CUsefulCombox::notFound, [&](const QString& text) { missed << text; });
  QObject::connect(&combo, &CUsefulCombox::givenUp, [&](const QString& text) { givenUp << text; });
  typeAndEnter("没有");
  EXPECT_EQ(combo.lineEdit()->text(), "没有") << "to be mended";
  EXPECT_EQ(missed, QStringList{"没有"});
  QTest::keyClicks(&combo, "xyz");  // in place of the selected text
  combo.clearFocus();
  EXPECT_EQ(combo.lineEdit()->text(), "122101 职工借款");
  EXPECT_EQ(givenUp, QStringList{"xyz"});
  EXPECT_EQ(changes, 0);
}

TEST_F(UsefulCombox, EscapeTakesBackWhatWasTypedAndOnlyThenIsTheWindows) {
  QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  typeAndEnter("没有");
  QApplication::sendEvent(&combo, &escape);
  EXPECT_TRUE(escape.isAccepted());
  EXPECT_EQ(combo.lineEdit()->text(), "122101 职工借款");
  QApplication::sendEvent(&combo, &escape);
  EXPECT_FALSE(escape.isAccepted());
}

// The combo of a dialog: text with one meaning is taken, other text stays, erased text is no choice.
TEST(KeepingCombox, LeavesNothingToGuess) {
  CUsefulCombox combo(nullptr, CUsefulCombox::Leaving::keeps);
  combo.Fill({{"01 李明", 1}, {"02 李明", 2}, {"王强", 3}, {"王强盛", 4}});
  combo.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&combo));
  const auto leaveWith = [&](const QString& text) {
    combo.SelectIndex(3);
    combo.setFocus();
    combo.lineEdit()->selectAll();
    QTest::keyClick(&combo, Qt::Key_Delete);
    test::enterText(combo, text);
    if (QWidget* popup = QApplication::activePopupWidget()) popup->hide();
    combo.clearFocus();
  };
  leaveWith("02");
  EXPECT_EQ(combo.CurrentDatum(), 2);
  leaveWith("王强");
  EXPECT_EQ(combo.CurrentDatum(), 3) << "the whole of one, the beginning of another";
  for (const char* text : {"李明", "9999", "王"}) {
    leaveWith(text);
    EXPECT_EQ(combo.UnknownText(), text);
    EXPECT_EQ(fromQt(combo.lineEdit()->text()), text);
  }
  leaveWith("");
  EXPECT_EQ(combo.currentIndex(), -1);
  EXPECT_EQ(combo.UnknownText(), "");
}

TEST_F(UsefulCombox, ArrowsMoveInThePopupAndEscapeGivesUp) {
  combo.lineEdit()->selectAll();
  QTest::keyClicks(&combo, "1221");
  QWidget* popup = QApplication::activePopupWidget();
  ASSERT_NE(popup, nullptr);
  EXPECT_EQ(qobject_cast<QAbstractItemView*>(popup)->model()->rowCount(), 3);
  EXPECT_EQ(combo.lineEdit()->text(), "1221");
  QTest::keyClick(popup, Qt::Key_Escape);
  EXPECT_EQ(combo.CurrentDatum(), 2);
  EXPECT_EQ(combo.lineEdit()->text(), "122101 职工借款");
  combo.lineEdit()->selectAll();
  QTest::keyClicks(&combo, "1221");
  QTest::keyClick(popup, Qt::Key_Down);
  QTest::keyClick(popup, Qt::Key_Return);
  EXPECT_EQ(combo.CurrentDatum(), 3);
}

// Where the style has put the arrow.
QPoint arrowOf(const QComboBox& combo) {
  QStyleOptionComboBox option;
  option.initFrom(&combo);
  option.editable = combo.isEditable();
  return combo.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, &combo).center();
}

TEST_F(UsefulCombox, TheMouseOpensTheListAndChooses) {
  QTest::mouseClick(&combo, Qt::LeftButton, {}, arrowOf(combo));
  ASSERT_TRUE(combo.view()->isVisible()) << "the arrow opens the list";
  EXPECT_EQ(combo.view()->model()->rowCount(), 3);
  // A release right after the press that opened the list chooses nothing.
  QTest::qWait(QApplication::doubleClickInterval() + 50);
  const QPoint third = combo.view()->visualRect(combo.model()->index(2, 0)).center();
  QTest::mouseMove(combo.view()->viewport(), third);
  QTest::mouseClick(combo.view()->viewport(), Qt::LeftButton, {}, third);
  EXPECT_EQ(combo.CurrentDatum(), 4);
  EXPECT_EQ(combo.lineEdit()->text(), "6601 差旅费 122102 号");
  EXPECT_EQ(changes, 1);
  EXPECT_FALSE(combo.view()->isVisible());
}

TEST_F(UsefulCombox, WhatIsFoundIsChosenByAClickToo) {
  combo.lineEdit()->selectAll();
  QTest::keyClicks(&combo, "1221");
  auto* found = qobject_cast<QAbstractItemView*>(QApplication::activePopupWidget());
  ASSERT_NE(found, nullptr);
  const QPoint second = found->visualRect(found->model()->index(1, 0)).center();
  QTest::mouseMove(found->viewport(), second);
  QTest::mouseClick(found->viewport(), Qt::LeftButton, {}, second);
  EXPECT_EQ(combo.CurrentDatum(), 3);
  EXPECT_EQ(changes, 1);
}

// Who scrolls the window past a combo does not change a condition.
TEST_F(UsefulCombox, TheWheelChangesNothingWithoutTheFocus) {
  combo.clearFocus();
  const QPointF middle = combo.rect().center();
  QWheelEvent wheel(middle, combo.mapToGlobal(middle), {}, QPoint(0, -120), Qt::NoButton, {}, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&combo, &wheel);
  EXPECT_EQ(combo.CurrentDatum(), 2);
  EXPECT_EQ(changes, 0);
}

TEST_F(UsefulCombox, MonthIsFoundByItsNumber) {
  combo.FillMonths(2013);
  combo.SelectDatum(7);
  typeAndEnter("3");
  EXPECT_EQ(combo.CurrentDatum(), 3);
  typeAndEnter("12");
  EXPECT_EQ(combo.CurrentDatum(), 12);
  typeAndEnter("02");
  EXPECT_EQ(combo.CurrentDatum(), 2);
  typeAndEnter("2013.08");
  EXPECT_EQ(combo.CurrentDatum(), 8);
  for (const char* text : {"13", "20", "0", "2013", "2013.13"}) {
    typeAndEnter(text);
    EXPECT_EQ(combo.CurrentDatum(), 8) << text;
    EXPECT_EQ(combo.UnknownText(), text);
  }
}

}  // namespace
}  // namespace tz
