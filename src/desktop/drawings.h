// The strokes of the icons, as SVG paths on a grid of 24.
#pragma once

#include <span>
#include <string_view>

namespace desktop {

struct Drawing {
  std::string_view name;
  std::string_view path;
};

std::span<const Drawing> drawings();

}  // namespace desktop
