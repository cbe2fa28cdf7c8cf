#include "ui/chart.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace ui {

Chart::Chart(Form& form, std::string_view name, std::string_view caption) : Control(form, name, caption) {}
Chart::~Chart() = default;

void Chart::show(std::vector<std::string> labels, std::vector<Series> series) {
  labels_ = std::move(labels);
  series_ = std::move(series);
  for (Series& one : series_) one.values.resize(labels_.size());
  changed();
}

Axis axisOf(const std::vector<Series>& series) {
  constexpr double kLimit = 1e300;  // beyond it the ends of the axis would be infinite
  double least = 0, most = 0;
  for (const Series& one : series)
    for (const double value : one.values) {
      if (!std::isfinite(value)) continue;
      least = std::max(std::min(least, value), -kLimit);
      most = std::min(std::max(most, value), kLimit);
    }
  constexpr double steps = 4;  // at least so many over the whole height
  const double part = most / steps - least / steps;
  if (part <= 0 || !std::isfinite(part)) return {};
  const double power = std::pow(10, std::floor(std::log10(part)));
  const double lead = part / power;
  const double step = power * (lead < 2 ? 1 : lead < 5 ? 2 : 5);
  return {std::floor(least / step) * step, std::ceil(most / step) * step, step};
}

}  // namespace ui
