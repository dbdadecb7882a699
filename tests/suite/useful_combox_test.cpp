#include "suite/useful_combox.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <gtest/gtest.h>

#include "suite/pinyin.h"
#include "suite/window_script.h"

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

TEST_F(UsefulCombox, WhatFindsNothingIsNeverTaken) {
  typeAndEnter("没有");
  EXPECT_EQ(combo.lineEdit()->text(), "122101 职工借款");
  QTest::keyClicks(&combo, "xyz");
  combo.clearFocus();
  EXPECT_EQ(combo.lineEdit()->text(), "122101 职工借款");
  EXPECT_EQ(changes, 0);
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

TEST_F(UsefulCombox, MonthIsFoundByItsNumber) {
  combo.Fill(CInitComboFun::InitMonthCombox(2013));
  combo.SelectDatum(7);
  typeAndEnter("3");
  EXPECT_EQ(combo.CurrentDatum(), 3);
  typeAndEnter("12");
  EXPECT_EQ(combo.CurrentDatum(), 12);
}

}  // namespace
}  // namespace tz
