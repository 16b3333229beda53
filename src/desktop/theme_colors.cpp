#include "desktop/theme.h"

#include <array>

namespace quillery {
namespace {

struct Tones {
  Role role;
  QRgb light;
  QRgb dark;
};

// Warm paper and blue-black ink. The order is that of Role.
constexpr std::array<Tones, kRoleCount> kTones = {{
    {Role::window, 0xfff7f6f4, 0xff1f1e1d},
    {Role::sidebar, 0xffefeeeb, 0xff262524},
    {Role::card, 0xffffffff, 0xff2c2b29},
    {Role::field, 0xffffffff, 0xff191817},
    {Role::tooltip, 0xff33312e, 0xff44413e},
    {Role::text, 0xff1d1c1a, 0xfff0eeeb},
    {Role::textSecondary, 0xff5f5b56, 0xffb3aea8},
    {Role::textPlaceholder, 0xff6d6964, 0xff9a958f},
    {Role::textDisabled, 0xff9d9892, 0xff75706b},
    {Role::tooltipText, 0xfff7f6f4, 0xfff7f6f4},
    {Role::separator, 0xffdfdcd7, 0xff3a3836},
    {Role::border, 0xffd0ccc6, 0xff4a4744},
    {Role::fieldBorder, 0xff8a857e, 0xff7d7872},
    {Role::control, 0xffffffff, 0xff363432},
    {Role::controlHover, 0xfff6f5f3, 0xff403e3b},
    {Role::controlPressed, 0xffe9e7e3, 0xff2b2a28},
    {Role::controlDisabled, 0xfff4f3f0, 0xff2a2927},
    {Role::track, 0xffd6d2cc, 0xff4a4744},
    {Role::hover, 0x0f1d1c1a, 0x14ffffff},
    {Role::pressed, 0x1f1d1c1a, 0x24ffffff},
    {Role::scrollHandle, 0x661d1c1a, 0x66ffffff},
    {Role::accent, 0xff3b5bdb, 0xff4c6ae5},
    {Role::accentHover, 0xff3350c6, 0xff3f5bd3},
    {Role::accentPressed, 0xff2b45b0, 0xff3551bd},
    {Role::accentText, 0xffffffff, 0xffffffff},
    {Role::accentForeground, 0xff3350c6, 0xff9db0ff},
    {Role::selection, 0xffdfe5fc, 0xff313c6b},
    {Role::focusRing, 0xff4263eb, 0xff8199ff},
    {Role::success, 0xff22702f, 0xff74d481},
    {Role::warning, 0xffc96a00, 0xffffb35c},
    {Role::danger, 0xffc02626, 0xffff9191},
    {Role::successFill, 0xffdcf3df, 0xff1f3d25},
    {Role::canvas, 0xffffffff, 0xff191817},
    {Role::canvasInk, 0xff1d1c1a, 0xfff0eeeb},
    {Role::grey, 0xff6d6964, 0xffa8a39d},
    {Role::blue, 0xff2a63d6, 0xff6b9dff},
    {Role::red, 0xffd9362f, 0xffff7a73},
    {Role::green, 0xff1f7a35, 0xff5fce77},
    {Role::purple, 0xff8a3fd1, 0xffbe8cf5},
    {Role::orange, 0xffaa5500, 0xffffae4d},
    {Role::pink, 0xffd63384, 0xffff85bd},
    {Role::cyan, 0xff0b90a8, 0xff5cd0e6},
    {Role::yellow, 0xffad8a00, 0xfff2cf46},
}};

constexpr bool inOrder() {
  for (std::size_t i = 0; i < kTones.size(); ++i)
    if (kTones[i].role != static_cast<Role>(i)) return false;
  return true;
}
static_assert(inOrder());

} // namespace

QColor Theme::color(Role role, ColorScheme scheme) {
  const Tones& tones = kTones[static_cast<std::size_t>(role)];
  return QColor::fromRgba(scheme == ColorScheme::dark ? tones.dark : tones.light);
}

QColor Theme::color(Role role, double opacity) const {
  QColor result = color(role);
  result.setAlphaF(static_cast<float>(result.alphaF() * opacity));
  return result;
}

QPalette Theme::palette(ColorScheme scheme) {
  QPalette palette;
  const auto set = [&](QPalette::ColorRole role, Role enabled, Role disabled) {
    palette.setColor(QPalette::Active, role, color(enabled, scheme));
    palette.setColor(QPalette::Inactive, role, color(enabled, scheme));
    palette.setColor(QPalette::Disabled, role, color(disabled, scheme));
  };
  const auto setSame = [&](QPalette::ColorRole role, Role both) { set(role, both, both); };
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    set(role, Role::text, Role::textDisabled);
  setSame(QPalette::Window, Role::window);
  set(QPalette::Base, Role::field, Role::controlDisabled);
  setSame(QPalette::AlternateBase, Role::sidebar);
  set(QPalette::PlaceholderText, Role::textPlaceholder, Role::textDisabled);
  set(QPalette::Button, Role::control, Role::controlDisabled);
  set(QPalette::Highlight, Role::accent, Role::track);
  set(QPalette::HighlightedText, Role::accentText, Role::textDisabled);
  set(QPalette::Link, Role::accentForeground, Role::textDisabled);
  set(QPalette::LinkVisited, Role::accentForeground, Role::textDisabled);
  setSame(QPalette::BrightText, Role::accentText);
  setSame(QPalette::ToolTipBase, Role::tooltip);
  setSame(QPalette::ToolTipText, Role::tooltipText);
  // The bevels of old. Our style draws none, but Qt mixes other colours from them.
  setSame(QPalette::Light, Role::card);
  setSame(QPalette::Midlight, Role::controlHover);
  setSame(QPalette::Mid, Role::separator);
  setSame(QPalette::Dark, Role::border);
  setSame(QPalette::Shadow, Role::fieldBorder);
  return palette;
}

} // namespace quillery
