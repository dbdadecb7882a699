// The navigator's areas and its exit, and where their pictures stand in each layout. Places are client pixels at 100 %.
#pragma once

#include <QRect>
#include <span>
#include <string_view>

namespace tz {

enum class NavigatorArea { archive, person, department, plan, project, unit };

// In the console layout the host keeps the archives itself, and the areas stand further right.
enum class Layout { standard, console };

// Console for a host started as "-ERPCONSOLE" or "-ERPSINGLE", in any case of letters.
[[nodiscard]] Layout layoutFor(std::string_view argument);

struct AreaPicture {
  NavigatorArea area;
  int command;
  int bitmap;
  const char* hint;  // one line on what the area holds
  QRect standardPlace;
  QRect consolePlace;  // empty: not in that layout

  [[nodiscard]] QRect placeIn(Layout layout) const { return layout == Layout::console ? consolePlace : standardPlace; }
};
[[nodiscard]] std::span<const AreaPicture> areaPictures();
[[nodiscard]] const AreaPicture& pictureOf(NavigatorArea area);

struct ExitPicture {
  int command;
  int bitmap;
  QRect place;
};
[[nodiscard]] ExitPicture exitPicture(Layout layout);

}  // namespace tz
