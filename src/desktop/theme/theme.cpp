#include "desktop/theme/theme.h"

#include <QApplication>
#include <QPalette>

#include "desktop/theme/theme_style.h"

namespace tz {
namespace {

const Theme& lightTheme() {
  static const Theme theme{
      .dark = false,
      .ground = QColor(0xE8EEF2),
      .surface = QColor(0xFFFFFF),
      .header = QColor(0xF1F5F8),
      .rail = QColor(0x14384A),
      .railBand = QColor(0x1B4A61),
      .railText = QColor(0xD9E6EE),
      .railSelected = QColor(0x2A7FA3),
      .onRailSelected = QColor(0xFFFFFF),
      .text = QColor(0x16232C),
      .mutedText = QColor(0x526470),
      .disabledText = QColor(0x9AA8B2),
      .accent = QColor(0x0E6A8C),
      .onAccent = QColor(0xFFFFFF),
      .accentSoft = QColor(0xE3F1F6),
      .hover = QColor(0xD6E9F1),
      .pressed = QColor(0xB5D8E6),
      .rule = QColor(0xD4DDE4),
      .edge = QColor(0xB4C2CC),
      .strongRule = QColor(0x7F919D),
      .negative = QColor(0xB3261E),
      .warning = QColor(0x7A3E00),
      .warningGround = QColor(0xFFF0CC),
      .selection = QColor(0xCDE6F0),
      .currentRow = QColor(0xFF, 0xB3, 0x00, 0x4C),
  };
  return theme;
}

const Theme& darkTheme() {
  static const Theme theme{
      .dark = true,
      .ground = QColor(0x10181E),
      .surface = QColor(0x1A252D),
      .header = QColor(0x22303A),
      .rail = QColor(0x0A1319),
      .railBand = QColor(0x10212B),
      .railText = QColor(0xC4D3DC),
      .railSelected = QColor(0x1D5F7C),
      .onRailSelected = QColor(0xFFFFFF),
      .text = QColor(0xE6EDF2),
      .mutedText = QColor(0xA0B1BC),
      .disabledText = QColor(0x64757F),
      .accent = QColor(0x66C4E2),
      .onAccent = QColor(0x06222E),
      .accentSoft = QColor(0x213B48),
      .hover = QColor(0x2B4351),
      .pressed = QColor(0x2C5062),
      .rule = QColor(0x30404B),
      .edge = QColor(0x475A66),
      .strongRule = QColor(0x8295A1),
      .negative = QColor(0xFF8F86),
      .warning = QColor(0xFFC978),
      .warningGround = QColor(0x3A2B10),
      .selection = QColor(0x1E465C),
      .currentRow = QColor(0xFF, 0xB3, 0x00, 0x3C),
  };
  return theme;
}

const Theme* current = &lightTheme();

bool systemIsDark() {
  static const QPalette system = QApplication::palette();
  return system.color(QPalette::Window).lightness() < system.color(QPalette::WindowText).lightness();
}

QPalette paletteOf(const Theme& theme) {
  QPalette palette;
  palette.setColor(QPalette::Window, theme.ground);
  palette.setColor(QPalette::WindowText, theme.text);
  palette.setColor(QPalette::Base, theme.surface);
  palette.setColor(QPalette::AlternateBase, theme.header);
  palette.setColor(QPalette::Text, theme.text);
  palette.setColor(QPalette::PlaceholderText, theme.mutedText);
  palette.setColor(QPalette::Button, theme.header);
  palette.setColor(QPalette::ButtonText, theme.text);
  palette.setColor(QPalette::BrightText, theme.negative);
  palette.setColor(QPalette::Link, theme.accent);
  palette.setColor(QPalette::Highlight, theme.accent);
  palette.setColor(QPalette::HighlightedText, theme.onAccent);
  palette.setColor(QPalette::ToolTipBase, theme.surface);
  palette.setColor(QPalette::ToolTipText, theme.text);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, theme.disabledText);
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, theme.ground);
  palette.setColor(QPalette::Disabled, QPalette::Highlight, theme.rule);
  return palette;
}

}  // namespace

const Theme& currentTheme() { return *current; }

void applyTheme(ThemeChoice choice) {
  const bool dark = choice == ThemeChoice::dark || (choice == ThemeChoice::system && systemIsDark());
  current = dark ? &darkTheme() : &lightTheme();
  QApplication::setStyle(new ThemeStyle);
  QApplication::setPalette(paletteOf(*current));
}

QColor rowColour(Rgb colour) {
  if (colour == noColour) return current->surface;
  const QColor given(static_cast<QRgb>(colour));
  if (!current->dark) return given;
  constexpr int depth = 46;
  return QColor::fromHsl(given.hslHue(), given.hslSaturation() * 2 / 5, depth);
}

}  // namespace tz
