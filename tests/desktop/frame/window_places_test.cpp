// Where windows stand among each other: on the screen, apart where there is room, never smaller than they may be.
#include "desktop/frame/window_places.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tz::test {
namespace {

constexpr QRect large(0, 27, 1920, 1013);
constexpr QRect small(0, 0, 1366, 768);
constexpr QSize least(703, 525);

TEST(WindowPlaces, SideBySideFillsTheScreenAndKeepsTheLeastSize) {
  for (const QRect& screen : {large, small}) {
    for (int count = 1; count <= 9; ++count) {
      SCOPED_TRACE(count);
      const auto places = sideBySide(screen, count, least);
      ASSERT_EQ(places.size(), count);
      QRect all;
      for (const QRect& place : places) {
        EXPECT_TRUE(screen.contains(place));
        EXPECT_GE(place.width(), least.width());
        EXPECT_GE(place.height(), least.height());
        EXPECT_EQ(std::ranges::count(places, place.topLeft(), &QRect::topLeft), 1);
        all |= place;
      }
      EXPECT_GE(all.width(), screen.width() - 3);
      EXPECT_GE(all.height(), screen.height() - 3);
    }
  }
  const auto two = sideBySide(large, 2, least);
  EXPECT_FALSE(two[0].intersects(two[1]));
  EXPECT_EQ(two[0].height(), large.height());
  const auto three = sideBySide(large, 3, {100, 100});
  EXPECT_EQ(three[0].height(), large.height());
  EXPECT_FALSE(three[0].intersects(three[1]) || three[1].intersects(three[2]) || three[0].intersects(three[2]));
  EXPECT_TRUE(sideBySide(large, 0, least).empty());
}

TEST(WindowPlaces, NewWindowsStepAsideAndBeginAgainInTheCorner) {
  constexpr int step = 34;
  for (const QRect& screen : {large, small}) {
    std::vector<QPoint> taken;
    for (int count = 0; count < 60; ++count) {
      const QPoint place = freePlace(screen, {992, 600}, taken, step);
      EXPECT_TRUE(screen.contains(QRect(place, QSize(992, 600)))) << count;
      if (count == 0) {
        EXPECT_LE((QRect(place, QSize(992, 600)).center() - screen.center()).manhattanLength(), 2);
      }
      if (count == 1) {
        EXPECT_EQ(place, taken.front() + QPoint(step, step));
      }
      if (count < 12) {
        EXPECT_EQ(std::ranges::count(taken, place), 0) << count;
      }
      taken.push_back(place);
    }
    // A window that takes the whole screen has one place.
    EXPECT_EQ(freePlace(screen, screen.size(), {screen.topLeft()}, step), screen.topLeft());
  }
}

TEST(WindowPlaces, OneBehindTheOtherShowsEveryTitleBar) {
  constexpr int step = 34;
  const auto places = oneBehindTheOther(small, std::vector<QSize>(12, QSize(992, 600)), step);
  for (std::size_t at = 0; at < places.size(); ++at) {
    EXPECT_TRUE(small.contains(places[at]));
    EXPECT_EQ(places[at].size(), QSize(992, 600));
    if (at > 0) {
      EXPECT_NE(places[at].topLeft(), places[at - 1].topLeft());
    }
  }
  EXPECT_EQ(oneBehindTheOther(small, {QSize(5000, 5000)}, step).front(), small);
}

}  // namespace
}  // namespace tz::test
