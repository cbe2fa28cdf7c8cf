// A chart: series of values side by side over common labels, as the months of several years.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "ui/control.h"

namespace ui {

struct Series {
  std::string name;
  std::vector<double> values;  // one for each label; those that are missing count as 0
};

class Chart : public Control {
 public:
  Chart(Form& form, std::string_view name, std::string_view caption);
  ~Chart() override;
  const std::vector<std::string>& labels() const { return labels_; }
  const std::vector<Series>& series() const { return series_; }
  void show(std::vector<std::string> labels, std::vector<Series> series);
  void clear() { show({}, {}); }
  bool takesFocus() const override { return false; }
  std::string_view kind() const override { return "chart"; }

 private:
  std::vector<std::string> labels_;
  std::vector<Series> series_;
};

// The axis beside the bars: from `low` to `high` by steps of 1, 2 or 5 times a power of ten, with 0 on it and
// every value within. Without a finite value other than 0 it goes from 0 to 1.
struct Axis {
  double low = 0, high = 1, step = 1;
};
Axis axisOf(const std::vector<Series>& series);

}  // namespace ui
