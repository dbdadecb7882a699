// Where the navigator's pictures stand: six areas and the exit at the left, and the commands of each area. Places are
// client pixels at 100 %.
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

struct PicturePlace {
  int command;
  int bitmap;
  QRect place;
};
// In the order in which they are inserted, which is the order of the Tab key.
[[nodiscard]] std::span<const PicturePlace> picturesOf(NavigatorArea area);
// Whether some of them are so narrow that all keep little room around their captions.
[[nodiscard]] bool standClose(NavigatorArea area);

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

[[nodiscard]] PicturePlace exitPicture(Layout layout);

}  // namespace tz
